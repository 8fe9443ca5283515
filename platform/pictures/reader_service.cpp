#include "platform/pictures/reader_service.h"

#include "platform/pictures/reader_protocol.h"
#include "platform/pictures/reader_socket.h"
#include "platform/pictures/stream_byte_source.h"

#include <exception>
#include <vector>

#include <unistd.h>

namespace {
using namespace platform;

std::uint64_t sizeOf(int descriptor)
{
    const off_t end = lseek(descriptor, 0, SEEK_END);
    return end < 0 ? 0 : static_cast<std::uint64_t>(end);
}

bool answer(int socket, const ReaderAnswerHead& head, const std::vector<std::uint8_t>& body)
{
    // In one piece, so that the other side wakes up once.
    const auto headBytes = encodeAnswerHead(head);
    std::vector<std::uint8_t> bytes(headBytes.begin(), headBytes.end());
    bytes.insert(bytes.end(), body.begin(), body.end());
    return sendAnswer(socket, bytes);
}

// What a task came to.
struct Result {
    ReaderOutcome outcome = ReaderOutcome::nothing;
    std::vector<std::uint8_t> body;
};

Result propertiesOf(int descriptor, const ReaderTasks& tasks)
{
    FileByteSource source(descriptor, sizeOf(descriptor));
    const std::optional<PictureProperties> properties = tasks.readProperties(source);
    if (!properties) return {};
    return {ReaderOutcome::found, encodeProperties(*properties)};
}

Result previewOf(int socket, int descriptor, const ReaderRequest& request, const ReaderTasks& tasks)
{
    if (!tasks.makePreview) return {};
    StreamByteSource source(descriptor, sizeOf(descriptor),
                            [socket] { return !isReadable(socket); });
    const PreviewKind kind = request.task == ReaderTask::cachedThumbnail
                                 ? PreviewKind::cachedThumbnail
                                 : PreviewKind::picture;
    const std::optional<PreviewAnswer> preview = tasks.makePreview(source, kind, request.box);
    if (source.wasStopped()) return {ReaderOutcome::interrupted, {}};
    if (!preview) return {};
    return {ReaderOutcome::found, encodePreview(*preview)};
}

Result resultOf(int socket, int descriptor, const ReaderRequest& request, const ReaderTasks& tasks)
try {
    if (request.task == ReaderTask::properties) return propertiesOf(descriptor, tasks);
    return previewOf(socket, descriptor, request, tasks);
} catch (const std::exception&) {
    return {};  // out of memory, most likely; it has been given back by now
}

bool serveOne(int socket, const ReaderTasks& tasks)
{
    std::array<std::uint8_t, kRequestSize> bytes;
    std::vector<DescriptorHolder> descriptors;
    if (!receiveRequest(socket, bytes, &descriptors)) return false;
    const std::optional<ReaderRequest> request = decodeRequest(bytes);
    if (!request || descriptors.size() != request->descriptorCount) return false;

    std::uint32_t number = request->number;
    for (DescriptorHolder& descriptor : descriptors) {
        const Result result = resultOf(socket, descriptor.get(), *request, tasks);
        descriptor = DescriptorHolder();
        const ReaderAnswerHead head = {request->task, result.outcome, number,
                                       static_cast<std::uint32_t>(result.body.size())};
        if (!answer(socket, head, result.body)) return false;
        number++;
    }
    return true;
}
}  // namespace

void platform::serveReader(int socket, const ReaderTasks& tasks)
{
    if (!answer(socket, {ReaderTask::hello, ReaderOutcome::found, 0, 0}, {})) return;
    while (serveOne(socket, tasks)) {
    }
}
