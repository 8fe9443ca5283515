// Other programs, run without a shell.

#pragma once

#include <string>
#include <vector>

namespace platform {

constexpr int kCannotStart = 127;

// Runs a program and waits until it ends, however long that takes. Its standard streams are empty
// and go nowhere.
//
//   arguments    the program's name, looked for on PATH, and its arguments, each as it stands.
//   environment  "NAME=value" settings that replace those of this process.
//
// Returns the exit status; kCannotStart when the program cannot be started, 128 and the signal's
// number when a signal ended it.
int runAndWait(const std::vector<std::string>& arguments,
               const std::vector<std::string>& environment = {});

}  // namespace platform
