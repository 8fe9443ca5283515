// A private session bus for a test.

#pragma once

#include <sys/types.h>

namespace test {

// Starts a dbus-daemon and sets DBUS_SESSION_BUS_ADDRESS until the end of the scope. Create it
// before anything connects to the session bus, because libraries keep their first connection.
class SessionBus {
public:
    SessionBus();
    ~SessionBus();
    SessionBus(const SessionBus&) = delete;
    SessionBus& operator=(const SessionBus&) = delete;

    // False if no daemon could be started; tests are then skipped.
    bool isRunning() const { return daemon_ > 0; }

private:
    pid_t daemon_ = -1;
};

}  // namespace test
