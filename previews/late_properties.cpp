#include "previews/late_properties.h"

#include "previews/picture_reader.h"

#include <QCoreApplication>
#include <QPointer>

#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace pinorama {

LateProperties* LateProperties::instance()
{
    static QPointer<LateProperties> late;
    if (!late) {
        late = new LateProperties;
        late->setParent(QCoreApplication::instance());
    }
    return late;
}

LateProperties::LateProperties()
{
    connect(ReaderEvents::instance(), &ReaderEvents::advanced, this, &LateProperties::takeResult);
}

std::optional<PictureProperties> LateProperties::read(int descriptor)
{
    giveUp();
    file_ = DescriptorHolder(fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    ReaderClient& reader = cuPictureReader();
    const std::uint32_t ticket = reader.startProperties(file_.get());
    std::optional<PropertyResult> result = reader.waitForProperties(patience_);
    if (!result) {
        ticket_ = ticket;
        return std::nullopt;
    }
    file_ = DescriptorHolder();
    if (result->outcome != ReadOutcome::found) return std::nullopt;
    return std::move(result->properties);
}

void LateProperties::giveUp()
{
    if (ticket_ == 0) return;
    ticket_ = 0;
    cuPictureReader().giveUpProperties();
    file_ = DescriptorHolder();
}

void LateProperties::takeResult()
{
    ReaderClient& reader = cuPictureReader();
    if (ticket_ == 0) return;
    std::optional<PropertyResult> result;
    if (reader.propertiesTicket() == ticket_) {
        result = reader.takeProperties();
        if (!result) return;
    } else {
        // The reader was stopped, or has been asked for other properties: the ticket is the
        // client's no more, and no result will come for it.
        result = PropertyResult{ReadOutcome::failed, {}};
    }
    file_ = DescriptorHolder();
    // Nothing of this picture is pending any more when the receiver asks for the next one.
    Q_EMIT arrived(std::exchange(ticket_, 0), *result);
}

}  // namespace pinorama
