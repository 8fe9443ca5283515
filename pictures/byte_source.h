// Bounded access to the bytes of a picture, wherever they are. The bytes may come from anywhere and
// say anything, so every request is checked against the size, and what a file claims about itself
// never decides how much memory is taken. Offsets and lengths are bytes, computed in 64 bits.

#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace pinorama {

using ByteView = std::span<const std::uint8_t>;

// The longest view that can be asked for: a JPEG segment at its largest fits into it.
constexpr std::size_t kMaxViewLength = 65536;

// The bytes of one picture. Two windows onto them are held: the start of the file, which stays, and
// one that follows the requests.
class ByteSource {
public:
    virtual ~ByteSource() = default;
    ByteSource(const ByteSource&) = delete;
    ByteSource& operator=(const ByteSource&) = delete;

    std::uint64_t size() const { return size_; }

    // The bytes from `offset` on: all `length` of them, or an empty view when they lie outside the
    // picture, are more than kMaxViewLength or cannot be read. Borrowed until the next call.
    ByteView view(std::uint64_t offset, std::size_t length)
    {
        if (offset > size_ || length > size_ - offset || length > kMaxViewLength) return {};
        if (const std::uint8_t* bytes = start_.find(offset, length)) return {bytes, length};
        if (const std::uint8_t* bytes = moving_.find(offset, length)) return {bytes, length};
        return load(offset, length);
    }

protected:
    struct Window {
        std::uint64_t start = 0;
        std::size_t length = 0;
        const std::uint8_t* bytes = nullptr;

        const std::uint8_t* find(std::uint64_t offset, std::size_t wanted) const
        {
            if (offset < start || offset - start > length) return nullptr;
            const auto skipped = static_cast<std::size_t>(offset - start);
            return wanted > length - skipped ? nullptr : bytes + skipped;
        }
    };

    explicit ByteSource(std::uint64_t size) : size_(size) {}

    // Answers a request that is inside the size and outside both windows.
    virtual ByteView load(std::uint64_t offset, std::size_t length) = 0;

    const std::uint64_t size_;
    Window start_;
    Window moving_;
};

// Bytes that are in memory already; they have to outlive the source.
class MemoryByteSource final : public ByteSource {
public:
    explicit MemoryByteSource(ByteView bytes);

private:
    ByteView load(std::uint64_t offset, std::size_t length) override;
};

// The bytes of an open file. It is read and never mapped: a file that somebody cuts short meanwhile
// gives an empty view and not a signal. The first 64 KiB come with one read, which for most
// pictures is the only one; after kMaxReads reads nothing more is read.
//
// An object is 128 KiB large, so that reading allocates nothing.
class FileByteSource final : public ByteSource {
public:
    // A picture whose metadata is spread over more reads than this is not looked through any
    // further, so that a file made to keep the reader busy costs some milliseconds and no more.
    static constexpr int kMaxReads = 256;

    // `descriptor` is open for reading and stays the caller's; its file position is left alone.
    // `size` is the size of the file when it was opened.
    FileByteSource(int descriptor, std::uint64_t size);

    // What reading has cost so far: requests to the system.
    int readCount() const { return readCount_; }

private:
    ByteView load(std::uint64_t offset, std::size_t length) override;
    std::size_t readInto(std::span<std::uint8_t> buffer, std::uint64_t offset);

    const int descriptor_;
    int readCount_ = 0;
    std::array<std::uint8_t, kMaxViewLength> startBytes_;
    std::array<std::uint8_t, kMaxViewLength> movingBytes_;
};

// A part of a picture that offsets count from and that no offset may leave: a segment, a directory
// block, a resource. A plain value; the source has to outlive it. Without a source it is empty.
class ByteBlock {
public:
    ByteBlock() = default;

    // The whole picture.
    explicit ByteBlock(ByteSource& source) : source_(&source), length_(source.size()) {}

    std::uint64_t length() const { return length_; }
    bool isEmpty() const { return length_ == 0; }

    // The bytes from `offset` on, cut at the end of this block; empty when `offset` is outside.
    ByteBlock part(std::uint64_t offset, std::uint64_t length) const;
    ByteBlock from(std::uint64_t offset) const { return part(offset, length_); }

    // All `length` bytes from `offset` on, or an empty view as for ByteSource::view. Borrowed until
    // the next call on any block of the same source.
    ByteView view(std::uint64_t offset, std::size_t length) const
    {
        if (offset > length_ || length > length_ - offset) return {};
        return source_ == nullptr ? ByteView{} : source_->view(start_ + offset, length);
    }

    // True when the block begins with `bytes`.
    bool beginsWith(ByteView bytes) const;

private:
    ByteSource* source_ = nullptr;
    std::uint64_t start_ = 0;
    std::uint64_t length_ = 0;
};

// The bytes of a block; none when it is longer than `maxLength` or a part of it cannot be read.
std::vector<std::uint8_t> copyOf(const ByteBlock& block, std::uint64_t maxLength);

}  // namespace pinorama
