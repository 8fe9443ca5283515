// A picture's file, open for reading: a regular file and nothing else, and opened without waiting.

#pragma once

#include <cstdint>
#include <string>

namespace pinorama {

class PictureFile {
public:
    // Opens the file at `path`, following symbolic links. A pipe, a device or a folder of that name
    // does not count as open, and is not touched where a link leads to it.
    explicit PictureFile(const std::string& path);
    ~PictureFile();
    PictureFile(const PictureFile&) = delete;
    PictureFile& operator=(const PictureFile&) = delete;

    bool isOpen() const { return descriptor_ >= 0; }
    int descriptor() const { return descriptor_; }  // -1 when not open
    std::uint64_t size() const { return size_; }    // bytes, when it was opened

private:
    int descriptor_;
    std::uint64_t size_ = 0;
};

}  // namespace pinorama
