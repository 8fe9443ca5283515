#include "base/descriptor.h"

#include "base/status.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <csignal>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

TEST(statusOfErrno, hasItsTable)
{
    const struct {
        int error;
        std::int32_t status;
    } rows[] = {
        {0, 0},         {ENOENT, -43},       {EEXIST, -48},   {EACCES, -54},    {EPERM, -54},
        {ENOSPC, -34},  {EROFS, -44},        {EMFILE, -42},   {ENFILE, -42},    {EBADF, -51},
        {EINVAL, -50},  {ENAMETOOLONG, -37}, {ENOTDIR, -120}, {ENOTEMPTY, -47}, {EBUSY, -47},
        {ENOMEM, -108}, {EIO, -36},          {EISDIR, -36},   {ELOOP, -36},     {EXDEV, -36},
        {99999, -36},   {-1, -36},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.error);
        EXPECT_EQ(statusOfErrno(row.error), row.status);
    }
}

TEST(openDescriptor, isAboveTheStandardStreamsAndClosedInChildren)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("f", "");
    // A child without standard streams of its own, so that the lowest free descriptor is 0.
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        for (int stream = 0; stream <= 2; stream++) close(stream);
        const int descriptor = openDescriptor(path.c_str(), O_RDONLY);
        const bool isHigh = descriptor > 2;
        const bool isClosedOnExec = (fcntl(descriptor, F_GETFD) & FD_CLOEXEC) != 0;
        const bool standardIsFree = fcntl(0, F_GETFD) == -1;
        _exit(isHigh && isClosedOnExec && standardIsFree ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

TEST(openDescriptor, reportsThatNoDescriptorIsLeft)
{
    rlimit earlier = {};
    ASSERT_EQ(getrlimit(RLIMIT_NOFILE, &earlier), 0);
    const rlimit none = {3, earlier.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_NOFILE, &none), 0);
    const int descriptor = openDescriptor("/dev/null", O_RDONLY);
    const int error = errno;
    setrlimit(RLIMIT_NOFILE, &earlier);
    EXPECT_EQ(descriptor, -1);
    EXPECT_EQ(statusOfErrno(error), kErrTooManyOpen);
}

TEST(writeAt, failsWhenTheFileMayNotGrowFurther)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("f", "");
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit = {10, 10};
        if (setrlimit(RLIMIT_FSIZE, &limit) != 0) _exit(2);
        const DescriptorHolder file(openDescriptor(path.c_str(), O_RDWR));
        // The system takes 10 of the 20 bytes and refuses the rest: no success.
        _exit(writeAt(file.get(), 0, std::string(20, 'x').data(), 20) == -1 && errno == EFBIG ? 0
                                                                                              : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(test::readFile(path), std::string(10, 'x'));
}

TEST(writeAll, waitsForTheReaderOfAFullPipeIfItMay)
{
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_NONBLOCK), 0);
    const DescriptorHolder reader(ends[0]), writer(ends[1]);
    const std::string much(1'000'000, 'x');
    EXPECT_FALSE(writeAll(writer.get(), much)) << "nobody reads";
    EXPECT_EQ(errno, EAGAIN);

    // What the failed call wrote until the pipe was full comes first.
    std::string seen;
    std::thread slow([&] {
        char bytes[4096];
        while (!seen.ends_with('.')) {
            const ssize_t count = read(reader.get(), bytes, sizeof bytes);
            if (count > 0) seen.append(bytes, static_cast<std::size_t>(count));
        }
    });
    EXPECT_TRUE(writeAll(writer.get(), much + '.', FullPipe::waits));
    slow.join();
    EXPECT_GT(seen.size(), much.size());
}

TEST(writeAll, reportsWhyItFails)
{
    const DescriptorHolder full(openDescriptor("/dev/full", O_WRONLY));
    EXPECT_FALSE(writeAll(full.get(), "a"));
    EXPECT_EQ(errno, ENOSPC);
    EXPECT_TRUE(writeAll(full.get(), ""));
    EXPECT_FALSE(writeAll(-1, "a"));
    EXPECT_EQ(errno, EBADF);
}

TEST(sendAll, sendsEverythingAndReportsWhenTheOtherSideIsGone)
{
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM, 0, ends), 0);
    const DescriptorHolder near(ends[0]);
    DescriptorHolder far(ends[1]);
    const std::vector<std::uint8_t> much(1'000'000, 'x');
    std::size_t received = 0;
    std::thread slow([&] {
        std::vector<std::uint8_t> bytes(4096);
        while (received < much.size()) {
            const ssize_t count = read(far.get(), bytes.data(), bytes.size());
            if (count <= 0) break;
            received += static_cast<std::size_t>(count);
        }
    });
    EXPECT_TRUE(sendAll(near.get(), much));
    slow.join();
    EXPECT_EQ(received, much.size());
    far = DescriptorHolder();
    EXPECT_TRUE(sendAll(near.get(), {}));
    EXPECT_FALSE(sendAll(near.get(), much)) << "and no signal ends this process";
    EXPECT_EQ(errno, EPIPE);
}

TEST(appendTo, neverLosesWhatAnotherProcessAppends)
{
    constexpr int kProcesses = 4;
    constexpr int kLines = 500;
    const test::TemporaryFolder folder;
    const std::string path = folder.write("f", "");
    std::vector<pid_t> children;
    for (int i = 0; i < kProcesses; i++) {
        const pid_t child = fork();
        ASSERT_GE(child, 0);
        if (child == 0) {
            const DescriptorHolder file(openDescriptor(path.c_str(), O_RDWR));
            const std::string line = "line of process " + std::to_string(i) + "\n";
            for (int n = 0; n < kLines; n++) {
                if (appendTo(file.get(), line.data(), line.size()) !=
                    static_cast<std::int64_t>(line.size()))
                    _exit(1);
            }
            _exit(0);
        }
        children.push_back(child);
    }
    for (const pid_t child : children) {
        int status = 0;
        ASSERT_EQ(waitpid(child, &status, 0), child);
        EXPECT_EQ(status, 0);
    }
    const std::string content = test::readFile(path);
    EXPECT_EQ(content.size(), std::string("line of process 0\n").size() * kProcesses * kLines);
    for (int i = 0; i < kProcesses; i++) {
        const std::string line = "line of process " + std::to_string(i) + "\n";
        int count = 0;
        for (std::size_t at = content.find(line); at != content.npos;
             at = content.find(line, at + line.size()))
            count++;
        EXPECT_EQ(count, kLines);
    }
}

TEST(readAt, givesWhatIsThere)
{
    const test::TemporaryFolder folder;
    const DescriptorHolder file(openDescriptor(folder.write("f", "0123456789").c_str(), O_RDONLY));
    char buffer[16] = {};
    EXPECT_EQ(readAt(file.get(), 8, buffer, 5), 2);
    EXPECT_EQ(std::string(buffer, 2), "89");
    EXPECT_EQ(readAt(file.get(), 20, buffer, 5), 0);
    EXPECT_EQ(readAt(file.get(), -1, buffer, 5), -1);
    EXPECT_EQ(errno, EINVAL);
}
