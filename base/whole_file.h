// Small files of the program's own, read in one go.

#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace pinorama {

// The whole content of a regular file; nothing when it cannot be read, is no regular file, or holds
// more than `largest` bytes. errno says why (EFBIG for too large a file).
std::optional<std::string> readWholeFile(const std::string& path, std::size_t largest);

}  // namespace pinorama
