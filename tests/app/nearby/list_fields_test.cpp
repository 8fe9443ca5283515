// What pinorama-search prints, taken apart. Pieces of any size: nearby_list_test.cpp.

#include "app/nearby/list_fields.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace pinorama;
using namespace std::string_literals;

TEST(ListFields, givesTheFieldsOfEachPicture)
{
    ListFields list;
    std::vector<std::vector<std::string>> all;
    const auto take = [&all](const std::vector<std::string>& fields) {
        all.push_back(fields);
        return true;
    };
    EXPECT_TRUE(list.read("/a\n\xff\0001.5\0-2\0\0\0\0/b\0\0\0"s, take));
    EXPECT_FALSE(list.isComplete());
    EXPECT_TRUE(list.read("\0\0007:8\0"s, take));
    EXPECT_TRUE(list.isComplete());
    EXPECT_EQ(all, (std::vector<std::vector<std::string>>{{"/a\n\xff", "1.5", "-2", "", "", ""},
                                                          {"/b", "", "", "", "", "7:8"}}));
}

TEST(ListFields, endsWhereTheReceiverWantsNoMore)
{
    ListFields list;
    int count = 0;
    const auto take = [&count](const std::vector<std::string>&) { return ++count < 2; };
    EXPECT_FALSE(list.read(std::string(60, '\0'), take));
    EXPECT_EQ(count, 2);
}

TEST(ListFields, refusesAFieldThatNoPathIsAsLongAs)
{
    ListFields list;
    const auto take = [](const std::vector<std::string>&) { return true; };
    EXPECT_TRUE(list.read(std::string(4096, 'x'), take));
    EXPECT_FALSE(list.read("x", take));
}

TEST(numberOfField, readsWholeFiniteNumbersOnly)
{
    EXPECT_EQ(numberOfField("-1.5"), -1.5);
    EXPECT_EQ(numberOfField("0"), 0.0);
    for (const char* text : {"", " 1", "1 ", "1x", "x", "inf", "nan", "1e999"}) {
        EXPECT_EQ(numberOfField(text), std::nullopt) << text;
    }
}
