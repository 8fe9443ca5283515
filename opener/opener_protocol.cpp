#include "opener/opener_protocol.h"

#include "base/message_bytes.h"

#include <algorithm>
#include <climits>
#include <string_view>
#include <utility>

namespace pinorama {
namespace {
// Which parts of FileAttributes a reply has.
enum : std::uint16_t { kHasItem = 1, kIsRegular = 2, kHasCreated = 4, kIsOpen = 8, kAllParts = 15 };

// What is true of an item.
enum : std::uint16_t { kIsKnown = 1, kIsThere = 2, kIsFolder = 4, kAllFacts = 7 };

void putTexts(MessageWriter& message, const std::vector<std::string>& texts)
{
    for (const std::string& text : texts) {
        message.putBytes(text);
        message.putBytes(std::string_view("\0", 1));
    }
}

// The texts in the rest of a message, a zero byte after each. Nothing if one is empty or longer
// than `maxEach` bytes, or all of them than `maxAll`.
std::optional<std::vector<std::string>> textsIn(MessageReader& message, std::size_t maxEach,
                                                std::size_t maxAll)
{
    const std::span<const std::uint8_t> bytes = message.getBytes(message.bytesLeft());
    if (bytes.size() > maxAll || (!bytes.empty() && bytes.back() != 0)) return std::nullopt;
    std::vector<std::string> texts;
    for (auto begin = bytes.begin(); begin != bytes.end();) {
        const auto end = std::find(begin, bytes.end(), 0);
        if (begin == end || end - begin > static_cast<std::ptrdiff_t>(maxEach)) return std::nullopt;
        texts.emplace_back(begin, end);
        begin = end + 1;
    }
    return texts;
}

void putLook(MessageWriter& message, const OpenReply& reply)
{
    const FileAttributes item = reply.item.value_or(FileAttributes{});
    message.put16(static_cast<std::uint16_t>(
        (reply.item ? kHasItem : 0) | (item.isRegular ? kIsRegular : 0) |
        (item.created ? kHasCreated : 0) | (reply.isOpen ? kIsOpen : 0)));
    message.put64(reply.device);
    message.put32(static_cast<std::uint32_t>(reply.error));
    message.put64(item.size);
    message.put64(static_cast<std::uint64_t>(item.modified));
    message.put64(static_cast<std::uint64_t>(item.created.value_or(0)));
    message.put32(item.type);
}

bool takeLook(MessageReader& message, OpenReply* out)
{
    const std::uint16_t parts = message.get16();
    out->device = message.get64();
    out->error = static_cast<std::int32_t>(message.get32());
    FileAttributes item{};
    item.isRegular = (parts & kIsRegular) != 0;
    item.size = message.get64();
    item.modified = static_cast<std::int64_t>(message.get64());
    const auto created = static_cast<std::int64_t>(message.get64());
    if ((parts & kHasCreated) != 0) item.created = created;
    item.type = message.get32();
    if ((parts & kHasItem) != 0) out->item = item;
    out->isOpen = (parts & kIsOpen) != 0;
    // What is open is a regular file.
    return parts <= kAllParts && (!out->isOpen || (out->item && item.isRegular));
}

bool takeFacts(MessageReader& message, OpenReply* out)
{
    const std::uint16_t count = message.get16();
    if (count > kMaxOpenPaths) return false;
    for (int i = 0; i < count; i++) {
        const std::uint16_t parts = message.get16();
        if (parts > kAllFacts) return false;
        ItemFacts facts = {(parts & kIsKnown) != 0, (parts & kIsThere) != 0,
                           (parts & kIsFolder) != 0, 0, 0};
        facts.device = message.get64();
        facts.inode = message.get64();
        out->facts.push_back(facts);
    }
    return true;
}
}  // namespace

bool isSame(const OpenRequest& one, const OpenRequest& other)
{
    return one.task != OpenTask::save && one.task == other.task && one.paths == other.paths &&
           one.shown == other.shown;
}

std::vector<std::uint8_t> messageOf(const OpenRequest& request)
{
    MessageWriter message;
    message.put32(request.number);
    message.put16(static_cast<std::uint16_t>(request.task));
    message.put16(static_cast<std::uint16_t>(request.leftAlone.size()));
    for (const std::uint64_t device : request.leftAlone) message.put64(device);
    message.put16(static_cast<std::uint16_t>(request.shown.size()));
    message.putBytes(request.shown);
    putTexts(message, request.paths);
    return std::move(message.bytes());
}

std::optional<OpenRequest> openRequestIn(std::span<const std::uint8_t> message)
{
    MessageReader reader(message);
    OpenRequest request;
    request.number = reader.get32();
    const std::uint16_t task = reader.get16();
    request.task = static_cast<OpenTask>(task);
    const std::uint16_t count = reader.get16();
    if (count > kMaxLeftAlone) return std::nullopt;
    for (int i = 0; i < count; i++) request.leftAlone.push_back(reader.get64());
    const std::uint16_t length = reader.get16();
    const std::span<const std::uint8_t> shown = reader.getBytes(length);
    request.shown.assign(shown.begin(), shown.end());
    auto paths = textsIn(reader, kMaxOpenPath, kMaxPathBytes);
    const bool isKnown = task >= static_cast<std::uint16_t>(OpenTask::open) &&
                         task <= static_cast<std::uint16_t>(OpenTask::close);
    if (reader.hasFailed() || !isKnown || length > kMaxShownName || !paths) return std::nullopt;
    const std::size_t least = request.task == OpenTask::close ? 0 : 1;
    const std::size_t most = request.task == OpenTask::facts ? kMaxOpenPaths : least;
    if (paths->size() < least || paths->size() > most) return std::nullopt;
    request.paths = std::move(*paths);
    return request;
}

std::vector<std::uint8_t> messageOf(const OpenReply& reply)
{
    MessageWriter message;
    message.put32(reply.number);
    message.put16(static_cast<std::uint16_t>(reply.event));
    switch (reply.event) {
    case OpenEvent::facts:
        message.put16(static_cast<std::uint16_t>(reply.facts.size()));
        for (const ItemFacts& facts : reply.facts) {
            message.put16(static_cast<std::uint16_t>((facts.isKnown ? kIsKnown : 0) |
                                                     (facts.isThere ? kIsThere : 0) |
                                                     (facts.isFolder ? kIsFolder : 0)));
            message.put64(facts.device);
            message.put64(facts.inode);
        }
        break;
    case OpenEvent::names:
        message.put16(reply.isLast ? 1 : 0);
        putTexts(message, reply.names);
        break;
    case OpenEvent::count:
        message.put32(reply.count.shown);
        message.put32(reply.count.all);
        break;
    case OpenEvent::saved: message.put32(static_cast<std::uint32_t>(reply.error)); break;
    case OpenEvent::keeps:
    case OpenEvent::released: message.put64(reply.device); break;
    case OpenEvent::closed: break;
    default: putLook(message, reply);
    }
    return std::move(message.bytes());
}

std::optional<OpenReply> openReplyIn(std::span<const std::uint8_t> message)
{
    MessageReader reader(message);
    OpenReply reply;
    reply.number = reader.get32();
    const std::uint16_t event = reader.get16();
    reply.event = static_cast<OpenEvent>(event);
    bool isSound = true;
    switch (reply.event) {
    case OpenEvent::entering:
    case OpenEvent::leftAlone:
    case OpenEvent::looked:
    case OpenEvent::opened: isSound = takeLook(reader, &reply); break;
    case OpenEvent::facts: isSound = takeFacts(reader, &reply); break;
    case OpenEvent::names: {
        const std::uint16_t isLast = reader.get16();
        auto names = textsIn(reader, NAME_MAX, kMaxNameBytes);
        isSound = isLast <= 1 && names;
        reply.isLast = isLast == 1;
        if (names) reply.names = std::move(*names);
        break;
    }
    case OpenEvent::count:
        reply.count.shown = reader.get32();
        reply.count.all = reader.get32();
        break;
    case OpenEvent::saved: reply.error = static_cast<std::int32_t>(reader.get32()); break;
    case OpenEvent::keeps:
    case OpenEvent::released: reply.device = reader.get64(); break;
    case OpenEvent::closed: break;
    default: isSound = false;
    }
    if (!reader.isComplete() || !isSound) return std::nullopt;
    return reply;
}

}  // namespace pinorama
