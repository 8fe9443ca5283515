#include "desktop/url_opener.h"

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

}  // namespace pinorama
