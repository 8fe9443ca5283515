// What the command line of pinorama-info asks for.

#pragma once

#include <string>
#include <vector>

struct Options {
    bool json = false;
    bool help = false;
    bool version = false;
    std::vector<std::string> files{};  // raw bytes, in the order given
};

// Reads the arguments of main. Options may stand between the files; "--" ends them.
//
//   outError  receives what is wrong, without a line feed, when the result is false.
//
// Returns false for an unknown option, a value that is missing or not wanted, and when there is
// nothing to do.
bool readOptions(int argc, char** argv, Options* options, std::string* outError);

// The lines on how the program is called: the short form for wrong usage, and the one that explains
// every option. Both end in a line feed.
std::string shortUsage();
std::string fullUsage();
