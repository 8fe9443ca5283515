#include "nearby/place_circle.h"

#include <gtest/gtest.h>

#include <cmath>

using namespace pinorama;

namespace {
constexpr double kAnywhere = kMaxRadius;
}  // namespace

// The expected values follow from the dimensions of the ellipsoid: its equator is a circle, and the
// length of a meridian is the integral of its radius of curvature.
TEST(PlaceCircle, measuresTheShortestWayOnTheEllipsoid)
{
    const struct {
        const char* name;
        Position from, to;
        double metres, bearing;
    } rows[] = {
        {"the same place", {48.0, 11.0}, {48.0, 11.0}, 0.0, 180.0},
        {"a degree along the equator", {0.0, 0.0}, {0.0, 1.0}, 111319.490793274, 90.0},
        {"across the date line", {0.0, 179.5}, {0.0, -179.5}, 111319.490793274, 90.0},
        {"back across it", {0.0, -179.5}, {0.0, 179.5}, 111319.490793274, 270.0},
        {"equator to pole", {0.0, 20.0}, {90.0, 20.0}, 10001965.729313, 0.0},
        {"over the pole", {89.0, 0.0}, {89.0, 180.0}, 223387.7298, 0.0},
        {"half around", {0.0, 0.0}, {0.0, 180.0}, 20003931.4586, 0.0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto nearness = PlaceCircle(row.from, kAnywhere).measure(row.to);
        ASSERT_TRUE(nearness);
        EXPECT_NEAR(nearness->metres, row.metres, 0.001);
        if (row.metres > 0.0) {
            EXPECT_NEAR(nearness->bearing, row.bearing, 1e-6);
        }
    }
}

TEST(PlaceCircle, containsWhatIsWithinItsRadius)
{
    const struct {
        const char* name;
        Position centre;
        double radius;
        Position place;
        bool isInside;
    } rows[] = {
        {"itself", {48.0, 11.0}, 0.0, {48.0, 11.0}, true},
        {"just inside", {0.0, 0.0}, 111319.491, {0.0, 1.0}, true},
        {"just outside", {0.0, 0.0}, 111319.490, {0.0, 1.0}, false},
        {"in the box but outside", {48.0, 11.0}, 2000.0, {48.0179, 11.0267}, false},
        {"the other hemisphere", {36.1, -112.1}, 2000.0, {36.1, 112.1}, false},
        {"date line", {-17.0, 179.999}, 2000.0, {-17.0, -179.999}, true},
        {"over the pole", {89.995, 10.0}, 2000.0, {89.995, -170.0}, true},
        {"no number", {48.0, 11.0}, 2000.0, {std::nan(""), 11.0}, false},
    };
    for (const auto& row : rows) {
        const PlaceCircle circle(row.centre, row.radius);
        EXPECT_EQ(circle.measure(row.place).has_value(), row.isInside) << row.name;
    }
}

// The box is a sieve: it may let too much through, and never too little.
TEST(PlaceCircle, itsBoxContainsTheWholeCircle)
{
    for (const double latitude : {-90.0, -89.99, -60.0, 0.0, 1.0, 45.0, 80.0, 89.9, 90.0}) {
        for (const double radius : {1.0, 2000.0, 50'000.0, 3'000'000.0, 12'000'000.0}) {
            const PlaceCircle circle({latitude, 179.0}, radius);
            const PlaceCircle everything({latitude, 179.0}, kMaxRadius);
            int inside = 0;
            for (int i = 0; i < 2000; i++) {
                // Places all around, dense near the centre.
                const double reach = radius / 100'000.0 * (i % 50) / 40.0;
                const double angle = i * 0.7;
                const double wide = std::max(0.001, std::cos(latitude * 0.0174532925));
                const double to = latitude + reach * std::cos(angle);
                const double around = 179.0 + reach * std::sin(angle) / wide;
                const Position place{std::fmax(-90.0, std::fmin(90.0, to)),
                                     std::remainder(around, 360.0)};
                const auto exact = everything.measure(place);
                if (!exact || exact->metres > radius) continue;
                inside++;
                EXPECT_TRUE(circle.mayContain(place))
                    << latitude << ' ' << radius << ' ' << place.latitude << ' ' << place.longitude;
            }
            EXPECT_GT(inside, 0);
        }
    }
}
