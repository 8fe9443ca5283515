// Positions in UTM and MGRS, and back by GeographicLib.

#include "places/grids/grid_texts.h"
#include "tests/places/grid_readers.h"
#include "tests/places/sphere.h"

#include <gtest/gtest.h>

#include <limits>
#include <random>
#include <string>

using namespace pinorama;

// The numbers are those of Krueger's series, computed apart from GeographicLib.
TEST(utmText, namesZoneBandAndMetres)
{
    const struct {
        const char* name;
        double latitude, longitude;
        const char* expected;
    } rows[] = {
        {"on a central meridian", 0, 9, "32N 500000 0"},
        {"south of the equator", -0.00001, 9, "32M 500000 9999999"},
        {"the widened zone of Norway", 60, 5, "32V 276980 6658157"},
        {"Svalbard", 78.2232, 15.6267, "33X 514279 8683355"},
        {"just below the northern end", 83.999, 0, "31X 465000 9328894"},
        {"Ushuaia", -54.8018889, -68.3029722, "19F 544807 3927031"},
        {"the northern end", 84, 0, ""},
        {"beyond the southern end", -80.01, 0, ""},
        {"no longitude", 0, 181, ""},
        {"no number", std::numeric_limits<double>::quiet_NaN(), 0, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(utmText(row.latitude, row.longitude), row.expected);
    }
}

TEST(mgrsText, namesASquareOfOneMetre)
{
    const struct {
        const char* name;
        double latitude, longitude;
        const char* expected;
    } rows[] = {
        {"Honolulu", 21.309444, -157.916861, "04Q FJ 12340 56781"},
        {"Ushuaia", -54.8018889, -68.3029722, "19F EV 44806 27031"},
        {"on a central meridian", 0.00001, 9, "32N NF 00000 00001"},
        {"north pole", 90, 0, "Z AH 00000 00000"},
        {"south pole", -90, 0, "B AN 00000 00000"},
        {"no latitude", 91, 0, ""},
        {"no number", 0, std::numeric_limits<double>::quiet_NaN(), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(mgrsText(row.latitude, row.longitude), row.expected);
    }
}

TEST(gridTexts, giveThePositionBackToWithinAMetre)
{
    std::mt19937 random(5);
    std::uniform_real_distribution<double> latitudes(-90, 90), longitudes(-180, 180);
    int utm = 0;
    for (int round = 0; round < 20000; ++round) {
        const Position position{latitudes(random), longitudes(random)};
        const std::string text = utmText(position.latitude, position.longitude);
        if (!text.empty()) {
            ++utm;
            ASSERT_LT(metres(readUtm(text), position), 1) << text;
        }
        const std::string square = mgrsText(position.latitude, position.longitude);
        ASSERT_LT(metres(readMgrs(square), position), 1) << square;
    }
    EXPECT_GT(utm, 17000);
}
