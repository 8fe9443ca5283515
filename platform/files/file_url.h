// File addresses: file:///path, RFC 8089.

#pragma once

#include <string>
#include <string_view>

namespace platform {

// The path that a file URL names, percent escapes decoded; empty when the text is no file URL of
// this computer: another scheme or host, a relative path, a damaged escape or an escaped zero byte.
// A query or fragment is dropped. Whether the item exists is not asked.
std::string pathOfFileURL(std::string_view url);

}  // namespace platform
