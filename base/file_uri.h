// "file:" addresses and the paths they name. A path is raw bytes: names that are no UTF-8 survive
// the way there and back.

#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

// The path that a file URI names (RFC 8089): scheme "file" in any case, no host or "localhost" or
// the name of this machine, percent escapes decoded. Nothing for everything else, also for a path
// of more than 4096 bytes and for one with a NUL in it. A query and a fragment are not part of the
// path.
std::optional<std::string> pathOfFileURI(std::string_view uri);

// A path with percent escapes for every byte outside the unreserved characters and '/'.
std::string escapedPath(std::string_view path);

// The URI of an absolute path: "file://" and the escaped path.
std::string fileURIOfPath(std::string_view path);

// The paths that a list of URIs names (text/uri-list, RFC 2483: lines that end in CR LF, '#' begins
// a comment), in its order; what names no local file is left out.
std::vector<std::string> pathsOfURIList(std::string_view list);

}  // namespace pinorama
