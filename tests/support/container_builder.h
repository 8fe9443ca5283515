// Builds the containers of further kinds of pictures byte by byte, around pieces of metadata that
// the test chooses. All results are bytes in a std::string.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pictures/byte_order.h"

namespace test {

// Whole numbers, most significant byte first.
std::string big16(std::uint32_t value);
std::string big32(std::uint32_t value);
std::string big64(std::uint64_t value);

// A box of ISO base media files; a full one begins with a version and flags.
std::string isoBox(std::string_view type, std::string_view content);
std::string isoFullBox(std::string_view type, int version, std::string_view content);

// One item of a HEIF file.
struct HeifItem {
    std::string type;  // "Exif", "mime"
    std::string data;
    std::string contentType{};  // of "mime"
};

struct HeifParts {
    std::vector<HeifItem> items{};
    int infoVersion = 2;        // of the box infe: 2 or 3
    int locationVersion = 1;    // of the box iloc: 0 to 2
    int baseOffsetSize = 0;     // 0, 4 or 8 bytes
    bool isDataInMeta = false;  // in the box idat instead of mdat; needs locationVersion 1 or 2
    bool isMetaLast = false;
};

// A HEIF file. The first item is number 1.
std::string heifFile(const HeifParts& parts);

// The data of an Exif item around a TIFF block: with "Exif\0\0" in front of it, or without.
std::string heifExif(std::string_view tiff, bool hasName = true);

// A QuickTime file: `mdat` of so many bytes, then `moov` with these boxes.
std::string quickTimeFile(std::string_view boxesOfMoov, std::size_t dataSize = 32);

// Boxes of `moov` that say "+48.8584+002.2945/" or whatever `text` is: as a QuickTime key of that
// name, as user data, as an item of user data.
std::string placeAsKey(std::string_view text,
                       std::string_view key = "com.apple.quicktime.location.ISO6709");
std::string placeAsUserText(std::string_view text);
std::string placeAsItem(std::string_view text);
// The box loci in user data; degrees and metres.
std::string placeAsLoci(double latitude, double longitude, double altitude,
                        std::string_view name = "place");

// A CR3 file with TIFF blocks in the boxes CMT1 and CMT4, and an XMP packet.
std::string cr3File(std::string_view tiff, std::string_view gpsTiff, std::string_view xmp);

// A BigTIFF file with a GPS directory of 48.5 north and 2.25 east, and an XMP packet. The pointer
// to the directory has the type `pointerType`: 4, 13, 16 or 18.
std::string bigTiffFile(pinorama::ByteOrder order, int pointerType, std::string_view xmp);

// JPEG XL in a container.
std::string jxlFile(std::string_view tiff, std::string_view xmp,
                    std::string_view codestream = "code");

std::string pngChunk(std::string_view type, std::string_view data);
std::string pngXmpChunk(std::string_view xmp, bool isCompressed = false);
std::string pngFile(const std::vector<std::string>& chunks);

std::string webpChunk(std::string_view type, std::string_view data);
std::string webpFile(const std::vector<std::string>& chunks);

// A GIF with a colour table, one image of one pixel, and the packet in front of or after it.
std::string gifFile(std::string_view xmp, bool isXmpLast = false);

// A Photoshop document with these resources (photoshopResource in picture_builder.h).
std::string psdFile(std::string_view resources);

// A Sigma raw file with one image section.
std::string x3fFile(std::string_view jpeg);

// A JPEG segment with an XMP packet.
std::string xmpSegment(std::string_view xmp);

// A JPEG segment with a piece of the further document `name`, which has 32 characters.
std::string xmpPieceSegment(std::string_view name, std::uint32_t length, std::uint32_t offset,
                            std::string_view piece);

// A packet whose description has these attributes and child elements, in the prefixes that
// everybody uses.
std::string xmpPacket(std::string_view attributes, std::string_view elements = {});

}  // namespace test
