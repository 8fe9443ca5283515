// A D-Bus call whose reply shows, for less than reading again costs, whether what was read before
// is still true: what a validator is to an HTTP cache. Whoever reads keeps one for each reply that
// the result depends on:
//
//     validators.push_back({nameCall(item), [name](const QDBusMessage& reply) {
//         return textIn(reply) == name;  // an error message is not a name either
//     }});
//
// To revalidate is to make all these calls at once; one that no longer holds makes the reading
// stale.

#pragma once

#include <QDBusMessage>

#include <functional>
#include <vector>

namespace pinorama {

struct Validator {
    QDBusMessage call;
    std::function<bool(const QDBusMessage& reply)> stillHolds;
    bool isOnSessionBus = false;  // rather than on the accessibility bus
};

using Validators = std::vector<Validator>;

}  // namespace pinorama
