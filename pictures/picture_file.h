// A picture's file, open for reading: a regular file and nothing else, and opened without waiting.
// Whoever shows a picture opens it once, and has its facts, its properties and its preview from
// that one descriptor, so that they are all of the same file even when the name is given to
// another.

#pragma once

#include <cstdint>
#include <string>

#include "base/descriptor.h"
#include "base/file_attributes.h"

namespace pinorama {

class PictureFile {
public:
    // No file.
    PictureFile() = default;

    // Opens the file at `path`, following symbolic links. A pipe, a device or a folder of that name
    // does not count as open, and is not touched where a link leads to it.
    explicit PictureFile(const std::string& path);

    bool isOpen() const { return static_cast<bool>(descriptor_); }
    int descriptor() const { return descriptor_.get(); }  // -1 when not open

    // As they were when the file was opened; zero when it is not open.
    const FileAttributes& attributes() const { return attributes_; }
    std::uint64_t size() const { return attributes_.size; }  // bytes

private:
    DescriptorHolder descriptor_;
    FileAttributes attributes_{};
};

}  // namespace pinorama
