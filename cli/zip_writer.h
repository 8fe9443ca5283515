// A ZIP archive that is written from its first byte to its last, into a pipe as well. Items are
// stored as they are: what is worth compressing here is compressed already. Archives of more than
// 65,535 items or 4 GiB are in the form ZIP64.
//
//     ZipWriter zip([](std::string_view bytes) { return writeAll(STDOUT_FILENO, bytes); });
//     const bool isDone = zip.add("a.jpg", bytes) && zip.finish();
//
// Source: PKWARE APPNOTE 6.3.10, sections 4.3 and 4.5.3.

#pragma once

#include "cli/spool_file.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace pinorama {

// The CRC-32 of ISO 3309 over bytes that come in pieces: of the next ones, after `crc` of those
// before (0 at first).
std::uint32_t crc32Of(std::string_view bytes, std::uint32_t crc = 0);

class ZipWriter {
public:
    // Takes the next bytes of the archive; false with errno set if it cannot.
    using Sink = std::function<bool(std::string_view bytes)>;

    explicit ZipWriter(Sink sink) : sink_(std::move(sink)) {}

    // Adds an item. False with errno set if it cannot be written.
    //
    //   name  UTF-8, less than 64 KiB.
    bool add(std::string_view name, std::string_view content);

    // The same for what a file has, whose CRC is known.
    bool add(std::string_view name, const SpoolFile& content, std::uint32_t crc);

    // Writes the directory at the end.
    bool finish();

private:
    bool begin(std::string_view name, std::uint64_t size, std::uint32_t crc);
    bool write(std::string_view bytes);

    Sink sink_;
    SpoolFile directory_;       // its entries so far
    std::uint64_t offset_ = 0;  // of the next byte in the archive
    std::uint64_t count_ = 0;   // of the items
};

}  // namespace pinorama
