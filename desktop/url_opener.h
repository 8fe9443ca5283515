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

    // Hands `url` (complete, percent-encoded, ASCII only) to its handler without a shell. Does not
    // report whether a handler is installed or what it does with the URL.
    virtual void open(const QByteArray& url) = 0;

    // Whether a program takes such a URL: its scheme, and of a file its type. True where that is
    // not known.
    virtual bool isTaken(const QByteArray& /*url*/) const { return true; }
};

// Asks the desktop. A malformed URL, or one without a scheme, is dropped.
class DesktopUrlOpener final : public UrlOpener {
public:
    void open(const QByteArray& url) override;
    bool isTaken(const QByteArray& url) const override;
};

}  // namespace pinorama
