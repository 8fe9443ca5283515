#include "reader/stream_byte_source.h"

#include "base/descriptor.h"

#include <algorithm>
#include <utility>

namespace pinorama {

// The buffers are filled by reading and deliberately not before.
StreamByteSource::StreamByteSource(int descriptor, std::uint64_t size,
                                   std::function<bool()> mayGoOn)
    : ByteSource(size), descriptor_(descriptor), mayGoOn_(std::move(mayGoOn))
{
}

ByteView StreamByteSource::load(std::uint64_t offset, std::size_t length)
{
    if (length > kMaxViewLength) return {};
    if (wasStopped_ || (mayGoOn_ && !mayGoOn_())) {
        wasStopped_ = true;
        start_ = moving_ = {};
        return {};
    }
    const bool isStart = offset == 0;
    auto& buffer = isStart ? startBytes_ : movingBytes_;
    Window& window = isStart ? start_ : moving_;
    const std::uint64_t wanted = std::min<std::uint64_t>(buffer.size(), size_ - offset);
    const std::int64_t count = readAt(descriptor_, static_cast<std::int64_t>(offset), buffer.data(),
                                      static_cast<std::size_t>(wanted));
    window = {offset, count < 0 ? 0 : static_cast<std::size_t>(count), buffer.data()};
    const std::uint8_t* bytes = window.find(offset, length);
    return bytes == nullptr ? ByteView{} : ByteView{bytes, length};
}

}  // namespace pinorama
