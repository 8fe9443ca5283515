// The properties of pictures on slow disks. A caller waits for properties a moment, in which nearly
// all come; the rest arrives through the event loop.
//
//     connect(late, &LateProperties::arrived, this, [this](std::uint32_t ticket, const auto&
//     result) {
//         if (ticket == shownTicket_) show(result);
//     });
//     const auto properties = late->read(descriptor);
//     shownTicket_ = late->ticket();  // 0 if `properties` is all there will be
//
// At most one picture is pending. While it is, its descriptor stays open in a copy, because the
// reader may die and the next one has to be sent it again; and the caller may not assume that the
// picture it shows is still the one that arrives, hence the ticket.

#pragma once

#include <QObject>

#include <chrono>
#include <cstdint>
#include <optional>

#include "base/descriptor.h"
#include "pictures/picture_properties.h"
#include "reader/reader_client.h"

namespace pinorama {

class LateProperties : public QObject {
    Q_OBJECT

public:
    // The instance that belongs to the application object, made on first use.
    static LateProperties* instance();

    // How long the next ones are waited for; half a second at first.
    void setPatience(std::chrono::milliseconds patience) { patience_ = patience; }

    // Has the reader read the properties of an open picture, which stays the caller's, and waits
    // for them so long at most; an earlier picture that is still being read is given up.
    //
    // Nothing when there are none, when reading failed, and when it still goes on: then ticket() is
    // not 0, and `arrived` comes as soon as it is known.
    std::optional<PictureProperties> read(int descriptor);

    // The ticket of the picture that is still being read; 0 for none.
    std::uint32_t ticket() const { return ticket_; }

    // Forgets the picture that is still being read: `arrived` does not come for it any more.
    void giveUp();

Q_SIGNALS:
    // The result for the picture with that ticket, once, from the event loop. A receiver may call
    // read.
    void arrived(std::uint32_t ticket, const PropertyResult& result);

private:
    LateProperties();
    void takeResult();

    std::chrono::milliseconds patience_{500};
    DescriptorHolder file_;  // open as long as the reader may be asked for it again
    std::uint32_t ticket_ = 0;
};

}  // namespace pinorama
