#include "globe/fly_to.h"

#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <clocale>
#include <cmath>
#include <limits>
#include <optional>

using namespace pinorama;

namespace {
std::optional<GlobeView> gLastView;

class gpsFlyGoogleEarthToLocationTest : public testing::Test {
protected:
    gpsFlyGoogleEarthToLocationTest()
    {
        gLastView.reset();
        earlier_ = gpsSetGlobeLink([](const GlobeView& view) { gLastView = view; });
    }
    ~gpsFlyGoogleEarthToLocationTest() override { gpsSetGlobeLink(std::move(earlier_)); }

private:
    GlobeLink earlier_;
};

std::string scriptLine(double latitude, double longitude, double azimuth, double tilt,
                       double distance)
{
    const std::string script =
        test::takeUTF8(gpsMakeFlyToScript(latitude, longitude, azimuth, tilt, distance))
            .value_or("");
    const std::size_t start = script.find("{");
    return script.substr(start, script.find("}") + 1 - start);
}
}  // namespace

TEST(gpsMakeFlyToScript, isExactToTheByte)
{
    EXPECT_EQ(test::takeUTF8(gpsMakeFlyToScript(-48.858371, -2.294481, 90.0, 0.0, 1000.0)),
              "tell application \"Google Earth\" \r activate \r SetViewInfo "
              "{latitude:-48.858371, longitude:-2.294481, distance:1000.000000, tilt:44.000000, "
              "azimuth:90.000000} speed 0.600000  \r  end tell");
}

TEST(gpsMakeFlyToScript, roundsDistanceAndTiltToSinglePrecisionBeforeTheZeroTest)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* name;
        double azimuth, tilt, distance;
        const char* expected;
    } rows[] = {
        {"zeros take the defaults", 0.0, 0.0, 0.0,
         "{latitude:1.000000, longitude:2.000000, distance:400.000000, tilt:44.000000, "
         "azimuth:0.000000}"},
        {"minus zero is a zero", 0.0, -0.0, -0.0,
         "{latitude:1.000000, longitude:2.000000, distance:400.000000, tilt:44.000000, "
         "azimuth:0.000000}"},
        {"too small for single precision is a zero", 0.0, 1e-50, 1e-50,
         "{latitude:1.000000, longitude:2.000000, distance:400.000000, tilt:44.000000, "
         "azimuth:0.000000}"},
        {"rounded distance", 0.0, 45.5, 1234.56789,
         "{latitude:1.000000, longitude:2.000000, distance:1234.567871, tilt:45.500000, "
         "azimuth:0.000000}"},
        {"the azimuth keeps full precision", 123.4567894, 1.0, 1.0,
         "{latitude:1.000000, longitude:2.000000, distance:1.000000, tilt:1.000000, "
         "azimuth:123.456789}"},
        {"not a number stays", 0.0, nan, 1.0,
         "{latitude:1.000000, longitude:2.000000, distance:1.000000, tilt:nan, "
         "azimuth:0.000000}"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(scriptLine(1.0, 2.0, row.azimuth, row.tilt, row.distance), row.expected);
    }
}

TEST_F(gpsFlyGoogleEarthToLocationTest, sendsTheFiveNumbersOnce)
{
    EXPECT_EQ(gpsFlyGoogleEarthToLocation(-33.9, 18.4, 271.25, 30.0, 2000.0), 0);
    ASSERT_TRUE(gLastView);
    EXPECT_EQ(gLastView->latitude, -33.9);
    EXPECT_EQ(gLastView->longitude, 18.4);
    EXPECT_EQ(gLastView->azimuth, 271.25);
    EXPECT_EQ(gLastView->tilt, 30.0);
    EXPECT_EQ(gLastView->distance, 2000.0);
}

TEST_F(gpsFlyGoogleEarthToLocationTest, replacesZerosByTheDefaults)
{
    gpsFlyGoogleEarthToLocation(1.0, 2.0, 0.0, 0.0, 0.0);
    ASSERT_TRUE(gLastView);
    EXPECT_EQ(gLastView->distance, 400.0);
    EXPECT_EQ(gLastView->tilt, 44.0);
}

TEST_F(gpsFlyGoogleEarthToLocationTest, nothingOutsideTheGlobeReachesIt)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const struct {
        const char* name;
        double latitude, longitude, azimuth, tilt, distance;
        bool isSent;
    } rows[] = {
        {"the poles and the date line", 90.0, -180.0, 0.0, 0.0, 0.0, true},
        {"beyond the north pole", 90.000001, 0.0, 0.0, 0.0, 0.0, false},
        {"beyond the south pole", -95.0, 0.0, 0.0, 0.0, 0.0, false},
        {"beyond the date line", 0.0, 200.0, 0.0, 0.0, 0.0, false},
        {"latitude not a number", nan, 0.0, 0.0, 0.0, 0.0, false},
        {"longitude not a number", 0.0, nan, 0.0, 0.0, 0.0, false},
        {"azimuth not a number", 1.0, 1.0, nan, 0.0, 0.0, false},
        {"endless tilt", 1.0, 1.0, 0.0, infinity, 0.0, false},
        {"distance too large for single precision", 1.0, 1.0, 0.0, 0.0, 1e300, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        gLastView.reset();
        EXPECT_EQ(gpsFlyGoogleEarthToLocation(row.latitude, row.longitude, row.azimuth, row.tilt,
                                              row.distance),
                  0);
        EXPECT_EQ(gLastView.has_value(), row.isSent);
    }
}

TEST(gpsFlyGoogleEarthToLocation, withoutALinkDoesNothing)
{
    EXPECT_FALSE(gpsSetGlobeLink({}));
    EXPECT_EQ(gpsFlyGoogleEarthToLocation(1.0, 2.0, 3.0, 4.0, 5.0), 0);
}
