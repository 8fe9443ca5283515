// A session bus of the test's own.

#pragma once

#include <sys/types.h>

namespace test {

// Starts a dbus-daemon and sets DBUS_SESSION_BUS_ADDRESS; at the end of the scope both are undone.
// Make it before anything connects to the session bus, because programs remember their first
// connection.
class SessionBus {
public:
    SessionBus();
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    // False when no daemon could be started; tests then say so and count as skipped.
    bool isRunning() const { return daemon_ > 0; }

private:
    pid_t daemon_ = -1;
};

}  // namespace test
