// Writes the filters of system calls as a source: compiles the tables in sandbox_calls.h with
// libseccomp, which knows for each architecture the numbers of the calls, in which half of an
// argument to look first, and the second set of calls that x86-64 has. Runs when the program is
// built, since compiling takes longer than reading a picture does.
//
// The numbers of the socket and of the process are not known yet; the process fills them in when it
// loads the filter.
//
// usage: make_sandbox_filter FILE

#include "reader/sandbox_calls.h"
#include "reader/sandbox_filter.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <initializer_list>
#include <memory>
#include <vector>

#include <linux/filter.h>
#include <linux/sched.h>
#include <seccomp.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <unistd.h>

namespace pinorama {
namespace {
// Stand in the filter for what is filled in later; it compares with no other values like these.
constexpr std::uint32_t kSomeSocket = 0x5a5a0001;
constexpr std::uint32_t kSomeProcess = 0x5a5a0002;

constexpr std::uint32_t kTree = 2;

// Flags of clone that fork sets, and the place that they have among the arguments.
constexpr std::uint64_t kForkFlags = CSIGNAL | CLONE_CHILD_SETTID | CLONE_CHILD_CLEARTID;
#if defined(__s390__) || defined(__CRIS__)
constexpr unsigned kFlagsOfClone = 1;
#else
constexpr unsigned kFlagsOfClone = 0;
#endif

struct FilterReleaser {
    void operator()(void* filter) const { seccomp_release(filter); }
};

scmp_arg_cmp argumentIs(unsigned index, std::uint64_t value)
{
    return {index, SCMP_CMP_EQ, value, 0};
}

scmp_arg_cmp argumentHasNone(unsigned index, std::uint64_t bits)
{
    return {index, SCMP_CMP_MASKED_EQ, bits, 0};
}

// A filter that is being compiled; remembers whether every rule went in.
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

    void add(const SandboxCall& call)
    {
        constexpr auto kNoFile = static_cast<std::uint32_t>(-1);
        switch (call.rule) {
        case CallRule::allowed: allow(call.number); break;
        case CallRule::onSocketOnly: allow(call.number, {argumentIs(0, kSomeSocket)}); break;
        case CallRule::onErrorsOnly: allow(call.number, {argumentIs(0, STDERR_FILENO)}); break;
        case CallRule::toItselfOnly: allow(call.number, {argumentIs(0, kSomeProcess)}); break;
        case CallRule::memoryOnly:
            // A register of 64 bits may hold the descriptor -1 with or without its upper half.
            allow(call.number, {argumentHasNone(2, PROT_EXEC), argumentIs(4, kNoFile)});
            allow(call.number, {argumentHasNone(2, PROT_EXEC), argumentIs(4, ~std::uint64_t{0})});
            break;
        case CallRule::notExecutable: allow(call.number, {argumentHasNone(2, PROT_EXEC)}); break;
        case CallRule::refused: addRule(SCMP_ACT_ERRNO(EPERM), call.number, {}); break;
        case CallRule::withSanitizers:
            if (kHasSanitizers) allow(call.number);
            break;
        case CallRule::forkOnly:
            allow(call.number, {argumentHasNone(kFlagsOfClone, ~kForkFlags)});
            break;
        case CallRule::localOnly: allow(call.number, {argumentIs(0, AF_UNIX)}); break;
        case CallRule::killOnly: allow(call.number, {argumentIs(1, SIGKILL)}); break;
        case CallRule::deathOnly: allow(call.number, {argumentIs(0, PR_SET_PDEATHSIG)}); break;
        }
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
        std::vector<sock_filter> program(kMaxBpfInstructions + 1);
        program.resize(
            std::fread(program.data(), sizeof program.front(), program.size(), file.get()));
        return program;
    }

private:
    // Allows a call when all conditions on its arguments hold.
    void allow(int call, std::initializer_list<scmp_arg_cmp> conditions = {})
    {
        addRule(SCMP_ACT_ALLOW, call, conditions);
    }

    void addRule(std::uint32_t action, int call, std::initializer_list<scmp_arg_cmp> conditions)
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

std::vector<sock_filter> makeProgram()
{
    Filter filter;
    for (const SandboxCall& call : kSandboxCalls) filter.add(call);
    return filter.program();
}

std::vector<sock_filter> makeForkingProgram()
{
    const auto hasOtherRules = [](int number) {
        return std::any_of(std::begin(kForkingCalls), std::end(kForkingCalls),
                           [number](const SandboxCall& call) { return call.number == number; });
    };
    Filter filter;
    for (const SandboxCall& call : kSandboxCalls) {
        if (!hasOtherRules(call.number)) filter.add(call);
    }
    for (const SandboxCall& call : kForkingCalls) filter.add(call);
    return filter.program();
}

const char* operandOf(const sock_filter& code)
{
    if (code.k == kSomeSocket) return "socket";
    return code.k == kSomeProcess ? "process" : "constant";
}

// Every value that stands for another one has to be one that an argument is compared with.
bool isUsable(const std::vector<sock_filter>& program)
{
    int sockets = 0;
    int processes = 0;
    for (const sock_filter& code : program) {
        if (code.k != kSomeSocket && code.k != kSomeProcess) continue;
        if (code.code != (BPF_JMP | BPF_JEQ | BPF_K)) return false;
        (code.k == kSomeSocket ? sockets : processes)++;
    }
    return sockets > 0 && processes > 0 && program.size() <= kMaxBpfInstructions;
}

// Writes one of the filters, as a variable of that name.
void write(const std::vector<sock_filter>& program, const char* name, std::FILE* file)
{
    std::fprintf(file, "\nstatic constexpr BpfInstruction %sCodes[] = {\n", name);
    for (const sock_filter& code : program) {
        std::fprintf(file, "    {{%u, %u, %u, %#x}, %s},\n", unsigned{code.code}, unsigned{code.jt},
                     unsigned{code.jf}, unsigned{code.k}, operandOf(code));
    }
    std::fprintf(file, "};\nconst std::span<const BpfInstruction> %s(%sCodes);\n", name, name);
}

void write(const std::vector<sock_filter>& reading, const std::vector<sock_filter>& forking,
           std::FILE* file)
{
    std::fputs(
        "#include \"reader/sandbox_filter.h\"\n\n"
        "namespace pinorama {\n\n"
        "using enum BpfInstruction::Operand;\n",
        file);
    write(reading, "kSandboxFilter", file);
    write(forking, "kForkingFilter", file);
    std::fputs("\n}  // namespace pinorama\n", file);
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
    const std::vector<sock_filter> reading = makeProgram();
    const std::vector<sock_filter> forking = makeForkingProgram();
    if (!isUsable(reading) || !isUsable(forking)) {
        std::fputs("make_sandbox_filter: libseccomp makes no usable filter\n", stderr);
        return 1;
    }
    std::FILE* file = std::fopen(argv[1], "w");
    if (file == nullptr) {
        std::perror(argv[1]);
        return 1;
    }
    write(reading, forking, file);
    return std::fclose(file) == 0 ? 0 : 1;
}
