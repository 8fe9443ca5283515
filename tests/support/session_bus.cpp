#include "tests/support/session_bus.h"

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <string>

namespace {
constexpr int kStartLimit = 30'000;  // milliseconds
constexpr const char* kAddressVariable = "DBUS_SESSION_BUS_ADDRESS";

// The daemon prints its address as one line when it is ready.
std::string readLine(int descriptor)
{
    std::string line;
    pollfd ready = {.fd = descriptor, .events = POLLIN, .revents = 0};
    char byte = 0;
    while (poll(&ready, 1, kStartLimit) == 1 && read(descriptor, &byte, 1) == 1) {
        if (byte == '\n') return line;
        line += byte;
    }
    return {};
}
}  // namespace

test::SessionBus::SessionBus()
{
    int ends[2];
    if (pipe2(ends, O_CLOEXEC) != 0) return;

    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_adddup2(&actions, ends[1], 3);
    posix_spawn_file_actions_addopen(&actions, 2, "/dev/null", O_WRONLY, 0);
    const char* arguments[] = {"dbus-daemon", "--session",         "--nofork",
                               "--nopidfile", "--print-address=3", nullptr};
    const int failure = posix_spawnp(&daemon_, arguments[0], &actions, nullptr,
                                     const_cast<char* const*>(arguments), environ);
    posix_spawn_file_actions_destroy(&actions);
    close(ends[1]);
    if (failure != 0) {
        daemon_ = -1;
    } else {
        setenv(kAddressVariable, readLine(ends[0]).c_str(), 1);
    }
    close(ends[0]);
}

test::SessionBus::~SessionBus()
{
    if (daemon_ <= 0) return;
    kill(daemon_, SIGTERM);
    waitpid(daemon_, nullptr, 0);
    unsetenv(kAddressVariable);
}
