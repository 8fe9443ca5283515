// What pinorama-reader and all its processes may use, each for itself.

#pragma once

#include "reader/reader_protocol.h"
#include "reader/sandbox.h"

namespace pinorama {

inline SandboxRules readerRules(int socket)
{
    return {
        .socket = socket,
        // A progressive picture of 100 megapixels or another kind of picture of 64, and LibRaw, on
        // top of the libraries.
        .memory = addressSpaceInUse() + (std::uint64_t{640} << 20),
        // Standard streams, the socket, the files of two requests, one of them read ahead, and both
        // ends of the sockets to two processes.
        .descriptors = 8 + 2 * kMaxDescriptors,
        .mayFork = true,
    };
}

}  // namespace pinorama
