// The messages between the window and its openers (opener_client.h, opener_service.h), both of the
// same build: a packet each, on a socket that keeps packets apart. What is not exactly as below is
// malformed.
//
// A request is a task and the paths that it is about. Its replies come in this order:
//
//   entering   once for each file system on the way, before anything is asked of it
//   leftAlone  instead of the rest: the next one is among those that are to be left alone
//   looked     what is there, or why that cannot be known
//   opened     with the file's box, when the first bytes have been read; only if `looked` says so
//
// The last two are those of the first three tasks. Between them comes
//
//   keeps      the opener keeps the file open itself until it is asked to close it
//   (OpenTask::close)
//
// on a file system that would make the window wait if the window were the last one to give the file
// up (MountList::keepsWhoGivesUp). When nobody else has the file any more the opener says so:
//
//   released   with the number 0, at any time, once for each file that it keeps
//
// The other tasks have one reply of their own instead:
// `facts` for all paths, in which those on a file system that is left alone are not known; `count`;
// `saved`; `closed`; and `names` as often as it takes.

#pragma once

#include "base/file_attributes.h"
#include "opener/item_facts.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pinorama {

constexpr std::size_t kMaxOpenPath = 4095;       // bytes; the system takes no longer paths
constexpr std::size_t kMaxLeftAlone = 4;         // file systems
constexpr std::size_t kMaxOpenPaths = 256;       // in a request
constexpr std::size_t kMaxPathBytes = 64 << 10;  // of all paths in a request, and a byte for each
constexpr std::size_t kMaxShownName = 1024;      // bytes
constexpr std::size_t kMaxNameBytes = 32 << 10;  // of all names in a reply, and a byte for each

enum class OpenTask : std::uint16_t {
    open = 1,   // opens a file
    reference,  // opens a file, and hands over a descriptor that only refers to it (O_PATH)
    sidecar,    // opens the XMP beside the picture at the path (pictures/sidecar_file.h)
    facts,      // what is at each of the paths
    names,      // the names in a folder that may be shown as `shown`
    count,      // how many items a folder has
    save,       // puts the bytes of the descriptor that comes along into a file (ReplacingFile)
    close,      // closes the file of the oldest `released` that this was not done for yet
};

struct OpenRequest {
    std::uint32_t number = 0;  // by which its replies are recognised
    OpenTask task = OpenTask::open;
    std::vector<std::uint64_t> leftAlone{};  // devices of file systems (mount_list.h)
    // Each of 1 to kMaxOpenPath bytes of the system, none of them zero. One, but for `facts`
    // and for `close`, which has none.
    std::vector<std::string> paths{};
    std::string shown{};  // for `names`: UTF-8, as mayBeShownAs() takes it
};

enum class OpenEvent : std::uint16_t {
    entering = 1,
    leftAlone,
    looked,
    opened,
    facts,
    names,
    count,
    saved,
    keeps,
    released,
    closed
};

struct OpenReply {
    std::uint32_t number = 0;  // of the request
    OpenEvent event = OpenEvent::entering;
    std::uint64_t device = 0;  // entering, leftAlone, keeps, released
    std::int32_t error = 0;    // looked: errno, as PictureFile::error; saved: errno or 0
    std::optional<FileAttributes> item{};  // looked: what is there
    bool isOpen = false;                   // looked: `opened` follows
    std::vector<ItemFacts> facts{};        // facts: one for each path
    std::vector<std::string> names{};      // names: 0 or more
    bool isLast = true;                    // names: no others follow
    FolderCount count{};                   // count
};

// Whether two requests want the same, whatever their numbers. What is to be saved may differ.
bool isSame(const OpenRequest& one, const OpenRequest& other);

std::vector<std::uint8_t> messageOf(const OpenRequest& request);
std::vector<std::uint8_t> messageOf(const OpenReply& reply);

// Nothing for a malformed message.
std::optional<OpenRequest> openRequestIn(std::span<const std::uint8_t> message);
std::optional<OpenReply> openReplyIn(std::span<const std::uint8_t> message);

}  // namespace pinorama
