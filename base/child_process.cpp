#include "base/child_process.h"

#include "base/descriptor.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string_view>

#include <fcntl.h>
#include <spawn.h>
#include <sys/mman.h>
#include <sys/stat.h>
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

// What a child starts with: its streams, and no signal held back or ignored. A stream without a
// file leads nowhere.
struct SpawnSettings {
    SpawnSettings(const DescriptorHolder& input, const DescriptorHolder& output)
    {
        posix_spawn_file_actions_init(&files);
        addStream(input, STDIN_FILENO, O_RDONLY);
        addStream(output, STDOUT_FILENO, O_WRONLY);
        addStream(DescriptorHolder(), STDERR_FILENO, O_WRONLY);
        posix_spawnattr_init(&attributes);
        sigset_t none;
        sigemptyset(&none);
        posix_spawnattr_setsigmask(&attributes, &none);
        sigset_t pipe;
        sigemptyset(&pipe);
        sigaddset(&pipe, SIGPIPE);
        posix_spawnattr_setsigdefault(&attributes, &pipe);
        posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);
    }
    ~SpawnSettings()
    {
        posix_spawnattr_destroy(&attributes);
        posix_spawn_file_actions_destroy(&files);
    }
    SpawnSettings(const SpawnSettings&) = delete;
    SpawnSettings& operator=(const SpawnSettings&) = delete;

    void addStream(const DescriptorHolder& file, int stream, int flags)
    {
        if (file) {
            posix_spawn_file_actions_adddup2(&files, file.get(), stream);
        } else {
            posix_spawn_file_actions_addopen(&files, stream, "/dev/null", flags, 0);
        }
    }

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
};
}  // namespace

int runAndWait(const std::vector<std::string>& arguments,
               const std::vector<std::string>& environment, const ChildStreams& streams)
{
    if (streams.output != nullptr) streams.output->clear();
    if (arguments.empty()) return kCannotStart;
    std::vector<std::string> argumentTexts = arguments;
    std::vector<std::string> settings = environmentWith(environment);
    DescriptorHolder input;
    DescriptorHolder output;
    if (!streams.input.empty() && !fill(input = makeMemoryFile(), streams.input)) {
        return kCannotStart;
    }
    if (streams.output != nullptr && !(output = makeMemoryFile())) return kCannotStart;
    const SpawnSettings spawn(input, output);
    pid_t child = 0;
    if (posix_spawnp(&child, argumentTexts.front().c_str(), &spawn.files, &spawn.attributes,
                     pointersTo(argumentTexts).data(), pointersTo(settings).data()) != 0) {
        return kCannotStart;
    }

    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return kCannotStart;  // somebody else waited for the child
    }
    if (streams.output != nullptr && !readAll(output, streams.output)) return kCannotStart;
    return WIFSIGNALED(status) ? kEndedBySignal + WTERMSIG(status) : WEXITSTATUS(status);
}

}  // namespace pinorama
