#include "app/larger_preview.h"

#include "app/picture_field.h"
#include "opener/events/picture_opener.h"
#include "previews/preview_plan.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
// While a window is made larger its size changes many times a second.
constexpr int kSettling = 250;  // milliseconds

// Whether a picture that was scaled to fit into a square of `side` points may have more pixels than
// that.
bool fillsSquare(const QPixmap& preview, int side, qreal ratio)
{
    const PixelSize box = cuPixelsOfPoints(QSizeF(side, side), ratio);
    return preview.width() >= box.width || preview.height() >= box.height;
}
}  // namespace

LargerPreview::LargerPreview(PictureField& field) : field_(field)
{
    settled_.setSingleShot(true);
    settled_.setInterval(kSettling);
    connect(&settled_, &QTimer::timeout, this, &LargerPreview::ask);
    connect(&field, &PictureField::roomChanged, this, &LargerPreview::adapt);
    connect(OpenerEvents::instance(), &OpenerEvents::advanced, this, &LargerPreview::takeOpened);
    connect(&loader_, &PreviewLoader::previewReady, this,
            [this](const std::string&, const QPixmap& preview, bool isPreview) {
                take(preview, isPreview);
            });
    connect(&loader_, &PreviewLoader::readerMissing, this, &LargerPreview::settleForWhatIsThere);
}

void LargerPreview::follow(const std::string& path, const FileAttributes& item)
{
    forget();
    const QPixmap small = field_.pixmap();
    if (small.isNull() || !fillsSquare(small, PictureField::kSmallest, small.devicePixelRatio()))
        return;
    path_ = path;
    item_ = item;
    there_ = {PictureField::kSmallest, small.devicePixelRatio()};
    adapt();
    if (!settled_.isActive()) return;
    settled_.stop();
    ask();
}

void LargerPreview::forget()
{
    settled_.stop();
    opening_.reset();
    loader_.cancel();
    path_.clear();
    asked_ = there_ = {};
}

// The square that what the field has room for fits into.
LargerPreview::Square LargerPreview::wanted() const
{
    const qreal ratio = field_.devicePixelRatioF();
    const QSize fitted = field_.pixmap().size().scaled(field_.room(), Qt::KeepAspectRatio);
    const int needed = std::max(fitted.width(), fitted.height());
    if (needed <= PictureField::kSmallest) return {PictureField::kSmallest, ratio};
    const auto side = std::ranges::find_if(kSides, [needed](int each) { return each >= needed; });
    return {side == kSides.end() ? kSides.back() : *side, ratio};
}

// The room or the density has changed, or there is something to follow for the first time.
void LargerPreview::adapt()
{
    if (path_.empty() || !field_.isVisible()) return;
    const qreal pixels = wanted().pixels();
    field_.setAwaitsLarger(pixels > there_.pixels());
    if (pixels > std::max(there_.pixels(), asked_.pixels())) {
        settled_.start();
    } else {
        settled_.stop();
    }
}

void LargerPreview::ask()
{
    asked_ = wanted();
    ++requests_;
    loader_.cancel();
    if (opening_ != nullptr) return;
    opening_ = cuPictureOpener().ask({.task = OpenTask::open, .paths = {path_}});
    takeOpened();
}

void LargerPreview::takeOpened()
{
    if (opening_ == nullptr || !opening_->isAnswered()) return;
    PictureFile file = std::exchange(opening_, nullptr)->takeFile();
    if (!file.isOpen() || file.attributes() != item_) return settleForWhatIsThere();
    loader_.request(path_, std::move(file), QSizeF(asked_.side, asked_.side), asked_.ratio);
}

void LargerPreview::take(const QPixmap& preview, bool isPreview)
{
    const bool isLarger = isPreview && preview.width() >= field_.pixmap().width() &&
                          preview.height() >= field_.pixmap().height();
    if (!isLarger) return settleForWhatIsThere();
    field_.showLarger(preview);
    there_ = asked_;
    if (!fillsSquare(preview, asked_.side, preview.devicePixelRatio()))
        return settleForWhatIsThere();
    adapt();
}

// The file has nothing larger.
void LargerPreview::settleForWhatIsThere()
{
    forget();
    field_.setAwaitsLarger(false);
}

}  // namespace pinorama
