#include "app/picture_reading.h"

#include "app/main_window.h"
#include "app/reading_notice.h"
#include "location/metadata_reader.h"
#include "previews/late_properties.h"

#include <utility>

namespace pinorama {
namespace {
constexpr QSizeF kPreviewSize(128, 128);  // points
// A large picture takes its time on any disk; the window need not say so at once.
constexpr int kSlowPreview = 1500;  // milliseconds
}  // namespace

PictureReading::PictureReading(MainWindow& window) : window_(window)
{
    connect(LateProperties::instance(), &LateProperties::arrived, this, &PictureReading::takePlace);
    connect(&previews_, &PreviewLoader::previewReady, this, &PictureReading::takePreview);
    connect(&previews_, &PreviewLoader::readerMissing, this, &PictureReading::takeReaderMissing);
    connect(&previews_, &PreviewLoader::readerStuck, this, &PictureReading::takeReaderStuck);
    slowPreview_.setSingleShot(true);
    connect(&slowPreview_, &QTimer::timeout, this, [this] {
        if (previews_.isLoading()) sayStillReading();
    });
}

void PictureReading::begin(const std::string& path)
{
    path_ = path;
    previews_.cancel();
    if (awaitedPlace_ != 0) LateProperties::instance()->giveUp();
    awaitedPlace_ = 0;
    slowPreview_.stop();
    if (notice_ != nullptr) notice_->forget();
}

std::int32_t PictureReading::readPlace(const PictureFile& picture, fileInfoRecord* info)
{
    const std::int32_t status = readInfoRecord(picture, info);
    awaitedPlace_ = LateProperties::instance()->ticket();
    if (awaitedPlace_ != 0) sayStillReading();
    return status;
}

void PictureReading::requestPreview(PictureFile picture)
{
    slowPreview_.start(kSlowPreview);
    previews_.request(path_, std::move(picture), kPreviewSize, window_.devicePixelRatioF());
}

bool PictureReading::isGoingOn() const
{
    return awaitedPlace_ != 0 || previews_.isLoading();
}

void PictureReading::takePlace(std::uint32_t ticket, const PropertyResult& result)
{
    if (ticket == 0 || ticket != awaitedPlace_) return;
    awaitedPlace_ = 0;
    if (result.outcome == ReadOutcome::stuck || result.outcome == ReadOutcome::failed) {
        // Its preview would only be stuck as well.
        sayNotRead();
        previews_.settleForIcon();
        return;
    }
    endReading();
    if (result.outcome == ReadOutcome::found) Q_EMIT placeRead(result.properties);
}

void PictureReading::takePreview(const std::string& path, const QPixmap& preview)
{
    if (path != path_) return;
    Q_EMIT previewRead(preview);
    endReading();
}

void PictureReading::takeReaderMissing(const std::string& path)
{
    if (path != path_) return;
    Q_EMIT readerMissing();
    endReading();
}

void PictureReading::takeReaderStuck(const std::string& path)
{
    if (path == path_) sayNotRead();
}

// Takes "still reading" back once nothing is to come any more.
void PictureReading::endReading()
{
    if (notice_ != nullptr && !isGoingOn()) notice_->endReading();
}

void PictureReading::sayStillReading()
{
    notice().sayStillReading(window_.fileNameField->text());
}

void PictureReading::sayNotRead()
{
    notice().sayNotRead(window_.fileNameField->text());
}

// Made when there is something to say for the first time.
ReadingNotice& PictureReading::notice()
{
    if (notice_ == nullptr) {
        notice_ = new ReadingNotice(window_.centralWidget());
        window_.windowLayout->addWidget(notice_);
    }
    return *notice_;
}

}  // namespace pinorama
