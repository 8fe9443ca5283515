#include "lib/ui/preview.h"

#include "lib/ui/file_icon.h"
#include "lib/ui/preview_plan.h"
#include "platform/files/path_text.h"
#include "reader/preview_answers.h"

#include <QGuiApplication>

QPixmap imageWithPreviewOfFileAtPath(TovStringRef path, QSizeF ofSize, std::uint8_t asIcon)
{
    if (path == nullptr || qGuiApp == nullptr) return {};
    const qreal ratio = qGuiApp->devicePixelRatio();
    const platform::PixelSize box = cuPixelsOfPoints(ofSize, ratio);
    if (box.width == 0) return {};

    const std::string bytes = platform::pathBytes(path);
    PreviewPlan plan(bytes, box);
    while (plan.next()) {
        platform::FileByteSource source(plan.file().descriptor(), plan.file().size());
        const auto answer = answerPreview(source, plan.kind(), plan.box());
        if (!answer) continue;
        if (const std::optional<QImage> image = plan.imageOf(*answer)) {
            plan.store(*answer);
            return cuPictureOfPreview(*image, ofSize, ratio, asIcon);
        }
    }
    return cuIconOfItem(bytes, ofSize, ratio);
}
