#include "opener/opener_start.h"

#include "base/child_process.h"
#include "base/resource_folder.h"
#include "opener/opener_service.h"

#include <cstdlib>
#include <utility>

#include <sys/socket.h>

namespace pinorama {
namespace {
// Where libraries are found by programs in unusual places, and the options of sanitizers.
constexpr const char* kInherited[] = {"LD_LIBRARY_PATH", "ASAN_OPTIONS", "UBSAN_OPTIONS"};
}  // namespace

OpenerProcess startOpenerProgram(const std::string& path)
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return {};
    DescriptorHolder near(ends[0]);
    const DescriptorHolder far(ends[1]);
    ProgramStart start = {.arguments = {path.find('/') == path.npos ? "./" + path : path},
                          .environment = {"LC_ALL=C"},
                          .descriptors = {kNullDevice, kNullDevice, kOwnDescriptor, far.get()},
                          .isApart = true};
    static_assert(kOpenerSocket == 3, "comes after the standard streams");
    for (const char* name : kInherited) {
        const char* value = std::getenv(name);
        if (value != nullptr) start.environment.push_back(std::string(name) + "=" + value);
    }
    const pid_t process = spawnProgram(std::move(start));
    if (process < 0) return {};
    return {process, std::move(near)};
}

std::string openerProgram()
{
    return helperProgram("pinorama-opener", "PINORAMA_OPENER");
}

}  // namespace pinorama
