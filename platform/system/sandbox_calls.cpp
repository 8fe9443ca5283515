#include "platform/system/sandbox_calls.h"

#include <cerrno>
#include <initializer_list>
#include <memory>

#include <seccomp.h>
#include <sys/mman.h>
#include <unistd.h>

namespace {
struct FilterReleaser {
    void operator()(void* filter) const { seccomp_release(filter); }
};

// A filter while it is being put together; remembers whether everything went in.
class Filter {
public:
    Filter() : filter_(seccomp_init(SCMP_ACT_KILL_PROCESS)) {}

    void allow(std::initializer_list<int> calls)
    {
        for (const int call : calls) add(SCMP_ACT_ALLOW, call, {});
    }

    // Allows a call when all conditions on its arguments hold.
    void allowWhen(int call, std::initializer_list<scmp_arg_cmp> conditions)
    {
        add(SCMP_ACT_ALLOW, call, conditions);
    }

    void refuse(std::initializer_list<int> calls, std::uint32_t error = EPERM)
    {
        for (const int call : calls) add(SCMP_ACT_ERRNO(error), call, {});
    }

    bool load() { return isComplete_ && seccomp_load(filter_.get()) == 0; }

private:
    void add(std::uint32_t action, int call, std::initializer_list<scmp_arg_cmp> conditions)
    {
        // Calls that this machine's architecture never had are passed over.
        if (call == __NR_SCMP_ERROR || filter_ == nullptr) {
            isComplete_ = isComplete_ && filter_ != nullptr;
            return;
        }
        const int status =
            seccomp_rule_add_array(filter_.get(), action, call,
                                   static_cast<unsigned>(conditions.size()), conditions.begin());
        // -EDOM: the call does not exist on this architecture.
        if (status != 0 && status != -EDOM) isComplete_ = false;
    }

    std::unique_ptr<void, FilterReleaser> filter_;
    bool isComplete_ = true;
};

scmp_arg_cmp argumentIs(unsigned index, std::uint64_t value)
{
    return {index, SCMP_CMP_EQ, value, 0};
}

scmp_arg_cmp argumentHasNone(unsigned index, std::uint64_t bits)
{
    return {index, SCMP_CMP_MASKED_EQ, bits, 0};
}

void allowMemory(Filter* filter)
{
    filter->allow({SCMP_SYS(brk), SCMP_SYS(munmap), SCMP_SYS(mremap), SCMP_SYS(madvise)});
    // Descriptor -1: no file comes into memory, and no memory becomes a program.
    filter->allowWhen(SCMP_SYS(mmap), {argumentHasNone(2, PROT_EXEC),
                                       argumentIs(4, static_cast<std::uint32_t>(-1))});
    filter->allowWhen(SCMP_SYS(mmap), {argumentHasNone(2, PROT_EXEC),
                                       argumentIs(4, static_cast<std::uint64_t>(-1))});
    filter->allowWhen(SCMP_SYS(mprotect), {argumentHasNone(2, PROT_EXEC)});
}

void allowWork(Filter* filter)
{
    filter->allow({SCMP_SYS(clock_gettime), SCMP_SYS(clock_getres), SCMP_SYS(gettimeofday),
                   SCMP_SYS(time), SCMP_SYS(getrandom), SCMP_SYS(sysinfo), SCMP_SYS(getpid),
                   SCMP_SYS(gettid), SCMP_SYS(sched_yield), SCMP_SYS(futex), SCMP_SYS(rt_sigreturn),
                   SCMP_SYS(rt_sigprocmask), SCMP_SYS(rt_sigaction), SCMP_SYS(sigaltstack),
                   SCMP_SYS(restart_syscall), SCMP_SYS(exit), SCMP_SYS(exit_group)});
    // abort() sends itself a signal; nobody else can be sent one.
    filter->allowWhen(SCMP_SYS(tgkill), {argumentIs(0, static_cast<std::uint64_t>(getpid()))});
}

void allowInputAndAnswers(Filter* filter, int socket)
{
    const auto descriptor = static_cast<std::uint64_t>(socket);
    filter->allow({SCMP_SYS(read), SCMP_SYS(pread64), SCMP_SYS(lseek), SCMP_SYS(close),
                   SCMP_SYS(fstat), SCMP_SYS(poll), SCMP_SYS(ppoll)});
    for (const int call : {SCMP_SYS(write), SCMP_SYS(writev), SCMP_SYS(sendmsg), SCMP_SYS(sendto),
                           SCMP_SYS(recvmsg), SCMP_SYS(recvfrom)}) {
        filter->allowWhen(call, {argumentIs(0, descriptor)});
    }
    // Standard error leads nowhere; a library may complain all the same.
    for (const int call : {SCMP_SYS(write), SCMP_SYS(writev)}) {
        filter->allowWhen(call, {argumentIs(0, STDERR_FILENO)});
    }
}

// What libraries try in good faith and do without.
void refuseLookingAround(Filter* filter)
{
    filter->refuse({SCMP_SYS(open),       SCMP_SYS(openat),
                    SCMP_SYS(stat),       SCMP_SYS(lstat),
                    SCMP_SYS(newfstatat), SCMP_SYS(statx),
                    SCMP_SYS(access),     SCMP_SYS(faccessat),
                    SCMP_SYS(faccessat2), SCMP_SYS(readlink),
                    SCMP_SYS(readlinkat), SCMP_SYS(getcwd),
                    SCMP_SYS(uname),      SCMP_SYS(ioctl),
                    SCMP_SYS(fcntl),      SCMP_SYS(sched_getaffinity),
                    SCMP_SYS(prctl),      SCMP_SYS(getrusage),
                    SCMP_SYS(prlimit64),  SCMP_SYS(getuid),
                    SCMP_SYS(geteuid),    SCMP_SYS(getgid),
                    SCMP_SYS(getegid)});
}
}  // namespace

bool platform::filterSystemCalls(int socket, bool hasSanitizers)
{
    Filter filter;
    allowMemory(&filter);
    allowWork(&filter);
    allowInputAndAnswers(&filter, socket);
    refuseLookingAround(&filter);
    // A sanitizer's runtime finds out what memory it may look at by writing it into a pipe.
    if (hasSanitizers) filter.allow({SCMP_SYS(pipe), SCMP_SYS(pipe2), SCMP_SYS(write)});
    return filter.load();
}
