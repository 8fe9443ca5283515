// Measures what a picture from elsewhere on Earth takes from the selection to its painted texts,
// beside the same window without the file of places, and so without a map. Prints a table in
// Markdown. The pictures have no pixels. Times are processor times of the window's process, which
// other programs on the machine lengthen little.

#include "app/app_controller.h"
#include "app/main_window.h"
#include "app/map_view.h"
#include "base/resource_folder.h"
#include "previews/picture_reader.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <QApplication>
#include <QElapsedTimer>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
constexpr int kTurns = 4;          // of both windows
constexpr int kPictures = 24;      // in each turn
constexpr int kPause = 60;         // milliseconds between two pictures
constexpr int kPatience = 10'000;  // milliseconds

// Notices when the coordinate has been painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(WrappedField* field) { field->viewport()->installEventFilter(this); }
    void forget() { hasPainted_ = false; }
    bool hasPainted() const { return hasPainted_; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint) hasPainted_ = true;
        return QObject::eventFilter(watched, event);
    }

private:
    bool hasPainted_ = false;
};

void rest(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(milliseconds)) QCoreApplication::processEvents();
}

// Milliseconds of processor time of this process.
double processorTime()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e3 + static_cast<double>(now.tv_nsec) / 1e6;
}

// Shows all pictures in a window of its own. Adds to the milliseconds from the selection to the
// painted texts, and returns how many maps were drawn.
int measure(const std::vector<std::string>& paths, std::vector<double>& times)
{
    AppController controller;
    if (!controller.init()) return 0;
    controller.applicationWillFinishLaunching();
    controller.awakeFromNib();
    controller.gUpdateTimer->stop();
    controller.showMainWindow();
    controller.showPath(paths.back());
    rest(500);
    const MapView& map = *controller.myWindow->placeMap;
    PaintWatch watch(controller.gpsCoordinateField);
    for (const std::string& path : paths) {
        rest(kPause);
        watch.forget();
        QElapsedTimer timer;
        timer.start();
        const double start = processorTime();
        controller.showPath(path);
        while (!watch.hasPainted() && !timer.hasExpired(kPatience))
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
        times.push_back(processorTime() - start);
    }
    rest(kPause);
    return map.drawings();
}

double median(std::vector<double> values)
{
    if (values.empty()) return 0;
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}
}  // namespace

int main(int argc, char** argv)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable homeFolder("HOME", home.path().c_str());
    const test::ScopedVariable cache("XDG_CACHE_HOME", home.file("cache").c_str());
    const test::ScopedVariable settings("XDG_CONFIG_HOME", home.file("config").c_str());
    const std::string without = home.file("resources");
    std::filesystem::create_directory(without);
    std::filesystem::create_directory_symlink(resourceFolder() + "/strings", without + "/strings");
    cuReadPicturesElsewhere();
    QApplication application(argc, argv);

    // Far apart, so that each has a map of its own.
    std::vector<std::string> paths;
    for (int i = 0; i < kPictures; i++) {
        const double latitude = 60 * std::sin(i * 2.4);
        const double longitude = 10 + 3 * i;
        paths.push_back(home.write(std::to_string(i) + ".jpg",
                                   test::pictureWithGps({.lat = std::abs(latitude),
                                                         .latRef = latitude < 0 ? "S" : "N",
                                                         .lon = longitude,
                                                         .lonRef = i % 2 == 0 ? "E" : "W"})));
    }
    std::vector<double> with;
    std::vector<double> bare;
    int maps = 0;
    for (int turn = 0; turn <= kTurns; turn++) {
        maps = measure(paths, with);
        const test::ScopedVariable resources("PINORAMA_RESOURCES", without.c_str());
        (void)measure(paths, bare);
        if (turn == 0) with.clear(), bare.clear();  // brings the files into memory
    }
    std::puts(
        "| another picture, each elsewhere on Earth | without the file of places | with it | times "
        "as much |\n|---|---|---|---|");
    std::printf(
        "| from the selection to the painted texts, processor time | %.2f ms | %.2f ms | %.2f |\n",
        median(bare), median(with), median(with) / median(bare));
    std::printf(
        "\nMedians of %d pictures, in windows in turn; %d maps were drawn in each with the file.\n",
        kTurns * kPictures, maps);
    return 0;
}
