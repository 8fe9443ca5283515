#include "reader/file_ban.h"

#include <cstddef>
#include <cstdint>
#include <iterator>

#include <linux/landlock.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::uint64_t kFileRightsByVersion[] = {
    0,
    (1ull << 13) - 1,  // 1: read, write, execute, make and remove of every kind
    (1ull << 14) - 1,  // 2: move between folders
    (1ull << 15) - 1,  // 3: truncate
    (1ull << 15) - 1,  // 4: network
    (1ull << 16) - 1,  // 5: device commands
};
constexpr int kNetworkVersion = 4;
constexpr std::uint64_t kNetworkRights = 3;  // bind and connect
constexpr int kScopeVersion = 6;
constexpr std::uint64_t kScopes = 3;  // abstract sockets and signals

// Declared here, since the header that this is built with may be older than the kernel and know
// fewer fields.
struct Rules {
    std::uint64_t files;
    std::uint64_t network;
    std::uint64_t scopes;
};

// An older kernel takes no more than the fields it knows.
std::size_t sizeOfRules(int version)
{
    if (version >= kScopeVersion) return sizeof(Rules);
    return version >= kNetworkVersion ? offsetof(Rules, scopes) : offsetof(Rules, network);
}

Rules rulesOf(int version)
{
    constexpr int kNewest = static_cast<int>(std::size(kFileRightsByVersion)) - 1;
    return {.files = kFileRightsByVersion[version < kNewest ? version : kNewest],
            .network = version >= kNetworkVersion ? kNetworkRights : 0,
            .scopes = version >= kScopeVersion ? kScopes : 0};
}
}  // namespace

int forbidFiles()
{
    const int version = static_cast<int>(syscall(SYS_landlock_create_ruleset, nullptr,
                                                 std::size_t{0}, LANDLOCK_CREATE_RULESET_VERSION));
    if (version < 1) return 0;
    const Rules rules = rulesOf(version);
    const long ruleset = syscall(SYS_landlock_create_ruleset, &rules, sizeOfRules(version), 0u);
    if (ruleset < 0) return 0;
    const bool isInForce = syscall(SYS_landlock_restrict_self, static_cast<int>(ruleset), 0u) == 0;
    close(static_cast<int>(ruleset));
    return isInForce ? version : 0;
}

}  // namespace pinorama
