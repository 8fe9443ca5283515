#include "bench/reading/system_calls.h"

#include <csignal>

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
// Continues from stop to stop and counts them until the child stops itself again. Every system call
// causes two stops, one before it and one after it.
std::optional<int> countStops(pid_t child)
{
    int status = 0;
    for (int stops = 0;; ++stops) {
        if (ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) != 0) return std::nullopt;
        if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return std::nullopt;
        if (WSTOPSIG(status) == SIGSTOP) return stops;
        if (WSTOPSIG(status) != (SIGTRAP | 0x80)) return std::nullopt;
    }
}

std::optional<int> watch(pid_t child)
{
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return std::nullopt;
    if (ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) {
        return std::nullopt;
    }
    // First without any work, because stopping itself takes some calls as well.
    const std::optional<int> nothing = countStops(child);
    const std::optional<int> work = countStops(child);
    if (!nothing || !work) return std::nullopt;
    return (*work - *nothing) / 2;
}
}  // namespace

std::optional<int> bench::countSystemCalls(const std::function<void()>& work)
{
    const pid_t child = fork();
    if (child == 0) {
        work();  // one-time work is not counted
        if (ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0) _exit(1);
        raise(SIGSTOP);
        raise(SIGSTOP);
        work();
        raise(SIGSTOP);
        _exit(0);
    }
    if (child < 0) return std::nullopt;
    const std::optional<int> count = watch(child);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return count;
}
