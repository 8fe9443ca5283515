// A KMZ document: a ZIP archive of a KML document of places and of thumbnails that it shows. The
// thumbnails are made where the pictures are read, in the workers, and are written as they come;
// the KML document waits in a file of its own until all of it is there, and comes last.
//
// Between the two go pieces, so that the output of a batch is one text as in every other format.
//
// Source: OGC 07-147r2, annex C.

#pragma once

#include "cli/spool_file.h"
#include "cli/zip_writer.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace pinorama {

// The name of a picture's thumbnail in the archive: the same for the same path (bytes of the
// system), and for different ones another.
std::string thumbnailName(std::string_view path);

// Append a piece: part of the KML document, or a thumbnail, whose bytes are JPEG.
void appendKmlPiece(std::string_view kml, std::string* out);
void appendThumbnailPiece(std::string_view name, std::string_view jpeg, std::string* out);

class KmzDocument {
public:
    explicit KmzDocument(ZipWriter::Sink sink) : zip_(std::move(sink)) {}

    // Takes whole pieces. False with errno set if they cannot be written.
    bool write(std::string_view pieces);

    // Writes the KML document and the end of the archive.
    bool finish();

private:
    ZipWriter zip_;
    SpoolFile kml_;
    std::uint32_t crc_ = 0;  // of the KML document so far
};

}  // namespace pinorama
