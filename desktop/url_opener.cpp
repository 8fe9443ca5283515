#include "desktop/url_opener.h"

#include "desktop/scheme_handlers.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

#include <algorithm>

namespace pinorama {
namespace {
// Where no program is registered for web pages, the desktop's openers look for one of these.
bool hasBrowser()
{
    if (!qEnvironmentVariableIsEmpty("BROWSER")) return true;
    return std::ranges::any_of(
        std::initializer_list<const char*>{"x-www-browser", "firefox", "iceweasel", "seamonkey",
                                           "epiphany", "konqueror", "chromium", "chromium-browser",
                                           "google-chrome"},
        [](const char* name) {
            return !QStandardPaths::findExecutable(QString::fromLatin1(name)).isEmpty();
        });
}
}  // namespace

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
    if (colon <= 0) return false;
    const QByteArray scheme = url.left(colon).toLower();
    if (scheme == "file") {
        return !url.toLower().endsWith(".kml") ||
               hasTypeHandler("application/vnd.google-earth.kml+xml");
    }
    if (hasSchemeHandler(scheme.toStdString())) return true;
    return (scheme == "http" || scheme == "https") && (hasTypeHandler("text/html") || hasBrowser());
}

}  // namespace pinorama
