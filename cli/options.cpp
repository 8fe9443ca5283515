#include "cli/options.h"

#include <getopt.h>

#include <array>

namespace {
// One row for each option: all that has to be said about it.
struct OptionRow {
    const char* name;
    const char* value;  // how its value is called in the usage text; null when it takes none
    const char* help;
    void (*apply)(Options&, const char* value);
};

constexpr OptionRow kRows[] = {
    {"json", nullptr, "print one JSON object per file and line",
     [](Options& options, const char*) { options.json = true; }},
    {"help", nullptr, "print this text",
     [](Options& options, const char*) { options.help = true; }},
    {"version", nullptr, "print the version",
     [](Options& options, const char*) { options.version = true; }},
};
constexpr std::size_t kRowCount = std::size(kRows);
constexpr std::size_t kHelpColumn = 22;

// The rows as getopt_long wants them; the value of an option is its row.
std::array<option, kRowCount + 1> longOptions()
{
    std::array<option, kRowCount + 1> options{};
    for (std::size_t i = 0; i < kRowCount; i++) {
        const int argument = kRows[i].value == nullptr ? no_argument : required_argument;
        options[i] = {kRows[i].name, argument, nullptr, static_cast<int>(i)};
    }
    return options;
}

std::string nameOfRow(const OptionRow& row)
{
    std::string name = std::string("--") + row.name;
    if (row.value != nullptr) name += std::string(" ") + row.value;
    return name;
}
}  // namespace

bool readOptions(int argc, char** argv, Options* options, std::string* outError)
{
    const auto rows = longOptions();
    opterr = 0;
    optind = 0;  // from the start, in case somebody has read options before
    while (true) {
        const int found = getopt_long(argc, argv, ":", rows.data(), nullptr);
        if (found < 0) break;
        if (found == ':') {
            *outError = std::string("option needs a value: ") + argv[optind - 1];
            return false;
        }
        if (found == '?') {
            const char letter[] = {'-', static_cast<char>(optopt), '\0'};
            const bool isShort = optopt >= static_cast<int>(kRowCount) && optopt != 0;
            *outError = std::string("unknown option: ") + (isShort ? letter : argv[optind - 1]);
            return false;
        }
        kRows[found].apply(*options, optarg);
    }
    options->files.assign(argv + optind, argv + argc);
    if (options->help || options->version || !options->files.empty()) return true;
    *outError = "no file given";
    return false;
}

std::string shortUsage()
{
    std::string usage = "Usage: pinorama-info";
    for (const OptionRow& row : kRows) {
        const std::string name = row.name;
        if (name != "help" && name != "version") usage += " [" + nameOfRow(row) + "]";
    }
    return usage + " FILE...\n       pinorama-info --help | --version\n";
}

std::string fullUsage()
{
    std::string usage = shortUsage() + "\nTells where pictures were taken.\n\n";
    for (const OptionRow& row : kRows) {
        std::string line = "  " + nameOfRow(row);
        line.resize(std::max(line.size() + 2, kHelpColumn), ' ');
        usage += line + row.help + '\n';
    }
    usage +=
        "\nExit status: 0 when every file could be read, 1 when one could not, 2 for wrong "
        "usage.\n";
    return usage;
}
