// The reader itself, asked by somebody who may send anything. It replies or it ends; it never goes
// wrong, and nothing that it is handed is waited for.

#include "reader/reader_socket.h"
#include "reader/sandboxed_properties.h"
#include "tests/reader/reader_fixture.h"

#include <gtest/gtest.h>

#include <array>
#include <fstream>
#include <random>
#include <string>

#include <fcntl.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using test::statusLine;
using Pictures = test::ReaderPictures;

constexpr int kPatience = 30'000;  // milliseconds

// A reader without the client that is careful with it.
class Reader {
public:
    explicit Reader(ReaderProcess process = test::realReader()()) : process_(std::move(process))
    {
        EXPECT_EQ(receive(kReplyHeaderSize).size(), kReplyHeaderSize) << "its first word";
    }

    pid_t id() const { return process_.id(); }

    SendOutcome send(const ReaderRequest& request, std::span<const int> descriptors)
    {
        return sendRequest(process_.socket(), encodeRequest(request), descriptors);
    }
    void sendBytes(ByteView bytes) { (void)sendAll(process_.socket(), bytes); }
    void endSending() { (void)shutdown(process_.socket(), SHUT_WR); }

    // Up to `count` bytes; fewer when the reader ends or is silent for too long.
    std::vector<std::uint8_t> receive(std::size_t count)
    {
        std::vector<std::uint8_t> bytes(count);
        std::size_t done = 0;
        while (done < count) {
            pollfd state = {process_.socket(), POLLIN, 0};
            if (poll(&state, 1, kPatience) != 1) break;
            const auto more = receiveBytes(process_.socket(), std::span(bytes).subspan(done));
            if (more < 0) break;
            done += static_cast<std::size_t>(more);
        }
        bytes.resize(done);
        return bytes;
    }

    // True when it ends by itself, with nothing more to say and not by a signal.
    bool ends()
    {
        if (!receive(1).empty()) return false;
        siginfo_t info = {};
        for (int i = 0; i < kPatience; i++) {
            const auto process = static_cast<id_t>(process_.id());
            if (waitid(P_PID, process, &info, WEXITED | WNOHANG | WNOWAIT) != 0) return false;
            if (info.si_pid != 0) return info.si_code == CLD_EXITED;
            usleep(1000);
        }
        return false;
    }

    // What it replies about one descriptor.
    std::optional<ReplyOutcome> outcomeOf(ReaderTask task, int descriptor)
    {
        const PixelSize box = task == ReaderTask::properties ? PixelSize{} : test::kBox;
        const ReaderRequest request = {task, ++number_, 1, box};
        if (send(request, std::span(&descriptor, 1)) != SendOutcome::sent) return std::nullopt;
        const auto header =
            decodeReplyHeader(receive(kReplyHeaderSize), task, number_, maxBodyLength(task, box));
        if (!header || receive(header->bodyLength).size() != header->bodyLength)
            return std::nullopt;
        return header->outcome;
    }

private:
    ReaderProcess process_;
    std::uint32_t number_ = 0;
};

TEST(pinoramaReader, endsWithABadRequest)
{
    const Pictures pictures;
    const PictureFile good(pictures.good());
    const std::vector<int> three(3, good.descriptor());
    const ReaderRequest rows[] = {
        {ReaderTask::hello, 1, 3, {}},
        {static_cast<ReaderTask>(77), 1, 3, {}},
        {ReaderTask::properties, 1, 2, {}},  // one descriptor more than said
        {ReaderTask::properties, 1, 4, {}},  // one less
        {ReaderTask::properties, 1, 0xffff, {}},
        {ReaderTask::properties, 1, 3, {1, 1}},
        {ReaderTask::picturePreview, 1, 3, test::kBox},
        {ReaderTask::picturePreview, 1, 1, test::kBox},  // two more than said
    };
    for (const ReaderRequest& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.task));
        Reader reader;
        ASSERT_EQ(reader.send(row, three), SendOutcome::sent);
        EXPECT_TRUE(reader.ends());
    }
    const PixelSize boxes[] = {{0, 64}, {64, 0}, {-1, 64}, {1 << 20, 1 << 20}, {0x7fffffff, 1}};
    for (const PixelSize box : boxes) {
        Reader reader;
        const ReaderRequest request = {ReaderTask::picturePreview, 1, 1, box};
        ASSERT_EQ(reader.send(request, std::span(three).first(1)), SendOutcome::sent);
        EXPECT_TRUE(reader.ends());
    }
}

TEST(pinoramaReader, endsWithAnyBytes)
{
    std::mt19937 random(20240607);
    for (int i = 0; i < 20; i++) {
        Reader reader;
        std::vector<std::uint8_t> bytes(1 + random() % 3000);
        for (std::uint8_t& byte : bytes) byte = static_cast<std::uint8_t>(random());
        reader.sendBytes(bytes);
        reader.endSending();
        EXPECT_TRUE(reader.ends());
    }
}

TEST(pinoramaReader, endsWithItsClient)
{
    const auto request = encodeRequest({ReaderTask::properties, 1, 1, {}});
    for (const std::size_t length : {std::size_t{0}, std::size_t{1}, request.size() - 1}) {
        Reader reader;
        reader.sendBytes(ByteView(request).first(length));
        reader.endSending();
        EXPECT_TRUE(reader.ends());
    }
}

TEST(pinoramaReader, findsNothingInAFileThatIsNoPictureAndGoesOn)
{
    const Pictures pictures;
    int ends[2];
    ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
    int sockets[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, sockets), 0);
    const std::string written = pictures.file("written.jpg", "");
    const struct {
        const char* name;
        DescriptorHolder descriptor;
    } rows[] = {
        {"a pipe that nobody writes to", DescriptorHolder(ends[0])},
        {"the other end of it", DescriptorHolder(ends[1])},
        {"a socket", DescriptorHolder(sockets[0])},
        {"the other socket", DescriptorHolder(sockets[1])},
        {"a folder", DescriptorHolder(openDescriptor("/", O_RDONLY | O_DIRECTORY))},
        {"a path only", DescriptorHolder(openDescriptor("/dev/null", O_PATH))},
        {"an endless device", DescriptorHolder(openDescriptor("/dev/zero", O_RDONLY))},
        {"a file for writing", DescriptorHolder(openDescriptor(written.c_str(), O_WRONLY))},
        {"a file of the kernel", DescriptorHolder(openDescriptor("/proc/self/mem", O_RDONLY))},
        {"an event queue", DescriptorHolder(epoll_create1(EPOLL_CLOEXEC))},
    };
    Reader reader;
    const PictureFile good(pictures.good());
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        ASSERT_TRUE(row.descriptor);
        for (const ReaderTask task :
             {ReaderTask::properties, ReaderTask::picturePreview, ReaderTask::cachedThumbnail}) {
            EXPECT_EQ(reader.outcomeOf(task, row.descriptor.get()), ReplyOutcome::nothing);
        }
        EXPECT_EQ(reader.outcomeOf(ReaderTask::properties, good.descriptor()), ReplyOutcome::found);
    }
}

TEST(pinoramaReader, isSandboxedBeforeItsFirstWord)
{
    Reader program;
    Reader copy(forkPropertyReader());  // that of pinorama-info
    for (const Reader* reader : {&program, &copy}) {
        EXPECT_EQ(statusLine(reader->id(), "NoNewPrivs"), "1");
        EXPECT_EQ(statusLine(reader->id(), "Seccomp"), "2") << "a filter";
        EXPECT_EQ(statusLine(reader->id(), "Threads"), "1");
    }
}
}  // namespace
