// How an address reaches the program that the user has chosen for it: the browser, a map program, a
// handler of a scheme of its own. One small interface, so that a test can look at the addresses.

#pragma once

#include <QByteArray>

namespace pinorama {

class AddressOpener {
public:
    AddressOpener() = default;
    AddressOpener(const AddressOpener&) = delete;
    AddressOpener& operator=(const AddressOpener&) = delete;
    virtual ~AddressOpener() = default;

    // Hands `address` (a whole URL, every byte of it ASCII) to its handler without a shell. Whether
    // one is installed and what becomes of it is not reported.
    virtual void open(const QByteArray& address) = 0;
};

// Asks the desktop. What no URL can be made of is not handed on.
class DesktopAddressOpener final : public AddressOpener {
public:
    void open(const QByteArray& address) override;
};

}  // namespace pinorama
