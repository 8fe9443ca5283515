// A picture's file, open for reading: a regular file and nothing else, and opened without waiting.
// Whoever shows a picture opens it once, and has its facts, its properties and its preview from
// that one descriptor, so that they are all of the same file even when the name is given to
// another.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

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

    // Takes over what another process has opened in the same way.
    //
    //   descriptor  of the file or of its box (base/descriptor_box.h); none if it is not open.
    //   item        as below; there is one if there is a descriptor.
    PictureFile(DescriptorHolder descriptor, const std::optional<FileAttributes>& item, int error)
        : descriptor_(std::move(descriptor)), item_(item), error_(error)
    {
    }

    bool isOpen() const { return static_cast<bool>(descriptor_); }
    int descriptor() const { return descriptor_.get(); }  // of its box, if so; -1 when not open

    // The errno of why there is no open file; 0 if it is open, and for an item of another kind.
    int error() const { return error_; }

    // As they were when the file was opened; zero when it is not open.
    FileAttributes attributes() const { return isOpen() ? *item_ : FileAttributes{}; }
    std::uint64_t size() const { return attributes().size; }  // bytes

    // The attributes of whatever is at the path, opened or not; nothing if it could not be looked
    // at.
    const std::optional<FileAttributes>& item() const { return item_; }

    // The path of the open file, free of links. The kernel knows it, so that no disk is asked.
    // Empty when the file is not open, or without /proc.
    std::string realPath() const;

private:
    bool openPlainFile(const std::string& path);
    void openAnyFile(const std::string& path);

    DescriptorHolder descriptor_;
    std::optional<FileAttributes> item_;
    int error_ = 0;
};

}  // namespace pinorama
