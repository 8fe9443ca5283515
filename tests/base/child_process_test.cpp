#include "base/child_process.h"

#include "base/descriptor.h"
#include "tests/support/other_process.h"

#include <gtest/gtest.h>

#include <csignal>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
struct Pipe {
    Pipe()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(pipe2(ends, O_CLOEXEC), 0);
        reading = DescriptorHolder(ends[0]);
        writing = DescriptorHolder(ends[1]);
    }

    // All that is written until every writer has gone, which takes no longer than 10 seconds.
    std::string content()
    {
        writing = DescriptorHolder();
        std::string text;
        while (true) {
            pollfd state = {reading.get(), POLLIN, 0};
            if (poll(&state, 1, 10'000) != 1) return text + "and no end";
            char bytes[256];
            const ssize_t count = read(reading.get(), bytes, sizeof bytes);
            if (count <= 0) return text;
            text.append(bytes, static_cast<std::size_t>(count));
        }
    }

    DescriptorHolder reading, writing;
};

int exitStatusOf(pid_t process)
{
    int status = 0;
    EXPECT_EQ(waitpid(process, &status, 0), process);
    return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}
}  // namespace

TEST(runAndWait, returnsTheStatusOrTheSignal)
{
    EXPECT_EQ(runAndWait({"true"}), 0);
    EXPECT_EQ(runAndWait({"sh", "-c", "exit 3"}), 3);
    EXPECT_EQ(runAndWait({"sh", "-c", "kill -9 $$"}), 128 + 9);
    EXPECT_EQ(runAndWait({"there-is-no-such-program"}), kCannotStart);
    EXPECT_EQ(runAndWait({}), kCannotStart);
}

TEST(runAndWait, handsOverTheInputAndTakesTheOutput)
{
    const std::string much = std::string(300'000, 'x') + std::string("\0\xff\n", 3);
    for (const std::string& input : {std::string(), std::string("a\nb"), much}) {
        std::string output = "from before";
        EXPECT_EQ(runAndWait({"cat"}, {}, {.input = input, .output = &output}), 0);
        EXPECT_TRUE(output == input) << input.size() << " bytes";
    }
}

TEST(runAndWait, takesWhatAProgramWroteBeforeItFailed)
{
    std::string output;
    EXPECT_EQ(runAndWait({"sh", "-c", "echo $A; exit 2"}, {"A=b"}, {.output = &output}), 2);
    EXPECT_EQ(output, "b\n");
    EXPECT_EQ(runAndWait({"there-is-no-such-program"}, {}, {.output = &output}), kCannotStart);
    EXPECT_EQ(output, "");
}

TEST(runAndWait, worksWithoutStandardStreams)
{
    const int status = test::inChild([] {
        for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) close(stream);
        std::string output;
        const int ended = runAndWait({"cat"}, {}, {.input = "text", .output = &output});
        return ended == 0 && output == "text" ? 0 : 1;
    });
    EXPECT_EQ(status, 0);
}

TEST(spawnProgram, handsOnTheDescriptorsThatItIsGivenAndNoOther)
{
    Pipe pipe;
    const int other = fcntl(pipe.writing.get(), F_DUPFD, 20);  // not closed by itself
    const pid_t process = spawnProgram(
        {.arguments = {"sh", "-c",
                       "ls /proc/self/fd | tr '\\n' ' ' >&3; echo $A $HOME >&3; echo out"},
         .environment = {"PATH=/usr/bin:/bin", "A=b"},
         .descriptors = {kNullDevice, kNullDevice, kOwnDescriptor, pipe.writing.get()}});
    ASSERT_GT(process, 0);
    close(other);
    // 4 is what ls lists the folder with.
    EXPECT_EQ(pipe.content(), "0 1 2 3 4 b\n");
    EXPECT_EQ(exitStatusOf(process), 0);
    EXPECT_EQ(spawnProgram({}), -1);
    EXPECT_EQ(spawnProgram({.arguments = {"/nowhere/program"}}), -1);
}

TEST(spawnProgram, blocksNoSignalAndStartsAProgramApart)
{
    // The first 16, blocked and ignored. The C library keeps some of the later ones for itself.
    const char* signals = "sed -nE 's/^Sig(Blk|Ign).*(....)$/\\2/p' /proc/self/status";
    for (const bool isApart : {false, true}) {
        SCOPED_TRACE(isApart);
        Pipe pipe;
        const int status = test::inChild([&] {
            sigset_t all;
            sigfillset(&all);
            sigprocmask(SIG_SETMASK, &all, nullptr);
            std::signal(SIGPIPE, SIG_IGN);
            std::signal(SIGHUP, SIG_IGN);
            const pid_t process =
                spawnProgram({.arguments = {"/bin/sh", "-c", signals},
                              .descriptors = {kNullDevice, pipe.writing.get(), kNullDevice},
                              .isApart = isApart});
            if (process <= 0) return 2;
            return (getpgid(process) == process) == isApart && exitStatusOf(process) == 0 ? 0 : 1;
        });
        EXPECT_EQ(status, 0);
        EXPECT_EQ(pipe.content(), isApart ? "0000\n0000\n" : "0000\n0001\n");
    }
}

TEST(forkProcess, hasTheStandardStreamsAndItsDescriptorOnly)
{
    Pipe pipe;
    const pid_t process = forkProcess(pipe.writing.get(), [](int descriptor) {
        std::string open;
        for (int number = 3; number < 1024; number++) {
            if (fcntl(number, F_GETFD) >= 0) open += std::to_string(number) + ' ';
        }
        (void)writeAll(descriptor, open);
    });
    ASSERT_GT(process, 0);
    EXPECT_EQ(pipe.content(), "3 ");
    EXPECT_EQ(exitStatusOf(process), 0);
}

TEST(forkProcess, endsWithItsParent)
{
    Pipe pipe;
    const pid_t parent = forkProcess(pipe.writing.get(), [](int descriptor) {
        const pid_t child = forkProcess(descriptor, [](int inner) {
            (void)writeAll(inner, "started");
            pause();
        });
        pollfd state = {descriptor, 0, 0};
        (void)poll(&state, 1, child > 0 ? 100 : 0);
    });
    ASSERT_GT(parent, 0);
    EXPECT_EQ(pipe.content(), "started") << "the child that waits for ever holds the pipe";
    EXPECT_EQ(exitStatusOf(parent), 0);
}
