// A file that is written piece by piece and replaces an existing one only when it is complete:
// whoever reads it finds the old content or the new one, never a part of either.
//
//     ReplacingFile file({.durability = Durability::none});
//     const bool isReplaced = file.begin(path) && file.write(bytes) && file.finish();

#pragma once

#include "base/descriptor.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include <sys/types.h>

namespace pinorama {

// What a finished file survives when the power fails afterwards.
enum class Durability : std::uint8_t {
    none,            // may be empty or damaged then; for what can be made again
    content,         // the old file or the new one
    contentAndName,  // the new file, where the file system can promise that
};

struct ReplacingFileOptions {
    FullPipe fullPipe = FullPipe::fails;
    Durability durability = Durability::content;
    // Set for a file of the program's own: its permissions, less the umask. Whatever has its path
    // is then replaced: a link itself, a pipe, a file that may not be written.
    std::optional<mode_t> ownMode{};
    // Whether writers take turns (FileLock). The unfinished file is then `<path>.new`, so that
    // what a killed program left of it goes away with the next one.
    bool takesTurns = false;
};

class ReplacingFile {
public:
    explicit ReplacingFile(const ReplacingFileOptions& options = {}) : options_(options) {}
    // Unless it was finished, what has been written is removed and the existing file stays.
    ~ReplacingFile();
    ReplacingFile(const ReplacingFile&) = delete;
    ReplacingFile& operator=(const ReplacingFile&) = delete;

    // Begins the file that will be at `path` (bytes of the system), beside it under a name that is
    // not taken. Unless the file is the program's own (ownMode):
    //
    //   - A link at `path` stays; its target is replaced or made. An existing file keeps its
    //     permissions, a new one has those that the umask leaves of 0666.
    //   - A device or a pipe cannot be replaced and is written directly. So is a file that a
    //     process holds open and that is named as such (/dev/stdout, /dev/fd/3): the new content
    //     is appended to it.
    //   - What killed programs left of the same file is removed if no process has the number in its
    //     name and nobody has written to it for ten minutes.
    //
    // This and the next two return false with errno set and remove what they made of the file.
    bool begin(const std::string& path);

    // Where the file grows until it is finished, for others that add to it; empty when it is
    // written directly.
    const std::string& unfinishedPath() const { return unfinished_; }

    // True when the bytes of the unfinished file are these, whoever wrote them. Bytes that wait to
    // be written do not count.
    bool contentIs(std::string_view bytes) const;

    // Writes the next bytes, at once or later.
    bool write(std::string_view bytes);

    // Writes what is left and moves the file to its path.
    bool finish();

private:
    bool beginDirectly();
    bool beginShared();
    bool beginUnfinished(mode_t mode);
    bool flush();
    bool makeDurable();
    bool abandon();

    const ReplacingFileOptions options_;
    std::string target_;
    std::string unfinished_;  // its path; empty when it is written directly, or is gone
    DescriptorHolder file_;
    std::string pending_;
};

}  // namespace pinorama
