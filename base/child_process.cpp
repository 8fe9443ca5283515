#include "base/child_process.h"

#include "base/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <string_view>

#include <fcntl.h>
#include <poll.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr int kEndedBySignal = 128;

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::string_view nameOf(std::string_view setting)
{
    return setting.substr(0, setting.find('='));
}

std::vector<std::string> environmentWith(const std::vector<std::string>& changes)
{
    std::vector<std::string> settings = changes;
    for (char** entry = environ; entry != nullptr && *entry != nullptr; ++entry) {
        const std::string_view name = nameOf(*entry);
        const bool isReplaced = std::any_of(changes.begin(), changes.end(),
                                            [&](const auto& own) { return nameOf(own) == name; });
        if (!isReplaced) settings.emplace_back(*entry);
    }
    return settings;
}

// A file in memory, above the standard streams. Unlike a pipe it holds any amount, so that nobody
// has to read while the child writes.
DescriptorHolder makeMemoryFile()
{
    const int file = memfd_create("stream", MFD_CLOEXEC);
    if (file > STDERR_FILENO || file < 0) return DescriptorHolder(file);
    const int moved = fcntl(file, F_DUPFD_CLOEXEC, STDERR_FILENO + 1);
    close(file);
    return DescriptorHolder(moved);
}

bool fill(const DescriptorHolder& file, std::string_view bytes)
{
    return file && writeAt(file.get(), 0, bytes.data(), bytes.size()) ==
                       static_cast<std::int64_t>(bytes.size());
}

bool readAll(const DescriptorHolder& file, std::string* out)
{
    struct stat facts = {};
    if (fstat(file.get(), &facts) != 0) return false;
    out->resize(static_cast<std::size_t>(facts.st_size));
    return readAt(file.get(), 0, out->data(), out->size()) == facts.st_size;
}

// The settings of a program to be started, which have to be released.
class SpawnSettings {
public:
    SpawnSettings()
    {
        posix_spawn_file_actions_init(&files_);
        posix_spawnattr_init(&attributes_);
    }
    ~SpawnSettings()
    {
        posix_spawnattr_destroy(&attributes_);
        posix_spawn_file_actions_destroy(&files_);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    bool setDescriptors(const std::vector<int>& descriptors)
    {
        int number = 0;
        for (const int descriptor : descriptors) {
            if (!setDescriptor(number++, descriptor)) return false;
        }
        return posix_spawn_file_actions_addclosefrom_np(&files_, number) == 0;
    }

    bool setSignals(bool isApart)
    {
        sigset_t none;
        sigset_t defaults;
        sigemptyset(&none);
        sigemptyset(&defaults);
        for (const int number : {SIGPIPE, SIGXFSZ}) sigaddset(&defaults, number);
        if (isApart) sigfillset(&defaults);
        const int group = isApart ? POSIX_SPAWN_SETPGROUP : 0;
        const int flags = POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF | group;
        return posix_spawnattr_setsigmask(&attributes_, &none) == 0 &&
               posix_spawnattr_setsigdefault(&attributes_, &defaults) == 0 &&
               posix_spawnattr_setflags(&attributes_, static_cast<short>(flags)) == 0;
    }

    const posix_spawn_file_actions_t* files() const { return &files_; }
    const posix_spawnattr_t* attributes() const { return &attributes_; }

private:
    bool setDescriptor(int number, int descriptor)
    {
        if (descriptor == kOwnDescriptor) return true;
        if (descriptor == kNullDevice) {
            return posix_spawn_file_actions_addopen(&files_, number, "/dev/null", O_RDWR, 0) == 0;
        }
        return posix_spawn_file_actions_adddup2(&files_, descriptor, number) == 0;
    }

    posix_spawn_file_actions_t files_;
    posix_spawnattr_t attributes_;
};
}  // namespace

pid_t spawnProgram(ProgramStart start)
{
    if (start.arguments.empty()) return -1;
    SpawnSettings settings;
    if (!settings.setDescriptors(start.descriptors) || !settings.setSignals(start.isApart)) {
        return -1;
    }
    pid_t process = -1;
    const int error = posix_spawnp(&process, start.arguments.front().c_str(), settings.files(),
                                   settings.attributes(), pointersTo(start.arguments).data(),
                                   pointersTo(start.environment).data());
    return error == 0 ? process : -1;
}

pid_t forkProcess(int descriptor, const std::function<void(int descriptor)>& work)
{
    const pid_t parent = getpid();
    const pid_t process = fork();
    if (process != 0) return process;

    // The parent may have ended before the signal of its death was asked for. From a PID namespace
    // of its own the copy does not see it.
    const bool hasParent = getppid() == parent || getppid() == 0;
    const bool isReady = prctl(PR_SET_PDEATHSIG, SIGKILL) == 0 && hasParent &&
                         dup2(descriptor, kForkedDescriptor) == kForkedDescriptor &&
                         syscall(SYS_close_range, kForkedDescriptor + 1u, ~0u, 0u) == 0;
    if (isReady) work(kForkedDescriptor);
    _exit(isReady ? 0 : 1);
}

int runAndWait(const std::vector<std::string>& arguments,
               const std::vector<std::string>& environment, const ChildStreams& streams)
{
    if (streams.output != nullptr) streams.output->clear();
    DescriptorHolder input;
    DescriptorHolder output;
    if (!streams.input.empty() && !fill(input = makeMemoryFile(), streams.input)) {
        return kCannotStart;
    }
    if (streams.output != nullptr && !(output = makeMemoryFile())) return kCannotStart;
    // A holder without a descriptor stands for the null device.
    const pid_t child = spawnProgram({.arguments = arguments,
                                      .environment = environmentWith(environment),
                                      .descriptors = {input.get(), output.get(), kNullDevice}});
    if (child < 0) return kCannotStart;

    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return kCannotStart;  // somebody else waited for the child
    }
    if (streams.output != nullptr && !readAll(output, streams.output)) return kCannotStart;
    return WIFSIGNALED(status) ? kEndedBySignal + WTERMSIG(status) : WEXITSTATUS(status);
}

bool waitForEnd(pid_t process, std::chrono::milliseconds max)
{
    if (waitpid(process, nullptr, WNOHANG) != 0) return true;
    if (max.count() <= 0) return false;
    const DescriptorHolder descriptor(static_cast<int>(syscall(SYS_pidfd_open, process, 0u)));
    pollfd state = {descriptor.get(), POLLIN, 0};
    // Without a descriptor of it the time is all there is to wait for.
    while (poll(&state, descriptor ? 1 : 0, static_cast<int>(max.count())) < 0 && errno == EINTR) {
    }
    return waitpid(process, nullptr, WNOHANG) != 0;
}

void endAfterAllProcesses()
{
    int adopts = 0;
    if (prctl(PR_GET_CHILD_SUBREAPER, &adopts) != 0 || adopts == 0) return;
    // Whoever asks it to end now need not.
    (void)std::signal(SIGTERM, SIG_IGN);
    (void)std::fclose(stdout);
    (void)syscall(SYS_close_range, STDERR_FILENO + 1u, ~0u, 0u);
    while (waitpid(-1, nullptr, 0) > 0 || errno == EINTR) {
    }
}

}  // namespace pinorama
