// The file that is shipped, on the tables of places that people know and of points near borders.

#include "tests/places/known_places.h"
#include "places/map_lines.h"
#include "tests/places/land.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
// Runs through known_places.txt. Returns the share of rows for which `isRight` says so.
template <typename Rule>
double shareOfKnownPlaces(Rule isRight)
{
    PlaceFinder finder(PLACES_FILE);
    const auto places = readKnownPlaces(PLACES_TABLES "/known_places.txt");
    std::size_t right = 0;
    for (const KnownPlace& known : places) {
        const auto found = finder.find(known.latitude, known.longitude);
        if (found && isRight(*found, known)) ++right;
    }
    EXPECT_GE(places.size(), 300U);
    return static_cast<double>(right) / static_cast<double>(places.size());
}
}  // namespace

TEST(shippedPlaces, countryIsRightInAllOfTheKnownPlaces)
{
    EXPECT_EQ(shareOfKnownPlaces([](const Place& found, const KnownPlace& known) {
                  return isOneOf(found.country, known.countries);
              }),
              1.0);
}

TEST(shippedPlaces, townIsRightIn97PercentOfTheKnownPlaces)
{
    EXPECT_GE(shareOfKnownPlaces([](const Place& found, const KnownPlace& known) {
                  return found.town && isOneOf(found.town->name, known.towns);
              }),
              0.97);
}

TEST(shippedPlaces, zoneIsRightIn99PercentOfTheKnownPlaces)
{
    EXPECT_GE(shareOfKnownPlaces([](const Place& found, const KnownPlace& known) {
                  return isOneOf(found.zone, known.zones);
              }),
              0.99);
}

TEST(shippedPlaces, countryIsRightNearEveryBorder)
{
    PlaceFinder finder(PLACES_FILE);
    const auto points = readBorderPoints(PLACES_TABLES "/border_points.txt");
    ASSERT_GE(points.size(), 1000U);
    std::size_t disputed = 0;
    for (const BorderPoint& point : points) {
        const auto found = finder.find(point.latitude, point.longitude);
        const std::string country = found ? found->country : std::string();
        if (isDisputedBySources(point)) {
            ++disputed;
            EXPECT_EQ(country, "BR") << "as country-coder has it; no longer disputed otherwise";
            continue;
        }
        EXPECT_EQ(country, point.country)
            << point.latitude << ' ' << point.longitude << ' ' << point.kind;
    }
    EXPECT_EQ(disputed, 1U);
}

TEST(shippedMap, hasLandWhereLandIs)
{
    PlaceFinder finder(PLACES_FILE);
    ASSERT_NE(finder.data(), nullptr);
    const struct {
        const char* name;
        double latitude, longitude;
        bool expected;
    } rows[] = {
        {"Bavaria", 48.9, 11.5, true},
        {"North Sea", 56, 3, false},
        {"Sahara", 23, 10, true},
        {"Bay of Bengal", 15, 88, false},
        {"Kansas", 38.5, -98, true},
        {"Chukotka beyond 180 degrees", 67, -178, true},
        {"Norway, where no outline may cross the map", 68.9, 24, true},
        {"Tierra del Fuego", -54.3, -67.5, true},
        {"Antarctica", -80, 30, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (const double half : {4.0, 12.0, 60.0}) {
            const MapBox box{row.longitude - half, row.latitude - half, row.longitude + half,
                             row.latitude + half};
            const auto lines = mapLines(*finder.data(), box, half / 100);
            EXPECT_EQ(isLand(lines, row.longitude, row.latitude), row.expected) << half;
        }
    }
}
