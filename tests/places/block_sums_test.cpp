// A file whose blocks have checksums of their own: what is read of it is whole, and little is read.

#include "places/block_sums.h"
#include "places/map_lines.h"
#include "places/place_data.h"
#include "places/place_finder.h"
#include "tests/places/places_file.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

using namespace pinorama;

namespace {
constexpr MapBox kBox = {-20, -20, 120, 60};

// A world of several blocks.
PlacesFile largeWorld()
{
    PlacesFile file;
    file.blockSums();
    file.area("AA", {{0, 0}, {50, 0}, {50, 50}, {0, 50}})
        .area("BB", {{60, 0}, {110, 0}, {110, 50}, {60, 50}}, "BI")
        .sea("Wide Sea", {{-100, -50}, {200, -50}, {200, 60}, {-100, 60}});
    for (int i = 0; i < 1500; ++i) {
        file.town({i % 2 == 0 ? "AA" : "BB", "Town of the number " + std::to_string(i * 7919),
                   1 + i % 479 * 0.1, (i % 2 == 0 ? 1 : 61) + i % 467 * 0.1, 1000.0 + i,
                   "Europe/Berlin"});
    }
    file.mapLevel(100);
    for (int i = 0; i < 60; ++i) {
        std::vector<std::pair<int, int>> circle;
        for (int side = 0; side < 400; ++side) circle.emplace_back(i * 150 + side, side * (i + 1));
        file.mapLine(0, circle);
    }
    return file;
}

std::string wordsOf(const std::optional<Place>& place)
{
    if (!place) return "none";
    return place->country + '|' + place->sea + '|' + (place->town ? place->town->name : "") + '|' +
           place->zone + '|' + place->islands;
}

std::vector<std::string> placesOf(const PlaceData& data)
{
    std::vector<std::string> places;
    for (const double latitude : {2.0, 25.5, 44.0, -20.0}) {
        for (const double longitude : {5.0, 30.0, 70.0, 100.0, -50.0}) {
            places.push_back(wordsOf(findPlace(data, latitude, longitude)));
        }
    }
    return places;
}

std::size_t pointsOf(const PlaceData& data)
{
    std::size_t count = 0;
    for (const MapLine& line : mapLines(data, kBox, 0.1)) count += line.points.size();
    return count;
}

std::size_t endOfSums(const std::vector<std::uint8_t>& bytes)
{
    return load32(bytes.data() + 36) + load32(bytes.data() + 40);  // they are the first section
}
}  // namespace

TEST(BlockSums, changeNothingInAWholeFile)
{
    const auto bytes = largeWorld().build();
    ASSERT_GT(bytes.size(), 4 * BlockSums::kBlock);
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    ASSERT_NE(data->blockSums(), nullptr);
    const auto places = placesOf(*data);
    EXPECT_TRUE(places.front().starts_with("AA||Town of the number ")) << places.front();
    EXPECT_EQ(std::count(places.begin(), places.end(), "none"), 0);
    EXPECT_GT(pointsOf(*data), 1000U);
    EXPECT_FALSE(data->isDamaged());
}

TEST(BlockSums, areCheckedWithTheHeader)
{
    auto bytes = largeWorld().build();
    ASSERT_TRUE(PlaceData::parse(bytes));
    for (std::size_t at = 0; at < endOfSums(bytes); ++at) {
        if (at >= 12 && at < 24) continue;  // unused, and the sum of the whole file
        bytes[at] ^= 0x10;
        EXPECT_FALSE(PlaceData::parse(bytes)) << at;
        bytes[at] ^= 0x10;
    }
}

TEST(BlockSums, letNothingBeFoundInADamagedBlock)
{
    auto bytes = largeWorld().build();
    const auto whole = PlaceData::parse(bytes);
    ASSERT_TRUE(whole);
    const auto places = placesOf(*whole);
    const std::size_t points = pointsOf(*whole);
    std::size_t noticed = 0;
    for (std::size_t at = endOfSums(bytes); at < bytes.size(); at += 1999) {
        SCOPED_TRACE(at);
        bytes[at] ^= 0x20;
        const auto data = PlaceData::parse(bytes);
        ASSERT_TRUE(data) << "only the header is read";
        const auto found = placesOf(*data);
        for (std::size_t i = 0; i < places.size(); ++i) {
            EXPECT_TRUE(found[i] == places[i] || found[i] == "none") << found[i];
        }
        const std::size_t drawn = pointsOf(*data);
        EXPECT_TRUE(drawn == points || drawn == 0) << drawn;
        if (data->isDamaged()) {
            ++noticed;
            EXPECT_EQ(wordsOf(findPlace(*data, 25.5, 30.0)), "none") << "nor in any other";
        }
        bytes[at] ^= 0x20;
    }
    EXPECT_GT(noticed, 15U);
}

TEST(BlockSums, letAFinderHaveNoMapOfADamagedFile)
{
    const test::TemporaryFolder folder;
    auto bytes = largeWorld().build();
    bytes.back() ^= 1;  // of the last zone's name
    PlaceFinder finder(
        folder.write("places.bin", {reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
    EXPECT_NE(finder.data(), nullptr);
    EXPECT_FALSE(finder.find(25.5, 30.0));
    EXPECT_EQ(finder.data(), nullptr);
    EXPECT_EQ(finder.error(), 0);
}

TEST(shippedPlaces, areSmallAndReadInParts)
{
    // What the package and the window's memory are meant to hold.
    EXPECT_LE(std::filesystem::file_size(PLACES_FILE), 4'000'000U);
    PlaceFinder finder(PLACES_FILE);
    const PlaceData* data = finder.data();
    ASSERT_NE(data, nullptr);
    ASSERT_NE(data->blockSums(), nullptr);
    EXPECT_EQ(data->blockSums()->checkedBytes(), 0U);
    ASSERT_TRUE(finder.find(48.14, 11.58));
    EXPECT_LE(data->blockSums()->checkedBytes(), 400'000U);
    ASSERT_FALSE(mapLines(*data, {-9, 34, 32, 62}, 0.25).empty());
    EXPECT_LE(data->blockSums()->checkedBytes(), 800'000U);
}
