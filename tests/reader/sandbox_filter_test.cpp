// The filter of system calls, run as the kernel runs it, for every call there is.

#include "reader/sandbox_filter.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstring>
#include <set>
#include <span>
#include <vector>

#include <linux/audit.h>
#include <linux/sched.h>
#include <linux/seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/syscall.h>
#include <unistd.h>

using namespace pinorama;

namespace {

constexpr std::uint32_t kSocket = 3;
constexpr std::uint32_t kProcess = 4321;
constexpr int kCallCount = 600;  // more than any architecture has
constexpr std::uint32_t kRefused = SECCOMP_RET_ERRNO | EPERM;

std::uint32_t valueOf(const BpfInstruction& instruction)
{
    switch (instruction.operand) {
    case BpfInstruction::Operand::socket: return kSocket;
    case BpfInstruction::Operand::process: return kProcess;
    case BpfInstruction::Operand::constant: break;
    }
    return instruction.code.k;
}

using Program = std::span<const BpfInstruction>;

// What a filter says about a call; every kind of instruction that libseccomp makes is known here.
std::uint32_t verdict(const seccomp_data& call, Program program = kSandboxFilter)
{
    std::uint32_t accumulator = 0;
    std::size_t at = 0;
    while (at < program.size()) {
        const BpfInstruction& instruction = program[at++];
        const sock_filter& code = instruction.code;
        const std::uint32_t value = valueOf(instruction);
        bool jumps = false;
        switch (code.code) {
        case BPF_LD | BPF_W | BPF_ABS:
            if (value + sizeof accumulator > sizeof call) return 0xdead;
            std::memcpy(&accumulator, reinterpret_cast<const char*>(&call) + value,
                        sizeof accumulator);
            continue;
        case BPF_ALU | BPF_AND | BPF_K: accumulator &= value; continue;
        case BPF_JMP | BPF_JA: at += value; continue;
        case BPF_RET | BPF_K: return value;
        case BPF_JMP | BPF_JEQ | BPF_K: jumps = accumulator == value; break;
        case BPF_JMP | BPF_JGE | BPF_K: jumps = accumulator >= value; break;
        case BPF_JMP | BPF_JGT | BPF_K: jumps = accumulator > value; break;
        default: return 0xdead;
        }
        at += jumps ? code.jt : code.jf;
    }
    return 0xdead;
}

std::uint32_t nativeArchitecture()
{
    // The first instruction that compares anything compares the architecture.
    for (const BpfInstruction& instruction : kSandboxFilter) {
        const sock_filter& code = instruction.code;
        if (code.code == (BPF_JMP | BPF_JEQ | BPF_K)) return code.k;
    }
    return 0;
}

std::uint32_t verdict(int number, const std::vector<std::uint64_t>& arguments,
                      Program program = kSandboxFilter)
{
    seccomp_data call{};
    call.nr = number;
    call.arch = nativeArchitecture();
    for (std::size_t i = 0; i < arguments.size(); i++) call.args[i] = arguments[i];
    return verdict(call, program);
}

// Arguments that no rule is about.
const std::vector<std::uint64_t> kAnyArguments(6, 77);

std::set<int> callsWith(std::uint32_t wanted, Program program = kSandboxFilter)
{
    std::set<int> calls;
    for (int number = 0; number < kCallCount; number++) {
        if (verdict(number, kAnyArguments, program) == wanted) calls.insert(number);
    }
    return calls;
}
}  // namespace

TEST(filterSystemCalls, allowsWhatReadingNeeds)
{
    std::set<int> expected = {
        SYS_brk,          SYS_munmap,        SYS_mremap,          SYS_madvise,
        SYS_mprotect,     SYS_clock_gettime, SYS_clock_getres,    SYS_gettimeofday,
        SYS_getrandom,    SYS_sysinfo,       SYS_getpid,          SYS_gettid,
        SYS_sched_yield,  SYS_futex,         SYS_rt_sigreturn,    SYS_rt_sigprocmask,
        SYS_rt_sigaction, SYS_sigaltstack,   SYS_restart_syscall, SYS_exit,
        SYS_exit_group,   SYS_read,          SYS_pread64,         SYS_lseek,
        SYS_close,        SYS_fstat,         SYS_recvmsg,         SYS_ppoll};
#ifdef SYS_time
    expected.insert(SYS_time);
#endif
#ifdef SYS_poll
    expected.insert(SYS_poll);
#endif
    // 77 has the bit of PROT_EXEC.
    expected.erase(SYS_mprotect);
    if (kHasSanitizers) {
        expected.insert({SYS_pipe2, SYS_write});
#ifdef SYS_pipe
        expected.insert(SYS_pipe);
#endif
    }
    EXPECT_EQ(callsWith(SECCOMP_RET_ALLOW), expected);
}

TEST(filterSystemCalls, refusesToLookForFilesAndEndsAllElse)
{
    std::set<int> refused = {SYS_openat,
                             SYS_newfstatat,
                             SYS_statx,
                             SYS_faccessat,
                             SYS_faccessat2,
                             SYS_readlinkat,
                             SYS_getcwd,
                             SYS_uname,
                             SYS_ioctl,
                             SYS_fcntl,
                             SYS_sched_getaffinity,
                             SYS_prctl,
                             SYS_getrusage,
                             SYS_prlimit64,
                             SYS_getuid,
                             SYS_geteuid,
                             SYS_getgid,
                             SYS_getegid};
#ifdef SYS_open
    refused.insert({SYS_open, SYS_stat, SYS_lstat, SYS_access, SYS_readlink});
#endif
    EXPECT_EQ(callsWith(kRefused), refused);
    const std::size_t known = callsWith(SECCOMP_RET_ALLOW).size() + refused.size();
    EXPECT_EQ(callsWith(SECCOMP_RET_KILL_PROCESS).size(), kCallCount - known);
}

TEST(filterSystemCalls, allowsAReaderToForkAndLittleElse)
{
    std::set<int> more;
    for (const int call : callsWith(SECCOMP_RET_ALLOW, kForkingFilter)) {
        if (verdict(call, kAnyArguments) != SECCOMP_RET_ALLOW) more.insert(call);
    }
    std::set<int> expected = {SYS_clone,   SYS_set_robust_list, SYS_rseq,     SYS_getppid,
                              SYS_dup3,    SYS_close_range,     SYS_seccomp,  SYS_prlimit64,
                              SYS_sendmsg, SYS_sendto,          SYS_recvfrom, SYS_wait4};
#ifdef SYS_dup2
    expected.insert(SYS_dup2);
#endif
    EXPECT_EQ(more, expected);

    constexpr std::uint64_t kFork = CLONE_CHILD_SETTID | CLONE_CHILD_CLEARTID | SIGCHLD;
    const struct {
        const char* name;
        int number;
        std::vector<std::uint64_t> arguments;
        bool isAllowed;
    } rows[] = {
        {"fork", SYS_clone, {kFork}, true},
        {"start a thread", SYS_clone, {kFork | CLONE_VM | CLONE_THREAD}, false},
        {"enter a namespace", SYS_clone, {kFork | CLONE_NEWUSER}, false},
        {"fork otherwise", SYS_clone3, {}, false},
        {"run a program", SYS_execve, {}, false},
        {"sockets of this machine", SYS_socketpair, {AF_UNIX}, true},
        {"sockets of the network", SYS_socketpair, {AF_INET}, false},
        {"another socket", SYS_socket, {AF_UNIX}, false},
        {"end", SYS_kill, {kProcess, SIGKILL}, true},
        {"signal", SYS_kill, {kProcess, SIGTERM}, false},
        {"die with the parent", SYS_prctl, {PR_SET_PDEATHSIG}, true},
        {"become dumpable", SYS_prctl, {PR_SET_DUMPABLE}, false},
        {"write", SYS_write, {kSocket + 1}, kHasSanitizers},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(verdict(row.number, row.arguments, kForkingFilter),
                  row.isAllowed ? SECCOMP_RET_ALLOW : SECCOMP_RET_KILL_PROCESS)
            << row.name;
    }
}

TEST(filterSystemCalls, checksArguments)
{
    constexpr std::uint64_t kNone = 0xffffffff;
    constexpr std::uint64_t kWideNone = ~std::uint64_t{0};
    const std::uint64_t data = PROT_READ | PROT_WRITE;
    const std::uint64_t code = PROT_READ | PROT_EXEC;
    const struct {
        const char* name;
        int number;
        std::vector<std::uint64_t> arguments;
        bool isAllowed;
    } rows[] = {
        {"memory", SYS_mmap, {0, 4096, data, 0, kNone, 0}, true},
        {"memory, wide descriptor", SYS_mmap, {0, 4096, data, 0, kWideNone, 0}, true},
        {"memory for a program", SYS_mmap, {0, 4096, code, 0, kNone, 0}, false},
        {"a file in memory", SYS_mmap, {0, 4096, data, 0, 5, 0}, false},
        {"protect", SYS_mprotect, {0, 4096, data}, true},
        {"make executable", SYS_mprotect, {0, 4096, code}, false},
        {"abort", SYS_tgkill, {kProcess, kProcess, 6}, true},
        {"kill another", SYS_tgkill, {kProcess + 1, kProcess + 1, 9}, false},
        {"reply", SYS_sendto, {kSocket}, true},
        {"reply elsewhere", SYS_sendto, {kSocket + 1}, false},
        {"reply elsewhere, wide", SYS_sendto, {kSocket + (std::uint64_t{1} << 32)}, false},
        {"message", SYS_sendmsg, {kSocket}, true},
        {"message elsewhere", SYS_sendmsg, {STDERR_FILENO}, false},
        {"receive", SYS_recvmsg, {kSocket}, true},
        {"take out of a box", SYS_recvmsg, {7}, true},
        {"receive bytes", SYS_recvfrom, {kSocket}, true},
        {"write to the socket", SYS_write, {kSocket}, true},
        {"complain", SYS_write, {STDERR_FILENO}, true},
        {"complain in pieces", SYS_writev, {STDERR_FILENO}, true},
        {"write elsewhere", SYS_writev, {STDOUT_FILENO}, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(verdict(row.number, row.arguments),
                  row.isAllowed ? SECCOMP_RET_ALLOW : SECCOMP_RET_KILL_PROCESS)
            << row.name;
    }
}

TEST(filterSystemCalls, endsCallsOfOtherArchitectures)
{
    seccomp_data call{};
    call.nr = SYS_read;
    call.arch = nativeArchitecture();
    EXPECT_EQ(verdict(call), SECCOMP_RET_ALLOW);
    call.arch = AUDIT_ARCH_I386 == call.arch ? AUDIT_ARCH_X86_64 : AUDIT_ARCH_I386;
    EXPECT_EQ(verdict(call), SECCOMP_RET_KILL_PROCESS);
#if defined(__x86_64__)
    call.arch = AUDIT_ARCH_X86_64;
    call.nr = 0x40000000 | SYS_read;  // the variant with short pointers
    EXPECT_EQ(verdict(call), SECCOMP_RET_KILL_PROCESS);
#endif
}
