// What the command line asks of the program. Arguments are raw bytes, as paths are.

#pragma once

#include <optional>
#include <string>
#include <vector>

namespace pinorama {

struct CommandLine {
    bool help = false;
    bool version = false;
    bool service = false;  // wait for the first request on the session bus, without a window
    std::optional<std::string> serviceText;  // a plain text sent by another program
    std::optional<std::string> action;       // of the desktop entry: home, donate, quit
    std::optional<std::string> show;  // absolute: a file for the open window, if there is one
    std::optional<std::string> printAndSave;  // print what the window shows, save it to this file
    std::vector<std::string> paths;           // absolute
};

// Reads the arguments after the program's name. An option's value follows it as the next argument
// or after "="; "--" ends the options. A relative path becomes absolute, a file URI the path it
// names; an empty argument is left out.
//
//   outError  receives what is wrong, one line, when the result is nothing.
std::optional<CommandLine> parseCommandLine(const std::vector<std::string>& arguments,
                                            std::string* outError);

// The text that wrong usage prints, and with which that of --help begins.
std::string shortUsage();

// The text that --help prints.
std::string usageText();

}  // namespace pinorama
