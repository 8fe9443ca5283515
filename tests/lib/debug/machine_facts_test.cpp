#include "lib/debug/machine_facts.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <unistd.h>

using namespace pinorama;

TEST(machineFacts, describesThisMachine)
{
    const MachineFacts facts = machineFacts();
    EXPECT_GE(facts.systemMajor, 2);
    EXPECT_GE(facts.systemMinor, 0);
    EXPECT_GE(facts.systemFix, 0);
    const std::int64_t pages = sysconf(_SC_PHYS_PAGES);
    EXPECT_NEAR(facts.memory, (pages * sysconf(_SC_PAGESIZE)) >> 20, 1);
    EXPECT_EQ(facts.processors, sysconf(_SC_NPROCESSORS_ONLN));
}

TEST(machineFacts, readsTheClockWhereTheProcessorListHasIt)
{
    const std::string list = test::readFile("/proc/cpuinfo");
    if (clockInProcessorList(list) == 0) GTEST_SKIP() << "no clock in /proc/cpuinfo";
    EXPECT_GT(machineFacts().clock, 0);
}

TEST(readRelease, takesUpToThreeNumbers)
{
    const struct {
        const char* release;
        std::int32_t major, minor, fix;
    } rows[] = {
        {"6.1.27-amd64", 6, 1, 27},
        {"6.8.0-45-generic", 6, 8, 0},
        {"6.1.0+", 6, 1, 0},
        {"5.10-rc3", 5, 10, 0},
        {"4", 4, 0, 0},
        {"", 0, 0, 0},
        {"unknown", 0, 0, 0},
        {"3.2.1.9", 3, 2, 1},
    };
    for (const auto& row : rows) {
        MachineFacts facts{};
        readRelease(row.release, &facts);
        EXPECT_EQ(facts.systemMajor, row.major) << row.release;
        EXPECT_EQ(facts.systemMinor, row.minor) << row.release;
        EXPECT_EQ(facts.systemFix, row.fix) << row.release;
    }
}

TEST(clockInProcessorList, takesTheFirstProcessorsWholeMHz)
{
    EXPECT_EQ(clockInProcessorList(
                  "processor\t: 0\ncpu MHz\t\t: 2399.998\n\nprocessor\t: 1\ncpu MHz\t\t: 800.0\n"),
              2399);
}

TEST(clockInProcessorList, isZeroWhenTheListNamesNone)
{
    for (const char* text : {"", "processor\t: 0\nBogoMIPS\t: 50.00\n", "cpu MHz\t\t: \n",
                             "cpu MHz", "cpu MHz\t\t: unknown\nprocessor\t: 1\n"})
        EXPECT_EQ(clockInProcessorList(text), 0) << text;
}
