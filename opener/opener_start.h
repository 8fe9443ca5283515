// Starting an opener: a process of the program pinorama-opener.

#pragma once

#include "base/descriptor.h"

#include <functional>
#include <string>

#include <sys/types.h>

namespace pinorama {

// An opener that was started: its process, and the socket to it.
struct OpenerProcess {
    pid_t process = -1;  // the caller's to wait for; -1 if it could not be started
    DescriptorHolder socket{};
};

using OpenerLauncher = std::function<OpenerProcess()>;

// Starts the program `path` with the socket kOpenerSocket and no other descriptors but standard
// streams, in a process group of its own.
OpenerProcess startOpenerProgram(const std::string& path);

// The path of the program pinorama-opener: what the environment variable PINORAMA_OPENER says, else
// the one beside the running program, else the one under the install prefix.
std::string openerProgram();

}  // namespace pinorama
