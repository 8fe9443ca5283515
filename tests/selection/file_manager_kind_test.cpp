#include "selection/file_manager_kind.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace pinorama;

TEST(fileManagerKind, knowsThoseThatAreFollowedOnly)
{
    for (const char* process : {"nautilus", "nemo", "nemo-desktop", "caja", "thunar", "Thunar",
                                "pcmanfm", "pcmanfm-qt", "dolphin", "spacefm", "krusader"}) {
        SCOPED_TRACE(process);
        EXPECT_NE(fileManagerKind(process), nullptr);
    }
    for (const char* process : {"", "dolphin-emu", "nautil", "pinorama", "thunar "}) {
        SCOPED_TRACE(process);
        EXPECT_EQ(fileManagerKind(process), nullptr);
    }
    EXPECT_EQ(fileManagerKind("Thunar"), fileManagerKind("thunar"));
    EXPECT_TRUE(fileManagerKind("nemo-desktop")->isDesktop(Role::frame, {}));
    EXPECT_FALSE(fileManagerKind("nemo")->isDesktop(Role::frame, {}));
    EXPECT_TRUE(fileManagerKind("pcmanfm-qt")->isDesktop(Role::filler, {}));
}

TEST(fileManagerKindOfProcess, isNullForOtherAndMissingProcesses)
{
    EXPECT_EQ(fileManagerKindOfProcess(getpid()), nullptr);
    EXPECT_EQ(fileManagerKindOfProcess(-1), nullptr);
}
