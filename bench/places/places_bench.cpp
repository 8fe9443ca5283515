// Prints how often the look-up of a place is right on the tables in tests/places, and how long a
// look-up takes.
//
// usage: places_bench [--brief] [FILE]
//   --brief   few repetitions
//   FILE      another places file

#include "places/place_data.h"
#include "places/place_finder.h"
#include "tests/places/known_places.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <numbers>
#include <random>
#include <vector>

using namespace pinorama;

namespace {
struct Point {
    double latitude, longitude;
};

std::string townOf(const std::optional<Place>& place)
{
    return place && place->town ? place->town->name : std::string("none");
}

void printKnownPlaces(PlaceFinder& finder)
{
    const auto places = readKnownPlaces(PLACES_TABLES "/known_places.txt");
    std::size_t countries = 0, towns = 0, zones = 0;
    for (const KnownPlace& known : places) {
        const auto found = finder.find(known.latitude, known.longitude);
        const std::string country = found ? found->country : std::string();
        const std::string zone = found ? found->zone : std::string();
        const bool rightCountry = isOneOf(country, known.countries);
        const bool rightTown = isOneOf(townOf(found), known.towns);
        const bool rightZone = isOneOf(zone, known.zones);
        countries += rightCountry;
        towns += rightTown;
        zones += rightZone;
        if (rightCountry && rightTown && rightZone) continue;
        std::printf("  %s, %s: %s in %s, %s\n", known.title.c_str(), known.towns.front().c_str(),
                    townOf(found).c_str(), country.c_str(), zone.c_str());
    }
    const auto share = [&](std::size_t right) { return 100.0 * right / places.size(); };
    std::printf("%zu known places: country right in %.1f %%, town in %.1f %%, zone in %.1f %%\n",
                places.size(), share(countries), share(towns), share(zones));
}

void printBorderPoints(PlaceFinder& finder)
{
    for (const char* kind : {"near", "apart"}) {
        std::size_t count = 0, right = 0;
        for (const BorderPoint& point : readBorderPoints(PLACES_TABLES "/border_points.txt")) {
            if (point.kind != kind) continue;
            ++count;
            const auto found = finder.find(point.latitude, point.longitude);
            const std::string country = found ? found->country : std::string();
            if (country == point.country) {
                ++right;
            } else {
                std::printf("  %.5f %.5f: %s instead of %s%s\n", point.latitude, point.longitude,
                            country.c_str(), point.country.c_str(),
                            isDisputedBySources(point)
                                ? ", as country-coder has it, whose border is off there"
                                : "");
            }
        }
        std::printf("%zu border points (%s): country right in %zu\n", count, kind, right);
    }
}

// Microseconds of processor time, which other programs on the machine do not lengthen.
double processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) / 1e3;
}

// Microseconds of each look-up, in ascending order.
std::vector<double> measure(PlaceFinder& finder, const std::vector<Point>& points, int rounds)
{
    std::vector<double> times;
    for (int round = 0; round < rounds; ++round) {
        for (const Point& point : points) {
            const double start = processorTime();
            const auto found = finder.find(point.latitude, point.longitude);
            times.push_back(processorTime() - start);
            if (found && found->country.size() > 2) std::puts("unlikely");
        }
    }
    std::sort(times.begin(), times.end());
    return times;
}

void printTimes(const char* title, std::vector<double> times)
{
    const auto at = [&](double share) {
        return times[static_cast<std::size_t>(share * (times.size() - 1))];
    };
    std::printf("| %s | %.1f | %.1f | %.1f |\n", title, at(0.5), at(0.95), at(0.99));
}

std::vector<Point> pointsAnywhere(std::size_t count)
{
    std::mt19937 random(19);
    std::uniform_real_distribution<double> turn(-180, 180), height(-1, 1);
    std::vector<Point> points;
    for (std::size_t i = 0; i < count; ++i) {
        points.push_back({std::asin(height(random)) * 180 / std::numbers::pi, turn(random)});
    }
    return points;
}
}  // namespace

int main(int argc, char** argv)
{
    bool brief = false;
    std::string path = PLACES_FILE;
    for (int index = 1; index < argc; ++index) {
        if (std::strcmp(argv[index], "--brief") == 0)
            brief = true;
        else
            path = argv[index];
    }
    PlaceFinder finder(path);
    const double start = processorTime();
    const PlaceData* data = finder.data();
    const double opening = processorTime() - start;
    if (data == nullptr) {
        std::fprintf(stderr, "places_bench: %s: is no places file\n", path.c_str());
        return 1;
    }
    printKnownPlaces(finder);
    printBorderPoints(finder);
    std::printf("mapped and checked once: %.2f ms\n", opening / 1000);

    const int rounds = brief ? 1 : 20;
    std::vector<Point> known, borders;
    for (const auto& place : readKnownPlaces(PLACES_TABLES "/known_places.txt")) {
        known.push_back({place.latitude, place.longitude});
    }
    for (const auto& point : readBorderPoints(PLACES_TABLES "/border_points.txt")) {
        borders.push_back({point.latitude, point.longitude});
    }
    std::printf("\n| look-up, microseconds | p50 | p95 | p99 |\n|---|---|---|---|\n");
    printTimes("known places", measure(finder, known, rounds));
    printTimes("near borders", measure(finder, borders, rounds));
    printTimes("anywhere on Earth", measure(finder, pointsAnywhere(2000), brief ? 1 : 10));
    return 0;
}
