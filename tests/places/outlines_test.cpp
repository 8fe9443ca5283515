// Points in the outlines of countries and seas.

#include "places/outlines.h"
#include "tests/places/places_file.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
PlacesFile::Outline square(double west, double south, double east, double north)
{
    return {{west, south}, {east, south}, {east, north}, {west, north}};
}
}  // namespace

TEST(areaAt, findsTheAreaAroundAPoint)
{
    // A country with an enclave, which is another country, and a hole that is nobody's.
    const auto bytes = PlacesFile()
                           .area("AA", square(0, 0, 10, 10))
                           .hole(square(2, 2, 4, 4))
                           .hole(square(6, 6, 8, 8))
                           .area("BB", square(2, 2, 4, 4))
                           .build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    const struct {
        const char* name;
        double latitude, longitude;
        std::optional<std::uint16_t> expected;
    } rows[] = {
        {"inside", 1, 1, 0},        {"in the enclave", 3, 3, 1},
        {"in the hole", 7, 7, {}},  {"north", 11, 5, {}},
        {"west", 5, -1, {}},        {"between enclave and hole", 5, 5, 0},
        {"far away", -80, 170, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(areaAt(*data, storedPoint(row.latitude, row.longitude)), row.expected);
    }
}

TEST(areaAt, givesPointsOfACommonBorderToOneSide)
{
    const auto bytes =
        PlacesFile().area("AA", square(0, 0, 5, 5)).area("BB", square(5, 0, 10, 5)).build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    for (const double latitude : {0.5, 2.5, 4.5}) {
        EXPECT_TRUE(areaAt(*data, storedPoint(latitude, 5)));
    }
}

TEST(areaAt, prefersTheSmallerOfTwoThatOverlap)
{
    const auto bytes =
        PlacesFile().area("AA", square(0, 0, 10, 10)).area("BB", square(2, 2, 4, 4)).build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_EQ(areaAt(*data, storedPoint(3, 3)), 1);
    EXPECT_EQ(areaAt(*data, storedPoint(5, 5)), 0);
}

TEST(seaAt, takesTheFirstThatFits)
{
    const auto bytes =
        PlacesFile().sea("Gulf", square(0, 0, 2, 2)).sea("Ocean", square(-50, -50, 50, 50)).build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_EQ(seaAt(*data, storedPoint(1, 1)), 0);
    EXPECT_EQ(seaAt(*data, storedPoint(10, 10)), 1);
    EXPECT_EQ(seaAt(*data, storedPoint(60, 10)), std::nullopt);
}

TEST(seaAt, reachesAcrossTheDateLine)
{
    const auto bytes = PlacesFile().sea("Pacific", square(170, -10, 190, 10)).build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_EQ(seaAt(*data, storedPoint(0, 175)), 0);
    EXPECT_EQ(seaAt(*data, storedPoint(0, -175)), 0);
    EXPECT_EQ(seaAt(*data, storedPoint(0, -165)), std::nullopt);
}
