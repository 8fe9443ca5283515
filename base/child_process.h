// Other programs, run without a shell.

#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

constexpr int kCannotStart = 127;

// What a program finds on its standard input, and who gets its standard output.
struct ChildStreams {
    std::string_view input{};       // nothing by default
    std::string* output = nullptr;  // receives all of it, in memory; null: it goes nowhere
};

// Runs a program and waits until it ends, however long that takes. Its standard error goes nowhere.
//
//   arguments    the program's name, looked for on PATH, and its arguments, each as it stands.
//   environment  "NAME=value" settings that replace those of this process.
//
// Returns the exit status; kCannotStart when the program cannot be started, 128 and the signal's
// number when a signal ended it.
int runAndWait(const std::vector<std::string>& arguments,
               const std::vector<std::string>& environment = {}, const ChildStreams& streams = {});

}  // namespace pinorama
