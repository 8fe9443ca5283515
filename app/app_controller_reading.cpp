// Pictures on slow disks: what the window shows of them while they are being read, and afterwards.

#include "app/app_controller.h"
#include "app/elided_field.h"
#include "app/main_window.h"
#include "app/reading_notice.h"
#include "lib/files/path_text.h"
#include "location/metadata_reader.h"
#include "previews/late_properties.h"

namespace pinorama {
namespace {
// A large picture takes its time on any disk; nobody needs to be told at once.
constexpr int kSlowPreview = 1500;  // milliseconds

}  // namespace

void AppController::connectReading()
{
    connect(LateProperties::instance(), &LateProperties::arrived, this,
            &AppController::showLateLocation);
    connect(&previews_, &PreviewLoader::readerStuck, this, &AppController::showReaderStuck);
    slowPreview_.setSingleShot(true);
    connect(&slowPreview_, &QTimer::timeout, this, [this] {
        if (previews_.isLoading()) sayStillReading();
    });
}

bool AppController::isReading() const
{
    return awaitedLocation_ != 0 || previews_.isLoading();
}

// Nothing waits behind the picture that was shown before.
void AppController::forgetReading()
{
    if (awaitedLocation_ != 0) LateProperties::instance()->giveUp();
    awaitedLocation_ = 0;
    slowPreview_.start(kSlowPreview);
    if (readingNotice_ != nullptr) readingNotice_->forget();
}

void AppController::awaitLocation()
{
    awaitedLocation_ = LateProperties::instance()->ticket();
    if (awaitedLocation_ != 0) sayStillReading();
}

void AppController::showLateLocation(std::uint32_t ticket, const PropertyResult& result)
{
    if (ticket == 0 || ticket != awaitedLocation_) return;
    awaitedLocation_ = 0;
    if (result.outcome == ReadOutcome::stuck || result.outcome == ReadOutcome::failed) {
        // Its preview would only be stuck as well.
        sayNotRead();
        previews_.settleForIcon();
        return;
    }
    endReading();
    if (result.outcome != ReadOutcome::found) return;
    gpsPrepareInfoRecord(&info);
    showLocationFound(fillInfoRecord(result.properties, &info));
}

void AppController::showReaderStuck(const QByteArray& path)
{
    if (path.toStdString() == pathBytes(lastPath)) sayNotRead();
}

void AppController::endReading()
{
    if (readingNotice_ != nullptr && !isReading()) readingNotice_->endReading();
}

void AppController::sayStillReading()
{
    readingNotice()->sayStillReading(fileNameField->text());
}

void AppController::sayNotRead()
{
    readingNotice()->sayNotRead(fileNameField->text());
}

// Made when there is something to say for the first time.
ReadingNotice* AppController::readingNotice()
{
    if (readingNotice_ == nullptr) {
        readingNotice_ = new ReadingNotice(myWindow->centralWidget());
        myWindow->windowLayout->addWidget(readingNotice_);
    }
    return readingNotice_;
}

}  // namespace pinorama
