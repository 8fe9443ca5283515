// Decodes replies of the reader as the window does: the header, and the rest as a body of each
// kind.

#include "reader/reader_protocol.h"

#include <algorithm>
#include <cmath>

using namespace pinorama;

namespace {

constexpr PixelSize kBox = {64, 64};

void readHeader(ByteView bytes, ReaderTask task)
{
    const std::size_t maxLength = maxBodyLength(task, kBox);
    const auto header = decodeReplyHeader(bytes, task, 1, maxLength);
    if (header && header->bodyLength > maxLength) __builtin_trap();
}

void readProperties(ByteView body)
{
    const auto properties = decodeProperties(body);
    if (!properties) return;
    const std::vector<std::uint8_t> again = encodeProperties(*properties);
    if (!std::equal(again.begin(), again.end(), body.begin(), body.end())) __builtin_trap();
    if (properties->latitude && !std::isfinite(*properties->latitude)) __builtin_trap();
}

void readPreview(ByteView body, PreviewKind kind)
{
    const auto preview = decodePreview(body, kind, kBox);
    if (!preview) return;
    const PixelImage& image = preview->image;
    if (image.width > kBox.width || image.height > kBox.height) __builtin_trap();
    if (image.pixels.size() != static_cast<std::size_t>(image.width) * image.height) {
        __builtin_trap();
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const ByteView bytes(data, size);
    const ByteView header = bytes.first(std::min(size, kReplyHeaderSize));
    for (const ReaderTask task :
         {ReaderTask::hello, ReaderTask::properties, ReaderTask::picturePreview,
          ReaderTask::morePreview, ReaderTask::cachedThumbnail}) {
        readHeader(header, task);
    }
    readProperties(bytes);
    readPreview(bytes, PreviewKind::picture);
    readPreview(bytes, PreviewKind::morePicture);
    readPreview(bytes, PreviewKind::cachedThumbnail);
    return 0;
}
