// A running pinorama-info, for tests that do something to it meanwhile.

#pragma once

#include <string>
#include <utility>
#include <vector>

#include <sys/resource.h>
#include <sys/types.h>

namespace test {

class RunningProgram {
public:
    enum class Errors { pipe, terminal };

    // Starts the program. Its standard output is a pipe; its standard error a pipe, or a terminal
    // of its own.
    explicit RunningProgram(std::vector<std::string> arguments, Errors errors = Errors::pipe);
    // Kills it if it still runs.
    ~RunningProgram();
    RunningProgram(const RunningProgram&) = delete;
    RunningProgram& operator=(const RunningProgram&) = delete;

    pid_t process() const { return process_; }

    // Reads from standard output until `count` bytes are there or it ends.
    std::string read(std::size_t count);
    // Closes the reading end of standard output.
    void stopReading();

    // Reads the rest of both streams and waits for the end of the program. After that `out` and
    // `err` are complete.
    //
    // Returns the exit status, or 128 plus the signal that ended it; -1 if it takes too long.
    int finish();

    const std::string& out() const { return out_; }
    const std::string& err() const { return err_; }
    // What it and its child processes used, once it has finished.
    const rusage& usage() const { return usage_; }

private:
    bool takeSome(int milliseconds);

    pid_t process_ = -1;
    int outEnd_ = -1;
    int errEnd_ = -1;
    std::string out_;
    std::string err_;
    rusage usage_{};
};

}  // namespace test
