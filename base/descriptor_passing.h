// Open descriptors that come along with a message over a local socket (SCM_RIGHTS), so that another
// process has the same files open.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "base/descriptor.h"

namespace pinorama {

constexpr std::size_t kMaxPassedDescriptors = 64;  // with one message

// Sends `bytes`, at least one, in one call of sendmsg(2) together with the descriptors, which stay
// the caller's. A socket whose other side is gone gives EPIPE and no signal.
//
//   flags  of sendmsg, such as MSG_DONTWAIT.
//
// Returns the bytes sent, or -1 with errno set: EINVAL for too many descriptors.
std::ptrdiff_t sendWithDescriptors(int socket, std::span<const std::uint8_t> bytes,
                                   std::span<const int> descriptors, int flags = 0);

struct ReceivedDescriptors {
    std::ptrdiff_t count = -1;  // bytes received, 0 at the end of a stream; -1 with errno set
    std::vector<DescriptorHolder> descriptors{};
    bool isWhole = true;  // false if more came along than there was room for, or could be opened
};

// Receives into `bytes` in one call of recvmsg(2). Every descriptor that came along is in the
// result: above 2, and closed in programs started later.
//
//   maxDescriptors  kMaxPassedDescriptors at most; the system closes what comes beyond it.
//   flags           of recvmsg, such as MSG_DONTWAIT, or MSG_PEEK for copies of what stays there.
ReceivedDescriptors receiveWithDescriptors(int socket, std::span<std::uint8_t> bytes,
                                           std::size_t maxDescriptors, int flags = 0);

}  // namespace pinorama
