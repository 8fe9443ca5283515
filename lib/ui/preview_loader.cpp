#include "lib/ui/preview_loader.h"

#include "lib/ui/file_icon.h"
#include "lib/ui/preview_plan.h"
#include "platform/files/path_text.h"
#include "reader/preview_answers.h"

#include <string>
#include <utility>

struct PreviewLoader::Request {
    std::string path;
    QSizeF size;
    qreal ratio;
    PreviewPlan plan;
};

PreviewLoader::PreviewLoader(QObject* parent) : QObject(parent)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &PreviewLoader::work);
}

PreviewLoader::~PreviewLoader() = default;

void PreviewLoader::request(TovStringRef path, QSizeF size, qreal ratio)
{
    timer_.stop();
    request_.reset();
    if (path == nullptr) return;
    const std::string bytes = platform::pathBytes(path);
    request_ = std::make_unique<Request>(
        Request{bytes, size, ratio, PreviewPlan(bytes, cuPixelsOfPoints(size, ratio))});
    timer_.start(0);
}

void PreviewLoader::work()
{
    const std::unique_ptr<Request> request = std::move(request_);
    PreviewPlan& plan = request->plan;
    QPixmap picture;
    while (picture.isNull() && plan.next()) {
        platform::FileByteSource source(plan.file().descriptor(), plan.file().size());
        const auto answer = answerPreview(source, plan.kind(), plan.box());
        if (!answer) continue;
        if (const std::optional<QImage> image = plan.imageOf(*answer)) {
            plan.store(*answer);
            picture = cuPictureOfPreview(*image, request->size, request->ratio, 0);
        }
    }
    if (picture.isNull()) picture = cuIconOfItem(request->path, request->size, request->ratio);
    Q_EMIT previewReady(QByteArray::fromStdString(request->path), picture);
}
