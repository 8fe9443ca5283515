#include "previews/preview_loader.h"

#include "lib/ui/file_icon.h"
#include "previews/picture_reader.h"
#include "previews/preview_plan.h"

#include <string>
#include <utility>

namespace pinorama {
namespace {
constexpr int kStoreDelay = 100;  // milliseconds, in which the preview gets onto the screen
}  // namespace

struct PreviewLoader::Request {
    std::string path;
    std::uint32_t type;  // of what is at the path
    QSizeF size;
    qreal ratio;
    PreviewPlan plan;
    std::uint32_t ticket = 0;  // of the current step; 0 before the first
};

// A preview that took its time, until it is in the desktop's cache.
struct PreviewLoader::Unstored {
    PreviewPlan plan;
    PreviewReply reply;
};

PreviewLoader::PreviewLoader(PreviewUse use, QObject* parent) : QObject(parent), use_(use)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, [this] {
        if (request_->plan.next()) {
            startStep();
        } else {
            finish(std::nullopt);
        }
    });
    storeTimer_.setSingleShot(true);
    connect(&storeTimer_, &QTimer::timeout, this, &PreviewLoader::store);
    connect(ReaderEvents::instance(), &ReaderEvents::advanced, this, &PreviewLoader::takeReply);
}

PreviewLoader::~PreviewLoader()
{
    cancel();
    store();
}

void PreviewLoader::request(const std::string& path, PictureFile picture, QSizeF size, qreal ratio)
{
    cancel();
    const std::uint32_t type = picture.item() ? picture.item()->type : 0;
    PreviewPlan plan(path, std::move(picture), cuPixelsOfPoints(size, ratio));
    request_ = std::make_unique<Request>(Request{path, type, size, ratio, std::move(plan)});
    // The caller asks for the properties of the same picture next. A preview that the reader has
    // begun would be in their way, so the first step waits for the event loop.
    timer_.start(0);
}

void PreviewLoader::cancel()
{
    stopReading();
    request_.reset();
}

void PreviewLoader::settleForIcon()
{
    if (!request_) return;
    stopReading();
    finish(std::nullopt);
}

void PreviewLoader::stopReading()
{
    timer_.stop();
    ReaderClient& reader = cuPictureReader();
    if (request_ && request_->ticket != 0 && reader.previewTicket() == request_->ticket) {
        reader.giveUpPreview();
    }
}

void PreviewLoader::startStep()
{
    const PreviewPlan& plan = request_->plan;
    request_->ticket =
        cuPictureReader().startPreview(plan.file().descriptor(), plan.kind(), plan.box());
}

void PreviewLoader::takeReply()
{
    ReaderClient& reader = cuPictureReader();
    if (!request_ || request_->ticket == 0) return;
    if (reader.previewTicket() != request_->ticket) {
        // Another preview has taken the place of this one. If that has been taken, the reader is
        // free again; otherwise this is called again when it is.
        if (reader.previewTicket() == 0) startStep();
        return;
    }
    std::optional<PreviewResult> result = reader.takePreview();
    if (!result) return;
    if (result->outcome == ReadOutcome::noReader) {
        const std::unique_ptr<Request> request = std::move(request_);
        Q_EMIT readerMissing(request->path);
        return;
    }
    if (result->outcome == ReadOutcome::found) {
        if (const std::optional<QImage> image = request_->plan.imageOf(result->reply)) {
            keepForStoring(result->reply);
            finish(cuPictureOfPreview(*image, request_->size, request_->ratio, 0));
            return;
        }
    }
    if (request_->plan.next()) {
        startStep();
        return;
    }
    const std::unique_ptr<Request> request = std::move(request_);
    if (result->outcome == ReadOutcome::stuck) {
        Q_EMIT readerStuck(request->path);
        if (request_) return;  // the receiver has made the next request
    }
    show(*request, std::nullopt);
}

// Compressing a thumbnail takes longer than showing the preview, so the preview is shown first.
void PreviewLoader::keepForStoring(PreviewReply& reply)
{
    if (!reply.wasDecoded || use_ == PreviewUse::larger) return;
    store();
    request_->plan.close();
    unstored_ = std::make_unique<Unstored>(Unstored{std::move(request_->plan), std::move(reply)});
    storeTimer_.start(kStoreDelay);
}

void PreviewLoader::store()
{
    const std::unique_ptr<Unstored> unstored = std::move(unstored_);
    if (unstored) unstored->plan.store(unstored->reply);
}

// Ends the request, with the icon when there is no preview. The receiver may make the next one.
void PreviewLoader::finish(const std::optional<QPixmap>& preview)
{
    const std::unique_ptr<Request> request = std::move(request_);
    show(*request, preview);
}

void PreviewLoader::show(const Request& request, const std::optional<QPixmap>& preview)
{
    if (preview) {
        Q_EMIT previewReady(request.path, *preview, true);
        return;
    }
    const QPixmap icon = use_ == PreviewUse::larger ? QPixmap()
                                                    : cuIconOfType(request.path, request.type,
                                                                   request.size, request.ratio);
    Q_EMIT previewReady(request.path, icon, false);
}

}  // namespace pinorama
