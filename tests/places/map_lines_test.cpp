// The lines of a map.

#include "places/map_lines.h"
#include "tests/places/land.h"
#include "tests/places/places_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

using namespace pinorama;

namespace {
// One square of land from 0 to 10 degrees with a border through it, in the first of two scales; in
// the second one an island that touches 180 degrees.
PlacesFile smallMap()
{
    return PlacesFile()
        .mapLevel(100)
        .mapLine(0, {{0, 0}, {1000, 0}, {1000, 1000}, {0, 1000}})
        .mapLine(1, {{500, 0}, {500, 500}, {500, 1000}})
        .mapLevel(1000)
        .mapLine(0, {{170000, 0}, {180000, 0}, {180000, 10000}, {170000, 10000}});
}

std::size_t countOf(const std::vector<MapLine>& lines, MapLineKind kind)
{
    return static_cast<std::size_t>(std::count_if(
        lines.begin(), lines.end(), [kind](const MapLine& line) { return line.kind == kind; }));
}
}  // namespace

TEST(mapLines, givesLandCoastAndBorders)
{
    const auto bytes = smallMap().build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    const auto lines = mapLines(*data, {-20, -20, 20, 20}, 1);
    EXPECT_EQ(countOf(lines, MapLineKind::land), 1U);
    EXPECT_EQ(countOf(lines, MapLineKind::coast), 1U);
    EXPECT_EQ(countOf(lines, MapLineKind::border), 1U);
    EXPECT_TRUE(isLand(lines, 5, 5));
    EXPECT_FALSE(isLand(lines, 15, 5));
}

TEST(mapLines, cutsLandAtTheBox)
{
    const auto bytes = smallMap().build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    const auto lines = mapLines(*data, {2, 2, 4, 4}, 0.25);
    ASSERT_EQ(countOf(lines, MapLineKind::land), 1U);
    EXPECT_TRUE(isLand(lines, 3, 3));
    for (const MapLine& line : lines) {
        EXPECT_EQ(line.kind, MapLineKind::land);  // no coast and no border is near
        for (const MapPoint& point : line.points) {
            EXPECT_TRUE(point.x >= 1.5 && point.x <= 4.5 && point.y >= 1.5 && point.y <= 4.5);
        }
    }
}

TEST(mapLines, goesOnPastTheDateLineWithoutACoastAlongIt)
{
    const auto bytes = smallMap().build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    for (const double turn : {0.0, -360.0}) {
        const auto lines = mapLines(*data, {160 + turn, -5, 200 + turn, 15}, 0.01);
        EXPECT_TRUE(isLand(lines, 175 + turn, 5));
        for (const MapLine& line : lines) {
            if (line.kind != MapLineKind::coast) continue;
            for (std::size_t i = 1; i < line.points.size(); ++i) {
                EXPECT_FALSE(line.points[i].x == 180 + turn && line.points[i - 1].x == 180 + turn);
            }
        }
    }
}

TEST(mapLines, leavesOutWhatIsSmallerThanAPixel)
{
    const auto bytes = smallMap().build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_EQ(countOf(mapLines(*data, {-180, -90, 180, 90}, 11), MapLineKind::land), 0U);
    EXPECT_EQ(countOf(mapLines(*data, {-180, -90, 180, 90}, 9), MapLineKind::land), 1U);
}

TEST(mapLines, givesNothingForWhatIsNoBox)
{
    const auto bytes = smallMap().build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    EXPECT_TRUE(mapLines(*data, {10, 0, 0, 10}, 1).empty());
    EXPECT_TRUE(mapLines(*data, {0, 10, 10, 0}, 1).empty());
    EXPECT_TRUE(mapLines(*data, {-200, 0, 200, 10}, 1).empty());
    EXPECT_TRUE(mapLines(*data, {kNone, 0, 10, 10}, 1).empty());
    EXPECT_TRUE(mapLines(*data, {0, -kEndless, 10, 10}, 1).empty());
    EXPECT_TRUE(mapLines(*data, {0, 0, 10, 10}, 0).empty());
    EXPECT_TRUE(mapLines(*data, {0, 0, 10, 10}, kNone).empty());
    const auto empty = PlacesFile().build();
    EXPECT_TRUE(mapLines(*PlaceData::parse(empty), {0, 0, 10, 10}, 1).empty());
}

TEST(mapLines, survivesDamagedLines)
{
    const auto whole = smallMap().build();
    std::mt19937 random(3);
    for (int round = 0; round < 4000; ++round) {
        auto bytes = whole;
        for (int changes = 0; changes < 6; ++changes) {
            bytes[32 + random() % (bytes.size() - 32)] = static_cast<std::uint8_t>(random());
        }
        sealPlacesFile(bytes);
        const auto data = PlaceData::parse(bytes);
        if (!data) continue;
        for (const double scale : {1.0, 0.001}) {
            for (const MapLine& line : mapLines(*data, {-180, -90, 180, 90}, scale)) {
                for (const MapPoint& point : line.points) {
                    ASSERT_TRUE(std::isfinite(point.x) && std::isfinite(point.y));
                }
            }
        }
    }
}
