#include "reader/reader_socket.h"

#include "reader/reader_protocol.h"

#include <cerrno>
#include <cstring>

#include <poll.h>
#include <sys/socket.h>

namespace pinorama {
namespace {
constexpr std::size_t kControlSize = CMSG_SPACE(sizeof(int) * kMaxDescriptors);

// Room for descriptors in a message, aligned as its header wants it.
union ControlBuffer {
    cmsghdr header;
    char bytes[kControlSize];
};

bool isTryAgain(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK;
}

void takeDescriptors(msghdr* message, std::vector<DescriptorHolder>* out)
{
    for (cmsghdr* part = CMSG_FIRSTHDR(message); part != nullptr;
         part = CMSG_NXTHDR(message, part)) {
        if (part->cmsg_level != SOL_SOCKET || part->cmsg_type != SCM_RIGHTS) continue;
        const std::size_t count = (part->cmsg_len - CMSG_LEN(0)) / sizeof(int);
        for (std::size_t i = 0; i < count; i++) {
            int descriptor = -1;
            std::memcpy(&descriptor, CMSG_DATA(part) + i * sizeof(int), sizeof descriptor);
            out->emplace_back(descriptor);
        }
    }
}

// Receives a part of a request; the bytes received, 0 or less when there are no more.
ssize_t receivePart(int socket, std::span<std::uint8_t> buffer, std::vector<DescriptorHolder>* out)
{
    ControlBuffer control = {};
    iovec place = {buffer.data(), buffer.size()};
    msghdr message = {};
    message.msg_iov = &place;
    message.msg_iovlen = 1;
    message.msg_control = control.bytes;
    message.msg_controllen = sizeof control.bytes;
    ssize_t count = 0;
    do {
        count = recvmsg(socket, &message, MSG_CMSG_CLOEXEC);
    } while (count < 0 && errno == EINTR);
    if (count < 0) return count;
    takeDescriptors(&message, out);
    return (message.msg_flags & MSG_CTRUNC) != 0 ? -1 : count;
}
}  // namespace

SendOutcome sendRequest(int socket, ByteView request, std::span<const int> descriptors)
{
    if (descriptors.size() > kMaxDescriptors) return SendOutcome::impossible;
    ControlBuffer control = {};
    iovec place = {const_cast<std::uint8_t*>(request.data()), request.size()};
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
        count = sendmsg(socket, &message, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (count < 0 && errno == EINTR);
    // A request is small enough to be taken whole or not at all.
    if (count == static_cast<ssize_t>(request.size())) return SendOutcome::sent;
    if (count >= 0 || errno == EPIPE || errno == ECONNRESET || errno == ENOTCONN) {
        return SendOutcome::gone;
    }
    // ETOOMANYREFS: all processes of the user together have as many descriptors on their way as one
    // process may open.
    return isTryAgain(errno) || errno == ETOOMANYREFS ? SendOutcome::full : SendOutcome::impossible;
}

bool receiveRequest(int socket, std::span<std::uint8_t> request,
                    std::vector<DescriptorHolder>* outDescriptors)
{
    outDescriptors->clear();
    while (!request.empty()) {
        const ssize_t count = receivePart(socket, request, outDescriptors);
        if (count <= 0) return false;
        request = request.subspan(static_cast<std::size_t>(count));
    }
    return true;
}

std::ptrdiff_t receiveBytes(int socket, std::span<std::uint8_t> buffer)
{
    ssize_t count = 0;
    do {
        count = recv(socket, buffer.data(), buffer.size(), MSG_DONTWAIT);
    } while (count < 0 && errno == EINTR);
    if (count < 0 && isTryAgain(errno)) return 0;
    return count <= 0 ? -1 : count;
}

bool isReadable(int socket)
{
    pollfd state = {socket, POLLIN, 0};
    return poll(&state, 1, 0) > 0;
}

}  // namespace pinorama
