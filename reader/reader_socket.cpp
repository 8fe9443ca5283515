#include "reader/reader_socket.h"

#include "base/descriptor_passing.h"
#include "reader/reader_protocol.h"

#include <algorithm>
#include <cerrno>
#include <iterator>

#include <poll.h>
#include <sys/socket.h>

namespace pinorama {
namespace {
static_assert(kMaxDescriptors <= kMaxPassedDescriptors);

bool isTryAgain(int error)
{
    return error == EAGAIN || error == EWOULDBLOCK;
}
}  // namespace

SendOutcome sendRequest(int socket, ByteView request, std::span<const int> descriptors)
{
    if (descriptors.size() > kMaxDescriptors) return SendOutcome::impossible;
    const std::ptrdiff_t count =
        sendWithDescriptors(socket, {request.data(), request.size()}, descriptors, MSG_DONTWAIT);
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
        ReceivedDescriptors part = receiveWithDescriptors(socket, request, kMaxDescriptors);
        std::move(part.descriptors.begin(), part.descriptors.end(),
                  std::back_inserter(*outDescriptors));
        if (part.count <= 0 || !part.isWhole) return false;
        request = request.subspan(static_cast<std::size_t>(part.count));
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
