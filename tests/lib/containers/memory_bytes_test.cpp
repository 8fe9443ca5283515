#include "lib/containers/memory_bytes.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

TEST(memFillZero, clearsExactlyTheRequestedBytes)
{
    std::string bytes = "abcdef";
    memFillZero(bytes.data() + 1, 4);
    EXPECT_EQ(bytes, std::string("a\0\0\0\0f", 6));
    memFillZero(bytes.data(), 0);
    EXPECT_EQ(bytes[0], 'a');
    memFillZero(nullptr, 0);
}

TEST(memCopy, takesTheSourceFirst)
{
    const std::string source = "source";
    std::string dest = "......";
    memCopy(source.data(), dest.data(), 4);
    EXPECT_EQ(dest, "sour..");
    memCopy(nullptr, nullptr, 0);
}

TEST(memCopy, aDestinationOneByteAfterTheSourceSpreadsTheFirstByte)
{
    std::string bytes = "abcdef";
    memCopy(bytes.data(), bytes.data() + 1, 5);
    EXPECT_EQ(bytes, "aaaaaa");
}

TEST(memCopy, destinationInsideTheSourceRepeatsTheBytesBetween)
{
    std::string bytes = "abc.......";
    memCopy(bytes.data(), bytes.data() + 3, 7);
    EXPECT_EQ(bytes, "abcabcabca");
}

TEST(memCopy, everyDistanceCopiesTheFirstByteFirst)
{
    constexpr int kLength = 40;
    for (int distance = -kLength - 2; distance <= kLength + 2; ++distance) {
        SCOPED_TRACE(distance);
        std::vector<std::uint8_t> bytes(3 * kLength + 10);
        for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(i * 7);
        std::vector<std::uint8_t> expected = bytes;
        const std::size_t from = kLength + 5;
        const std::size_t to = static_cast<std::size_t>(kLength + 5 + distance);
        for (std::size_t i = 0; i < kLength; ++i) expected[to + i] = expected[from + i];

        memCopy(&bytes[from], &bytes[to], kLength);
        EXPECT_EQ(bytes, expected);
    }
}
