#include "app/picture_reading.h"

#include "app/main_window.h"
#include "app/reading_notice.h"
#include "base/memory_guard.h"
#include "base/status.h"
#include "location/metadata_reader.h"
#include "location/picture_source.h"
#include "opener/events/picture_opener.h"
#include "pictures/merged_properties.h"
#include "previews/late_properties.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
using Clock = std::chrono::steady_clock;

constexpr QSizeF kPreviewSize(128, 128);  // points
// A large picture takes its time on any disk; the window need not say so at once.
constexpr int kSlowPreview = 1500;  // milliseconds
// A picture that comes within this time needs no words; they would only flicker.
constexpr std::chrono::milliseconds kNoWords(500);
// A disk that was asleep needs some seconds; then it still does answer.
constexpr int kSilence = 3000;  // milliseconds
}  // namespace

PictureReading::PictureReading(MainWindow& window) : window_(window), larger_(*window.fileIconField)
{
    stillReading_.setSingleShot(true);
    connect(&stillReading_, &QTimer::timeout, this, &PictureReading::sayStillReading);
    silence_.setSingleShot(true);
    connect(&silence_, &QTimer::timeout, this, [this] {
        const QString name = window_.fileNameField->text();
        if (isOpeningSidecar_)
            notice().saySidecarNotAnswering(name);
        else
            notice().sayNotAnswering(name);
    });
    connect(OpenerEvents::instance(), &OpenerEvents::advanced, this, [this] {
        if (isOpening_) asked_ = Clock::now();  // nobody has waited for this
        takeOpened();
        takeSidecarFile();
        if (!previews_.isLoading()) readLateSidecar();
    });
    connect(LateProperties::instance(), &LateProperties::arrived, this, &PictureReading::takePlace);
    connect(&previews_, &PreviewLoader::previewReady, this, &PictureReading::takePreview);
    connect(&previews_, &PreviewLoader::readerMissing, this, &PictureReading::takeReaderMissing);
    connect(&previews_, &PreviewLoader::readerStuck, this, &PictureReading::takeReaderStuck);
    slowPreview_.setSingleShot(true);
    connect(&slowPreview_, &QTimer::timeout, this, [this] {
        if (previews_.isLoading()) sayStillReading();
    });
}

void PictureReading::begin(const std::string& path, std::chrono::nanoseconds waited)
{
    path_ = path;
    previews_.cancel();
    larger_.forget();
    if (awaitedPlace_ != 0) LateProperties::instance()->giveUp();
    awaitedPlace_ = 0;
    forgetSidecar();
    slowPreview_.stop();
    stillReading_.stop();
    silence_.stop();
    if (notice_ != nullptr) notice_->forget();

    picture_ = {};
    item_.reset();
    properties_ = {};
    hasLooked_ = false;
    hasPreview_ = false;
    isOpening_ = true;
    begun_ = Clock::now();
    asked_ = begun_ - std::max<std::chrono::nanoseconds>(waited - kMoreInATurn, {});
    cuPictureOpener().request(path);
    (void)cuPictureOpener().wait(patienceLeft());
    takeOpened();
    if (!isOpening_) return;
    awaitSlowFile();
    silence_.start(kSilence);
}

// Takes in how far the opener is with the file.
void PictureReading::takeOpened()
{
    OpenerClient& opener = cuPictureOpener();
    const OpenStage stage = opener.stage();
    const bool isDone = stage == OpenStage::done || stage == OpenStage::noOpener;
    if (!isOpening_ || (!isDone && stage != OpenStage::looked)) return;
    if (!std::exchange(hasLooked_, true)) Q_EMIT looked(opener.file());
    if (!isDone) return;
    picture_ = opener.take();
    item_ = picture_.item();
    isOpening_ = false;
    silence_.stop();
    if (stage == OpenStage::noOpener) {
        Q_EMIT openerMissing();
    } else {
        Q_EMIT opened();
    }
    endReading();
}

std::int32_t PictureReading::readPlace(fileInfoRecord* info)
{
    if (readsMoreKinds() && picture_.isOpen()) {
        isOpeningSidecar_ = true;
        silence_.start(kSilence);
        cuPictureOpener().request(path_, OpenTask::sidecar);
    }
    std::optional<PictureProperties> properties = read(picture_, patienceLeft());
    if (awaitedPlace_ == 0 && isOpeningSidecar_) {
        (void)cuPictureOpener().wait(patienceLeft());
        takeSidecarFile();
        const auto more = readSidecar(patienceLeft());
        if (isSidecarToCome()) ofPicture_ = properties.value_or(PictureProperties{});
        if (more) {
            if (!properties) properties.emplace();
            addMissing(*properties, *more, ValueSource::sidecar);
        }
    }
    if (awaitedPlace_ != 0 || isSidecarToCome()) awaitSlowFile();
    properties_ = properties.value_or(PictureProperties{});
    return properties ? fillInfoRecord(properties_, info) : kErrNothingUsable;
}

// The properties of an open file. When they take longer, nothing, and they are to come.
std::optional<PictureProperties> PictureReading::read(const PictureFile& file,
                                                      std::chrono::milliseconds patience)
{
    LateProperties::instance()->setPatience(patience);
    std::optional<PictureProperties> properties =
        baseGuardMemory([&] { return propertiesOf(file); });
    awaitedPlace_ = LateProperties::instance()->ticket();
    return properties;
}

// The properties of the sidecar, if it is there and gives them at once. Otherwise it is read after
// the preview, which does not depend on it.
std::optional<PictureProperties> PictureReading::readSidecar(std::chrono::milliseconds patience)
{
    if (!sidecar_.isOpen()) return std::nullopt;
    std::optional<PictureProperties> properties = read(sidecar_, patience);
    if (awaitedPlace_ == 0) {
        sidecar_ = {};
    } else {
        LateProperties::instance()->giveUp();
        awaitedPlace_ = 0;
    }
    return properties;
}

// Takes in how far the opener is with the sidecar.
void PictureReading::takeSidecarFile()
{
    OpenerClient& opener = cuPictureOpener();
    const OpenStage stage = opener.stage();
    if (!isOpeningSidecar_ || (stage != OpenStage::done && stage != OpenStage::noOpener)) return;
    sidecar_ = opener.take();
    isOpeningSidecar_ = false;
    silence_.stop();
}

// Reads the sidecar once everything else is there.
void PictureReading::readLateSidecar()
{
    if (awaitedPlace_ != 0) return;
    if (!sidecar_.isOpen()) return endReading();
    const auto properties = read(sidecar_, std::chrono::milliseconds(0));
    isReadingSidecar_ = awaitedPlace_ != 0;
    if (isReadingSidecar_) return;
    takeLateSidecar(properties ? PropertyResult{ReadOutcome::found, *properties}
                               : PropertyResult{ReadOutcome::nothing, {}});
}

void PictureReading::takeLateSidecar(const PropertyResult& result)
{
    PictureProperties properties = std::move(ofPicture_);
    forgetSidecar();
    if (result.outcome == ReadOutcome::stuck || result.outcome == ReadOutcome::failed) {
        stillReading_.stop();
        notice().saySidecarNotRead(window_.fileNameField->text());
        return;
    }
    const PictureProperties before = properties;
    if (result.outcome == ReadOutcome::found)
        addMissing(properties, result.properties, ValueSource::sidecar);
    if (properties != before) {  // it says something that is not shown
        properties_ = std::move(properties);
        Q_EMIT placeRead(properties_);
    }
    endReading();
}

void PictureReading::forgetSidecar()
{
    if (isOpeningSidecar_) {
        cuPictureOpener().giveUp();
        silence_.stop();
    }
    isOpeningSidecar_ = false;
    isReadingSidecar_ = false;
    sidecar_ = {};
    ofPicture_ = {};
}

void PictureReading::requestPreview()
{
    slowPreview_.start(kSlowPreview);
    previews_.request(path_, std::exchange(picture_, {}), kPreviewSize,
                      window_.devicePixelRatioF());
}

bool PictureReading::isGoingOn() const
{
    return isOpening_ || awaitedPlace_ != 0 || isSidecarToCome() || previews_.isLoading();
}

bool PictureReading::hasFailed() const
{
    return notice_ != nullptr && notice_->saysFailure();
}

void PictureReading::takePlace(std::uint32_t ticket, const PropertyResult& result)
{
    if (ticket == 0 || ticket != awaitedPlace_) return;
    awaitedPlace_ = 0;
    if (isReadingSidecar_) return takeLateSidecar(result);
    if (result.outcome == ReadOutcome::stuck || result.outcome == ReadOutcome::failed) {
        forgetSidecar();
        // Its preview would only be stuck as well.
        sayNotRead();
        previews_.settleForIcon();
        larger_.forget();
        return;
    }
    if (isSidecarToCome()) ofPicture_ = result.properties;
    if (result.outcome == ReadOutcome::found) {
        properties_ = result.properties;
        Q_EMIT placeRead(properties_);
    }
    if (!previews_.isLoading()) readLateSidecar();
    endReading();
}

void PictureReading::takePreview(const std::string& path, const QPixmap& preview, bool isPreview)
{
    if (path != path_) return;
    hasPreview_ = isPreview;
    Q_EMIT previewRead(preview);
    if (isPreview && item_) larger_.follow(path, *item_);
    readLateSidecar();
    endReading();
}

void PictureReading::takeReaderMissing(const std::string& path)
{
    if (path != path_) return;
    forgetSidecar();
    Q_EMIT readerMissing();
    endReading();
}

void PictureReading::takeReaderStuck(const std::string& path)
{
    if (path == path_) sayNotRead();
}

// What is left of the time in which the window waits.
std::chrono::milliseconds PictureReading::patienceLeft() const
{
    const auto left =
        patience_ - std::chrono::floor<std::chrono::milliseconds>(Clock::now() - asked_);
    return std::max(left, std::chrono::milliseconds(0));
}

// Says that the file takes its time as soon as that is worth a word.
void PictureReading::awaitSlowFile()
{
    const auto left =
        kNoWords - std::chrono::floor<std::chrono::milliseconds>(Clock::now() - begun_);
    if (left.count() > 0) {
        stillReading_.start(left);
    } else {
        sayStillReading();
    }
}

// Takes "still reading" back once nothing is to come any more.
void PictureReading::endReading()
{
    if (isGoingOn()) return;
    stillReading_.stop();
    if (notice_ != nullptr) notice_->endReading();
    Q_EMIT ended();
}

void PictureReading::sayStillReading()
{
    notice().sayStillReading(window_.fileNameField->text());
}

void PictureReading::sayNotRead()
{
    stillReading_.stop();
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
