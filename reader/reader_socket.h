// Bytes and open descriptors over the socket between a program and its reader.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/descriptor.h"
#include "pictures/byte_source.h"

namespace pinorama {

enum class SendOutcome {
    sent,
    full,        // the other side does not read for now, or too many descriptors are on their way
    gone,        // there is no other side any more
    impossible,  // one of the descriptors cannot be sent
};

// Sends a request with at most kMaxDescriptors open descriptors, which stay the caller's. Waits for
// nothing.
SendOutcome sendRequest(int socket, ByteView request, std::span<const int> descriptors);

// Waits for a request of `size` bytes and fills `request` and `outDescriptors` with it. Every
// descriptor that came is owned by the result, also after a failure. False when the socket was
// closed or something else than a whole request came.
bool receiveRequest(int socket, std::span<std::uint8_t> request,
                    std::vector<DescriptorHolder>* outDescriptors);

// Reads what has come, at most as many bytes as fit.
//
// Returns the bytes read, 0 when nothing is there now, -1 when the other side is gone.
std::ptrdiff_t receiveBytes(int socket, std::span<std::uint8_t> buffer);

// True when a read would not wait: something has come, or the other side is gone.
bool isReadable(int socket);

}  // namespace pinorama
