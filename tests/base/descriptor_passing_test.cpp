// Descriptors that come along with messages.

#include "base/descriptor_passing.h"

#include "base/child_process.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <array>
#include <cerrno>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
namespace {
struct Sockets {
    explicit Sockets(int type)
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(socketpair(AF_UNIX, type | SOCK_CLOEXEC, 0, ends), 0);
        near = DescriptorHolder(ends[0]);
        far = DescriptorHolder(ends[1]);
    }

    DescriptorHolder near;
    DescriptorHolder far;
};

class DescriptorPassingTest : public testing::Test {
protected:
    int file(const std::string& text)
    {
        const std::string path = folder_.write(std::to_string(files_.size()), text);
        files_.emplace_back(openDescriptor(path.c_str(), O_RDONLY));
        return files_.back().get();
    }

    static std::string textOf(const DescriptorHolder& file)
    {
        char bytes[64] = {};
        const auto count = readAt(file.get(), 0, bytes, sizeof bytes);
        return {bytes, count > 0 ? static_cast<std::size_t>(count) : 0};
    }

    const std::vector<std::uint8_t> message_ = {1, 2, 3};
    std::array<std::uint8_t, 8> bytes_ = {};
    test::TemporaryFolder folder_;
    std::vector<DescriptorHolder> files_;
};

class sendWithDescriptors : public DescriptorPassingTest {};
class receiveWithDescriptors : public DescriptorPassingTest {};
}  // namespace

TEST_F(sendWithDescriptors, bringsFilesAlongInTheirOrder)
{
    for (const int type : {SOCK_STREAM, SOCK_DGRAM, SOCK_SEQPACKET}) {
        const Sockets sockets(type);
        const std::vector<int> sent = {file("a"), file("b"), file("c")};
        EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, sent), 3);
        const auto received =
            pinorama::receiveWithDescriptors(sockets.near.get(), bytes_, 3, MSG_DONTWAIT);
        EXPECT_EQ(received.count, 3);
        EXPECT_TRUE(received.isWhole);
        EXPECT_EQ(bytes_[2], 3);
        ASSERT_EQ(received.descriptors.size(), 3u);
        EXPECT_EQ(textOf(received.descriptors[0]), "a");
        EXPECT_EQ(textOf(received.descriptors[2]), "c");
        EXPECT_EQ(fcntl(received.descriptors[0].get(), F_GETFD), FD_CLOEXEC);
        EXPECT_EQ(fcntl(sent[0], F_GETFD), FD_CLOEXEC) << "the caller's stays open";
    }
}

TEST_F(sendWithDescriptors, sendsAMessageWithoutAny)
{
    const Sockets sockets(SOCK_STREAM);
    EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, {}), 3);
    const auto received =
        pinorama::receiveWithDescriptors(sockets.near.get(), bytes_, 1, MSG_DONTWAIT);
    EXPECT_EQ(received.count, 3);
    EXPECT_TRUE(received.descriptors.empty());
    EXPECT_TRUE(received.isWhole);
}

TEST_F(sendWithDescriptors, saysWhatItCannotSend)
{
    Sockets sockets(SOCK_STREAM);
    const std::vector<int> tooMany(kMaxPassedDescriptors + 1, file("a"));
    EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, tooMany), -1);
    EXPECT_EQ(errno, EINVAL);
    const int none = -1;
    EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, std::span(&none, 1)), -1);
    EXPECT_EQ(errno, EBADF);
    sockets.near = DescriptorHolder();
    EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, {}), -1);
    EXPECT_EQ(errno, EPIPE);
}

TEST_F(receiveWithDescriptors, givesAsManyAsAMessageMayHave)
{
    const Sockets sockets(SOCK_STREAM);
    const std::vector<int> sent(kMaxPassedDescriptors, file("a"));
    EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, sent), 3);
    const auto received = pinorama::receiveWithDescriptors(sockets.near.get(), bytes_,
                                                           kMaxPassedDescriptors, MSG_DONTWAIT);
    EXPECT_TRUE(received.isWhole);
    EXPECT_EQ(received.descriptors.size(), kMaxPassedDescriptors);
}

// What comes in spite of that would stay open for good.
TEST_F(receiveWithDescriptors, letsNoneInBeyondTheMaximum)
{
    const Sockets sockets(SOCK_STREAM);
    const std::vector<int> sent(4, file("a"));
    const int next = dup(sent[0]);
    (void)close(next);
    for (const std::size_t max : {0u, 1u, 2u, 3u}) {
        EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, sent), 3);
        {
            const auto received =
                pinorama::receiveWithDescriptors(sockets.near.get(), bytes_, max, MSG_DONTWAIT);
            EXPECT_EQ(received.count, 3);
            EXPECT_EQ(received.descriptors.size(), max);
            EXPECT_FALSE(received.isWhole);
        }
        const int after = dup(sent[0]);
        EXPECT_EQ(after, next) << "with a maximum of " << max;
        (void)close(after);
    }
}

TEST_F(receiveWithDescriptors, leavesWhatItOnlyLooksAt)
{
    const Sockets sockets(SOCK_DGRAM);
    const int sent = file("a");
    EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, std::span(&sent, 1)), 3);
    for (const int flags : {int{MSG_PEEK}, int{MSG_PEEK}, 0}) {
        const auto received =
            pinorama::receiveWithDescriptors(sockets.near.get(), bytes_, 1, flags | MSG_DONTWAIT);
        ASSERT_EQ(received.descriptors.size(), 1u);
        EXPECT_EQ(textOf(received.descriptors[0]), "a");
    }
    EXPECT_EQ(pinorama::receiveWithDescriptors(sockets.near.get(), bytes_, 1, MSG_DONTWAIT).count,
              -1);
    EXPECT_EQ(errno, EAGAIN);
}

TEST_F(receiveWithDescriptors, takesNoPlaceOfAStandardStream)
{
    const Sockets sockets(SOCK_STREAM);
    const int sent = file("a");
    const pid_t process = forkProcess(sockets.near.get(), [this](int socket) {
        (void)close_range(STDIN_FILENO, STDERR_FILENO, 0);
        const auto received = pinorama::receiveWithDescriptors(socket, bytes_, 1);
        const bool isAbove = received.descriptors.size() == 1 &&
                             received.descriptors[0].get() > STDERR_FILENO &&
                             textOf(received.descriptors[0]) == "a";
        _exit(isAbove ? 0 : 1);
    });
    ASSERT_GT(process, 0);
    EXPECT_EQ(pinorama::sendWithDescriptors(sockets.far.get(), message_, std::span(&sent, 1)), 3);
    int status = -1;
    ASSERT_EQ(waitpid(process, &status, 0), process);
    EXPECT_TRUE(WIFEXITED(status));
    EXPECT_EQ(WEXITSTATUS(status), 0);
}

}  // namespace pinorama::tests
