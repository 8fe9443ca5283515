#include "reader/reader_service.h"

#include "reader/reader_protocol.h"
#include "reader/reader_socket.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <new>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;

constexpr auto kLongEnough = 30s;  // for what takes a moment

// A reader that serves in this process, on a thread, and the program's side of its socket.
class ServedReader {
public:
    explicit ServedReader(ReaderTasks tasks)
    {
        int ends[2];
        if (socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends) != 0) std::abort();
        mine_ = DescriptorHolder(ends[0]);
        const timeval limit = {std::chrono::seconds(kLongEnough).count(), 0};
        setsockopt(mine_.get(), SOL_SOCKET, SO_RCVTIMEO, &limit, sizeof limit);
        service_ = std::thread([theirs = ends[1], tasks = std::move(tasks)] {
            const DescriptorHolder owned(theirs);
            serveReader(theirs, tasks);
        });
    }
    ~ServedReader()
    {
        hangUp();
        service_.join();
    }
    ServedReader(const ServedReader&) = delete;
    ServedReader& operator=(const ServedReader&) = delete;

    void hangUp() { shutdown(mine_.get(), SHUT_RDWR); }

    void send(ByteView bytes, const std::vector<std::string>& paths) const
    {
        std::vector<DescriptorHolder> files;
        std::vector<int> numbers;
        for (const std::string& path : paths) {
            files.emplace_back(openDescriptor(path.c_str(), O_RDONLY));
            numbers.push_back(files.back().get());
        }
        EXPECT_EQ(sendRequest(mine_.get(), bytes, numbers), SendOutcome::sent);
    }
    void ask(ReaderTask task, std::uint32_t number, const std::vector<std::string>& paths,
             PixelSize box = {}) const
    {
        send(encodeRequest({task, number, static_cast<std::uint16_t>(paths.size()), box}), paths);
    }

    // The next `count` bytes; fewer when the reader is gone.
    std::vector<std::uint8_t> receive(std::size_t count) const
    {
        if (count == 0) return {};  // there may be nothing to come, and recv() would wait for it
        std::vector<std::uint8_t> bytes(count);
        const ssize_t received = recv(mine_.get(), bytes.data(), count, MSG_WAITALL);
        bytes.resize(received < 0 ? 0 : static_cast<std::size_t>(received));
        return bytes;
    }
    bool saysHello() const
    {
        return decodeReplyHeader(receive(kReplyHeaderSize), ReaderTask::hello, 0, 0).has_value();
    }
    // Its outcome, and its body in `body`; nothing when something else came.
    std::optional<ReplyOutcome> nextReply(ReaderTask task, std::uint32_t number,
                                          std::vector<std::uint8_t>* body) const
    {
        const auto header = decodeReplyHeader(receive(kReplyHeaderSize), task, number, 1 << 20);
        if (!header) return std::nullopt;
        *body = receive(header->bodyLength);
        return header->outcome;
    }
    std::optional<ReplyOutcome> nextOutcome(ReaderTask task, std::uint32_t number) const
    {
        std::vector<std::uint8_t> body;
        return nextReply(task, number, &body);
    }
    bool hasEnded() const { return receive(1).empty(); }

private:
    DescriptorHolder mine_;
    std::thread service_;
};

// Tells the size of a file as its latitude. Of an empty one there is nothing to tell, and one byte
// is too much to bear.
std::optional<PictureProperties> tellSize(ByteSource& source)
{
    if (source.size() == 0) return std::nullopt;
    if (source.size() == 1) throw std::bad_alloc();
    PictureProperties properties;
    properties.hasGps = true;
    properties.latitude = static_cast<double>(source.size());
    return properties;
}

// A preview that tells what was asked for: its colour is the first byte, its size the box.
std::optional<PreviewReply> tellRequest(ByteSource& source, PreviewKind kind, PixelSize box)
{
    const ByteView first = source.view(0, 1);
    if (first.empty()) return std::nullopt;
    PreviewReply reply;
    reply.image = {box.width, box.height, {}};
    reply.image.pixels.assign(static_cast<std::size_t>(box.width) * box.height,
                              0xff000000 | first[0]);
    if (kind == PreviewKind::cachedThumbnail) reply.uri = "file:///a.jpg";
    return reply;
}

// Files of so many bytes.
class Files {
public:
    std::string ofSize(std::size_t size) const
    {
        return folder_.write(std::to_string(size), std::string(size, 'x'));
    }

private:
    test::TemporaryFolder folder_;
};
}  // namespace

TEST(serveReader, repliesToEveryDescriptorOfARequestInItsOrder)
{
    const Files files;
    const ServedReader reader({tellSize, {}});
    ASSERT_TRUE(reader.saysHello());
    reader.ask(ReaderTask::properties, 41, {files.ofSize(300), files.ofSize(0), files.ofSize(20)});
    reader.ask(ReaderTask::properties, 7, {files.ofSize(5)});

    const struct {
        std::uint32_t number;
        ReplyOutcome outcome;
        double size;
    } rows[] = {{41, ReplyOutcome::found, 300},
                {42, ReplyOutcome::nothing, 0},
                {43, ReplyOutcome::found, 20},
                {7, ReplyOutcome::found, 5}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        std::vector<std::uint8_t> body;
        ASSERT_EQ(reader.nextReply(ReaderTask::properties, row.number, &body), row.outcome);
        const std::optional<PictureProperties> properties = decodeProperties(body);
        EXPECT_EQ(properties.has_value(), row.outcome == ReplyOutcome::found);
        if (properties) {
            EXPECT_EQ(properties->latitude, row.size);
        }
    }
}

TEST(serveReader, readsMoreOnlyWhereItIsAskedTo)
{
    const Files files;
    const auto nothing = [](ByteSource&) { return std::optional<PictureProperties>(); };
    const ServedReader reader({nothing, {}, tellSize});
    ASSERT_TRUE(reader.saysHello());
    reader.ask(ReaderTask::properties, 1, {files.ofSize(20)});
    EXPECT_EQ(reader.nextOutcome(ReaderTask::properties, 1), ReplyOutcome::nothing);
    reader.ask(ReaderTask::moreProperties, 2, {files.ofSize(20), files.ofSize(30)});
    EXPECT_EQ(reader.nextOutcome(ReaderTask::moreProperties, 2), ReplyOutcome::found);
    EXPECT_EQ(reader.nextOutcome(ReaderTask::moreProperties, 3), ReplyOutcome::found);

    const ServedReader other({tellSize, {}});
    ASSERT_TRUE(other.saysHello());
    other.ask(ReaderTask::moreProperties, 1, {files.ofSize(20)});
    EXPECT_EQ(other.nextOutcome(ReaderTask::moreProperties, 1), ReplyOutcome::nothing);
}

TEST(serveReader, aTaskThatThrowsComesToNothingAndTheNextIsServed)
{
    const Files files;
    const ServedReader reader({tellSize, {}});
    ASSERT_TRUE(reader.saysHello());
    reader.ask(ReaderTask::properties, 1, {files.ofSize(1), files.ofSize(2)});
    EXPECT_EQ(reader.nextOutcome(ReaderTask::properties, 1), ReplyOutcome::nothing);
    EXPECT_EQ(reader.nextOutcome(ReaderTask::properties, 2), ReplyOutcome::found);
}

TEST(serveReader, makesPreviewsOfAllKindsInTheirBox)
{
    const Files files;
    const ServedReader reader({tellSize, tellRequest});
    ASSERT_TRUE(reader.saysHello());
    for (const PreviewKind kind :
         {PreviewKind::picture, PreviewKind::morePicture, PreviewKind::cachedThumbnail}) {
        const ReaderTask task = taskOf(kind);
        EXPECT_EQ(kindOf(task), kind);
        const bool isCached = kind == PreviewKind::cachedThumbnail;
        reader.ask(task, 3, {files.ofSize(10)}, {6, 4});
        std::vector<std::uint8_t> body;
        ASSERT_EQ(reader.nextReply(task, 3, &body), ReplyOutcome::found);
        const std::optional<PreviewReply> preview = decodePreview(body, kind, {6, 4});
        ASSERT_TRUE(preview);
        EXPECT_EQ(preview->image.width, 6);
        EXPECT_EQ(preview->image.height, 4);
        EXPECT_EQ(preview->image.pixels, std::vector<std::uint32_t>(24, 0xff000000 | 'x'));
        EXPECT_EQ(preview->uri, isCached ? "file:///a.jpg" : "");
    }
}

TEST(serveReader, aPreviewThatCannotBeMadeComesToNothing)
{
    const Files files;
    const ServedReader reader({tellSize, tellRequest});
    ASSERT_TRUE(reader.saysHello());
    reader.ask(ReaderTask::picturePreview, 1, {files.ofSize(0)}, {6, 4});
    EXPECT_EQ(reader.nextOutcome(ReaderTask::picturePreview, 1), ReplyOutcome::nothing);
}

TEST(serveReader, aReaderThatMakesNoPreviewsSaysThatThereIsNone)
{
    const Files files;
    const ServedReader reader({tellSize, {}});
    ASSERT_TRUE(reader.saysHello());
    reader.ask(ReaderTask::picturePreview, 1, {files.ofSize(10)}, {6, 4});
    EXPECT_EQ(reader.nextOutcome(ReaderTask::picturePreview, 1), ReplyOutcome::nothing);
}

TEST(serveReader, aPreviewGivesWayToTheNextRequest)
{
    const Files files;
    std::atomic<bool> isAtWork = false;
    const auto readOnAndOn = [&isAtWork](ByteSource& source, PreviewKind,
                                         PixelSize) -> std::optional<PreviewReply> {
        const auto end = std::chrono::steady_clock::now() + kLongEnough;
        // Every piece is another read: each window is as long as a view can be.
        for (std::uint64_t piece = 1; std::chrono::steady_clock::now() < end; piece++) {
            if (source.view(piece % 3 * kMaxViewLength, kMaxViewLength).empty())
                return std::nullopt;
            isAtWork = true;
        }
        return PreviewReply{{1, 1, {0xff000000}}, false, {}, {}};
    };
    const ServedReader reader({tellSize, readOnAndOn});
    ASSERT_TRUE(reader.saysHello());
    reader.ask(ReaderTask::picturePreview, 1, {files.ofSize(3 * kMaxViewLength)}, {6, 4});
    const auto end = std::chrono::steady_clock::now() + kLongEnough;
    while (!isAtWork && std::chrono::steady_clock::now() < end) std::this_thread::yield();
    reader.ask(ReaderTask::properties, 2, {files.ofSize(20)});
    EXPECT_EQ(reader.nextOutcome(ReaderTask::picturePreview, 1), ReplyOutcome::interrupted);
    EXPECT_EQ(reader.nextOutcome(ReaderTask::properties, 2), ReplyOutcome::found);
}

TEST(serveReader, endsAtAMalformedRequest)
{
    const Files files;
    const auto twoFiles = encodeRequest({ReaderTask::properties, 1, 2, {}});
    const std::vector<std::uint8_t> noise(kRequestSize, 0xee);
    const std::vector<std::uint8_t> half(twoFiles.begin(), twoFiles.begin() + kRequestSize / 2);
    const struct {
        const char* name;
        ByteView bytes;
        std::vector<std::string> paths;
    } rows[] = {
        {"noise", noise, {files.ofSize(20)}},
        {"fewer descriptors than it counts", twoFiles, {files.ofSize(20)}},
        {"more descriptors than it counts",
         twoFiles,
         {files.ofSize(20), files.ofSize(20), files.ofSize(20)}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::atomic<int> calls = 0;
        const ServedReader reader({[&calls](ByteSource& source) {
                                       calls++;
                                       return tellSize(source);
                                   },
                                   {}});
        ASSERT_TRUE(reader.saysHello());
        reader.send(row.bytes, row.paths);
        EXPECT_TRUE(reader.hasEnded());
        EXPECT_EQ(calls, 0);
    }
    ServedReader reader({tellSize, {}});
    ASSERT_TRUE(reader.saysHello());
    reader.send(half, {files.ofSize(20)});
    reader.hangUp();  // the destructor waits for its end
}

TEST(serveReader, endsWhenNobodyListensToItsFirstWord)
{
    int ends[2];
    ASSERT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
    const DescriptorHolder theirs(ends[1]);
    close(ends[0]);
    serveReader(theirs.get(), {tellSize, {}});
    SUCCEED();  // it came back, and no signal ended the test
}
