#include "platform/system/child_process.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <string_view>

#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

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

// What a child starts with: streams that lead nowhere, and no signal held back or ignored.
struct SpawnSettings {
    SpawnSettings()
    {
        posix_spawn_file_actions_init(&files);
        posix_spawn_file_actions_addopen(&files, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&files, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
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

    posix_spawn_file_actions_t files;
    posix_spawnattr_t attributes;
};
}  // namespace

int platform::runAndWait(const std::vector<std::string>& arguments,
                         const std::vector<std::string>& environment)
{
    if (arguments.empty()) return kCannotStart;
    std::vector<std::string> argumentTexts = arguments;
    std::vector<std::string> settings = environmentWith(environment);
    const SpawnSettings spawn;
    pid_t child = 0;
    if (posix_spawnp(&child, argumentTexts.front().c_str(), &spawn.files, &spawn.attributes,
                     pointersTo(argumentTexts).data(), pointersTo(settings).data()) != 0) {
        return kCannotStart;
    }

    int status = 0;
    while (waitpid(child, &status, 0) < 0) {
        if (errno != EINTR) return kCannotStart;  // somebody else waited for the child
    }
    return WIFSIGNALED(status) ? kEndedBySignal + WTERMSIG(status) : WEXITSTATUS(status);
}
