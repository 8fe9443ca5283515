// What an opener does: it looks at files and opens them for the window, so that a file system that
// hangs keeps this process and not the window. It parses nothing.

#pragma once

#include <functional>

#include "opener/mount_list.h"

namespace pinorama {

// The socket of the program pinorama-opener.
constexpr int kOpenerSocket = 3;

// Serves one request after the other, as opener_protocol.h has them, until the other side closes
// the socket or sends something malformed.
//
// Before the descriptor of a file is handed over its first bytes are read, and forgotten: a disk
// that does not answer is noticed here, and one that has to spin up has done so.
//
//   mounts  gives the mounts of now, for each request.
void serveOpener(int socket, const std::function<MountList()>& mounts = MountList::current);

}  // namespace pinorama
