// Writes sandbox_filter.cpp: the system calls that a locked-in process may make, as the program for
// the kernel that libseccomp makes of them. Runs when the program is built, since putting the
// filter together takes longer than reading a picture.
//
// What a process of its own has, the number of its socket and of itself, is filled in when the
// filter is loaded.
//
// usage: make_sandbox_filter FILE

#include "reader/sandbox_filter.h"

#include <cerrno>
#include <cstdio>
#include <initializer_list>
#include <memory>
#include <vector>

#include <linux/filter.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <unistd.h>

namespace pinorama {
namespace {
// Stand in the filter for what is filled in later; no other value that it compares with is alike.
constexpr std::uint32_t kSomeSocket = 0x5a5a0001;
constexpr std::uint32_t kSomeProcess = 0x5a5a0002;

constexpr std::uint32_t kTree = 2;

struct FilterReleaser {
    void operator()(void* filter) const { seccomp_release(filter); }
};

// A filter while it is being put together; remembers whether everything went in.
class Filter {
public:
    Filter() : filter_(seccomp_init(SCMP_ACT_KILL_PROCESS))
    {
        // The kernel tries each of its hundreds of calls when the filter is loaded, so these are
        // looked up in a tree.
        isComplete_ =
            seccomp_attr_set(filter_.get(), SCMP_FLTATR_CTL_OPTIMIZE, kTree) == 0 &&
            seccomp_attr_set(filter_.get(), SCMP_FLTATR_ACT_BADARCH, SCMP_ACT_KILL_PROCESS) == 0;
    }

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

    // The filter as the kernel takes it; empty when something did not go in.
    std::vector<sock_filter> program() const
    {
        if (!isComplete_) return {};
        const std::unique_ptr<std::FILE, decltype([](std::FILE* file) { std::fclose(file); })> file(
            std::tmpfile());
        if (!file || seccomp_export_bpf(filter_.get(), fileno(file.get())) != 0 ||
            std::fseek(file.get(), 0, SEEK_SET) != 0) {
            return {};
        }
        std::vector<sock_filter> program(kMostSandboxSteps + 1);
        program.resize(
            std::fread(program.data(), sizeof program.front(), program.size(), file.get()));
        return program;
    }

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
    filter->allowWhen(SCMP_SYS(tgkill), {argumentIs(0, kSomeProcess)});
}

void allowInputAndAnswers(Filter* filter)
{
    filter->allow({SCMP_SYS(read), SCMP_SYS(pread64), SCMP_SYS(lseek), SCMP_SYS(close),
                   SCMP_SYS(fstat), SCMP_SYS(poll), SCMP_SYS(ppoll)});
    for (const int call : {SCMP_SYS(write), SCMP_SYS(writev), SCMP_SYS(sendmsg), SCMP_SYS(sendto),
                           SCMP_SYS(recvmsg), SCMP_SYS(recvfrom)}) {
        filter->allowWhen(call, {argumentIs(0, kSomeSocket)});
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
std::vector<sock_filter> makeProgram()
{
    Filter filter;
    allowMemory(&filter);
    allowWork(&filter);
    allowInputAndAnswers(&filter);
    refuseLookingAround(&filter);
    // A sanitizer's runtime finds out what memory it may look at by writing it into a pipe.
    if (kHasSanitizers) {
        filter.allow({SCMP_SYS(pipe), SCMP_SYS(pipe2), SCMP_SYS(write)});
    }
    return filter.program();
}

// What of a step is filled in when the filter is loaded.
const char* filledInto(const sock_filter& step)
{
    if (step.k == kSomeSocket) return "socket";
    return step.k == kSomeProcess ? "process" : "nothing";
}

// Every value that stands for another one has to be one that an argument is compared with.
bool isUsable(const std::vector<sock_filter>& program)
{
    int sockets = 0;
    int processes = 0;
    for (const sock_filter& step : program) {
        if (step.k != kSomeSocket && step.k != kSomeProcess) continue;
        if (step.code != (BPF_JMP | BPF_JEQ | BPF_K)) return false;
        (step.k == kSomeSocket ? sockets : processes)++;
    }
    return sockets > 0 && processes > 0 && program.size() <= kMostSandboxSteps;
}

void write(const std::vector<sock_filter>& program, std::FILE* file)
{
    std::fputs(
        "#include \"reader/sandbox_filter.h\"\n\n"
        "namespace pinorama {\n\n"
        "using enum SandboxStep::FilledInto;\n\n"
        "const SandboxStep kSandboxSteps[] = {\n",
        file);
    for (const sock_filter& step : program) {
        std::fprintf(file, "    {{%u, %u, %u, %#x}, %s},\n", unsigned{step.code}, unsigned{step.jt},
                     unsigned{step.jf}, unsigned{step.k}, filledInto(step));
    }
    std::fprintf(file,
                 "};\nconst std::size_t kSandboxStepCount = %zu;\n\n}  // namespace pinorama\n",
                 program.size());
}
}  // namespace
}  // namespace pinorama

using namespace pinorama;

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: make_sandbox_filter FILE\n", stderr);
        return 2;
    }
    const std::vector<sock_filter> program = makeProgram();
    if (!isUsable(program)) {
        std::fputs("make_sandbox_filter: libseccomp makes no usable filter\n", stderr);
        return 1;
    }
    std::FILE* file = std::fopen(argv[1], "w");
    if (file == nullptr) {
        std::perror(argv[1]);
        return 1;
    }
    write(program, file);
    return std::fclose(file) == 0 ? 0 : 1;
}
