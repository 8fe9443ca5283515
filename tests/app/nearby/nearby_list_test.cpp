// What a search prints, in pieces and malformed.

#include "app/nearby/nearby_list.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

using namespace pinorama;
using namespace std::string_literals;

namespace {
const std::string kTwo =
    "/a/\xff\n.jpg\0"
    "48.5\0-2.25\0"
    "12.5\0"
    "359.75\0"
    "64:7\0/b.jpg\0\0\0"
    "0\0"
    "0\0\0"s;

void expectTwo(const std::vector<NearbyPicture>& pictures)
{
    ASSERT_EQ(pictures.size(), 2u);
    EXPECT_EQ(pictures[0].path, "/a/\xff\n.jpg");
    EXPECT_EQ(pictures[0].metres, 12.5);
    EXPECT_EQ(pictures[0].bearing, 359.75);
    EXPECT_EQ(pictures[0].file, "64:7");
    EXPECT_EQ(pictures[1].path, "/b.jpg");
    EXPECT_EQ(pictures[1].metres, 0.0);
    EXPECT_EQ(pictures[1].file, "");
}
}  // namespace

TEST(NearbyListReader, takesPiecesOfAnySize)
{
    for (std::size_t size = 1; size <= kTwo.size(); size++) {
        SCOPED_TRACE(size);
        NearbyListReader reader;
        std::vector<NearbyPicture> pictures;
        for (std::size_t at = 0; at < kTwo.size(); at += size) {
            EXPECT_TRUE(reader.read(std::string_view(kTwo).substr(at, size), &pictures));
        }
        expectTwo(pictures);
        EXPECT_TRUE(reader.isComplete());
    }
}

TEST(NearbyListReader, knowsWhetherAPictureIsComplete)
{
    for (std::size_t size = 0; size <= kTwo.size(); size++) {
        SCOPED_TRACE(size);
        NearbyListReader reader;
        std::vector<NearbyPicture> pictures;
        EXPECT_TRUE(reader.read(std::string_view(kTwo).substr(0, size), &pictures));
        const std::size_t endOfFirst = kTwo.find("/b.jpg");
        EXPECT_EQ(reader.isComplete(), size == 0 || size == endOfFirst || size == kTwo.size());
    }
}

TEST(NearbyListReader, refusesWhatNoSearchPrints)
{
    const struct {
        const char* name;
        std::string bytes;
    } rows[] = {
        {"a path that is not absolute", "a.jpg\0\0\0001\0001\0\0"s},
        {"no path", "\0\0\0001\0001\0\0"s},
        {"no distance", "/a.jpg\0\0\0\0001\0\0"s},
        {"no bearing", "/a.jpg\0\0\0001\0\0\0"s},
        {"a distance below 0", "/a.jpg\0\0\0-1\0001\0\0"s},
        {"an endless distance", "/a.jpg\0\0\0inf\0001\0\0"s},
        {"a distance that is no number", "/a.jpg\0\0\0nan\0001\0\0"s},
        {"a number and a letter", "/a.jpg\0\0\0001x\0001\0\0"s},
        {"a long path", "/" + std::string(4096, 'a') + "\0\0\0001\0001\0\0"s},
        {"a field without an end", std::string(5000, '1')},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        NearbyListReader reader;
        std::vector<NearbyPicture> pictures;
        EXPECT_FALSE(reader.read(row.bytes, &pictures));
        EXPECT_TRUE(pictures.empty());
    }
}
