// The system calls that a sandboxed process may make, each with its reason. A call that is not here
// ends the process. A process that reads pictures has the first table alone; one that forks those
// and reads none has the second one besides. Compiled by make_sandbox_filter.cpp, and part of no
// program.

#pragma once

#include <cstdint>

#include <seccomp.h>

namespace pinorama {

enum class CallRule : std::uint8_t {
    allowed,
    onSocketOnly,    // allowed if its first argument is the sandbox's socket
    onErrorsOnly,    // allowed if it is that of standard error
    toItselfOnly,    // allowed if it is this process
    memoryOnly,      // allowed for mmap without a file and without PROT_EXEC
    notExecutable,   // allowed for mprotect without PROT_EXEC
    refused,         // fails with EPERM; for what libraries try in good faith and do without
    withSanitizers,  // allowed in a build with sanitizers
    forkOnly,        // allowed for a copy of the process: with memory and names of its own
    localOnly,       // allowed for sockets of this machine
    killOnly,        // allowed if the signal is SIGKILL
    deathOnly,       // allowed for prctl, to die with the parent
};

struct SandboxCall {
    int number;  // calls that an architecture never had are passed over
    CallRule rule;
};

// A call with several rules is allowed if one of them allows it.
constexpr SandboxCall kSandboxCalls[] = {
    // Memory, by way of malloc.
    {SCMP_SYS(brk), CallRule::allowed},             // the heap grows and shrinks
    {SCMP_SYS(mmap), CallRule::memoryOnly},         // large blocks
    {SCMP_SYS(mremap), CallRule::allowed},          // large blocks that grow
    {SCMP_SYS(munmap), CallRule::allowed},          // large blocks that are released
    {SCMP_SYS(madvise), CallRule::allowed},         // pages that are not needed for now
    {SCMP_SYS(mprotect), CallRule::notExecutable},  // reserved pages that come into use

    // Time. Where the kernel's shared page has a clock these are no calls.
    {SCMP_SYS(clock_gettime), CallRule::allowed},  // how long a reply has waited for others
    {SCMP_SYS(clock_getres), CallRule::allowed},   // how exact that clock is
    {SCMP_SYS(gettimeofday), CallRule::allowed},   // the same of older libraries
    {SCMP_SYS(time), CallRule::allowed},           // the same of older libraries

    // What the C and C++ libraries do in any program.
    {SCMP_SYS(futex), CallRule::allowed},            // locks, which static variables need as well
    {SCMP_SYS(sched_yield), CallRule::allowed},      // locks that spin
    {SCMP_SYS(getrandom), CallRule::allowed},        // seeds of hash tables
    {SCMP_SYS(sysinfo), CallRule::allowed},          // qsort: how much memory there is
    {SCMP_SYS(getpid), CallRule::allowed},           // abort
    {SCMP_SYS(gettid), CallRule::allowed},           // abort
    {SCMP_SYS(tgkill), CallRule::toItselfOnly},      // abort sends its signal
    {SCMP_SYS(rt_sigprocmask), CallRule::allowed},   // abort unblocks its signal
    {SCMP_SYS(rt_sigaction), CallRule::allowed},     // abort removes the signal's handler
    {SCMP_SYS(rt_sigreturn), CallRule::allowed},     // a handler returns
    {SCMP_SYS(sigaltstack), CallRule::allowed},      // a handler has a stack of its own
    {SCMP_SYS(restart_syscall), CallRule::allowed},  // a call that was interrupted goes on
    {SCMP_SYS(exit), CallRule::allowed},             // a thread ends
    {SCMP_SYS(exit_group), CallRule::allowed},       // the process ends

    // Pictures: descriptors that were received, open for reading.
    {SCMP_SYS(lseek), CallRule::allowed},    // how large a picture is
    {SCMP_SYS(pread64), CallRule::allowed},  // its bytes
    {SCMP_SYS(read), CallRule::allowed},     // no more than pread64 can do
    {SCMP_SYS(fstat), CallRule::allowed},    // no more than lseek can do
    {SCMP_SYS(close), CallRule::allowed},    // a picture is done with

    // Requests and replies.
    {SCMP_SYS(recvmsg), CallRule::allowed},        // a request, and a picture out of its box
    {SCMP_SYS(recvfrom), CallRule::onSocketOnly},  // no more than recvmsg can do
    {SCMP_SYS(sendto), CallRule::onSocketOnly},    // a reply
    {SCMP_SYS(sendmsg), CallRule::onSocketOnly},   // no more than sendto can do
    {SCMP_SYS(write), CallRule::onSocketOnly},     // no more than sendto can do
    {SCMP_SYS(writev), CallRule::onSocketOnly},    // no more than sendto can do
    {SCMP_SYS(poll), CallRule::allowed},           // whether another request waits
    {SCMP_SYS(ppoll), CallRule::allowed},          // poll, on architectures without it

    // Standard error, the null device by now, to which libraries complain of bad pictures.
    {SCMP_SYS(write), CallRule::onErrorsOnly},
    {SCMP_SYS(writev), CallRule::onErrorsOnly},

    // Files: settings, plug-ins and time zones that libraries look for.
    {SCMP_SYS(open), CallRule::refused},
    {SCMP_SYS(openat), CallRule::refused},
    {SCMP_SYS(stat), CallRule::refused},
    {SCMP_SYS(lstat), CallRule::refused},
    {SCMP_SYS(newfstatat), CallRule::refused},
    {SCMP_SYS(statx), CallRule::refused},
    {SCMP_SYS(access), CallRule::refused},
    {SCMP_SYS(faccessat), CallRule::refused},
    {SCMP_SYS(faccessat2), CallRule::refused},
    {SCMP_SYS(readlink), CallRule::refused},
    {SCMP_SYS(readlinkat), CallRule::refused},
    {SCMP_SYS(getcwd), CallRule::refused},

    // Questions about the machine and the process, for which libraries have a default.
    {SCMP_SYS(uname), CallRule::refused},              // the kernel's version
    {SCMP_SYS(sched_getaffinity), CallRule::refused},  // how many threads to use (OpenMP)
    {SCMP_SYS(getrusage), CallRule::refused},          // time and memory that were used
    {SCMP_SYS(prlimit64), CallRule::refused},          // the limits, also to raise them
    {SCMP_SYS(prctl), CallRule::refused},              // the name of a thread
    {SCMP_SYS(ioctl), CallRule::refused},              // whether a stream is a terminal
    {SCMP_SYS(fcntl), CallRule::refused},              // the flags of a descriptor
    {SCMP_SYS(getuid), CallRule::refused},             // whether the program is set-user-ID
    {SCMP_SYS(geteuid), CallRule::refused},
    {SCMP_SYS(getgid), CallRule::refused},
    {SCMP_SYS(getegid), CallRule::refused},

    // A sanitizer finds out what memory it may look at by writing it into a pipe.
    {SCMP_SYS(pipe), CallRule::withSanitizers},
    {SCMP_SYS(pipe2), CallRule::withSanitizers},
    {SCMP_SYS(write), CallRule::withSanitizers},
};

// What a process does besides that forks others to read pictures. A call that is in the first table
// as well has the rules of this one instead.
constexpr SandboxCall kForkingCalls[] = {
    // To start a process and prepare it.
    {SCMP_SYS(clone), CallRule::forkOnly},           // fork
    {SCMP_SYS(set_robust_list), CallRule::allowed},  // the C library after it has forked
    {SCMP_SYS(rseq), CallRule::allowed},             // the same
    {SCMP_SYS(getppid), CallRule::allowed},          // whether the parent lives
    {SCMP_SYS(prctl), CallRule::deathOnly},          // so that it dies with that
    {SCMP_SYS(setpgid), CallRule::refused},          // a group of its own, which it has not here
    {SCMP_SYS(socketpair), CallRule::localOnly},     // the way to it
    {SCMP_SYS(dup2), CallRule::allowed},             // its end has a number that is known
    {SCMP_SYS(dup3), CallRule::allowed},             // dup2, on architectures without it
    {SCMP_SYS(close_range), CallRule::allowed},      // it has no other descriptors
    {SCMP_SYS(prlimit64), CallRule::allowed},        // its limits, which cannot grow
    {SCMP_SYS(seccomp), CallRule::allowed},          // its filter, which only takes away

    // To hand it a picture, take its reply and end it. There is no socket to a stranger.
    {SCMP_SYS(sendmsg), CallRule::allowed},
    {SCMP_SYS(sendto), CallRule::allowed},
    {SCMP_SYS(recvfrom), CallRule::allowed},
    {SCMP_SYS(kill), CallRule::killOnly},
    {SCMP_SYS(wait4), CallRule::allowed},
};

}  // namespace pinorama
