// Measures how long our reader and others take to read where a picture was taken, in multiples of
// the time to read the bytes. Prints a table in Markdown.
//
// usage: reading_bench [--brief] [small|large|raw FILE...]...
//
// Without files it takes those of the collection (PINORAMA_PICTURE_COLLECTION), and without a
// collection pictures that it makes itself. Times are processor time, user and system together,
// with the files in memory: other programs on the machine do not change them much.

#include "bench/reading/readers.h"
#include "bench/reading/system_calls.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <map>
#include <optional>

#include <fcntl.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
constexpr std::uint64_t kSmall = 100'000;       // bytes; a small JPEG picture is no larger
constexpr std::uint64_t kLarge = 1'000'000;     // a large one no smaller
constexpr std::size_t kMaxFiles = 24;           // of each kind
constexpr std::size_t kFilesForExiftool = 200;  // so that its start does not count much

const char* const kKinds[] = {"small", "large", "raw"};
const char* const kHeadings[] = {"small JPEG", "large JPEG", "raw"};

using Files = std::map<std::string, std::vector<std::string>>;

double median(std::vector<double> values)
{
    if (values.empty()) return 0.0;
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

double seconds(const timespec& time)
{
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

double processorTime()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return seconds(now);
}

double timeOf(const bench::Reader& reader, const std::string& path, int repeats)
{
    const double start = processorTime();
    for (int repeat = 0; repeat < repeats; ++repeat) reader.read(path);
    return (processorTime() - start) / repeats;
}

// Seconds per read of one file for each reader. The readers take turns, so that a change of the
// processor's clock rate affects all of them.
std::vector<double> timesOf(const std::vector<bench::Reader>& readers, const std::string& path,
                            bool isBrief)
{
    const double turn = isBrief ? 0.0002 : 0.002;
    const int rounds = isBrief ? 3 : 15;
    std::vector<int> repeats;
    for (const bench::Reader& reader : readers) {
        reader.read(path);
        const double once = std::max(timeOf(reader, path, 3), 1e-7);
        repeats.push_back(std::max(1, static_cast<int>(turn / once)));
    }
    std::vector<std::vector<double>> times(readers.size());
    for (int round = 0; round < rounds; ++round) {
        for (std::size_t index = 0; index < readers.size(); ++index) {
            times[index].push_back(timeOf(readers[index], path, repeats[index]));
        }
    }
    std::vector<double> medians;
    for (const std::vector<double>& of : times) medians.push_back(median(of));
    return medians;
}

// Seconds of processor time per file of one run of exiftool over the files, again and again.
// Nothing if it is not installed.
std::optional<double> timeOfExiftool(const std::vector<std::string>& files, bool isBrief)
{
    std::vector<std::string> arguments = {"exiftool", "-fast2", "-q", "-gps:all"};
    const std::size_t count = isBrief ? files.size() : std::max(kFilesForExiftool, files.size());
    for (std::size_t index = 0; index < count; ++index) {
        arguments.push_back(files[index % files.size()]);
    }
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    posix_spawn_file_actions_t quiet;
    posix_spawn_file_actions_init(&quiet);
    posix_spawn_file_actions_addopen(&quiet, 1, "/dev/null", O_WRONLY, 0);
    posix_spawn_file_actions_addopen(&quiet, 2, "/dev/null", O_WRONLY, 0);
    pid_t child = 0;
    const int error =
        posix_spawnp(&child, pointers.front(), &quiet, nullptr, pointers.data(), environ);
    posix_spawn_file_actions_destroy(&quiet);
    if (error != 0) return std::nullopt;
    int status = 0;
    rusage usage;
    if (wait4(child, &status, 0, &usage) != child) return std::nullopt;
    const auto part = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return (part(usage.ru_utime) + part(usage.ru_stime)) / static_cast<double>(count);
}

Files filesOfCollection(const std::string& folder)
{
    Files files;
    for (const char* name : {"jpeg-gps", "jpeg-iptc", "jpeg-plain", "raw"}) {
        for (const auto& entry : std::filesystem::directory_iterator(folder + "/" + name)) {
            const bool isRaw = std::string(name) == "raw";
            const std::uint64_t size = entry.is_regular_file() ? entry.file_size() : 0;
            if (size == 0) continue;
            const std::string path = entry.path().string();
            if (isRaw) {
                files["raw"].push_back(path);
            } else if (size <= kSmall) {
                files["small"].push_back(path);
            } else if (size >= kLarge) {
                files["large"].push_back(path);
            }
        }
    }
    // An even selection from all makers.
    for (auto& [kind, paths] : files) {
        std::sort(paths.begin(), paths.end());
        const std::size_t step = (paths.size() + kMaxFiles - 1) / kMaxFiles;
        std::vector<std::string> chosen;
        for (std::size_t index = 0; index < paths.size(); index += step) {
            chosen.push_back(paths[index]);
        }
        paths = std::move(chosen);
    }
    return files;
}

// Pictures for a machine without the collection: a position, some texts, and filler for size.
Files builtFiles(const test::TemporaryFolder& folder)
{
    const test::PictureFields fields = test::everyField(test::ByteOrder::little);
    const std::string jpeg = test::pictureWithGps(fields);
    return {{"small", {folder.write("small.jpg", jpeg)}},
            {"large", {folder.write("large.jpg", jpeg + std::string(4'000'000, '\0'))}},
            {"raw",
             {folder.write("raw.nef", test::tiffWithGps(fields) + std::string(4'000'000, '\0'))}}};
}

std::string fixed(double value, int digits)
{
    char text[64];
    const auto end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed, digits);
    return {text, end.ptr};
}

constexpr std::size_t kOurs = 1;  // in the list of readers; the floor is 0

struct Column {
    std::vector<double> floors;               // seconds
    std::vector<std::vector<double>> ratios;  // per reader, per file
    std::vector<std::vector<double>> calls;   // per reader, per file
    std::optional<double> exiftool;           // seconds
};

Column measure(const std::vector<bench::Reader>& readers, const std::vector<std::string>& files,
               bool isRaw, bool isBrief)
{
    Column column;
    column.ratios.resize(readers.size());
    column.calls.resize(readers.size());
    for (const std::string& path : files) {
        const std::vector<double> times = timesOf(readers, path, isBrief);
        column.floors.push_back(times.front());
        for (std::size_t index = 0; index < readers.size(); ++index) {
            if (isRaw && !readers[index].readsRaw) continue;
            column.ratios[index].push_back(times[index] / times.front());
            const auto calls = bench::systemCallsOf([&] { readers[index].read(path); });
            if (calls) column.calls[index].push_back(calls->count);
        }
    }
    if (!files.empty()) column.exiftool = timeOfExiftool(files, isBrief);
    return column;
}

std::string cellOf(const Column& column, std::size_t reader)
{
    if (column.ratios[reader].empty()) return "-";
    const std::vector<double>& ratios = column.ratios[reader];
    std::string cell = reader == 0
                           ? fixed(median(column.floors) * 1e6, 1) + " \u00b5s"
                           : fixed(median(ratios), 1) + " (at most " +
                                 fixed(*std::max_element(ratios.begin(), ratios.end()), 1) + ")";
    const std::vector<double>& calls = column.calls[reader];
    if (!calls.empty()) {
        cell += "; " + fixed(median(calls), 0) + " calls (at most " +
                fixed(*std::max_element(calls.begin(), calls.end()), 0) + ")";
    }
    return cell;
}

void printTable(const std::vector<bench::Reader>& readers, const std::vector<Column>& columns,
                const Files& files)
{
    std::string text = "| reader |";
    std::string rule = "|---|";
    for (std::size_t kind = 0; kind < columns.size(); ++kind) {
        const auto found = files.find(kKinds[kind]);
        const std::size_t count = found == files.end() ? 0 : found->second.size();
        text += std::string(" ") + kHeadings[kind] + " (" + std::to_string(count) + " files) |";
        rule += "---|";
    }
    text += "\n" + rule + "\n";
    for (std::size_t reader = 0; reader < readers.size(); ++reader) {
        text += "| " + readers[reader].name + " |";
        for (const Column& column : columns) text += " " + cellOf(column, reader) + " |";
        text += "\n";
    }
    text += "| exiftool -fast2 -gps:all, one run over all |";
    for (const Column& column : columns) {
        text += column.exiftool ? " " + fixed(*column.exiftool / median(column.floors), 0) + " |"
                                : " - |";
    }
    std::fputs((text + "\n").c_str(), stdout);
}

// How many times as long as the project's reader the others take for a file.
void printFactors(const std::vector<bench::Reader>& readers, const std::vector<Column>& columns)
{
    std::string text =
        "| times as long as Pinorama | small JPEG | large JPEG | raw |\n"
        "|---|---|---|---|\n";
    for (std::size_t reader = kOurs + 1; reader < readers.size(); ++reader) {
        text += "| " + readers[reader].name + " |";
        for (const Column& column : columns) {
            std::vector<double> factors;
            for (std::size_t file = 0; file < column.ratios[reader].size(); ++file) {
                factors.push_back(column.ratios[reader][file] / column.ratios[kOurs][file]);
            }
            text += factors.empty() ? " - |" : " " + fixed(median(factors), 1) + " |";
        }
        text += "\n";
    }
    text += "| exiftool |";
    for (const Column& column : columns) {
        const double ours = median(column.floors) * median(column.ratios[kOurs]);
        text += column.exiftool ? " " + fixed(*column.exiftool / ours, 0) + " |" : " - |";
    }
    std::fputs((text + "\n\n").c_str(), stdout);
}
}  // namespace

int main(int argc, char** argv)
{
    const test::TemporaryFolder folder;
    bool isBrief = false;
    Files files;
    std::string kind;
    for (int index = 1; index < argc; ++index) {
        const std::string argument = argv[index];
        if (argument == "--brief") {
            isBrief = true;
        } else if (std::find(std::begin(kKinds), std::end(kKinds), argument) != std::end(kKinds)) {
            kind = argument;
        } else if (!kind.empty()) {
            files[kind].push_back(argument);
        } else {
            std::fputs("usage: reading_bench [--brief] [small|large|raw FILE...]...\n", stderr);
            return 2;
        }
    }
    if (files.empty()) {
        const std::optional<std::string> collection = test::pictureCollection();
        files = collection ? filesOfCollection(*collection) : builtFiles(folder);
    }
    if (isBrief) {
        for (auto& [name, paths] : files) paths.resize(std::min<std::size_t>(paths.size(), 2));
    }

    const std::vector<bench::Reader> readers = bench::readers();
    std::vector<Column> columns;
    for (const char* name : kKinds) {
        columns.push_back(measure(readers, files[name], std::string(name) == "raw", isBrief));
    }
    printTable(readers, columns, files);
    std::puts(
        "Figures are medians per file, in multiples of the floor; calls are those of the "
        "system per file.\n");
    printFactors(readers, columns);
    for (const std::string& name : bench::missingReaders()) {
        std::printf("%s was not installed when this was built.\n", name.c_str());
    }
    if (!columns.front().exiftool) std::puts("exiftool is not installed.");
    return 0;
}
