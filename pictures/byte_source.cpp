#include "pictures/byte_source.h"

#include <algorithm>
#include <cerrno>

#include <unistd.h>

namespace pinorama {
namespace {
// A later window holds what usually stands together (a directory and its values); a longer request
// makes it longer.
constexpr std::size_t kUsualWindow = 16384;

// Values are often written in front of their directory, so a window starts a little earlier.
constexpr std::uint64_t kWindowAlignment = 4096;
}  // namespace

MemoryByteSource::MemoryByteSource(ByteView bytes) : ByteSource(bytes.size())
{
    start_ = {0, bytes.size(), bytes.data()};
}

ByteView MemoryByteSource::load(std::uint64_t, std::size_t)
{
    return {};  // the start is everything
}

// The buffers are filled by reading and deliberately not before.
FileByteSource::FileByteSource(int descriptor, std::uint64_t size)
    : ByteSource(size), descriptor_(descriptor)
{
}

ByteView FileByteSource::load(std::uint64_t offset, std::size_t length)
{
    if (start_.bytes == nullptr) {
        start_ = {0, readInto(startBytes_, 0), startBytes_.data()};
        if (const std::uint8_t* bytes = start_.find(offset, length)) return {bytes, length};
    }

    const std::uint64_t aligned = offset - offset % kWindowAlignment;
    const bool fits = offset - aligned + length <= kMaxViewLength;
    const std::uint64_t start = fits ? aligned : offset;
    const std::size_t needed = static_cast<std::size_t>(offset - start) + length;
    const std::span<std::uint8_t> buffer(movingBytes_.data(), std::max(needed, kUsualWindow));
    moving_ = {start, readInto(buffer, start), movingBytes_.data()};
    const std::uint8_t* bytes = moving_.find(offset, length);
    return bytes == nullptr ? ByteView{} : ByteView{bytes, length};
}

// Returns the number of bytes read, which is less than asked for at the end of the file.
std::size_t FileByteSource::readInto(std::span<std::uint8_t> buffer, std::uint64_t offset)
{
    // Not asking beyond the known end saves the read that would only report it.
    const auto wanted =
        static_cast<std::size_t>(std::min<std::uint64_t>(buffer.size(), size_ - offset));
    std::size_t done = 0;
    while (done < wanted && readCount_ < kMaxReads) {
        ++readCount_;
        const ssize_t count = pread(descriptor_, buffer.data() + done, wanted - done,
                                    static_cast<off_t>(offset + done));
        if (count < 0 && errno == EINTR) continue;
        if (count <= 0) break;
        done += static_cast<std::size_t>(count);
    }
    return done;
}

ByteBlock ByteBlock::part(std::uint64_t offset, std::uint64_t length) const
{
    ByteBlock result;
    if (offset >= length_) return result;
    result.source_ = source_;
    result.start_ = start_ + offset;
    result.length_ = std::min(length, length_ - offset);
    return result;
}

bool ByteBlock::beginsWith(ByteView bytes) const
{
    const ByteView start = view(0, bytes.size());
    return start.size() == bytes.size() && std::equal(start.begin(), start.end(), bytes.begin());
}

std::vector<std::uint8_t> copyOf(const ByteBlock& block, std::uint64_t maxLength)
{
    std::vector<std::uint8_t> bytes;
    if (block.length() > maxLength) return bytes;
    bytes.reserve(static_cast<std::size_t>(block.length()));
    while (bytes.size() < block.length()) {
        const auto wanted = std::min<std::uint64_t>(block.length() - bytes.size(), kMaxViewLength);
        const ByteView part = block.view(bytes.size(), static_cast<std::size_t>(wanted));
        if (part.empty()) return {};
        bytes.insert(bytes.end(), part.begin(), part.end());
    }
    return bytes;
}

}  // namespace pinorama
