// The opener processes of a client, and what keeps each of them (opener_client.h).

#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <vector>

#include "opener/opener_protocol.h"
#include "opener/opener_start.h"

namespace pinorama {

struct OpenerAtWork {
    // Openers that one file system may keep: one file may hang alone.
    static constexpr std::size_t kMaxInFileSystem = 2;

    OpenerProcess process;
    std::uint32_t number = 0;  // of its request; 0 when it is idle
    OpenRequest request;
    std::uint64_t device = 0;         // where it is; 0 if it is not known
    std::optional<OpenReply> looked;  // what it has found out so far
    bool hasNamed = false;            // whether it has sent names, which it does not do again

    // The files that it keeps open, and the devices of those of them that nobody else has any more,
    // in the order in which it closes them.
    std::size_t kept = 0;
    std::deque<std::uint64_t> released;

    bool isIdle() const { return number == 0; }

    // Whether a reply of it is one that can come now.
    bool mayReply(const OpenReply& reply) const;
};

using OpenersAtWork = std::vector<std::unique_ptr<OpenerAtWork>>;

// The openers that have a request.
std::size_t countAtWork(const OpenersAtWork& openers);

// The devices of file systems that keep as many openers as they may: two, and only one when another
// file system has some too.
std::vector<std::uint64_t> fileSystemsToLeaveAlone(const OpenersAtWork& openers);
bool isToBeLeftAlone(const OpenersAtWork& openers, std::uint64_t device);

}  // namespace pinorama
