#include "reader/sandbox.h"

#include "reader/file_ban.h"
#include "reader/namespaces.h"
#include "reader/sandbox_filter.h"

#include <algorithm>
#include <csignal>

#include <fcntl.h>
#include <linux/capability.h>
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

// Those that root has, or whoever made a user namespace.
bool dropCapabilities()
{
    __user_cap_header_struct header = {_LINUX_CAPABILITY_VERSION_3, 0};
    const __user_cap_data_struct none[_LINUX_CAPABILITY_U32S_3] = {};
    return syscall(SYS_capset, &header, none) == 0;
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

// The order matters: /dev/null can be opened only before the root is empty and files are forbidden;
// a process that enters namespaces gets capabilities in them, and may be dumped again; no_new_privs
// is what lets an ordinary user install Landlock and the filter; and the filter comes last, because
// it ends a process that makes any of the other calls.
bool enterSandbox(const SandboxRules& rules, bool* outHasNamespaces)
{
    if (!detachStandardStreams()) return false;
    if (outHasNamespaces != nullptr) *outHasNamespaces = enterNamespaces();
    if (!dropCapabilities()) return false;
    if (prctl(PR_SET_PDEATHSIG, SIGKILL) != 0) return false;
    // No other program of the user attaches to it, reads its memory or takes its descriptors.
    if (prctl(PR_SET_DUMPABLE, 0, 0, 0, 0) != 0) return false;
    if (syscall(SYS_close_range, static_cast<unsigned>(rules.socket) + 1, ~0u, 0u) != 0) {
        return false;
    }
    if (!setLimits(rules)) return false;
    if (prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) != 0) return false;
    (void)forbidFiles();  // without Landlock the filter alone keeps files out of reach
    return filterSystemCalls(rules.socket, rules.mayFork);
}

bool enterChildSandbox(int socket)
{
    // Those up to the socket, the picture's box, and the picture.
    const auto descriptors = static_cast<rlim_t>(socket) + 3;
    return setLimit(RLIMIT_NOFILE, descriptors + kOwnDescriptors) && filterSystemCalls(socket);
}

}  // namespace pinorama
