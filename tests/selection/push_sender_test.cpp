#include "selection/push_sender.h"

#include "tests/support/other_process.h"

#include <gtest/gtest.h>

#include <sys/prctl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

TEST(fileManagerKindOfExecutable, takesOnlyProgramsThatRootInstalled)
{
    const struct {
        const char* what;
        Executable executable;
        bool counts;
    } rows[] = {
        {"a file manager", {"/usr/bin/nautilus", 0, S_IFREG | 0755}, true},
        {"in another case", {"/usr/bin/Thunar", 0, S_IFREG | 0755}, true},
        {"replaced by an update", {"/usr/bin/caja (deleted)", 0, S_IFREG | 0755}, true},
        {"in a container", {"/app/bin/dolphin", 0, S_IFREG | 0755}, true},
        {"another program", {"/usr/bin/python3.11", 0, S_IFREG | 0755}, false},
        {"a name that goes on", {"/usr/bin/nautilus-sendto", 0, S_IFREG | 0755}, false},
        {"a user's program", {"/home/a/nautilus", 1000, S_IFREG | 0755}, false},
        {"one that a group may write", {"/opt/nautilus", 0, S_IFREG | 0775}, false},
        {"one that all may write", {"/opt/nautilus", 0, S_IFREG | 0757}, false},
        {"no file", {"/usr/bin/nautilus", 0, S_IFCHR | 0755}, false},
        {"no path", {"", 0, S_IFREG | 0755}, false},
        {"a relative path", {"nautilus", 0, S_IFREG | 0755}, false},
    };
    for (const auto& row : rows)
        EXPECT_EQ(fileManagerKindOfExecutable(row.executable) != nullptr, row.counts) << row.what;
}

TEST(fileManagerKindOfSender, doesNotBelieveTheNameOfAProcess)
{
    const int status = test::inChild([] {
        EXPECT_EQ(prctl(PR_SET_NAME, "nautilus"), 0);
        EXPECT_NE(fileManagerKindOfProcess(getpid()), nullptr);
        EXPECT_EQ(fileManagerKindOfSender(getpid()), nullptr);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    EXPECT_EQ(status, 0);
    EXPECT_EQ(fileManagerKindOfSender(-1), nullptr);
}
