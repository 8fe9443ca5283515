#include "lib/containers/container_dump.h"

#include "tests/lib/containers/containers_under_test.h"
#include "tests/lib/debug/log_under_test.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

using namespace pinorama;

using test::Flex;
using test::headerBytes;

TEST(memDumpDynArray, writesTheCountAndAnEntryPerItem)
{
    const test::LogFolder folder;
    folder.startLog("");
    const test::ArrayOf<std::uint32_t> array({10, UINT32_MAX});
    memDumpDynArray(&array);
    EXPECT_EQ(folder.log(),
              "\nDump DynArray:  items 2\r"
              "\nitem index: 0:    ID: 10\r"
              "\nitem index: 1:    ID: 4294967295\r");
}

TEST(memDumpDynArray, writesOnlyTheCountOfAnEmptyArray)
{
    const test::LogFolder folder;
    folder.startLog("");
    const test::Array array(4, 3);
    memDumpDynArray(&array);
    EXPECT_EQ(folder.log(), "\nDump DynArray:  items 0\r");
}

TEST(memDumpFlexDynArray, writesTheBytesAndAnEntryPerItem)
{
    const test::LogFolder folder;
    folder.startLog("");
    const Flex flex(std::vector<test::FlexItem>{{3, 1, "abc"}, {UINT32_MAX, 0, ""}});
    memDumpFlexDynArray(&flex);
    EXPECT_EQ(folder.log(),
              "\nDump FlexDynArray:  TotalDataSize 27 Bytes\r"
              "Location: 0, ItemID: 3, ItemType: 1, ItemSize: 3\r"
              "Location: 15, ItemID: 4294967295, ItemType: 0, ItemSize: 0\r");
}

TEST(memDumpFlexDynArray, writesOnlyTheBytesOfAnEmptyArray)
{
    const test::LogFolder folder;
    folder.startLog("");
    const Flex flex;
    memDumpFlexDynArray(&flex);
    EXPECT_EQ(folder.log(), "\nDump FlexDynArray:  TotalDataSize 0 Bytes\r");
}

TEST(memDumpFlexDynArray, stopsAfterAnItemThatRunsPastTheUsedBytes)
{
    const test::LogFolder folder;
    folder.startLog("");
    for (const std::uint32_t size : {26u, UINT32_MAX, UINT32_MAX - 11}) {
        folder.startLog("");
        const Flex flex(headerBytes(1, size, 2) + headerBytes(3, 1, 4) + "x");
        memDumpFlexDynArray(&flex);
        EXPECT_EQ(folder.log(),
                  "\nDump FlexDynArray:  TotalDataSize 25 Bytes\r"
                  "Location: 0, ItemID: 1, ItemType: 2, ItemSize: " +
                      std::to_string(size) + "\r");
    }
}

TEST(memDumpFlexDynArray, writesALineForEachItemOfAnyArray)
{
    std::mt19937 random(20081);
    for (int round = 0; round < 40; round++) {
        std::vector<test::FlexItem> items;
        for (unsigned count = static_cast<unsigned>(random() % 12); count > 0; count--) {
            items.push_back({static_cast<std::uint32_t>(random() >> random() % 32),
                             static_cast<std::uint32_t>(random() >> random() % 32),
                             std::string(random() % 200, 'x')});
        }
        const test::LogFolder folder;
        folder.startLog("");
        const Flex flex(items);
        memDumpFlexDynArray(&flex);

        std::size_t location = 0;
        std::string lines;
        for (const test::FlexItem& item : items) {
            lines += "Location: " + std::to_string(location) +
                     ", ItemID: " + std::to_string(item.id) +
                     ", ItemType: " + std::to_string(item.type) +
                     ", ItemSize: " + std::to_string(item.data.size()) + "\r";
            location += 12 + item.data.size();
        }
        ASSERT_EQ(folder.log(), "\nDump FlexDynArray:  TotalDataSize " + std::to_string(location) +
                                    " Bytes\r" + lines)
            << "round " << round;
    }
}

TEST(memCheckFlexDynArray, writesNothingForASoundArray)
{
    const test::LogFolder folder;
    const Flex flex(std::vector<test::FlexItem>{{3, 1, "abc"}, {2, 0, ""}});
    memCheckFlexDynArray(&flex);
    const Flex empty;
    memCheckFlexDynArray(&empty);
    EXPECT_FALSE(std::filesystem::exists(folder.logPath()));
}

TEST(memCheckFlexDynArray, dumpsADamagedArray)
{
    const test::LogFolder folder;
    folder.startLog("");
    const Flex flex(test::bytesOf({{1, 1, "a"}}) + headerBytes(2, 13, 1));
    memCheckFlexDynArray(&flex);
    EXPECT_EQ(folder.log(),
              "\nDump FlexDynArray:  TotalDataSize 25 Bytes\r"
              "Location: 0, ItemID: 1, ItemType: 1, ItemSize: 1\r"
              "Location: 13, ItemID: 2, ItemType: 1, ItemSize: 13\r");
}
