// Positions written down, and read again by other rules.

#include "places/position_texts.h"
#include "tests/places/position_readers.h"
#include "tests/places/sphere.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdio>
#include <limits>
#include <random>

using namespace pinorama;

TEST(degreesMinutesText, looksLikeTheNavigators)
{
    const struct {
        const char* name;
        double latitude, longitude;
        const char* expected;
    } rows[] = {
        {"south west", -54.8018889, -68.3029722, "S 54° 48.1133'   W 68° 18.1783'"},
        {"zero", 0, 0, "N 0° 0.0000'   E 0° 0.0000'"},
        {"negative zero", -0.0, -0.0, "N 0° 0.0000'   E 0° 0.0000'"},
        {"rounded to zero", -1e-7, -1e-7, "N 0° 0.0000'   E 0° 0.0000'"},
        {"sixty minutes", 47.9999999, 10.99999999, "N 48° 0.0000'   E 11° 0.0000'"},
        {"ends", 90, -180, "N 90° 0.0000'   W 180° 0.0000'"},
        {"no latitude", 90.1, 0, ""},
        {"no longitude", 0, -180.1, ""},
        {"no number", std::numeric_limits<double>::quiet_NaN(), 0, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(degreesMinutesText(row.latitude, row.longitude), row.expected);
    }
}

TEST(geoAddress, followsRfc5870)
{
    const struct {
        const char* name;
        double latitude, longitude;
        const char* expected;
    } rows[] = {
        {"south west", -54.8018889, -68.3029722, "geo:-54.801889,-68.302972"},
        {"below one", -0.25, 0.000001, "geo:-0.250000,0.000001"},
        {"no minus before zero", -0.0000001, -0.0, "geo:0.000000,0.000000"},
        {"a pole has no longitude", -90, 77, "geo:-90.000000,0.000000"},
        {"no latitude", -90.1, 0, ""},
        {"infinity", 0, std::numeric_limits<double>::infinity(), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(geoAddress(row.latitude, row.longitude), row.expected);
    }
}

TEST(plusCode, followsOpenLocationCode)
{
    const struct {
        const char* name;
        double latitude, longitude;
        const char* expected;
    } rows[] = {
        {"inside a cell", 20.3701135, 2.78223535156, "7FG49QCJ+2VXG"},
        {"corner of a cell", 1, 1, "6FH32222+2222"},
        {"near Zurich", 47.0000625, 8.0000625, "8FVC2222+22GC"},
        {"north pole", 90, 1, "CFX3X2X2+X2RR"},
        {"date line", 0, 180, "62G22222+2222"},
        {"no longitude", 0, 180.1, ""},
        {"no number", 0, std::numeric_limits<double>::quiet_NaN(), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(plusCode(row.latitude, row.longitude), row.expected);
    }
}

TEST(positionTexts, giveThePositionBackToWithinAMetre)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> latitudes(-90, 90), longitudes(-180, 180);
    for (int round = 0; round < 20000; ++round) {
        const Position position{latitudes(random), longitudes(random)};
        const auto& [latitude, longitude] = position;
        ASSERT_LT(metres(readDegreesMinutes(degreesMinutesText(latitude, longitude)), position), 1);
        ASSERT_LT(metres(readGeo(geoAddress(latitude, longitude)), position), 1);
        ASSERT_LT(metres(readPlusCode(plusCode(latitude, longitude)), position), 1);
    }
}
