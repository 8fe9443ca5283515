// The sandbox of a process that works on bytes from strangers: whatever goes wrong in it
// afterwards, it can compute, take memory up to a limit, read the descriptors that it receives, and
// reply over one socket.
//
//     loadPlugins();  // whatever opens a file comes first
//     if (!enterSandbox({.socket = socket, .memory = addressSpaceInUse() + more, .descriptors =
//     8}))
//         return EXIT_FAILURE;
//     serve(socket);
//     _exit(EXIT_SUCCESS);  // cleaning up would look for files

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
    // Whether the process may fork others. It has to read nothing from strangers itself, and each
    // that it forks has to go on with enterChildSandbox.
    bool mayFork = false;
};

// The bytes of address space that this process uses, for rules that allow it some more; 0 when the
// system does not tell. The system takes longer to say than reading the
// properties of a picture takes.
std::uint64_t addressSpaceInUse();

// Puts this process into the sandbox, for good and with all its threads:
//
//   - no file can be opened, made, renamed, removed or looked for (seccomp, and Landlock where the
//     kernel has it)
//   - no socket can be made, no process or thread started, no program executed, no other process
//     touched (seccomp), except as rules.mayFork says; privileges cannot grow (no_new_privs)
//   - nothing can be written except to sockets that it has; memory cannot be made executable
//   - the standard streams lead nowhere (standard error of a build with sanitizers aside)
//   - no core dump, no capabilities; the process ends with its parent
//
// Looking for a file and the like fail with EPERM, since libraries try it in good faith; every
// other call ends the process (sandbox_calls.h). All descriptors above `socket` are closed.
//
//   outHasNamespaces  null, or the process also enters namespaces where the system lets it, and
//                     this receives whether it has: then forkNamespaceKeeper has to come next.
//
// Returns false if one of these is not available, Landlock and namespaces aside. The process is
// then only partly sandboxed and must not go on.
[[nodiscard]] bool enterSandbox(const SandboxRules& rules, bool* outHasNamespaces = nullptr);

// The sandbox of a process that was forked in that of its parent (forkReader), for good: it has the
// one descriptor that it receives from `socket`, writes to nothing else, and forks nothing.
//
// Returns false if that is not available.
[[nodiscard]] bool enterChildSandbox(int socket);

}  // namespace pinorama
