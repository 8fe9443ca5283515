#include "base/descriptor_passing.h"

#include <algorithm>
#include <cerrno>
#include <cstring>

#include <sys/socket.h>
#include <sys/types.h>

namespace pinorama {
namespace {
// Room for descriptors in a message, aligned as its header wants it.
union ControlBuffer {
    cmsghdr header;
    char bytes[CMSG_SPACE(sizeof(int) * kMaxPassedDescriptors)];
};

void takeDescriptors(msghdr* message, std::vector<DescriptorHolder>* out)
{
    for (cmsghdr* part = CMSG_FIRSTHDR(message); part != nullptr;
         part = CMSG_NXTHDR(message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS) continue;
        const std::size_t count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; i++) {
            int descriptor = -1;
            std::memcpy(&descriptor, CMSG_DATA(part) + i * sizeof descriptor, sizeof descriptor);
            out->emplace_back(aboveStandardStreams(descriptor));
        }
    }
}
}  // namespace

std::ptrdiff_t sendWithDescriptors(int socket, std::span<const std::uint8_t> bytes,
                                   std::span<const int> descriptors, int flags)
{
    if (descriptors.size() > kMaxPassedDescriptors) {
        errno = EINVAL;
        return -1;
    }
    ControlBuffer control = {};
    iovec place = {const_cast<std::uint8_t*>(bytes.data()), bytes.size()};
    msghdr message = {};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    if (!descriptors.empty()) {
        message.msg_control = control.bytes;
        message.msg_controllen = CMSG_SPACE(descriptors.size_bytes());
        cmsghdr* part = CMSG_FIRSTHDR(&message);
        part->cmsg_level = SOL_SOCKET;
        part->cmsg_type = SCM_RIGHTS;
        part->cmsg_len = CMSG_LEN(descriptors.size_bytes());
        std::memcpy(CMSG_DATA(part), descriptors.data(), descriptors.size_bytes());
    }
    ssize_t count = 0;
    do {
        count = sendmsg(socket, &message, flags | MSG_NOSIGNAL);
    } while (count < 0 && errno == EINTR);
    return count;
}

ReceivedDescriptors receiveWithDescriptors(int socket, std::span<std::uint8_t> bytes,
                                           std::size_t maxDescriptors, int flags)
{
    ControlBuffer control = {};
    iovec place = {bytes.data(), bytes.size()};
    msghdr message = {};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes;
    // Not CMSG_SPACE, whose last bytes are there for alignment, but hold one more descriptor.
    const std::size_t controlLength =
        CMSG_LEN(std::min(maxDescriptors, kMaxPassedDescriptors) * sizeof(int));
    ReceivedDescriptors received;
    do {
        message.msg_controllen = controlLength;
        received.count = recvmsg(socket, &message, flags | MSG_CMSG_CLOEXEC);
    } while (received.count < 0 && errno == EINTR);
    if (received.count < 0) return received;
    takeDescriptors(&message, &received.descriptors);
    received.isWhole = (message.msg_flags & MSG_CTRUNC) == 0;
    return received;
}

}  // namespace pinorama
