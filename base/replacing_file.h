// A file that is written piece by piece and takes the place of an existing one only when it is
// whole: whoever reads it finds the old content or the new one.

#pragma once

#include "base/descriptor.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pinorama {

// What writing does when nobody takes the bytes out of a full pipe.
enum class FullPipe : std::uint8_t {
    fails,  // with EAGAIN, for programs that must not stand still
    waits,  // however long that takes
};

class ReplacingFile {
public:
    explicit ReplacingFile(FullPipe fullPipe = FullPipe::fails) : fullPipe_(fullPipe) {}
    // Unless it was finished, what has been written goes away and the existing file stays.
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // Begins the file that will be at `path` (bytes of the system), beside it under a name that is
    // not taken. A link at `path` stays; what it leads to is replaced or made. An existing file
    // keeps its permissions, a new one has those that the umask leaves of 0666.
    //
    // A device or a pipe is no file that could be replaced, and is written directly. So is a file
    // that a process holds open and that is named as such (/dev/stdout, /dev/fd/3): it is written
    // behind what is in it.
    //
    // This and the next two return false with errno set; nothing of the file is left then.
    bool begin(const std::string& path);

    // Where the file grows until it is finished, for others that add to it; empty when it is
    // written directly.
    const std::string& unfinishedPath() const { return unfinished_; }

    // True when the bytes of the unfinished file are these, whoever wrote them. What is still to be
    // written does not count.
    bool contentIs(std::string_view bytes) const;

    // Writes the next bytes, at once or later.
    bool write(std::string_view bytes);

    // Writes what is left, and puts the file where it belongs.
    bool finish();

private:
    bool flush();
    bool abandon();

    bool writeAll(std::string_view bytes);

    const FullPipe fullPipe_;
    std::string target_;
    std::string unfinished_;  // its path; empty when it is written directly, or has gone
    DescriptorHolder file_;
    std::string pending_;
};

}  // namespace pinorama
