// The properties of pictures on slow disks. Whoever asks for properties waits a moment, in which
// nearly all of them come; what takes longer arrives through the event loop.

#pragma once

#include <QObject>

#include <cstdint>
#include <optional>

#include "base/descriptor.h"
#include "pictures/picture_properties.h"
#include "reader/reader_client.h"

namespace pinorama {

class LateProperties : public QObject {
    Q_OBJECT

public:
    // The one of the running application object, made when it is asked for first.
    static LateProperties* instance();

    // Has the reader read the properties of an open picture, which stays the caller's, and waits
    // for them half a second at most; an earlier picture that is still being read is given up.
    //
    // Nothing when there are none, when reading failed, and when it still goes on: then ticket() is
    // not 0, and `arrived` comes as soon as it is known.
    std::optional<PictureProperties> read(int descriptor);

    // The ticket of the picture that is still being read; 0 for none.
    std::uint32_t ticket() const { return ticket_; }

    // Forgets the picture that is still being read: `arrived` does not come for it any more.
    void giveUp();

Q_SIGNALS:
    // What came of the picture with that ticket, once. Comes from the event loop.
    void arrived(std::uint32_t ticket, const PropertyResult& result);

private:
    LateProperties();
    void takeResult();

    DescriptorHolder file_;  // open as long as the reader may be asked for it again
    std::uint32_t ticket_ = 0;
};

}  // namespace pinorama
