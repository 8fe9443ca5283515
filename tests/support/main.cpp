// Every test program starts in an environment of its own: an empty home folder that is removed at
// the end, the time zone UTC, English texts.

#include "tests/support/environment.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cstdlib>
#include <ctime>
#include <string>

int main(int argc, char** argv)
{
    const test::TemporaryFolder home;
    setenv("HOME", home.path().c_str(), 1);
    for (const char* name : {"XDG_CONFIG_HOME", "XDG_DATA_HOME", "XDG_CACHE_HOME", "XDG_STATE_HOME",
                             "LANGUAGE", "LC_MESSAGES", "LC_TIME", "LC_NUMERIC", "DISPLAY",
                             "WAYLAND_DISPLAY", "DBUS_SESSION_BUS_ADDRESS"}) {
        unsetenv(name);
    }
    const std::string runtime = home.file("runtime");
    mkdir(runtime.c_str(), 0700);
    setenv("XDG_RUNTIME_DIR", runtime.c_str(), 1);
    setenv("LC_ALL", "en_US.UTF-8", 1);
    setenv("TZ", "UTC", 1);
    tzset();

    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
