// The program pinorama-info, from its command line to its exit status. There are two of it: the one
// that people start loads few libraries and is ready at once; pinorama-search, which takes its
// place for a search, has those for distances and areas as well.

#pragma once

#include "cli/options.h"
#include "cli/place_filter.h"

#include <functional>
#include <string>

namespace pinorama {

// Makes the filter of a search.
//
//   outError  receives the error message if the result is false.
//
// Returns false for a place or an area that is malformed or cannot be read.
using FilterMaker =
    std::function<bool(const Options& options, PlaceFilter* outFilter, std::string* outError)>;

// Runs the program with the arguments of main. Without a maker of filters, pinorama-search takes
// its place for a search.
//
// Returns the exit status.
int runInfoProgram(int argc, char** argv, const FilterMaker& makeFilter = {});

// The path of pinorama-search: the one beside the running program, else the one under the install
// prefix.
std::string searchProgram();

}  // namespace pinorama
