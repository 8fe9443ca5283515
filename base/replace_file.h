// Replacing a small file as a whole, so that whoever reads it finds the old content or the new one,
// never a part of either, even after a crash or a power cut.

#pragma once

#include <string>
#include <string_view>

namespace pinorama {

// Puts a file with this content in the place of the one at `path`, or makes it, readable for the
// user only. A symbolic link at `path` stays; what it leads to is replaced. The content is written
// beside the file under the name `<path>.new` first, so callers that may meet take turns
// (FileLock).
//
// False with errno set and the old file untouched.
bool replaceFile(const std::string& path, std::string_view content);

}  // namespace pinorama
