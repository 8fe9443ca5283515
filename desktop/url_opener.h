// How an address reaches the program that the user has chosen for it: the browser, a map program, a
// handler of a scheme of its own. One small interface, so that a test can look at the addresses.

#pragma once

#include <QByteArray>

namespace pinorama {

class UrlOpener {
public:
    UrlOpener() = default;
    UrlOpener(const UrlOpener&) = delete;
    UrlOpener& operator=(const UrlOpener&) = delete;
    virtual ~UrlOpener() = default;

    // Hands `address` (a whole URL, every byte of it ASCII) to its handler without a shell. Whether
    // one is installed and what becomes of it is not reported.
    virtual void open(const QByteArray& address) = 0;
};

// Asks the desktop. What no URL can be made of is not handed on.
class DesktopUrlOpener final : public UrlOpener {
public:
    void open(const QByteArray& address) override;
};

}  // namespace pinorama
