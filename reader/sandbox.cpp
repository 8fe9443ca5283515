#include "reader/sandbox.h"

#include "reader/sandbox_filter.h"

#include <algorithm>
#include <csignal>
#include <iterator>

#include <fcntl.h>
#include <linux/landlock.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pinorama {
namespace {

// A sanitizer's runtime opens pipes of its own.
constexpr rlim_t kOwnDescriptors = kHasSanitizers ? 8 : 0;

// Where less is allowed already it stays at that.
bool setLimit(__rlimit_resource resource, rlim_t value)
{
    rlimit limit{};
    if (getrlimit(resource, &limit) != 0) return false;
    limit.rlim_cur = limit.rlim_max = std::min(value, limit.rlim_max);
    return setrlimit(resource, &limit) == 0;
}

bool setLimits(const SandboxRules& rules)
{
    if (!kHasSanitizers && !setLimit(RLIMIT_AS, rules.memory)) return false;
    // Sanitizers report to standard error, which may be a file.
    if (!kHasSanitizers && !setLimit(RLIMIT_FSIZE, 0)) return false;
    return setLimit(RLIMIT_CORE, 0) && setLimit(RLIMIT_NOFILE, rules.descriptors + kOwnDescriptors);
}

// What is written to the standard streams goes nowhere, and nothing can be read from them.
// Sanitizers report to standard error.
bool detachStandardStreams()
{
    const int nowhere = open("/dev/null", O_RDWR | O_CLOEXEC);
    if (nowhere < 0) return false;
    bool isDetached = true;
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (kHasSanitizers && stream == STDERR_FILENO) continue;
        if (nowhere != stream) isDetached = dup2(nowhere, stream) == stream && isDetached;
    }
    if (nowhere > STDERR_FILENO) close(nowhere);
    return isDetached;
}

// Forbids every access to files by name that this kernel's Landlock knows. Without Landlock the
// filter of system calls alone keeps files out of reach.
void forbidFiles()
{
    constexpr std::uint64_t kRightsByVersion[] = {
        0,
        (1ull << 13) - 1,  // 1: read, write, execute, make and remove of every kind
        (1ull << 14) - 1,  // 2: move between folders
        (1ull << 15) - 1,  // 3: truncate
        (1ull << 15) - 1,  // 4: network
        (1ull << 16) - 1,  // 5: device commands
    };
    constexpr int kNetworkVersion = 4;
    constexpr std::uint64_t kNetworkRights = 3;  // bind and connect

    // Declared here, since the header that this is built with may be older than the kernel and know
    // fewer fields.
    struct {
        std::uint64_t files;
        std::uint64_t network;
    } rules = {};
    const long version = syscall(SYS_landlock_create_ruleset, nullptr, std::size_t{0},
                                 LANDLOCK_CREATE_RULESET_VERSION);
    if (version < 1) return;
    constexpr long kNewest = std::size(kRightsByVersion) - 1;
    rules.files = kRightsByVersion[version < kNewest ? version : kNewest];
    rules.network = version >= kNetworkVersion ? kNetworkRights : 0;
    const std::size_t size = version >= kNetworkVersion ? sizeof rules : sizeof rules.files;
    const long ruleset = syscall(SYS_landlock_create_ruleset, &rules, size, 0u);
    if (ruleset < 0) return;
    (void)syscall(SYS_landlock_restrict_self, static_cast<int>(ruleset), 0u);
    close(static_cast<int>(ruleset));
}
}  // namespace

std::uint64_t addressSpaceInUse()
{
    const int descriptor = open("/proc/self/statm", O_RDONLY | O_CLOEXEC);
    if (descriptor < 0) return 0;
    char text[32] = {};
    const ssize_t count = read(descriptor, text, sizeof text - 1);
    close(descriptor);
    std::uint64_t pages = 0;
    for (const char* c = text; c < text + count && *c >= '0' && *c <= '9'; c++) {
        pages = pages * 10 + static_cast<std::uint64_t>(*c - '0');
    }
    return pages * static_cast<std::uint64_t>(sysconf(_SC_PAGESIZE));
}

// The order matters: /dev/null can be opened only before files are forbidden; no_new_privs is what
// lets an ordinary user install Landlock and the filter; and the filter comes last, because it ends
// a process that makes any of the other calls.
bool enterSandbox(const SandboxRules& rules)
{
    if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) return false;
    // No other program of the user attaches to it, reads its memory or takes its descriptors.
    if (prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) != 0) return false;
    if (!detachStandardStreams()) return false;
    if (syscall(SYS_close_range, static_cast<unsigned>(rules.socket) + 1, ~0u, 0u) != 0) {
        return false;
    }
    if (!setLimits(rules)) return false;
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return false;
    forbidFiles();
    return filterSystemCalls(rules.socket, rules.mayFork);
}

bool enterChildSandbox(int socket)
{
    // Those up to the socket, and the picture.
    const auto descriptors = static_cast<rlim_t>(socket) + 2;
    return setLimit(RLIMIT_NOFILE, descriptors + kOwnDescriptors) && filterSystemCalls(socket);
}

}  // namespace pinorama
