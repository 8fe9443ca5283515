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
    // is looked at and not opened.
    explicit PictureFile(const std::string& path);

    bool isOpen() const { return static_cast<bool>(descriptor_); }
    int descriptor() const { return descriptor_.get(); }  // -1 when not open

    // The errno of why there is no open file; 0 if it is open, and for an item of another kind.
    int error() const { return error_; }

    // As they were when the file was opened; zero when it is not open.
    const FileAttributes& attributes() const { return attributes_; }
    std::uint64_t size() const { return attributes_.size; }  // bytes

private:
    DescriptorHolder descriptor_;
    FileAttributes attributes_{};
    int error_ = 0;
};

}  // namespace pinorama
