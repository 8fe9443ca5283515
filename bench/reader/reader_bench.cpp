// Measures the cost of reading the metadata of pictures in a sandboxed process instead of in this
// one: one by one, as the window does, and in batches; and what it costs that pinorama-reader reads
// each picture in a process of its own. Prints tables in Markdown.
//
// usage: reader_bench [--brief] [FILE...]
//
// Without files it takes those of the collection (PINORAMA_PICTURE_COLLECTION), and without a
// collection a picture that it makes itself. Times are medians of the elapsed time over
// all reads, with the files in memory.

#include "base/resource_folder.h"
#include "pictures/picture_file.h"
#include "reader/reader_client.h"
#include "reader/sandboxed_properties.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include <unistd.h>

using namespace pinorama;

namespace {
using Clock = std::chrono::steady_clock;
using Files = std::vector<std::unique_ptr<PictureFile>>;

constexpr std::size_t kMaxFiles = 200;
// Between two pictures that a person selects: time enough for the reader to prepare for the next.
constexpr auto kPause = std::chrono::milliseconds(20);

double microsecondsOf(const std::function<void()>& work)
{
    const auto start = Clock::now();
    work();
    return std::chrono::duration<double, std::micro>(Clock::now() - start).count();
}

double median(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values.empty() ? 0 : values[values.size() / 2];
}

using Read = std::function<void(int)>;

// The median time of one read over all files and rounds, for each of several ways to read, with a
// pause before each. They take turns at each file, so that other load on the machine affects all of
// them.
std::vector<double> mediansOfEach(const Files& files, int rounds, const std::vector<Read>& ways,
                                  std::chrono::milliseconds pause = {})
{
    std::vector<std::vector<double>> times(ways.size());
    for (int round = 0; round < rounds; round++) {
        for (const auto& file : files) {
            for (std::size_t way = 0; way < ways.size(); way++) {
                std::this_thread::sleep_for(pause);
                times[way].push_back(microsecondsOf([&] { ways[way](file->descriptor()); }));
            }
        }
    }
    std::vector<double> medians;
    for (std::vector<double>& ofWay : times) medians.push_back(median(std::move(ofWay)));
    return medians;
}

// The time per file if all files are read together; the median over the rounds.
double medianOfAll(const Files& files, int rounds,
                   const std::function<void(const std::vector<int>&)>& read)
{
    std::vector<int> descriptors;
    for (const auto& file : files) descriptors.push_back(file->descriptor());
    std::vector<double> times;
    for (int round = 0; round < rounds; round++) {
        times.push_back(microsecondsOf([&] { read(descriptors); }) /
                        static_cast<double>(files.size()));
    }
    return median(std::move(times));
}

void readHere(int descriptor)
{
    FileByteSource source(descriptor, static_cast<std::uint64_t>(lseek(descriptor, 0, SEEK_END)));
    (void)readPictureProperties(source);
}

std::vector<std::string> pathsOf(int argc, char** argv, const test::TemporaryFolder& folder)
{
    std::vector<std::string> paths;
    for (int i = 1; i < argc; i++) {
        if (argv[i][0] != '-') paths.push_back(argv[i]);
    }
    if (!paths.empty()) return paths;
    if (const auto collection = test::pictureCollection()) {
        for (const auto& entry : std::filesystem::recursive_directory_iterator(*collection)) {
            paths.push_back(entry.path().string());
        }
        std::sort(paths.begin(), paths.end());
        return paths;
    }
    return {folder.write("picture.jpg", test::pictureWithGps({.lat = 48.1, .latRef = "N"}))};
}

// One by one at the pace of a person, beside a reader that is one process for all pictures.
void printPace(const Files& files, int rounds, const Read& program, const Read& copy)
{
    const std::vector<double> times =
        mediansOfEach(files, rounds, {readHere, copy, program}, kPause);
    std::printf("\nThe same with a pause of %lld milliseconds before each picture.\n\n",
                static_cast<long long>(kPause.count()));
    std::printf("| way | time | ratio |\n|---|---|---|\n");
    std::printf("| read in this process | %.1f | %.2f |\n", times[0], times[0] / times[1]);
    std::printf("| one process for all pictures | %.1f | 1 |\n", times[1]);
    std::printf("| pinorama-reader, a process for each picture | %.1f | %.2f |\n", times[2],
                times[2] / times[1]);
}

void printLine(const char* way, double microseconds, double here)
{
    std::printf("| %s | %.1f | %+.1f |\n", way, microseconds, microseconds - here);
}
}  // namespace

int main(int argc, char** argv)
{
    const bool isBrief = argc > 1 && std::string_view(argv[1]) == "--brief";
    const int rounds = isBrief ? 2 : 50;
    const test::TemporaryFolder folder;
    Files files;
    for (const std::string& path : pathsOf(argc, argv, folder)) {
        auto file = std::make_unique<PictureFile>(path);
        if (file->isOpen() && files.size() < kMaxFiles) files.push_back(std::move(file));
    }
    if (files.empty()) {
        std::fputs("reader_bench: no file to read\n", stderr);
        return 1;
    }

    ReaderClient program([] { return startReaderProgram(programFolder() + "/pinorama-reader"); });
    ReaderClient copy(forkPropertyReader);
    const auto through = [](ReaderClient& client) -> Read {
        return [&client](int descriptor) { (void)client.readProperties(descriptor); };
    };
    const auto inBatches = [](ReaderClient& client) {
        return [&client](const std::vector<int>& all) { (void)client.readProperties(all); };
    };
    const bool hasProgram =
        program.readProperties(files.front()->descriptor()).outcome != ReadOutcome::noReader;
    const double start = microsecondsOf([] { ReaderClient(forkPropertyReader).start(); });

    std::vector<Read> ways = {readHere, through(copy)};
    if (hasProgram) ways.push_back(through(program));
    const std::vector<double> oneByOne = mediansOfEach(files, rounds, ways);
    const double here = oneByOne[0];
    std::printf("Metadata of %zu files, microseconds per file (median).\n\n", files.size());
    std::printf("| way | time | on top of reading here |\n|---|---|---|\n");
    printLine("read in this process", here, here);
    if (hasProgram) {
        printLine("pinorama-reader, one by one", oneByOne[2], here);
        printLine("pinorama-reader, in batches", medianOfAll(files, rounds, inBatches(program)),
                  here);
    } else {
        std::printf("| pinorama-reader | not built | |\n");
    }
    printLine("forked copy, one by one", oneByOne[1], here);
    printLine("forked copy, in batches", medianOfAll(files, rounds, inBatches(copy)), here);
    if (hasProgram) printPace(files, std::max(rounds / 10, 1), through(program), through(copy));
    std::printf("\nForking a copy: %.0f microseconds.\n", start);
    return 0;
}
