// Directions and the points of the compass.

#include "places/bearing.h"

#include <gtest/gtest.h>

#include <limits>

using namespace pinorama;

TEST(initialBearing, pointsAlongTheShortestWay)
{
    const struct {
        const char* name;
        double fromLatitude, fromLongitude, toLatitude, toLongitude, expected;
    } rows[] = {
        {"the same point", 48, 11, 48, 11, 0},
        {"north", 10, 20, 11, 20, 0},
        {"south", 10, 20, 9, 20, 180},
        {"east on the equator", 0, 20, 0, 21, 90},
        {"west on the equator", 0, 20, 0, 19, 270},
        {"across the date line", 0, 179.5, 0, -179.5, 90},
        {"from a pole", 90, 0, 0, 90, 90},
        {"from Frankfurt to New York", 50.11, 8.68, 40.71, -74.01, 294.6},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_NEAR(
            initialBearing(row.fromLatitude, row.fromLongitude, row.toLatitude, row.toLongitude),
            row.expected, 0.5);
    }
}

TEST(compassPoint, isTheNearestOfSixteen)
{
    const struct {
        const char* name;
        double degrees;
        int expected;
    } rows[] = {
        {"north", 0, 0},
        {"nearly half a step", 11.24, 0},
        {"half a step", 11.25, 1},
        {"SSE", 157.5, 7},
        {"last one before north", 348.74, 15},
        {"north again", 348.75, 0},
        {"a full turn", 360, 0},
        {"more than a turn", 450, 4},
        {"a negative direction", -90, 12},
        {"just below zero", -1e-20, 0},
        {"no number", std::numeric_limits<double>::quiet_NaN(), -1},
        {"infinity", std::numeric_limits<double>::infinity(), -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(compassPoint(row.degrees), row.expected);
    }
}

TEST(compassLetters, nameEachPointOnce)
{
    EXPECT_EQ(compassLetters(0), "N");
    EXPECT_EQ(compassLetters(7), "SSE");
    EXPECT_EQ(compassLetters(15), "NNW");
    EXPECT_EQ(compassLetters(-1), "");
    EXPECT_EQ(compassLetters(16), "");
    for (int point = 0; point < kCompassPoints; ++point) {
        for (int other = 0; other < point; ++other) {
            EXPECT_NE(compassLetters(point), compassLetters(other));
        }
    }
}
