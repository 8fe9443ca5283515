#include "base/descriptor_box.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstddef>
#include <cstring>
#include <utility>

#include <sys/socket.h>
#include <sys/types.h>

namespace pinorama {
namespace {
// Room for a descriptor in a message, aligned as its header wants it.
union ControlBuffer {
    cmsghdr header;
    char bytes[CMSG_SPACE(sizeof(int))];
};
}  // namespace

DescriptorHolder boxDescriptor(int descriptor, const std::string& path)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0, ends) != 0) return DescriptorHolder();
    DescriptorHolder box(ends[0]);
    const DescriptorHolder other(ends[1]);
    ControlBuffer control = {};
    // With its final zero byte, because a descriptor needs a byte to come along with.
    iovec place = {const_cast<char*>(path.c_str()), path.size() + 1};
    msghdr message = {};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes;
    message.msg_controllen = sizeof control.bytes;
    cmsghdr* part = CMSG_FIRSTHDR(&message);
    part->cmsg_level = SOL_SOCKET;
    part->cmsg_type = SCM_RIGHTS;
    part->cmsg_len = CMSG_LEN(sizeof descriptor);
    std::memcpy(CMSG_DATA(part), &descriptor, sizeof descriptor);
    const bool isIn = sendmsg(other.get(), &message, MSG_NOSIGNAL | MSG_DONTWAIT) > 0;
    return isIn ? std::move(box) : DescriptorHolder();
}

DescriptorHolder unboxDescriptor(int box)
{
    ControlBuffer control = {};
    char byte = 0;
    iovec place = {&byte, 1};
    msghdr message = {};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes;
    message.msg_controllen = sizeof control.bytes;
    ssize_t count = 0;
    do {
        // What is only looked at stays, and the descriptor comes along all the same.
        count = recvmsg(box, &message, MSG_PEEK | MSG_DONTWAIT | MSG_CMSG_CLOEXEC);
    } while (count < 0 && errno == EINTR);
    const cmsghdr* part = count > 0 ? CMSG_FIRSTHDR(&message) : nullptr;
    int descriptor = -1;
    if (part != nullptr && part->cmsg_level == SOL_SOCKET && part->cmsg_type == SCM_RIGHTS &&
        part->cmsg_len == CMSG_LEN(sizeof descriptor)) {
        std::memcpy(&descriptor, CMSG_DATA(part), sizeof descriptor);
    }
    return DescriptorHolder(descriptor);
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
