#include "base/descriptor_box.h"

#include "base/descriptor_passing.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>

#include <sys/socket.h>
#include <sys/types.h>

namespace pinorama {

DescriptorHolder boxDescriptor(int descriptor, const std::string& path,
                               DescriptorHolder* outOtherEnd)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return DescriptorHolder();
    DescriptorHolder box(ends[0]);
    DescriptorHolder other(ends[1]);
    // With its final zero byte, because a descriptor needs a byte to come along with.
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(path.c_str()), path.size() + 1);
    const bool isIn =
        sendWithDescriptors(other.get(), bytes, std::span(&descriptor, 1), MSG_DONTWAIT) > 0;
    if (!isIn) return DescriptorHolder();
    if (outOtherEnd != nullptr) *outOtherEnd = std::move(other);
    return box;
}

DescriptorHolder unboxDescriptor(int box)
{
    std::uint8_t byte = 0;
    // What is only looked at stays, and the descriptor comes along all the same.
    ReceivedDescriptors received =
        receiveWithDescriptors(box, std::span(&byte, 1), 1, MSG_PEEK | MSG_DONTWAIT);
    return received.descriptors.empty() ? DescriptorHolder()
                                        : std::move(received.descriptors.front());
}

std::string pathInBox(int box)
{
    std::array<char, PATH_MAX> path;
    ssize_t count = 0;
    do {
        count = recv(box, path.data(), path.size(), MSG_PEEK | MSG_DONTWAIT);
    } while (count < 0 && errno == EINTR);
    // What has no zero byte at its end is a message of somebody else.
    const bool isPath = count > 0 && path[static_cast<std::size_t>(count) - 1] == 0;
    return isPath ? std::string(path.data(), static_cast<std::size_t>(count) - 1) : std::string();
}

}  // namespace pinorama
