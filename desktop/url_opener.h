// Opens a URL in the program that the user has chosen for it: the browser, a map program, or the
// handler of some other scheme. It is an interface so that a test can record the URLs.

#pragma once

#include <QByteArray>

namespace pinorama {

class UrlOpener {
public:
    UrlOpener() = default;
    UrlOpener(const UrlOpener&) = delete;
    UrlOpener& operator=(const UrlOpener&) = delete;
    virtual ~UrlOpener() = default;

    // Hands `url` (complete, percent-encoded, ASCII only) to its handler without a shell. False if
    // the URL is malformed or no program could be started for it; what a program that was started
    // does with it is not known.
    virtual bool open(const QByteArray& url) = 0;

    // Whether a program takes such a URL: its scheme, and of a file its type. True where that is
    // not known.
    virtual bool isTaken(const QByteArray& /*url*/) const { return true; }
};

// Whether a URL is well-formed and has a scheme. Others are not opened.
bool isWellFormed(const QByteArray& url);

// Asks the desktop.
class DesktopUrlOpener final : public UrlOpener {
public:
    bool open(const QByteArray& url) override;
    bool isTaken(const QByteArray& url) const override;
};

}  // namespace pinorama
