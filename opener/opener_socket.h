// The socket between the window and an opener: it keeps messages apart, and brings descriptors
// along.

#pragma once

#include "base/descriptor.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pinorama {

constexpr std::size_t kMaxOpenMessage = 80 << 10;  // bytes

enum class WhenFull { fail, wait };

// Sends one message, with a descriptor if that is not -1. False when the other side is gone, or
// takes no more and this does not wait.
bool sendOpenMessage(int socket, std::span<const std::uint8_t> message, int descriptor = -1,
                     WhenFull whenFull = WhenFull::fail);

struct OpenMessage {
    enum class Outcome { received, none, gone } outcome = Outcome::none;
    std::vector<std::uint8_t> bytes{};
    DescriptorHolder descriptor{};
};

// Receives one message. `none` only if it does not wait and there is none. A message that is longer
// than kMaxOpenMessage ends the connection: `gone`.
OpenMessage receiveOpenMessage(int socket, bool waits);

}  // namespace pinorama
