#include "opener/opener_socket.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace pinorama {
namespace {
// Room for a descriptor in a message, aligned as its header wants it.
union ControlBuffer {
    cmsghdr header;
    char bytes[CMSG_SPACE(sizeof(int))];
};

void takeDescriptor(msghdr* message, DescriptorHolder* out)
{
    const cmsghdr* part = CMSG_FIRSTHDR(message);
    if (part == nullptr || part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS ||
        part->cmsg_len != CMSG_LEN(sizeof(int))) {
        return;
    }
    int descriptor = -1;
    std::memcpy(&descriptor, CMSG_DATA(part), sizeof descriptor);
    if (descriptor > STDERR_FILENO) {
        *out = DescriptorHolder(descriptor);
        return;
    }
    // Without standard streams it has the place of one.
    *out = DescriptorHolder(fcntl(descriptor, F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    (void)close(descriptor);
}

// The length of the next message, which stays where it is; negative as recv(2) has it.
ssize_t nextLength(int socket, int flags)
{
    char none = 0;
    ssize_t length = 0;
    do {
        length = recv(socket, &none, 0, MSG_PEEK | MSG_TRUNC | flags);
    } while (length < 0 && errno == EINTR);
    return length;
}
}  // namespace

bool sendOpenMessage(int socket, std::span<const std::uint8_t> message, int descriptor,
                     WhenFull whenFull)
{
    ControlBuffer control = {};
    iovec place = {const_cast<std::uint8_t*>(message.data()), message.size()};
    msghdr header = {};
    header.msg_iov = &place;
    header.msg_iovlen = 1;
    if (descriptor >= 0) {
        header.msg_control = control.bytes;
        header.msg_controllen = sizeof control.bytes;
        cmsghdr* part = CMSG_FIRSTHDR(&header);
        part->cmsg_level = SOL_SOCKET;
        part->cmsg_type = SCM_RIGHTS;
        part->cmsg_len = CMSG_LEN(sizeof descriptor);
        std::memcpy(CMSG_DATA(part), &descriptor, sizeof descriptor);
    }
    const int flags = MSG_NOSIGNAL | (whenFull == WhenFull::wait ? 0 : MSG_DONTWAIT);
    ssize_t count = 0;
    do {
        count = sendmsg(socket, &header, flags);
    } while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(message.size());
}

OpenMessage receiveOpenMessage(int socket, bool waits)
{
    OpenMessage received;
    const int flags = waits ? 0 : MSG_DONTWAIT;
    const ssize_t length = nextLength(socket, flags);
    if (length < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return received;
    received.outcome = OpenMessage::Outcome::gone;
    if (length <= 0 || length > static_cast<ssize_t>(kMaxOpenMessage)) return received;
    received.bytes.resize(static_cast<std::size_t>(length));
    ControlBuffer control = {};
    iovec place = {received.bytes.data(), received.bytes.size()};
    msghdr header = {};
    header.msg_iov = &place;
    header.msg_iovlen = 1;
    header.msg_control = control.bytes;
    header.msg_controllen = sizeof control.bytes;
    ssize_t count = 0;
    do {
        count = recvmsg(socket, &header, MSG_CMSG_CLOEXEC | flags);
    } while (count < 0 && errno == EINTR);
    if (count > 0) takeDescriptor(&header, &received.descriptor);
    if (count == length) received.outcome = OpenMessage::Outcome::received;
    return received;
}

}  // namespace pinorama
