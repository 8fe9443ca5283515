#include "tests/support/program.h"

#include "tests/support/environment.h"

#include <fcntl.h>
#include <grp.h>
#include <poll.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace {
constexpr uid_t kNobody = 65534;

bool becomeNobody()
{
    return setgroups(0, nullptr) == 0 && setgid(kNobody) == 0 && setuid(kNobody) == 0;
}

// Everything between fork and exec is a plain system call or prepared before.
[[noreturn]] void becomeProgram(char* const* arguments, char* const* environment,
                                const char* outPath, const char* errPath, bool asNobody)
{
    const int in = open("/dev/null", O_RDONLY);
    const int out = open(outPath, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    const int err = open(errPath, O_WRONLY | O_CREAT | O_TRUNC, 0600);
    if (in >= 0 && out >= 0 && err >= 0 && dup2(in, 0) == 0 && dup2(out, 1) == 1 &&
        dup2(err, 2) == 2 && (!asNobody || becomeNobody())) {
        execve(arguments[0], arguments, environment);
    }
    _exit(127);
}

std::vector<char*> pointersTo(std::vector<std::string>& texts)
{
    std::vector<char*> pointers;
    for (std::string& text : texts) pointers.push_back(text.data());
    pointers.push_back(nullptr);
    return pointers;
}

std::vector<std::string> environmentWith(
    const std::vector<std::pair<std::string, std::string>>& variables)
{
    std::vector<std::string> all;
    for (const auto& [name, value] : variables) all.push_back(name + '=' + value);
    for (char** entry = environ; *entry != nullptr; entry++) {
        const std::string text = *entry;
        bool isReplaced = false;
        for (const auto& [name, value] : variables) isReplaced |= text.starts_with(name + '=');
        if (!isReplaced) all.push_back(text);
    }
    return all;
}

// True when the process ended in time.
bool waitFor(pid_t process, int seconds)
{
    const int descriptor = static_cast<int>(syscall(SYS_pidfd_open, process, 0));
    if (descriptor < 0) return false;
    pollfd ended{descriptor, POLLIN, 0};
    const bool inTime = poll(&ended, 1, seconds * 1000) == 1;
    close(descriptor);
    return inTime;
}
}  // namespace

test::ProgramResult test::runProgram(const ProgramCall& call)
{
    const TemporaryFolder folder;
    const std::string outPath = call.outputPath.empty() ? folder.file("out") : call.outputPath;
    const std::string errPath = folder.file("err");
    std::vector<std::string> command = call.command;
    std::vector<std::string> environment = environmentWith(call.variables);
    const std::vector<char*> arguments = pointersTo(command);
    const std::vector<char*> variables = pointersTo(environment);

    ProgramResult result;
    const pid_t process = fork();
    if (process < 0) return result;
    if (process == 0) {
        becomeProgram(arguments.data(), variables.data(), outPath.c_str(), errPath.c_str(),
                      call.asNobody && geteuid() == 0);
    }
    result.tookTooLong = !waitFor(process, call.seconds);
    if (result.tookTooLong) kill(process, SIGKILL);
    int status = 0;
    waitpid(process, &status, 0);
    if (WIFEXITED(status)) result.status = WEXITSTATUS(status);
    if (call.outputPath.empty()) result.out = readFile(outPath);
    result.err = readFile(errPath);
    return result;
}
