// Opens URLs for the window: one that no program of the desktop takes is not handed on, since an
// error page of the browser would be all that comes of it, or nothing at all; the foot of the
// window says instead what is missing. It also says so of a URL that cannot be opened.

#pragma once

#include "desktop/url_opener.h"

#include <QFontMetrics>
#include <QString>

namespace pinorama {

class MainWindow;

class SayingOpener final : public UrlOpener {
public:
    // Both live longer.
    SayingOpener(MainWindow& window, UrlOpener& opener) : window_(window), opener_(opener) {}

    bool open(const QByteArray& url) override;
    bool isTaken(const QByteArray& url) const override { return opener_.isTaken(url); }

private:
    MainWindow& window_;
    UrlOpener& opener_;
};

// Says that no program takes such a URL, and which ones do.
QString wordsOfNoProgram(const QByteArray& url);

// Says that such a URL is malformed, or that the desktop could not open it.
QString wordsOfNotOpened(const QByteArray& url, const QFontMetrics& letters);

}  // namespace pinorama
