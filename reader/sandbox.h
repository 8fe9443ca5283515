// Locks a process in that works on bytes from strangers: whatever goes wrong in it afterwards, it
// can compute, take memory up to a limit, read what it was handed open, and reply over one socket.

#pragma once

#include <cstdint>

namespace pinorama {

struct SandboxRules {
    // The connected socket that replies are written to. Descriptors are received from it, and
    // nothing else is ever written to.
    int socket;
    // Bytes of address space that may be in use, those of now included. Not limited in a build with
    // sanitizers, whose bookkeeping reserves terabytes.
    std::uint64_t memory;
    // Descriptors that may be open at a time, those below `socket` included.
    std::uint32_t descriptors;
};

// The bytes of address space that this process uses, for rules that allow it some more; 0 when the
// system does not tell. The system needs longer for this reply than for a picture's properties.
std::uint64_t addressSpaceInUse();

// Locks this process in, for good and with all its threads:
//
//   - no file can be opened, made, renamed, removed or looked for (seccomp, and Landlock where the
//     kernel has it)
//   - no socket can be made, no process or thread started, no program executed, no other process
//     touched (seccomp); privileges cannot grow (no_new_privs)
//   - nothing can be written except to the socket; memory cannot be made executable
//   - the standard streams lead nowhere (standard error of a build with sanitizers aside)
//   - no core dump; the process ends with its parent
//
// Looking for a file and the like fail with EPERM, since libraries do so in good faith; an attempt
// at anything else ends the process. All descriptors above `socket` are closed.
//
// Returns false when one of these could not be had, Landlock aside; the process is then only partly
// locked in and must not go on.
[[nodiscard]] bool enterSandbox(const SandboxRules& rules);

}  // namespace pinorama
