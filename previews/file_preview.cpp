#include "previews/file_preview.h"

#include "lib/ui/preview.h"
#include "previews/picture_reader.h"
#include "previews/preview_plan.h"

#include <chrono>
#include <optional>
#include <string>

namespace pinorama {
namespace {
constexpr std::chrono::seconds kMaxWait(3);  // for one file

std::optional<QPixmap> previewOf(const std::string& path, QSizeF ofSize, qreal ratio,
                                 std::uint8_t asIcon)
{
    const PixelSize box = cuPixelsOfPoints(ofSize, ratio);
    if (box.width == 0) return QPixmap();

    ReaderClient& reader = cuPictureReader();
    PreviewPlan plan(path, PictureFile(path), box);
    while (plan.next()) {
        (void)reader.startPreview(plan.file().descriptor(), plan.kind(), plan.box());
        const PreviewResult result = reader.waitForPreview(kMaxWait);
        if (result.outcome == ReadOutcome::noReader) break;
        if (result.outcome != ReadOutcome::found) continue;
        if (const std::optional<QImage> image = plan.imageOf(result.reply)) {
            plan.store(result.reply);
            return cuPictureOfPreview(*image, ofSize, ratio, asIcon);
        }
    }
    return std::nullopt;
}
}  // namespace

void cuInstallFilePreviews()
{
    cuInstallPreviewService(previewOf);
}

}  // namespace pinorama
