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

// The tolerant mode would repair a malformed URL into another one. Strict parsing also keeps the
// percent escapes as they are.
QUrl parsed(const QByteArray& url)
{
    return QUrl::fromEncoded(url, QUrl::StrictMode);
}

// Whether a program takes a file, by the ending of its name. Of most types that is not known: there
// is always some program for pictures and folders.
bool hasProgramForFile(const QByteArray& url)
{
    // An editor takes a KML file as a text, and is no globe.
    if (url.endsWith(".kml")) return hasTypeHandler("application/vnd.google-earth.kml+xml");
    // The desktop's openers fall back on the browser.
    if (url.endsWith(".md"))
        return hasTypeHandler("text/markdown") || hasTypeHandler("text/plain") || hasBrowser();
    return true;
}
}  // namespace

bool isWellFormed(const QByteArray& url)
{
    return parsed(url).isValid() && !parsed(url).scheme().isEmpty();
}

bool DesktopUrlOpener::open(const QByteArray& url)
{
    return isWellFormed(url) && QDesktopServices::openUrl(parsed(url));
}

bool DesktopUrlOpener::isTaken(const QByteArray& url) const
{
    const qsizetype colon = url.indexOf(':');
    if (colon <= 0) return false;
    const QByteArray scheme = url.left(colon).toLower();
    if (scheme == "file") return hasProgramForFile(url.toLower());
    if (hasSchemeHandler(scheme.toStdString())) return true;
    return (scheme == "http" || scheme == "https") && (hasTypeHandler("text/html") || hasBrowser());
}

}  // namespace pinorama
