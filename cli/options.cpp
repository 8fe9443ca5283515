#include "cli/options.h"

#include <getopt.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>
#include <string_view>
#include <utility>

namespace pinorama {
namespace {
// The options while they are being read.
struct Reading {
    Options* options;
    bool hasOutput = false;
    std::string error{};
};

void choose(Reading& reading, Output output)
{
    if (reading.hasOutput && reading.options->output != output) {
        reading.error =
            "only one of --format, --json, --csv, --web, --search and --print-script can be given";
    }
    reading.hasOutput = true;
    reading.options->output = output;
}

void chooseFormat(Reading& reading, const char* value)
{
    constexpr std::pair<std::string_view, Output> kFormats[] = {
        {"json", Output::json}, {"csv", Output::csv},         {"kml", Output::kml},
        {"kmz", Output::kmz},   {"geojson", Output::geojson}, {"gpx", Output::gpx},
        {"list", Output::list}};
    for (const auto& [name, output] : kFormats) {
        if (name == value) return choose(reading, output);
    }
    reading.error = std::string("--format needs json, csv, kml, kmz, geojson, gpx or list, not '") +
                    value + '\'';
}

void chooseWebService(Reading& reading, const char* value)
{
    choose(reading, Output::webAddress);
    std::int32_t& number = reading.options->webService;
    const char* end = value + std::strlen(value);
    const auto [stop, problem] = std::from_chars(value, end, number);
    if (problem != std::errc() || stop != end || number < 1) {
        reading.error =
            std::string("--web needs the number of a web service, not '") + value + '\'';
    }
}

void chooseDocument(Reading& reading, const char* value)
{
    reading.options->kmlPath = value;
    if (*value == '\0') reading.error = "--kml needs a file name";
}

void chooseText(Reading& reading, const char* need, const char* value, std::string* out)
{
    *out = value;
    if (*value == '\0') reading.error = need;
}

// Everything about one option.
struct OptionRow {
    char letter;  // 0 if it has only its name
    const char* name;
    const char* value;  // the name of its value in the usage; null if it takes none
    const char* help;
    void (*apply)(Reading& reading, const char* value);
};

constexpr OptionRow kRows[] = {
    {'r', "recursive", nullptr, "read all pictures in the folders and their subfolders",
     [](Reading& reading, const char*) { reading.options->recursive = true; }},
    {0, "more", nullptr, "read more kinds of files (HEIC, PNG, MP4 and others), XMP and sidecars",
     [](Reading& reading, const char*) { reading.options->readsMore = true; }},
    {0, "format", "NAME",
     "print json, csv, a document of places (kml, kmz, geojson, gpx), or a list", chooseFormat},
    {0, "json", nullptr, "print one JSON object per file, each on its own line",
     [](Reading& reading, const char*) { choose(reading, Output::json); }},
    {0, "csv", nullptr, "print a table with signed degrees (CSV)",
     [](Reading& reading, const char*) { choose(reading, Output::csv); }},
    {0, "raw", nullptr, "add the fields of the record as they are to the table",
     [](Reading& reading, const char*) { reading.options->isRaw = true; }},
    {0, "track", nullptr, "add a track in the order of time to a GPX document",
     [](Reading& reading, const char*) { reading.options->hasTrack = true; }},
    {0, "near", "PLACE",
     "print only pictures within 2000 m of LAT,LON or of a picture, nearest first",
     [](Reading& reading, const char* value) {
         chooseText(reading, "--near needs a place", value, &reading.options->nearPlace);
     }},
    {0, "within", "FILE", "print only pictures inside the polygons of a GeoJSON file",
     [](Reading& reading, const char* value) {
         chooseText(reading, "--within needs a file name", value, &reading.options->areaPath);
     }},
    {0, "no-position", nullptr, "print only pictures that have no position",
     [](Reading& reading, const char*) { reading.options->withoutPosition = true; }},
    {0, "as-found", nullptr, "print the pictures of a search as soon as they are found",
     [](Reading& reading, const char*) { reading.options->asFound = true; }},
    {0, "index", "FILE",
     "remember what a search with -r finds out in FILE, not in the cache folder",
     [](Reading& reading, const char* value) {
         chooseText(reading, "--index needs a file name", value, &reading.options->indexPath);
     }},
    {0, "no-index", nullptr, "neither use nor write what searches remember",
     [](Reading& reading, const char*) { reading.options->noIndex = true; }},
    {0, "kml", "DEST", "write a KML document of the places to the file DEST", chooseDocument},
    {0, "web", "N", "print the address of each place in web service N", chooseWebService},
    {0, "search", nullptr, "print the address of the catalogue search for each place",
     [](Reading& reading, const char*) { choose(reading, Output::catalogueAddress); }},
    {0, "print-script", nullptr, "print the script that flies a globe program to each place",
     [](Reading& reading, const char*) { choose(reading, Output::script); }},
    {0, "files-from", "FILE", "read the names of further files from FILE, - for standard input",
     [](Reading& reading, const char* value) {
         chooseText(reading, "--files-from needs a file name", value, &reading.options->listPath);
     }},
    {'0', "null", nullptr, "a zero byte ends each name in that FILE, not the end of the line",
     [](Reading& reading, const char*) { reading.options->listEnd = '\0'; }},
    {0, "watch", nullptr, "print each picture that arrives in the folders, until Ctrl-C",
     [](Reading& reading, const char*) { reading.options->watch = true; }},
    {0, "progress", nullptr, "show progress and summary also without -r",
     [](Reading& reading, const char*) { reading.options->progress = true; }},
    {'q', "quiet", nullptr, "show neither progress nor summary",
     [](Reading& reading, const char*) { reading.options->quiet = true; }},
    {'h', "help", nullptr, "print this text",
     [](Reading& reading, const char*) { reading.options->help = true; }},
    {'v', "version", nullptr, "print the version",
     [](Reading& reading, const char*) { reading.options->version = true; }},
    {0, "verbose", nullptr, "with --version: say which locks the sandbox has here",
     [](Reading& reading, const char*) { reading.options->verbose = true; }},
};
constexpr std::size_t kRowCount = std::size(kRows);
constexpr std::size_t kHelpColumn = 22;
constexpr int kFirstName = 256;  // what getopt_long returns for the first name; letters are below

// The rows in the form of getopt_long.
struct GetoptTables {
    std::array<option, kRowCount + 1> names{};
    std::string letters = ":";  // reports a missing value as ':'

    GetoptTables()
    {
        for (std::size_t i = 0; i < kRowCount; i++) {
            const int argument = kRows[i].value == nullptr ? no_argument : required_argument;
            names[i] = {kRows[i].name, argument, nullptr, kFirstName + static_cast<int>(i)};
            if (kRows[i].letter != 0) letters += kRows[i].letter;
        }
    }
};

const OptionRow& rowOf(int found)
{
    if (found >= kFirstName) return kRows[found - kFirstName];
    const OptionRow* row = kRows;
    while (row->letter != found) row++;
    return *row;
}

std::string whyUnknown(char** argv)
{
    const bool isLetter = optopt != 0 && optopt < kFirstName;
    const char letter[] = {'-', static_cast<char>(optopt), '\0'};
    return std::string("unknown option '") + (isLetter ? letter : argv[optind - 1]) + '\'';
}

std::string nameOfRow(const OptionRow& row)
{
    std::string name = std::string("--") + row.name;
    if (row.value != nullptr) name += std::string(" ") + row.value;
    return name;
}

// "-r" or "--json".
std::string shortNameOfRow(const OptionRow& row)
{
    return row.letter == 0 ? nameOfRow(row) : std::string("-") + row.letter;
}
}  // namespace

bool readOptions(int argc, char** argv, Options* options, std::string* outError)
{
    const GetoptTables tables;
    Reading reading{.options = options};
    opterr = 0;
    optind = 0;  // from the start, in case somebody has read options before
    while (reading.error.empty()) {
        const int found =
            getopt_long(argc, argv, tables.letters.c_str(), tables.names.data(), nullptr);
        if (found < 0) break;
        if (found == ':') {
            reading.error = std::string("option '") + argv[optind - 1] + "' needs a value";
        } else if (found == '?') {
            reading.error = whyUnknown(argv);
        } else {
            rowOf(found).apply(reading, optarg);
        }
    }
    if (!reading.error.empty()) {
        *outError = reading.error;
        return false;
    }
    options->files.assign(argv + optind, argv + argc);
    if (options->withoutPosition && (!options->nearPlace.empty() || !options->areaPath.empty())) {
        *outError = "--no-position can be given neither with --near nor with --within";
        return false;
    }
    if (!options->kmlPath.empty() && !reading.hasOutput) options->output = Output::nothing;
    if (options->help || options->version || !options->files.empty() ||
        !options->listPath.empty()) {
        return true;
    }
    *outError = options->recursive || options->watch ? "no folder given" : "no file given";
    return false;
}

std::string shortUsage()
{
    return "usage: pinorama-info [OPTION...] FILE...\n"
           "       pinorama-info -r [OPTION...] FOLDER...\n"
           "       pinorama-info --help | --version\n";
}

std::string fullUsage()
{
    std::string usage = shortUsage() + "\nPrints where pictures were taken.\n\n";
    for (const OptionRow& row : kRows) {
        std::string line = row.letter == 0 ? "      " : "  " + shortNameOfRow(row) + ", ";
        line += nameOfRow(row);
        line.resize(std::max(line.size() + 2, kHelpColumn), ' ');
        usage += line + row.help + '\n';
    }
    usage +=
        "\nFor one FILE, --kml writes the document that the window exports. For several, or with "
        "-r, "
        "it writes\none document with a placemark for each picture that has a position.\n"
        "\nExit status: 0 if every file could be read; 1 if one could not be read, or if there was "
        "no place\nto write or print; 2 for wrong usage; 130 after Ctrl-C.\n";
    return usage;
}

}  // namespace pinorama
