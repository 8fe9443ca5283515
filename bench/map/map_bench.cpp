// How long the small map of the window takes to draw: everything between the file of places and the
// pixels, at the places of the table and in every scale, at the usual size and at twice the
// density. usage: map_bench [--brief]

#include "app/map_view.h"
#include "places/place_finder.h"
#include "tests/places/known_places.h"

#include <QApplication>
#include <QImage>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <vector>

using namespace pinorama;

namespace {
constexpr QSize kSize(176, 160);  // points
constexpr const char* kScaleNames[] = {"a country to a continent", "the surroundings",
                                       "much of the world"};

// Milliseconds of processor time, which other programs on the machine do not lengthen.
double processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

double timeOfDrawing(MapView& map, QImage& target)
{
    const double start = processorTime();
    map.render(&target);  // without the map, as together with the texts of the window
    QCoreApplication::processEvents();
    map.render(&target);
    return processorTime() - start;
}

void printTimes(int scale, qreal ratio, std::vector<double> times)
{
    std::sort(times.begin(), times.end());
    const auto at = [&](double share) {
        return times[static_cast<std::size_t>(share * static_cast<double>(times.size() - 1))];
    };
    std::printf("| %s, %.0f %% | %.2f | %.2f | %.2f | %.2f |\n", kScaleNames[scale], ratio * 100,
                at(0.5), at(0.95), at(0.99), times.back());
}
}  // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    const bool isBrief = argc > 1 && std::strcmp(argv[1], "--brief") == 0;
    PlaceFinder finder(PLACES_FILE);
    if (finder.data() == nullptr) return std::fputs("map_bench: no places file\n", stderr), 1;
    auto places = readKnownPlaces(PLACES_TABLES "/known_places.txt");
    if (isBrief) places.resize(std::min<std::size_t>(places.size(), 5));

    std::printf("Milliseconds of processor time for a map of %d by %d points at %zu places:\n\n",
                kSize.width(), kSize.height(), places.size());
    std::puts("| Scale, density | p50 | p95 | p99 | longest |\n|---|---|---|---|---|");
    for (const qreal ratio : {1.0, 2.0}) {
        MapView map;
        map.resize(kSize * ratio);  // the pixels of a map at that density
        QImage target(map.size(), QImage::Format_ARGB32_Premultiplied);
        for (int scale = 0; scale < MapView::kScales; ++scale, map.click()) {
            std::vector<double> times;
            for (const auto& place : places) {
                map.showPlace(finder.data(), {place.latitude, place.longitude, false, 45}, {});
                const int before = map.drawings();
                const double time = timeOfDrawing(map, target);
                // Places of one town have one map.
                if (map.drawings() > before) times.push_back(time);
            }
            printTimes(scale, ratio, times);
        }
    }
    return 0;
}
