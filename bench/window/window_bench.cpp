// Measures the time from a path to the painted window, preview included, beside the time that
// libjpeg-turbo alone needs for the preview's pixels. Prints a table in Markdown.
//
// usage: window_bench [FILE...]
//
// Without files it takes the JPEG pictures and raw files of the collection
// (PINORAMA_PICTURE_COLLECTION). The files are in memory. Times are wall-clock times,
// so other load on the machine counts as well.

#include "app/app_controller.h"
#include "app/main_window.h"
#include "app/picture_field.h"
#include "bench/window/jpegs.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "pictures/pixels/picture_preview.h"
#include "previews/picture_reader.h"
#include "tests/support/byte_views.h"
#include "tests/support/environment.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
constexpr int kPatience = 10'000;            // milliseconds
constexpr unsigned kSide = 128;              // pixels of a preview
constexpr int kLooks = 40;                   // at a picture of our own
constexpr std::uint64_t kLarge = 1'000'000;  // pixels

// Notices when a field has been painted.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(PictureField* field) : field_(field) { field->installEventFilter(this); }
    void forget() { hasPainted_ = false; }
    bool hasPainted() const { return hasPainted_; }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::Paint && !field_->pixmap().isNull()) hasPainted_ = true;
        return QObject::eventFilter(watched, event);
    }

private:
    PictureField* field_;
    bool hasPainted_ = false;
};

// Milliseconds until the window shows everything about a file; nothing if it never does.
std::optional<double> look(AppController& controller, PaintWatch& watch, const std::string& path)
{
    const StringHolder text(createPathText(path));
    watch.forget();
    QElapsedTimer timer;
    timer.start();
    controller.updateValuesForNewPath(text.get());
    while (!watch.hasPainted() && !timer.hasExpired(kPatience))
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents | QEventLoop::AllEvents);
    if (!watch.hasPainted()) return std::nullopt;
    return static_cast<double>(timer.nsecsElapsed()) * 1e-6;
}

// Waits until a decoded preview is in the cache and the window is idle.
void rest(int milliseconds)
{
    QElapsedTimer timer;
    timer.start();
    while (!timer.hasExpired(milliseconds)) QCoreApplication::processEvents();
}

double percentile(std::vector<double> values, double share)
{
    if (values.empty()) return 0.0;
    std::sort(values.begin(), values.end());
    const auto last = static_cast<double>(values.size() - 1);
    return values[static_cast<std::size_t>(share * last + 0.5)];
}

void printRow(const char* name, const std::vector<double>& times, const std::vector<double>& floors)
{
    if (times.empty()) return;
    std::printf("| %s | %zu | %.1f ms | %.1f ms |", name, times.size(), percentile(times, 0.5),
                percentile(times, 0.95));
    if (floors.empty()) {
        std::puts(" - | - |");
    } else {
        std::printf(" %.1f ms, %.1f ms | %.2f, %.2f |\n", percentile(floors, 0.5),
                    percentile(floors, 0.95), percentile(times, 0.5) / percentile(floors, 0.5),
                    percentile(times, 0.95) / percentile(floors, 0.95));
    }
}

// The time of libjpeg-turbo alone. No pixels if the file is not a JPEG stream.
struct Floor {
    std::uint64_t pixels;
    double milliseconds;
};

Floor floorOf(const std::string& path)
{
    const std::string bytes = test::readFile(path);
    QElapsedTimer timer;
    timer.start();
    const std::uint64_t pixels = bench::decodeReduced(bytes, kSide);
    return {pixels, static_cast<double>(timer.nsecsElapsed()) * 1e-6};
}

void emptyCache(const test::TemporaryFolder& home)
{
    std::filesystem::remove_all(home.file("cache/thumbnails"));
}

std::vector<std::string> filesOfCollection()
{
    std::vector<std::string> files;
    const std::optional<std::string> collection = test::pictureCollection();
    if (!collection) return files;
    for (const char* name : {"jpeg-gps", "jpeg-iptc", "jpeg-plain", "raw"}) {
        for (const auto& entry : std::filesystem::directory_iterator(*collection + "/" + name)) {
            if (entry.is_regular_file()) files.push_back(entry.path().string());
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

// Selects one of our own pictures again and again, with another one in between.
void measureOwn(AppController& controller, PaintWatch& watch, const test::TemporaryFolder& home,
                const char* name, const std::string& path, const std::string& other, bool isCached,
                bool decodes)
{
    std::vector<double> times;
    std::vector<double> floors;
    for (int turn = 0; turn < kLooks; turn++) {
        (void)look(controller, watch, other);
        rest(150);
        if (!isCached) emptyCache(home);
        if (const auto time = look(controller, watch, path)) times.push_back(*time);
        rest(150);
        if (decodes) floors.push_back(floorOf(path).milliseconds);
    }
    printRow(name, times, floors);
}

void measureFiles(AppController& controller, PaintWatch& watch,
                  const std::vector<std::string>& files)
{
    struct Decoded {
        std::vector<double> times;
        std::vector<double> floors;
    };
    std::vector<double> ready;
    Decoded large;
    Decoded small;
    Decoded others;  // not JPEG: nothing to compare with
    std::vector<double> second;
    std::size_t without = 0;
    for (const std::string& path : files) {
        const std::string bytes = test::readFile(path);
        MemoryByteSource source(test::viewOf(bytes));
        const auto preview = makePreview(source, kSide, kSide);
        if (!preview) {
            without++;
            continue;
        }
        const auto time = look(controller, watch, path);
        if (!time) continue;
        rest(130);
        if (!preview->wasDecoded) {
            ready.push_back(*time);
            continue;
        }
        const Floor floor = floorOf(path);
        Decoded& kind = floor.pixels == 0 ? others : floor.pixels < kLarge ? small : large;
        kind.times.push_back(*time);
        if (floor.pixels != 0) kind.floors.push_back(floor.milliseconds);
        const StringHolder elsewhere(createPathText("/"));
        controller.updateValuesForNewPath(elsewhere.get());
        rest(10);
        if (const auto again = look(controller, watch, path)) second.push_back(*again);
    }
    printRow("collection, preview in the file", ready, {});
    printRow("collection, JPEG to be decoded, from 1 megapixel", large.times, large.floors);
    printRow("collection, smaller JPEG to be decoded", small.times, small.floors);
    printRow("collection, raw to be decoded", others.times, others.floors);
    printRow("collection, decoded before: second look", second, {});
    if (without != 0) std::printf("\n%zu files without a preview are left out.\n", without);
}
}  // namespace

int main(int argc, char** argv)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable homeFolder("HOME", home.path().c_str());
    const test::ScopedVariable cache("XDG_CACHE_HOME", home.file("cache").c_str());
    const test::ScopedVariable settings("XDG_CONFIG_HOME", home.file("config").c_str());
    cuReadPicturesElsewhere();
    QApplication application(argc, argv);
    AppController controller;
    if (!controller.init()) return 1;
    controller.applicationWillFinishLaunching();
    controller.awakeFromNib();
    controller.gUpdateTimer->stop();
    controller.showMainWindow();
    rest(500);
    PaintWatch watch(controller.fileIconField);

    const std::string small = home.write("small.jpg", test::readFile(PINORAMA_SAMPLE));
    const std::string plain = home.write("plain.jpg", bench::largeJpeg(false));
    const std::string thumbnail = home.write("thumbnail.jpg", bench::largeJpeg(true));
    std::printf("24 megapixels are %.1f MB here.\n\n",
                static_cast<double>(std::filesystem::file_size(plain)) * 1e-6);
    std::puts(
        "| picture | looks | p50 | p95 | libjpeg-turbo at the reduced scale | ratio |\n"
        "|---|---|---|---|---|---|");
    measureOwn(controller, watch, home, "24 megapixels with a thumbnail", thumbnail, small, false,
               false);
    measureOwn(controller, watch, home, "24 megapixels without", plain, small, false, true);
    measureOwn(controller, watch, home, "24 megapixels without, second look", plain, small, true,
               false);
    std::vector<std::string> files(argv + std::min(argc, 1), argv + argc);
    measureFiles(controller, watch, files.empty() ? filesOfCollection() : files);
    return 0;
}
