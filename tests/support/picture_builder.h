// Builds pictures byte by byte: JPEG and raw containers with a TIFF block and an IPTC record whose
// values the test chooses. All results are bytes in a std::string.

#pragma once

#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "pictures/byte_order.h"

namespace test {

using pinorama::ByteOrder;

struct Rational {
    std::uint32_t numerator;
    std::uint32_t denominator;
};

// The bytes of whole numbers.
std::string bytes16(ByteOrder order, std::uint16_t value);
std::string bytes32(ByteOrder order, std::uint32_t value);

// One value of a TIFF directory; `bytes` are in the byte order of the block.
struct TiffField {
    std::uint16_t tag;
    std::uint16_t type;
    std::uint32_t count;
    std::string bytes;
};

// A text with its terminating zero byte (type 2).
TiffField asciiField(std::uint16_t tag, std::string_view text);
// Unsigned rationals (type 5).
TiffField rationalField(ByteOrder order, std::uint16_t tag, std::vector<Rational> values);
// Single bytes (type 1).
TiffField byteField(std::uint16_t tag, std::string_view bytes);
// One 16-bit number (type 3), one 32-bit number (type 4).
TiffField shortField(ByteOrder order, std::uint16_t tag, std::uint16_t value);
TiffField longField(ByteOrder order, std::uint16_t tag, std::uint32_t value);

// A directory that will lie at `offset` of its block: the entries, a next pointer of 0, then the
// values that are longer than four bytes.
std::string tiffDirectory(ByteOrder order, std::uint32_t offset,
                          const std::vector<TiffField>& fields);

struct TiffParts {
    ByteOrder order = ByteOrder::little;
    std::uint16_t number = 42;        // after the byte order; raw formats have their own
    std::vector<TiffField> fields{};  // of the first directory, the GPS pointer aside
    std::vector<TiffField> gps{};     // empty: no GPS directory and no pointer to it
    std::vector<TiffField> exif{};    // the same for the Exif directory
};

// A TIFF block: header, first directory, GPS directory, Exif directory.
std::string tiffBlock(const TiffParts& parts);

// The place in a picture's metadata. Absent values are not written.
struct PictureFields {
    std::optional<double> lat{};  // degrees, written as whole degrees, minutes and 1/10000 seconds
    std::optional<std::string> latRef{};
    std::optional<double> lon{};
    std::optional<std::string> lonRef{};
    std::optional<double> altitude{};  // metres, in hundredths, without sign
    std::optional<std::uint8_t> altitudeRef{};
    std::optional<double> destDistance{};  // in hundredths
    std::optional<std::string> destDistanceRef{};
    std::optional<std::string> satellites{};
    std::optional<double> imgDirection{};  // degrees, in hundredths
    std::optional<std::string> imgDirectionRef{};
    std::optional<std::uint16_t> orientation{};
    std::optional<std::string> taken{};        // "2026:05:03 14:03:22"
    std::optional<std::string> takenOffset{};  // "+02:00"
    std::optional<std::string> gpsDate{};      // "2026:05:03"
    std::vector<Rational> gpsTime{};           // hour, minute, second

    // IPTC texts, declared as UTF-8.
    std::optional<std::string> city{};
    std::optional<std::string> state{};
    std::optional<std::string> country{};
    std::optional<std::string> caption{};

    ByteOrder order = ByteOrder::little;
};

// A picture with all of these values.
PictureFields everyField(ByteOrder order);

// The values of a GPS directory.
std::vector<TiffField> gpsFields(const PictureFields& fields);

// A TIFF block with those values; empty fields give a first directory without GPS pointer.
std::string tiffWithGps(const PictureFields& fields);

// IPTC-IIM: one dataset (with an extended length where it needs one), and the record with the texts
// of `fields` (empty when there are none).
std::string iptcDataset(std::uint8_t record, std::uint8_t dataset, std::string_view data);
std::string iptcRecord(const PictureFields& fields);

// A Photoshop resource without a name.
std::string photoshopResource(std::uint16_t number, std::string_view data,
                              std::string_view signature = "8BIM");

// JPEG: one segment, an Exif segment around a TIFF block, an APP13 segment around resources.
std::string jpegSegment(std::uint8_t marker, std::string_view content);
std::string exifSegment(std::string_view tiff);
std::string photoshopSegment(std::string_view resources);

// A JPEG picture of 8 x 8 grey pixels with `segments` before its image data. Decoders accept it.
std::string jpegPicture(std::initializer_list<std::string_view> segments);

// A whole JPEG picture, for instance pictureWithGps({.lat = 48.1, .latRef = "N"}).
std::string pictureWithGps(const PictureFields& fields);

// A JPEG picture with a place, whose city, state, country and caption are all `text` of at most
// 65,480 bytes, each in a segment of its own.
std::string pictureWithLongTexts(const std::string& text);

// Raw containers: a RAF file around a JPEG picture, a MRW file around a TIFF block, an empty CRW
// file.
std::string rafPicture(std::string_view jpeg);
std::string mrwPicture(std::string_view tiff);
std::string crwPicture();

}  // namespace test
