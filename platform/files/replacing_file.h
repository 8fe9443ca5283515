// A file that is written piece by piece and takes the place of an existing one only when it is
// whole: whoever reads it finds the old content or the new one.

#pragma once

#include "platform/files/descriptor.h"

#include <string>
#include <string_view>

namespace platform {

class ReplacingFile {
public:
    ReplacingFile() = default;
    // Unless it was finished, what has been written goes away and the existing file stays.
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // Begins the file that will be at `path` (bytes of the system), beside it under a name that is
    // not taken. A link at `path` stays; what it leads to is replaced, and keeps its permissions. A
    // device or a pipe is no file that could be replaced, and is written directly.
    //
    // This and the next two return false with errno set; nothing of the file is left then.
    bool begin(const std::string& path);

    // Writes the next bytes, at once or later.
    bool write(std::string_view bytes);

    // Writes what is left, and puts the file where it belongs.
    bool finish();

private:
    bool flush();
    bool abandon();

    std::string target_;
    std::string unfinished_;  // its path; empty when it is written directly, or has gone
    DescriptorHolder file_;
    std::string pending_;
};

}  // namespace platform
