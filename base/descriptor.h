// Open files as the system hands them out: whole transfers in spite of interruptions, descriptors
// that never take the place of a standard stream, and the one place where an errno becomes a
// status. Offsets and counts are bytes from the start of the file.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

#include <sys/types.h>

namespace pinorama {

// The status of an errno; 0 gives 0. What has no number of its own is kErrInputOutput.
std::int32_t statusOfErrno(int error);

// Opens `path` with the flags of open(2). The descriptor is above 2, so that 0 can mean none even
// in a program that was started without standard streams; it is closed in programs started later,
// never becomes the controlling terminal, and opening a pipe waits for nobody.
//
// Returns -1 with errno set on failure.
[[nodiscard]] int openDescriptor(const char* path, int flags, mode_t mode = 0666);

// Moves a descriptor that stands where a standard stream belongs to a higher number, closed in
// programs started later; others stay as they are. Returns -1 with errno set on failure, when the
// descriptor is closed.
[[nodiscard]] int aboveStandardStreams(int descriptor);

// Reads `count` bytes at `offset`, or up to the end of the file when that comes first.
//
// Returns the bytes read, or -1 with errno set.
std::int64_t readAt(int descriptor, std::int64_t offset, void* buffer, std::size_t count);

// Writes `count` bytes at `offset`.
//
// Returns the bytes written, which are fewer than `count` only when the system takes no more
// without saying why, or -1 with errno set; then some of the bytes may have been written all the
// same.
std::int64_t writeAt(int descriptor, std::int64_t offset, const void* buffer, std::size_t count);

// What writing does when nobody takes the bytes out of a full pipe.
enum class FullPipe : std::uint8_t {
    fails,  // with EAGAIN, for programs that must not stand still
    waits,  // however long that takes
};

// Writes all bytes, where the file stands. False with errno set; then some of them may have been
// written all the same.
bool writeAll(int descriptor, std::string_view bytes, FullPipe fullPipe = FullPipe::fails);

// Sends all bytes over a stream socket that waits while the other side does not read. False with
// errno set; a socket whose other side is gone gives EPIPE and no signal.
bool sendAll(int socket, std::span<const std::uint8_t> bytes);

// Appends `count` bytes at the end that the file has at that moment, wherever other writers have
// moved it. Two processes that append to one file never overwrite each other's bytes.
//
// Returns as writeAt does.
std::int64_t appendTo(int descriptor, const void* buffer, std::size_t count);

// Brings what was written to the disk. True when the system says that it is there.
bool flushDescriptor(int descriptor);

// Owns one open descriptor; what is not above 0 counts as none.
class DescriptorHolder {
public:
    explicit DescriptorHolder(int descriptor = -1) : descriptor_(descriptor) {}
    DescriptorHolder(DescriptorHolder&& other) noexcept : descriptor_(other.take()) {}
    DescriptorHolder& operator=(DescriptorHolder&& other) noexcept
    {
        std::swap(descriptor_, other.descriptor_);
        return *this;
    }
    DescriptorHolder(const DescriptorHolder&) = delete;
    DescriptorHolder& operator=(const DescriptorHolder&) = delete;
    ~DescriptorHolder();

    explicit operator bool() const { return descriptor_ > 0; }
    int get() const { return descriptor_; }

    // The variable itself, for functions that fill it.
    int* slot() { return &descriptor_; }

    // Hands the descriptor over to the caller.
    [[nodiscard]] int take() { return std::exchange(descriptor_, -1); }

private:
    int descriptor_;
};

}  // namespace pinorama
