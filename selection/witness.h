// A question whose answer vouches for what was read: as long as a program goes on giving the answer
// that it gave then, the reading holds, and asking that costs less than reading again.

#pragma once

#include <QDBusMessage>

#include <functional>
#include <vector>

namespace pinorama {

struct Witness {
    QDBusMessage question;
    std::function<bool(const QDBusMessage& answer)> agrees;
    bool isOnSessionBus = false;  // rather than on the accessibility bus
};

using Witnesses = std::vector<Witness>;

}  // namespace pinorama
