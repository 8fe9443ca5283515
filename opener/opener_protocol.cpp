#include "opener/opener_protocol.h"

#include "base/message_bytes.h"

#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace pinorama {
namespace {
// Number, count of file systems and the file systems, path.
constexpr std::size_t kMaxMessage = 4 + 2 + 8 * kMaxLeftAlone + kMaxOpenPath;

// Room for a descriptor in a message, aligned as its header wants it.
union ControlBuffer {
    cmsghdr header;
    char bytes[CMSG_SPACE(sizeof(int))];
};

// Which parts of FileAttributes a reply has.
enum : std::uint16_t { kHasItem = 1, kIsRegular = 2, kHasCreated = 4, kIsOpen = 8, kAllParts = 15 };

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
}  // namespace

std::vector<std::uint8_t> messageOf(const OpenRequest& request)
{
    MessageWriter message;
    message.put32(request.number);
    message.put16(static_cast<std::uint16_t>(request.leftAlone.size()));
    for (const std::uint64_t device : request.leftAlone) message.put64(device);
    message.putBytes(request.path);
    return std::move(message.bytes());
}

std::optional<OpenRequest> openRequestIn(std::span<const std::uint8_t> message)
{
    MessageReader reader(message);
    OpenRequest request;
    request.number = reader.get32();
    const std::uint16_t count = reader.get16();
    if (count > kMaxLeftAlone) return std::nullopt;
    for (int i = 0; i < count; i++) request.leftAlone.push_back(reader.get64());
    const std::size_t used = 4 + 2 + 8 * std::size_t{count};
    if (reader.hasFailed() || message.size() <= used || message.size() - used > kMaxOpenPath) {
        return std::nullopt;
    }
    const std::span<const std::uint8_t> path = message.subspan(used);
    request.path.assign(path.begin(), path.end());
    return request;
}

std::vector<std::uint8_t> messageOf(const OpenReply& reply)
{
    const FileAttributes item = reply.item.value_or(FileAttributes{});
    MessageWriter message;
    message.put32(reply.number);
    message.put16(static_cast<std::uint16_t>(reply.event));
    message.put16(static_cast<std::uint16_t>(
        (reply.item ? kHasItem : 0) | (item.isRegular ? kIsRegular : 0) |
        (item.created ? kHasCreated : 0) | (reply.isOpen ? kIsOpen : 0)));
    message.put64(reply.device);
    message.put32(static_cast<std::uint32_t>(reply.error));
    message.put64(item.size);
    message.put64(static_cast<std::uint64_t>(item.modified));
    message.put64(static_cast<std::uint64_t>(item.created.value_or(0)));
    message.put32(item.type);
    return std::move(message.bytes());
}

std::optional<OpenReply> openReplyIn(std::span<const std::uint8_t> message)
{
    MessageReader reader(message);
    OpenReply reply;
    reply.number = reader.get32();
    const std::uint16_t event = reader.get16();
    const std::uint16_t parts = reader.get16();
    reply.event = static_cast<OpenEvent>(event);
    reply.device = reader.get64();
    reply.error = static_cast<std::int32_t>(reader.get32());
    FileAttributes item{};
    item.isRegular = (parts & kIsRegular) != 0;
    item.size = reader.get64();
    item.modified = static_cast<std::int64_t>(reader.get64());
    const auto created = static_cast<std::int64_t>(reader.get64());
    if ((parts & kHasCreated) != 0) item.created = created;
    item.type = reader.get32();
    if ((parts & kHasItem) != 0) reply.item = item;
    reply.isOpen = (parts & kIsOpen) != 0;
    const bool isKnown = event >= static_cast<std::uint16_t>(OpenEvent::entering) &&
                         event <= static_cast<std::uint16_t>(OpenEvent::opened);
    // What is open is a regular file.
    const bool isSound = !reply.isOpen || (reply.item && item.isRegular);
    if (!reader.isComplete() || !isKnown || parts > kAllParts || !isSound) {
        return std::nullopt;
    }
    return reply;
}

bool sendOpenMessage(int socket, std::span<const std::uint8_t> message, int descriptor)
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
    ssize_t count = 0;
    do {
        count = sendmsg(socket, &header, MSG_NOSIGNAL | MSG_DONTWAIT);
    } while (count < 0 && errno == EINTR);
    return count == static_cast<ssize_t>(message.size());
}

OpenMessage receiveOpenMessage(int socket, bool waits)
{
    OpenMessage received;
    received.bytes.resize(kMaxMessage + 1);  // one more, so that a longer one is seen
    ControlBuffer control = {};
    iovec place = {received.bytes.data(), received.bytes.size()};
    msghdr header = {};
    header.msg_iov = &place;
    header.msg_iovlen = 1;
    header.msg_control = control.bytes;
    header.msg_controllen = sizeof control.bytes;
    ssize_t count = 0;
    do {
        count = recvmsg(socket, &header, MSG_CMSG_CLOEXEC | (waits ? 0 : MSG_DONTWAIT));
    } while (count < 0 && errno == EINTR);
    if (count < 0 && (errno == EAGAIN || errno == EWOULDBLOCK)) return received;
    received.outcome = count > 0 ? OpenMessage::Outcome::received : OpenMessage::Outcome::gone;
    received.bytes.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
    if (count > 0) takeDescriptor(&header, &received.descriptor);
    return received;
}

}  // namespace pinorama
