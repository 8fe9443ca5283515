#include "desktop/url_opener.h"

#include "desktop/scheme_handlers.h"

#include <QDesktopServices>
#include <QUrl>

namespace pinorama {

void DesktopUrlOpener::open(const QByteArray& url)
{
    // The tolerant mode would repair a malformed URL into another one. Strict parsing also keeps
    // the percent escapes as they are.
    const QUrl parsed = QUrl::fromEncoded(url, QUrl::StrictMode);
    if (parsed.isValid() && !parsed.scheme().isEmpty()) QDesktopServices::openUrl(parsed);
}

bool DesktopUrlOpener::isTaken(const QByteArray& url) const
{
    const qsizetype colon = url.indexOf(':');
    return colon > 0 && hasSchemeHandler(url.left(colon).toLower().toStdString());
}

}  // namespace pinorama
