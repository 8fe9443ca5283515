#include "app/nearby/nearby_thumbnails.h"

#include "lib/ui/file_icon.h"
#include "location/picture_source.h"

#include <QPainter>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr QSizeF kSize(NearbyThumbnails::kSide, NearbyThumbnails::kSide);
constexpr int kSilence = 3000;  // milliseconds

QPixmap onCanvas(const QPixmap& picture, qreal ratio)
{
    QPixmap canvas = NearbyThumbnails::emptyOne(ratio);
    if (picture.isNull()) return canvas;
    QRectF place(QPointF(0, 0), picture.deviceIndependentSize());
    place.moveCenter(QRectF(QPointF(0, 0), kSize).center());
    QPainter(&canvas).drawPixmap(place.topLeft(), picture);
    return canvas;
}
}  // namespace

NearbyThumbnails::NearbyThumbnails(QObject* parent)
    : QObject(parent),
      opener_([] { return startOpenerProgram(openerProgram()); }),
      openerEvents_(opener_),
      reader_([] { return startPictureReader(readsMoreKinds()); }),
      readerEvents_(reader_)
{
    next_.setSingleShot(true);
    silence_.setSingleShot(true);
    connect(&next_, &QTimer::timeout, this, &NearbyThumbnails::beginNext);
    connect(&silence_, &QTimer::timeout, this, [this] { finish(std::nullopt); });
    connect(&openerEvents_, &OpenerEvents::advanced, this, &NearbyThumbnails::takeOpened);
    connect(&readerEvents_, &ReaderEvents::advanced, this, &NearbyThumbnails::takeReply);
}

void NearbyThumbnails::want(const std::vector<std::string>& paths, qreal ratio)
{
    const bool isSame = ratio == std::exchange(ratio_, ratio);
    wanted_.assign(paths.begin(), paths.end());
    const auto current = std::find(wanted_.begin(), wanted_.end(), path_);
    if (isSame && current != wanted_.end()) {
        wanted_.erase(current);
    } else {
        giveUp();
    }
    if (path_.empty() && !wanted_.empty()) next_.start(0);
}

void NearbyThumbnails::stop()
{
    want({}, ratio_);
    opener_.stop();
    reader_.stop();
}

QPixmap NearbyThumbnails::emptyOne(qreal ratio)
{
    const PixelSize pixels = cuPixelsOfPoints(kSize, ratio);
    QPixmap empty(pixels.width, pixels.height);
    empty.setDevicePixelRatio(ratio);
    empty.fill(Qt::transparent);
    return empty;
}

void NearbyThumbnails::beginNext()
{
    if (!path_.empty() || wanted_.empty()) return;
    path_ = std::move(wanted_.front());
    wanted_.pop_front();
    type_ = 0;
    silence_.start(kSilence);
    opener_.request(path_);
    takeOpened();
}

void NearbyThumbnails::takeOpened()
{
    const OpenStage stage = opener_.stage();
    if (path_.empty() || plan_) return;
    if (stage == OpenStage::noOpener) return finish(std::nullopt);
    if (stage != OpenStage::done) return;
    silence_.stop();
    PictureFile picture = opener_.take();
    type_ = picture.item() ? picture.item()->type : 0;
    plan_.emplace(path_, std::move(picture), cuPixelsOfPoints(kSize, ratio_));
    startStep();
}

void NearbyThumbnails::startStep()
{
    if (!plan_->next()) return finish(std::nullopt);
    ticket_ = reader_.startPreview(plan_->file().descriptor(), plan_->kind(), plan_->box());
}

void NearbyThumbnails::takeReply()
{
    if (ticket_ == 0 || reader_.previewTicket() != ticket_) return;
    const std::optional<PreviewResult> result = reader_.takePreview();
    if (!result) return;
    ticket_ = 0;
    if (result->outcome == ReadOutcome::noReader) return finish(std::nullopt);
    const std::optional<QImage> image =
        result->outcome == ReadOutcome::found ? plan_->imageOf(result->reply) : std::nullopt;
    if (!image) return startStep();
    const PreviewPlan plan = *std::exchange(plan_, std::nullopt);
    finish(image);
    if (result->reply.wasDecoded) plan.store(result->reply);
}

void NearbyThumbnails::giveUp()
{
    if (ticket_ != 0) reader_.giveUpPreview();
    if (!path_.empty() && !plan_) opener_.giveUp();
    silence_.stop();
    ticket_ = 0;
    plan_.reset();
    path_.clear();
}

void NearbyThumbnails::finish(const std::optional<QImage>& preview)
{
    const std::string path = path_;
    const QPixmap picture = preview ? cuPictureOfPreview(*preview, kSize, ratio_, 0)
                                    : cuIconOfType(path, type_, kSize, ratio_);
    giveUp();
    if (!wanted_.empty()) next_.start(0);
    Q_EMIT loaded(path, onCanvas(picture, ratio_));
}

}  // namespace pinorama
