#include "opener/opener_socket.h"

#include "base/descriptor_passing.h"

#include <cerrno>
#include <cstddef>
#include <utility>

#include <sys/socket.h>
#include <sys/types.h>

namespace pinorama {
namespace {
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
    const std::span descriptors(&descriptor, descriptor >= 0 ? 1 : 0);
    const int flags = whenFull == WhenFull::wait ? 0 : MSG_DONTWAIT;
    return sendWithDescriptors(socket, message, descriptors, flags) ==
           static_cast<std::ptrdiff_t>(message.size());
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
    ReceivedDescriptors along = receiveWithDescriptors(socket, received.bytes, 1, flags);
    if (!along.descriptors.empty()) received.descriptor = std::move(along.descriptors.front());
    if (along.count == length) received.outcome = OpenMessage::Outcome::received;
    return received;
}

}  // namespace pinorama
