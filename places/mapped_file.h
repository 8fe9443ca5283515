// A file whose bytes are read where the kernel keeps them.

#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>

namespace pinorama {

class MappedFile {
public:
    // Maps a regular file of at most `limit` bytes for reading. Whoever may write the file must
    // replace it, as package managers do: shortening it in place ends the programs that map it.
    MappedFile(const std::string& path, std::size_t limit);
    MappedFile(const MappedFile&) = delete;
    MappedFile& operator=(const MappedFile&) = delete;
    ~MappedFile();

    // Empty if the file cannot be opened or mapped, is no regular file, or is empty or too large.
    std::span<const std::uint8_t> bytes() const
    {
        return {static_cast<const std::uint8_t*>(start_), size_};
    }

    // Why it cannot be opened or mapped: an errno; 0 for everything else.
    int error() const { return error_; }

private:
    int error_ = 0;
    void* start_ = nullptr;
    std::size_t size_ = 0;
};

}  // namespace pinorama
