// The messages between the window and its openers (opener_client.h, opener_service.h), both of the
// same build: a packet each, on a socket that keeps packets apart. What is not exactly as below is
// malformed.
//
// A request is a path. Its replies come in this order:
//
//   entering   once for each file system on the way, before anything is asked of it
//   leftAlone  instead of the rest: the next one is among those that are to be left alone
//   looked     what is at the path, or why that cannot be known
//   opened     with the descriptor, when the first bytes have been read; only if `looked` says so

#pragma once

#include "base/descriptor.h"
#include "base/file_attributes.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace pinorama {

constexpr std::size_t kMaxOpenPath = 4095;  // bytes; the system takes no longer paths
constexpr std::size_t kMaxLeftAlone = 4;    // file systems

struct OpenRequest {
    std::uint32_t number = 0;                // by which its replies are recognised
    std::vector<std::uint64_t> leftAlone{};  // devices of file systems (mount_list.h)
    std::string path{};                      // 1 to kMaxOpenPath bytes of the system
};

enum class OpenEvent : std::uint16_t { entering = 1, leftAlone, looked, opened };

struct OpenReply {
    std::uint32_t number = 0;  // of the request
    OpenEvent event = OpenEvent::entering;
    std::uint64_t device = 0;              // entering, leftAlone
    std::int32_t error = 0;                // looked: errno, as PictureFile::error
    std::optional<FileAttributes> item{};  // looked: what is at the path
    bool isOpen = false;                   // looked: `opened` follows
};

std::vector<std::uint8_t> messageOf(const OpenRequest& request);
std::vector<std::uint8_t> messageOf(const OpenReply& reply);

// Nothing for a malformed message.
std::optional<OpenRequest> openRequestIn(std::span<const std::uint8_t> message);
std::optional<OpenReply> openReplyIn(std::span<const std::uint8_t> message);

// Sends one message, with a descriptor if that is not -1. False when the other side is gone or
// takes no more.
bool sendOpenMessage(int socket, std::span<const std::uint8_t> message, int descriptor = -1);

struct OpenMessage {
    enum class Outcome { received, none, gone } outcome = Outcome::none;
    std::vector<std::uint8_t> bytes{};
    DescriptorHolder descriptor{};
};

// Receives one message. `none` only if it does not wait and there is none.
OpenMessage receiveOpenMessage(int socket, bool waits);

}  // namespace pinorama
