#include "desktop/url_opener.h"

#include <QDesktopServices>
#include <QUrl>

namespace pinorama {

void DesktopUrlOpener::open(const QByteArray& address)
{
    // Strict: an address that needs repair is none. The escapes in it pass unchanged.
    const QUrl url = QUrl::fromEncoded(address, QUrl::StrictMode);
    if (url.isValid() && !url.scheme().isEmpty()) QDesktopServices::openUrl(url);
}

}  // namespace pinorama
