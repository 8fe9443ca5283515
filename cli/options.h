// What the command line of pinorama-info asks for.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pinorama {

// What is printed of each file.
enum class Output : std::uint8_t {
    text,              // a line for every field, an empty line between two files
    json,              // an object
    csv,               // a row
    webAddress,        // these for located pictures only: the address of a web service,
    catalogueAddress,  // the address of the cataloguing program,
    script,            // the script that flies a globe there
    nothing,           // --kml alone
};

struct Options {
    Output output = Output::text;
    std::int32_t webService = 0;  // of Output::webAddress, from 1
    std::string kmlPath{};        // raw bytes; empty for no document
    bool recursive = false;
    bool quiet = false;
    bool help = false;
    bool version = false;
    std::vector<std::string> files{};  // raw bytes, in the order given

    // A document of one placemark, as the window exports it.
    bool isSingleExport() const { return !kmlPath.empty() && !recursive && files.size() == 1; }
};

// Reads the arguments of main. Options may stand between the files; "--" ends them.
//
//   outError  receives what is wrong, without a line feed, when the result is false.
//
// Returns false for an unknown option, a value that is missing, wrong or not wanted, for two
// outputs at once, and when there is nothing to do.
bool readOptions(int argc, char** argv, Options* options, std::string* outError);

// The lines on how the program is called: the short form for wrong usage, and the one that explains
// every option. Both end in a line feed.
std::string shortUsage();
std::string fullUsage();

}  // namespace pinorama
