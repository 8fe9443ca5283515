#include "bench/reading/system_calls.h"

#include <csignal>

#include <sys/ptrace.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
bool isRead(std::uint64_t call)
{
    return call == SYS_read || call == SYS_pread64;
}

// Adds one half of a system call, of which the child stops before it and after it.
void add(const __ptrace_syscall_info& stop, bool* isReading, bench::SystemCalls* calls)
{
    if (stop.op == PTRACE_SYSCALL_INFO_ENTRY) {
        calls->count++;
        *isReading = isRead(stop.entry.nr);
    } else if (stop.op == PTRACE_SYSCALL_INFO_EXIT) {
        if (*isReading && stop.exit.rval > 0) {
            calls->bytesRead += static_cast<std::uint64_t>(stop.exit.rval);
        }
        *isReading = false;
    }
}

// Continues from stop to stop until the child stops itself again.
std::optional<bench::SystemCalls> callsUntilStop(pid_t child)
{
    int status = 0;
    bool isReading = false;
    bench::SystemCalls calls;
    while (true) {
        if (ptrace(PTRACE_SYSCALL, child, nullptr, nullptr) != 0) return std::nullopt;
        if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return std::nullopt;
        if (WSTOPSIG(status) == SIGSTOP) return calls;
        if (WSTOPSIG(status) != (SIGTRAP | 0x80)) return std::nullopt;
        __ptrace_syscall_info stop;
        if (ptrace(PTRACE_GET_SYSCALL_INFO, child, sizeof stop, &stop) <= 0) return std::nullopt;
        add(stop, &isReading, &calls);
    }
}

std::optional<bench::SystemCalls> watch(pid_t child)
{
    int status = 0;
    if (waitpid(child, &status, 0) != child || !WIFSTOPPED(status)) return std::nullopt;
    if (ptrace(PTRACE_SETOPTIONS, child, nullptr, PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL) != 0) {
        return std::nullopt;
    }
    // First without any work, because stopping itself takes some calls as well.
    const std::optional<bench::SystemCalls> nothing = callsUntilStop(child);
    std::optional<bench::SystemCalls> work = callsUntilStop(child);
    if (!nothing || !work) return std::nullopt;
    work->count -= nothing->count;
    return work;
}
}  // namespace

std::optional<bench::SystemCalls> bench::systemCallsOf(const std::function<void()>& work)
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
    const std::optional<SystemCalls> calls = watch(child);
    kill(child, SIGKILL);
    waitpid(child, nullptr, 0);
    return calls;
}
