#include "tests/cli/running_program.h"

#include <chrono>
#include <csignal>

#include <fcntl.h>
#include <poll.h>
#include <pty.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {
constexpr int kMaxWait = 60'000;  // milliseconds

// Reads what is available. False at the end of the stream, which a terminal reports as an error.
bool takeFrom(int descriptor, std::string* text)
{
    char buffer[65536];
    const ssize_t count = read(descriptor, buffer, sizeof buffer);
    if (count <= 0) return false;
    text->append(buffer, static_cast<std::size_t>(count));
    return true;
}

void closeEnd(int* descriptor)
{
    if (*descriptor >= 0) close(*descriptor);
    *descriptor = -1;
}
}  // namespace

test::RunningProgram::RunningProgram(std::vector<std::string> arguments, Errors errors)
{
    arguments.insert(arguments.begin(), PINORAMA_INFO);
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);

    int out[2] = {-1, -1};
    int err[2] = {-1, -1};
    if (pipe2(out, O_CLOEXEC) != 0) return;
    const bool isOpen = errors == Errors::terminal
                            ? openpty(&err[0], &err[1], nullptr, nullptr, nullptr) == 0
                            : pipe2(err, O_CLOEXEC) == 0;
    if (!isOpen) return;
    process_ = fork();
    if (process_ == 0) {
        const int in = open("/dev/null", O_RDONLY);
        if (dup2(in, 0) == 0 && dup2(out[1], 1) == 1 && dup2(err[1], 2) == 2) {
            closefrom(3);
            execv(pointers[0], pointers.data());
        }
        _exit(127);
    }
    close(out[1]);
    close(err[1]);
    outEnd_ = out[0];
    errEnd_ = err[0];
    (void)fcntl(errEnd_, F_SETFD, FD_CLOEXEC);
}

test::RunningProgram::~RunningProgram()
{
    closeEnd(&outEnd_);
    closeEnd(&errEnd_);
    if (process_ <= 0) return;
    kill(process_, SIGKILL);
    waitpid(process_, nullptr, 0);
}

// Reads from the streams. False if both have ended, or if nothing arrives in time.
bool test::RunningProgram::takeSome(int milliseconds)
{
    pollfd ends[] = {{outEnd_, POLLIN, 0}, {errEnd_, POLLIN, 0}};
    if ((outEnd_ < 0 && errEnd_ < 0) || poll(ends, 2, milliseconds) <= 0) return false;
    if (ends[0].revents != 0 && !takeFrom(outEnd_, &out_)) closeEnd(&outEnd_);
    if (ends[1].revents != 0 && !takeFrom(errEnd_, &err_)) closeEnd(&errEnd_);
    return true;
}

std::string test::RunningProgram::read(std::size_t count)
{
    while (out_.size() < count && outEnd_ >= 0 && takeFrom(outEnd_, &out_)) {
    }
    return out_;
}

void test::RunningProgram::stopReading()
{
    closeEnd(&outEnd_);
}

int test::RunningProgram::finish()
{
    while (takeSome(kMaxWait)) {
    }
    if (outEnd_ >= 0 || errEnd_ >= 0) return -1;  // it kept them open for too long
    int status = 0;
    const pid_t ended = wait4(process_, &status, 0, &usage_);
    process_ = -1;
    if (ended <= 0) return -1;
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
