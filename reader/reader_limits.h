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
        // Standard streams, sockets, the files of two requests; and more, because nobody can send a
        // descriptor while all processes of the user have more on their way than the sender may
        // have open.
        .descriptors = 4096,
        .mayFork = true,
    };
}

}  // namespace pinorama
