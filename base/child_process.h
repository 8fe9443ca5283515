// Child processes: other programs, run without a shell, and copies of this one.

#pragma once

#include <chrono>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

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

// What a program may find in the place of a descriptor.
constexpr int kNullDevice = -1;     // /dev/null
constexpr int kOwnDescriptor = -2;  // what this process has there

struct ProgramStart {
    // The program, looked for on PATH unless its name has a slash, and its arguments, each as it
    // stands. At least one.
    std::vector<std::string> arguments{};
    std::vector<std::string> environment{};  // all of it: "NAME=value"
    // What the program finds under the numbers 0, 1, 2 and so on: one of those above or a
    // descriptor, which is above 2. Every other one is closed.
    std::vector<int> descriptors{};
    // In a process group of its own, so that what is typed in a terminal does not reach it, and
    // with every signal at its default, not SIGPIPE and SIGXFSZ alone.
    bool isApart = false;
};

// Starts a program, in which no signal is blocked. Returns its process, which is the caller's to
// wait for; -1 when it cannot be started.
pid_t spawnProgram(ProgramStart start);

// The number under which the work of forkProcess finds its descriptor.
constexpr int kForkedDescriptor = 3;

// Splits off a copy of this process in which `work` runs with a copy of `descriptor`, the only one
// that is open there besides the standard streams. Signals stay blocked, ignored and handled as
// they are here. The copy ends when `work` returns, without any cleaning up of what it was copied
// with, and is killed when this process ends before. The caller has one thread.
//
//     process = forkProcess(theirs.get(), [](int socket) { serve(socket); });
//
// Returns its process, which is the caller's to wait for; -1 with errno set.
pid_t forkProcess(int descriptor, const std::function<void(int descriptor)>& work);

// Waits until a child has ended, and collects it. False if it has not ended in time: one that was
// killed lingers while it sleeps in the kernel, as in a read that a disk does not answer. With no
// time it only looks, which a sandboxed process may do as well.
bool waitForEnd(pid_t process, std::chrono::milliseconds max);

// Ends all that is left of this program's work if whoever started it had it adopt what its children
// leave behind (PR_SET_CHILD_SUBREAPER): it closes its standard output and every descriptor above
// the standard streams, which tells others that it is done, and waits for the end of all of its
// processes, however long a disk keeps them. So whoever counts this process counts those. They have
// been killed, or end with their parents.
void endAfterAllProcesses();

}  // namespace pinorama
