// The comment that the user gives a file, kept with the file as file managers do: the extended
// attribute user.xdg.comment, UTF-8. Paths are raw bytes; a symbolic link at the end is followed.

#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace pinorama {

// The comment; nothing when the file has none or cannot be read.
std::optional<std::string> readFileComment(const std::string& path);

// Replaces the comment. Returns false with errno set on failure: file systems set narrow limits
// (about 4 KiB on ext4), and some keep no comments at all.
bool writeFileComment(const std::string& path, std::string_view comment);

}  // namespace pinorama
