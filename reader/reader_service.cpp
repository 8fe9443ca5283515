#include "reader/reader_service.h"

#include "base/descriptor.h"
#include "base/descriptor_box.h"
#include "reader/reader_protocol.h"
#include "reader/reader_socket.h"
#include "reader/stream_byte_source.h"

#include <array>
#include <chrono>
#include <exception>
#include <memory>
#include <optional>
#include <vector>

#include <unistd.h>

namespace pinorama {
namespace {

constexpr std::size_t kMaxBatchSize = 32 * 1024;
constexpr std::chrono::milliseconds kMaxWait(5);

std::uint64_t sizeOf(int descriptor)
{
    const off_t end = lseek(descriptor, 0, SEEK_END);
    return end < 0 ? 0 : static_cast<std::uint64_t>(end);
}

// Replies to one request are sent together, so that the other side wakes up once; but none waits
// for another one longer than a moment.
class Replies {
public:
    explicit Replies(int socket) : socket_(socket) {}

    // False when the other side is gone.
    bool add(const ReplyHeader& header, const std::vector<std::uint8_t>& body)
    {
        const auto headerBytes = encodeReplyHeader(header);
        bytes_.insert(bytes_.end(), headerBytes.begin(), headerBytes.end());
        bytes_.insert(bytes_.end(), body.begin(), body.end());
        const bool isDue = bytes_.size() >= kMaxBatchSize ||
                           std::chrono::steady_clock::now() - lastSent_ >= kMaxWait;
        return !isDue || send();
    }

    bool send()
    {
        const bool isSent = sendAll(socket_, bytes_);
        bytes_.clear();
        lastSent_ = std::chrono::steady_clock::now();
        return isSent;
    }

private:
    int socket_;
    std::vector<std::uint8_t> bytes_;
    std::chrono::steady_clock::time_point lastSent_ = std::chrono::steady_clock::now();
};

// The outcome of a task.
struct Result {
    ReplyOutcome outcome = ReplyOutcome::nothing;
    std::vector<std::uint8_t> body;
};

// Holds the source of one picture after the other. It stays off the stack, where the compiler's
// protection would touch each page of its buffers, which most pictures fill to a small part.
using SourceHolder = std::optional<FileByteSource>;

Result propertiesOf(int descriptor, const ReaderTasks::PropertyReader& read, SourceHolder* source)
{
    if (!read) return {};
    source->emplace(descriptor, sizeOf(descriptor));
    const std::optional<PictureProperties> properties = read(**source);
    if (!properties) return {};
    return {ReplyOutcome::found, encodeProperties(*properties)};
}

Result previewOf(int socket, int descriptor, const ReaderRequest& request, const ReaderTasks& tasks)
{
    if (!tasks.makePreview) return {};
    StreamByteSource source(descriptor, sizeOf(descriptor),
                            [socket] { return !isReadable(socket); });
    const std::optional<PreviewReply> preview =
        tasks.makePreview(source, kindOf(request.task), request.box);
    if (source.wasStopped()) return {ReplyOutcome::interrupted, {}};
    if (!preview) return {};
    return {ReplyOutcome::found, encodePreview(*preview)};
}

Result resultOf(int socket, int descriptor, const ReaderRequest& request, const ReaderTasks& tasks,
                SourceHolder* source)
try {
    if (asksForProperties(request.task)) {
        const bool isMore = request.task == ReaderTask::moreProperties;
        return propertiesOf(descriptor, isMore ? tasks.readMoreProperties : tasks.readProperties,
                            source);
    }
    return previewOf(socket, descriptor, request, tasks);
} catch (const std::exception&) {
    return {};  // out of memory, most likely, which has been released again
}

bool serveOne(int socket, const ReaderTasks& tasks, SourceHolder* source)
{
    std::array<std::uint8_t, kRequestSize> bytes;
    std::vector<DescriptorHolder> descriptors;
    if (!receiveRequest(socket, bytes, &descriptors)) return false;
    const std::optional<ReaderRequest> request = decodeRequest(bytes);
    if (!request || descriptors.size() != request->descriptorCount) return false;
    if (request->task == ReaderTask::giveUp) return true;  // replied to by now

    std::uint32_t number = request->number;
    DescriptorHolder unboxed;  // closed after its reply is sent, because its disk may not answer
    Replies replies(socket);
    for (DescriptorHolder& descriptor : descriptors) {
        unboxed = unboxDescriptor(descriptor.get());
        const int file = unboxed ? unboxed.get() : descriptor.get();
        const Result result = resultOf(socket, file, *request, tasks, source);
        descriptor = DescriptorHolder();
        const ReplyHeader header = {request->task, result.outcome, number,
                                    static_cast<std::uint32_t>(result.body.size())};
        if (!replies.add(header, result.body)) return false;
        number++;
    }
    return replies.send();
}
}  // namespace

void serveReader(int socket, const ReaderTasks& tasks)
{
    if (!sendAll(socket, encodeReplyHeader({ReaderTask::hello, ReplyOutcome::found, 0, 0}))) {
        return;
    }
    const auto source = std::make_unique_for_overwrite<SourceHolder>();
    while (serveOne(socket, tasks, source.get())) {
    }
}

void servePicture(int socket, const ReaderTasks& tasks)
{
    const auto source = std::make_unique_for_overwrite<SourceHolder>();
    (void)serveOne(socket, tasks, source.get());
}

}  // namespace pinorama
