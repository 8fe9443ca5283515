// The command line of pinorama-info.

#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace pinorama {

// What to print about each file.
enum class Output : std::uint8_t {
    text,              // a line for every field, an empty line between two files
    json,              // an object
    csv,               // a row
    kml,               // for located pictures only: a placemark of one document,
    kmz,               // the same with a thumbnail, in an archive,
    geojson,           // the same: a feature of one document,
    gpx,               // the same: a waypoint of one document
    list,              // the path and the position between zero bytes
    webAddress,        // for located pictures only: the address of a web service,
    catalogueAddress,  // the same: the address of the cataloguing program,
    script,            // the same: the script that flies a globe program there
    nothing,           // --kml alone
};

struct Options {
    Output output = Output::text;
    std::int32_t webService = 0;   // for Output::webAddress, from 1
    std::string kmlPath{};         // raw bytes; empty for no document
    bool isRaw = false;            // for Output::csv: the raw fields as well
    bool hasTrack = false;         // for Output::gpx: a track as well
    std::string nearPlace{};       // the value of --near, empty for none
    std::string areaPath{};        // raw bytes; empty for none
    bool withoutPosition = false;  // only pictures that have none
    bool asFound = false;          // not sorted by distance
    bool readsMore = false;        // more kinds of files, XMP and sidecars
    std::string indexPath{};       // raw bytes; empty for the one in the cache folder
    bool noIndex = false;
    std::string listPath{};  // of a list of further files, "-" for standard input; empty for none
    char listEnd = '\n';     // ends a path in the list
    bool watch = false;      // pictures that arrive in the folders, and no others
    bool progress = false;   // on a terminal, also without -r
    bool recursive = false;
    bool quiet = false;
    bool help = false;
    bool version = false;
    bool verbose = false;
    std::vector<std::string> files{};  // raw bytes, in the order given

    // A document of one placemark, as the window exports it.
    bool isSingleExport() const
    {
        return !kmlPath.empty() && !recursive && files.size() == 1 && listPath.empty() &&
               !isSearch() && !watch;
    }
    // What the program that people start has no libraries for.
    bool needsSearchProgram() const { return isSearch() || output == Output::kmz; }
    bool isSearch() const { return !nearPlace.empty() || !areaPath.empty() || withoutPosition; }
    // The nearest pictures come first, and folders are searched in no order, so that nothing is
    // printed before all have been read.
    bool isSorted() const
    {
        return isSearch() && !asFound && !watch && (!nearPlace.empty() || recursive);
    }
};

// Reads the arguments of main. Options may come between the files; "--" ends them.
//
//   outError  receives the error message, without a line feed, if the result is false.
//
// Returns false for an unknown option, a missing, malformed or unexpected value, two outputs at
// once, and if no file is given.
bool readOptions(int argc, char** argv, Options* options, std::string* outError);

// The usage: the short form for wrong usage, and the full form that explains every option. Both end
// in a line feed.
std::string shortUsage();
std::string fullUsage();

}  // namespace pinorama
