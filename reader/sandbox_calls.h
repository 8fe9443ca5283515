// The system calls that a locked-in process may make.

#pragma once

namespace pinorama {

// Lets through what computing, taking memory, reading open files, answering over `socket` and
// complaining to standard error need. Looking for files fails with EPERM; every other call ends the
// process.
//
// What is let through is settled when the program is built (make_sandbox_filter.cpp); a build with
// sanitizers lets through what their runtime needs as well.
//
// Returns false when the kernel has no such filter. Cannot be taken back.
[[nodiscard]] bool filterSystemCalls(int socket);

}  // namespace pinorama
