// Namespaces as a second wall around a sandboxed process: if a hole in the kernel lets it past the
// filter of system calls, there is no file, no network and no process to be seen on the other side.

#pragma once

#include "reader/reader_process.h"

namespace pinorama {

// Moves this process, for good, into a user, mount, network, IPC and host name namespace of its own
// with an empty folder for its root. The processes that it forks from now on are in a PID namespace
// of their own: the first of them has to live as long as the others shall, for they end with it.
// The process must have one thread, and nothing can be opened by name afterwards.
//
// Returns false if the system does not let ordinary users do that; then some of it may hold, but
// not the PID namespace.
[[nodiscard]] bool enterNamespaces();

// Forks the first process of a PID namespace, in a sandbox. It does nothing, and ends with this one
// or with the result.
ReaderProcess forkNamespaceKeeper();

}  // namespace pinorama
