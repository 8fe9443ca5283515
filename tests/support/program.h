// Runs a program as a user would, and returns its output and exit status.

#pragma once

#include <string>
#include <utility>
#include <vector>

namespace test {

struct ProgramResult {
    int status = -1;  // its exit status; -1 when it could not be started, crashed or took too long
    bool tookTooLong = false;  // it was killed at its deadline
    std::string out;           // what it wrote to standard output
    std::string err;           // and to standard error
};

struct ProgramCall {
    std::vector<std::string> command;  // the program's path and its arguments
    // Variables to set on top of the test's own environment.
    std::vector<std::pair<std::string, std::string>> variables{};
    std::string outputPath{};  // where standard output goes instead of into the result
    bool asNobody = false;     // give up the rights of the superuser, when the test has them
    int seconds = 60;          // the deadline
};

// Runs the program to its end, with nothing to read on standard input.
ProgramResult runProgram(const ProgramCall& call);

}  // namespace test
