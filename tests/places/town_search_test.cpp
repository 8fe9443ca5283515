// The town by which a point is described.

#include "places/town_search.h"
#include "tests/places/places_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

using namespace pinorama;

namespace {
// Kilometres on the sphere, by another formula than the search's.
double kilometres(double latitude, double longitude, const BuiltTown& town)
{
    constexpr double kRadian = std::numbers::pi / 180;
    const double dy = std::sin((town.latitude - latitude) * kRadian / 2);
    const double dx = std::sin((town.longitude - longitude) * kRadian / 2);
    const double h =
        dy * dy + std::cos(latitude * kRadian) * std::cos(town.latitude * kRadian) * dx * dx;
    return 2 * kEarthRadius * std::asin(std::sqrt(h));
}

// What a file stores of a population.
double storedPopulation(double population)
{
    return std::exp2(std::round(10 * std::log2(population)) / 10);
}
}  // namespace

TEST(findTown, findsWhatASearchOfAllTownsFinds)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> turn(-180, 180), height(-1, 1), size(0, 24);
    const auto latitude = [&] { return std::asin(height(random)) * 180 / std::numbers::pi; };
    PlacesFile file;
    std::vector<BuiltTown> towns;
    for (int i = 0; i < 700; ++i) {
        towns.push_back({i % 3 == 0 ? "AA" : "BB", "town " + std::to_string(i), latitude(),
                         turn(random), std::exp2(size(random)), ""});
        file.town(towns.back());
    }
    const auto bytes = file.build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    for (int i = 0; i < 500; ++i) {
        const double y = latitude();
        const double x = turn(random);
        for (const char* country : {"", "AA", "BB"}) {
            double best = std::numeric_limits<double>::infinity();
            for (const BuiltTown& town : towns) {
                if (*country != '\0' && town.country != country) continue;
                best = std::min(best, townScore(kilometres(y, x, town),
                                                townRadius(storedPopulation(town.population))));
            }
            const auto found = findTown(*data, y, x, country, 30000);
            ASSERT_TRUE(found);
            // Stored positions are exact to about two metres.
            EXPECT_NEAR(townScore(found->town.distance, found->town.radius), best, 0.01);
        }
    }
}

TEST(findTown, saysHowFarAndInWhichDirection)
{
    const auto bytes = PlacesFile().town({"AA", "Middle", 50, 8, 1000, "Europe/Berlin"}).build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    const auto found = findTown(*data, 50, 8.1, "AA", 100);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->town.name, "Middle");
    EXPECT_EQ(found->town.country, "AA");
    EXPECT_EQ(found->zone, "Europe/Berlin");
    EXPECT_NEAR(found->town.distance, 7.147, 0.01);
    EXPECT_NEAR(found->town.bearing, 90, 0.1);
}

TEST(findTown, prefersTheCityThatOneIsStandingInToAHamlet)
{
    const auto bytes = PlacesFile()
                           .town({"AA", "City", 50.00, 8.00, 2000000, ""})
                           .town({"AA", "Hamlet", 50.05, 8.00, 300, ""})
                           .build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_EQ(findTown(*data, 50.04, 8.00, "AA", 100)->town.name, "City");
    EXPECT_EQ(findTown(*data, 50.30, 8.00, "AA", 100)->town.name, "City");
}

TEST(findTown, prefersTheVillageToACityFurtherAway)
{
    const auto bytes = PlacesFile()
                           .town({"AA", "City", 50.00, 8.00, 700000, ""})
                           .town({"AA", "Village", 50.30, 8.00, 3000, ""})
                           .build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_EQ(findTown(*data, 50.25, 8.00, "AA", 100)->town.name, "Village");
}

TEST(findTown, looksNoFurtherThanTheLimit)
{
    const auto bytes = PlacesFile().town({"AA", "Middle", 50, 8, 1000, ""}).build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_TRUE(findTown(*data, 51, 8, "AA", 112));
    EXPECT_FALSE(findTown(*data, 51, 8, "AA", 110));
    EXPECT_FALSE(findTown(*data, 50, 8, "BB", 110));
}

TEST(findTown, findsAcrossTheDateLineAndThePole)
{
    const auto bytes = PlacesFile()
                           .town({"AA", "East", 0, 179.9, 1000, ""})
                           .town({"AA", "Polar", 89.5, 0, 1000, ""})
                           .build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_NEAR(findTown(*data, 0, -179.9, "", 1000)->town.distance, 22.2, 0.5);
    EXPECT_NEAR(findTown(*data, 89.5, 180, "", 1000)->town.distance, 111, 1);
}
