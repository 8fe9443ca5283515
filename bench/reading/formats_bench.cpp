// Measures how long reading the further kinds of files takes, in multiples of the time to read
// their first bytes, and counts its system calls. Prints a table in Markdown.
//
// usage: formats_bench [--brief]
//
// The files are those of the collection (PINORAMA_FORMAT_COLLECTION), grouped by their format, and
// two that are made here: a HEIC picture of 4 MB, and a video of 4 GB whose index lies at its end.

#include "bench/reading/system_calls.h"
#include "pictures/more_properties.h"
#include "pictures/picture_file.h"
#include "tests/support/collection.h"
#include "tests/support/container_builder.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <map>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
// What no reader can avoid.
void readFloor(const std::string& path)
{
    const int descriptor = open(path.c_str(), O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return;
    struct stat status;
    char buffer[65536];
    if (fstat(descriptor, &status) == 0) {
        (void)!read(descriptor, buffer, sizeof buffer);  // nobody uses the bytes
    }
    close(descriptor);
}

void readOurs(const std::string& path)
{
    const PictureFile file(path);
    if (!file.isOpen()) return;
    FileByteSource source(file.descriptor(), file.size());
    (void)readMoreProperties(source, "en");  // only the time counts
}

double processorTime()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + static_cast<double>(now.tv_nsec) * 1e-9;
}

// Seconds for one call, the best of several series.
double timeOf(void (*read)(const std::string& path), const std::string& path, bool isBrief)
{
    const int calls = isBrief ? 1 : 100;
    double best = 1e9;
    for (int series = 0; series < (isBrief ? 1 : 9); series++) {
        const double start = processorTime();
        for (int call = 0; call < calls; call++) read(path);
        best = std::min(best, (processorTime() - start) / calls);
    }
    return best;
}

double median(std::vector<double> values)
{
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

std::string largeHeic(const test::TemporaryFolder& folder)
{
    const std::string tiff = test::tiffWithGps({.lat = 48.5, .latRef = "N", .lon = 2.25});
    return folder.write("large.heic", test::heifFile({.items = {{"hvc1", std::string(4 << 20, 'p')},
                                                                {"Exif", test::heifExif(tiff)}}}));
}

std::string longVideo(const test::TemporaryFolder& folder)
{
    const std::uint64_t length = std::uint64_t{4} << 30;
    const std::string start =
        test::isoBox("ftyp", "qt  ") + test::big32(1) + "mdat" + test::big64(length);
    const std::string path = folder.write("long.mov", start);
    std::filesystem::resize_file(path, start.size() - 16 + length);
    std::ofstream(path, std::ios::binary | std::ios::app)
        << test::isoBox("moov", test::placeAsKey("+48.5-002.25/"));
    return path;
}

void printRow(const std::string& name, const std::vector<std::string>& paths, bool isBrief)
{
    std::vector<double> ratios;
    int mostCalls = 0;
    for (const std::string& path : paths) {
        ratios.push_back(timeOf(readOurs, path, isBrief) / timeOf(readFloor, path, isBrief));
        const auto calls = bench::systemCallsOf([&path] { readOurs(path); });
        if (calls) mostCalls = std::max(mostCalls, calls->count);
    }
    std::printf("| %s | %zu | %.1f (at most %.1f) | %d |\n", name.c_str(), paths.size(),
                median(ratios), *std::max_element(ratios.begin(), ratios.end()), mostCalls);
}
}  // namespace

int main(int argc, char** argv)
{
    const bool isBrief = argc == 2 && std::string(argv[1]) == "--brief";
    if (argc > 1 && !isBrief) {
        std::fputs("usage: formats_bench [--brief]\n", stderr);
        return 2;
    }
    std::printf("| format | files | times the floor | calls, at most |\n|---|---|---|---|\n");
    if (const std::optional<std::string> collection = test::formatCollection()) {
        std::map<std::string, std::vector<std::string>> formats;
        for (const test::CollectedPicture& picture : test::picturesOf(*collection)) {
            if (picture.expected["kind"] == "damaged") continue;
            formats[picture.expected["format"]].push_back(picture.path);
        }
        for (const auto& [format, paths] : formats) printRow(format, paths, isBrief);
    }
    const test::TemporaryFolder folder;
    printRow("a HEIC picture of 4 MB", {largeHeic(folder)}, isBrief);
    printRow("a video of 4 GB, its index at the end", {longVideo(folder)}, isBrief);
    return 0;
}
