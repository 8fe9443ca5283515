#include "previews/late_properties.h"

#include "previews/picture_reader.h"

#include <QCoreApplication>
#include <QPointer>

#include <chrono>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace {
constexpr std::chrono::milliseconds kShortWait(500);
}  // namespace

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

std::optional<platform::PictureProperties> LateProperties::read(int descriptor)
{
    giveUp();
    file_ = platform::DescriptorHolder(fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    platform::ReaderClient& reader = cuPictureReader();
    const std::uint32_t ticket = reader.startProperties(file_.get());
    std::optional<platform::PropertyResult> result = reader.waitForProperties(kShortWait);
    if (!result) {
        ticket_ = ticket;
        return std::nullopt;
    }
    file_ = platform::DescriptorHolder();
    if (result->outcome != platform::ReadOutcome::found) return std::nullopt;
    return std::move(result->properties);
}

void LateProperties::giveUp()
{
    if (ticket_ == 0) return;
    ticket_ = 0;
    cuPictureReader().giveUpProperties();
    file_ = platform::DescriptorHolder();
}

void LateProperties::takeResult()
{
    platform::ReaderClient& reader = cuPictureReader();
    if (ticket_ == 0) return;
    std::optional<platform::PropertyResult> result;
    if (reader.propertiesTicket() == ticket_) {
        result = reader.takeProperties();
        if (!result) return;
    } else {
        // The reader was stopped, or somebody else has asked it.
        result = platform::PropertyResult{platform::ReadOutcome::failed, {}};
    }
    file_ = platform::DescriptorHolder();
    Q_EMIT arrived(std::exchange(ticket_, 0), *result);
}
