#include "lib/ui/preview.h"

#include "lib/files/path_text.h"
#include "lib/ui/file_icon.h"

#include <QGuiApplication>

#include <utility>

using namespace pinorama;

namespace {
PreviewService& currentService()
{
    static PreviewService service;
    return service;
}
}  // namespace

void cuInstallPreviewService(PreviewService service)
{
    currentService() = std::move(service);
}

QPixmap imageWithPreviewOfFileAtPath(TovStringRef path, QSizeF ofSize, std::uint8_t asIcon)
{
    if (path == nullptr || qGuiApp == nullptr || !(ofSize.width() > 0) || !(ofSize.height() > 0)) {
        return {};
    }
    const qreal ratio = qGuiApp->devicePixelRatio();
    const std::string bytes = pathBytes(path);
    if (const PreviewService& service = currentService()) {
        if (const std::optional<QPixmap> preview = service(bytes, ofSize, ratio, asIcon))
            return *preview;
    }
    return cuIconOfItem(bytes, ofSize, ratio);
}
