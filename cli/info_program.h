// The program pinorama-info, from its command line to its exit status. There are two of it: the one
// that people start loads few libraries and is ready at once; pinorama-search, which takes its
// place for a search, has those for distances and areas as well.

#pragma once

#include "cli/options.h"
#include "lib/strings/string_holder.h"

#include <functional>
#include <string>

namespace pinorama {

// Does a search, or makes a document with thumbnails, and returns the exit status. It gets the
// options and the template of the web service that they name, which is null for other outputs.
using Search = std::function<int(const Options& options, StringHolder serviceTemplate)>;

// Runs the program with the arguments of main. Without a search, pinorama-search takes the place of
// the program to do it.
//
// Returns the exit status.
int runInfoProgram(int argc, char** argv, const Search& search = {});

// The path of pinorama-search: the one beside the running program, else the one under the install
// prefix.
std::string searchProgram();

}  // namespace pinorama
