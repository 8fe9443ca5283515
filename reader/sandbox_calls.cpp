#include "reader/sandbox_calls.h"

#include "reader/sandbox_filter.h"

#include <array>

#include <linux/seccomp.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace pinorama {
namespace {
sock_filter filledIn(const SandboxStep& from, int socket)
{
    sock_filter step = from.step;
    switch (from.filled) {
    case SandboxStep::FilledInto::socket: step.k = static_cast<std::uint32_t>(socket); break;
    case SandboxStep::FilledInto::process: step.k = static_cast<std::uint32_t>(getpid()); break;
    case SandboxStep::FilledInto::nothing: break;
    }
    return step;
}
}  // namespace

bool filterSystemCalls(int socket)
{
    std::array<sock_filter, kMostSandboxSteps> steps;
    for (std::size_t i = 0; i < kSandboxStepCount; i++) {
        steps[i] = filledIn(kSandboxSteps[i], socket);
    }
    const sock_fprog filter = {static_cast<unsigned short>(kSandboxStepCount), steps.data()};
    return syscall(SYS_seccomp, SECCOMP_SET_MODE_FILTER, 0u, &filter) == 0;
}

}  // namespace pinorama
