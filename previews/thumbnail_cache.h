// The folder in which the programs of a desktop share their thumbnails, so that a preview that one
// of them has made serves all. Sizes are pixels.
// Source: freedesktop.org Thumbnail Managing Standard 0.9.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

class QImage;

namespace pinorama {

// What a thumbnail says about the file it shows.
struct ThumbnailLabel {
    std::string uri;         // of the file
    std::int64_t mtime = 0;  // the file's modification time, seconds since 1970

    // True when the texts Thumb::URI and Thumb::MTime of a thumbnail say the same.
    bool matches(std::string_view uriText, std::string_view mtimeText) const;
};

// One place where a thumbnail of a file may be.
struct ThumbnailPlace {
    std::string path;
    ThumbnailLabel label;
};

// Whether a file is itself in the cache: of such a one there are no thumbnails. Asks nothing of the
// file's disk.
//
//   path, realPath  absolute, in the bytes of the system; the second is free of links, and empty if
//                   it is not known.
bool cuIsInThumbnailCache(const std::string& path, const std::string& realPath);

// The places where a thumbnail of the file at `path` may be that is at least `side` large each way,
// the smallest first. Two for each size, because desktops do not agree on which characters a URI
// escapes. Asks nothing of the file's disk.
//
//   path   absolute, in the bytes of the system; not in the cache itself.
std::vector<ThumbnailPlace> cuThumbnailPlaces(const std::string& path, std::int64_t mtime,
                                              int side);

// Stores `image`, which fits into side x side, as a thumbnail of the file at `path`, readable by
// the user alone. Does nothing when `side` is none of the sizes that thumbnails come in, or when it
// cannot be written; nobody else ever sees a half-written one.
void cuStoreThumbnail(const std::string& path, std::int64_t mtime, std::uint64_t fileSize, int side,
                      const QImage& image);

}  // namespace pinorama
