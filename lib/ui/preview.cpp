#include "lib/ui/preview.h"

#include "lib/ui/file_icon.h"
#include "lib/ui/picture_reader.h"
#include "lib/ui/preview_plan.h"
#include "platform/files/path_text.h"

#include <QGuiApplication>

#include <chrono>

namespace {
constexpr std::chrono::seconds kLongestWait(3);  // for one file
}  // namespace

QPixmap imageWithPreviewOfFileAtPath(TovStringRef path, QSizeF ofSize, std::uint8_t asIcon)
{
    if (path == nullptr || qGuiApp == nullptr) return {};
    const qreal ratio = qGuiApp->devicePixelRatio();
    const platform::PixelSize box = cuPixelsOfPoints(ofSize, ratio);
    if (box.width == 0) return {};

    const std::string bytes = platform::pathBytes(path);
    platform::ReaderClient& reader = cuPictureReader();
    PreviewPlan plan(bytes, box);
    while (plan.next()) {
        (void)reader.startPreview(plan.file().descriptor(), plan.kind(), plan.box());
        const platform::PreviewResult result = reader.waitForPreview(kLongestWait);
        if (result.outcome == platform::ReadOutcome::noReader) break;
        if (result.outcome != platform::ReadOutcome::found) continue;
        if (const std::optional<QImage> image = plan.imageOf(result.answer)) {
            plan.store(result.answer);
            return cuPictureOfPreview(*image, ofSize, ratio, asIcon);
        }
    }
    return cuIconOfItem(bytes, ofSize, ratio);
}
