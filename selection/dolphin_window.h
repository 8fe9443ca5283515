// Dolphin's own interface on the session bus. It reports what the accessibility bus does not:
// whether exactly one item is selected.

#pragma once

#include <QDBusMessage>
#include <QString>

#include <sys/types.h>

#include <optional>

#include "selection/accessible.h"
#include "selection/dbus_query.h"

namespace pinorama {

class DolphinWindow {
public:
    using OutlivesItsTasks = void;  // it is a member of the reader that calls it

    // Finds the object on the session bus that represents a window of the process. It stays unknown
    // if several match.
    Task<Done> find(DBusQuery& query, Accessible frame, pid_t process);

    // The call, for the session bus, that asks whether exactly one item is selected. Nothing if the
    // window is unknown.
    std::optional<QDBusMessage> isOneSelectedCall() const;
    static std::optional<bool> boolIn(const QDBusMessage& reply);

private:
    QString service_;
    QString path_;  // of its object; empty if unknown
};

}  // namespace pinorama
