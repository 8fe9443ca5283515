#include "tests/support/picture_builder.h"

#include <cmath>

using namespace pinorama;

namespace {
using namespace std::string_literals;

constexpr test::ByteOrder kBig = test::ByteOrder::big;
constexpr std::size_t kMaxShortDataset = 32767;  // bytes

// A value in hundredths.
test::Rational hundredths(double value)
{
    return {static_cast<std::uint32_t>(std::llround(value * 100.0)), 100};
}

// Whole degrees, whole minutes, seconds in 1/10000. The split is made in integers, so that 33.9
// becomes 33 degrees 54 minutes and nothing else.
std::vector<test::Rational> degreesMinutesSeconds(double degrees)
{
    const auto total = static_cast<std::uint64_t>(std::llround(degrees * 3600.0 * 10000.0));
    const auto seconds = static_cast<std::uint32_t>(total % 600000);
    const auto minutes = static_cast<std::uint32_t>(total / 600000 % 60);
    return {{static_cast<std::uint32_t>(total / 36000000), 1}, {minutes, 1}, {seconds, 10000}};
}
}  // namespace

std::string test::bytes16(ByteOrder order, std::uint16_t value)
{
    const char high = static_cast<char>(value >> 8);
    const char low = static_cast<char>(value & 0xff);
    return order == kBig ? std::string{high, low} : std::string{low, high};
}

std::string test::bytes32(ByteOrder order, std::uint32_t value)
{
    const std::string high = bytes16(order, static_cast<std::uint16_t>(value >> 16));
    const std::string low = bytes16(order, static_cast<std::uint16_t>(value & 0xffff));
    return order == kBig ? high + low : low + high;
}

test::TiffField test::asciiField(std::uint16_t tag, std::string_view text)
{
    return {tag, 2, static_cast<std::uint32_t>(text.size() + 1), std::string(text) + '\0'};
}

test::TiffField test::rationalField(ByteOrder order, std::uint16_t tag,
                                    std::vector<Rational> values)
{
    std::string bytes;
    for (const Rational& value : values) {
        bytes += bytes32(order, value.numerator) + bytes32(order, value.denominator);
    }
    return {tag, 5, static_cast<std::uint32_t>(values.size()), bytes};
}

test::TiffField test::byteField(std::uint16_t tag, std::string_view bytes)
{
    return {tag, 1, static_cast<std::uint32_t>(bytes.size()), std::string(bytes)};
}

test::TiffField test::shortField(ByteOrder order, std::uint16_t tag, std::uint16_t value)
{
    return {tag, 3, 1, bytes16(order, value)};
}

test::TiffField test::longField(ByteOrder order, std::uint16_t tag, std::uint32_t value)
{
    return {tag, 4, 1, bytes32(order, value)};
}

std::string test::tiffDirectory(ByteOrder order, std::uint32_t offset,
                                const std::vector<TiffField>& fields)
{
    std::string entries;
    std::string values;
    // Count (2), entries (12 each), pointer to the next directory (4).
    const auto valuesOffset = static_cast<std::uint32_t>(offset + 2 + fields.size() * 12 + 4);
    for (const TiffField& field : fields) {
        entries +=
            bytes16(order, field.tag) + bytes16(order, field.type) + bytes32(order, field.count);
        if (field.bytes.size() <= 4) {
            entries += field.bytes + std::string(4 - field.bytes.size(), '\0');
            continue;
        }
        entries += bytes32(order, static_cast<std::uint32_t>(valuesOffset + values.size()));
        values += field.bytes;
        if (values.size() % 2 != 0) values += '\0';  // values begin at even offsets
    }
    return bytes16(order, static_cast<std::uint16_t>(fields.size())) + entries + bytes32(order, 0) +
           values;
}

std::string test::tiffBlock(const TiffParts& parts)
{
    constexpr std::uint32_t kFirst = 8;
    constexpr std::uint16_t kExifPointer = 0x8769;
    constexpr std::uint16_t kGpsPointer = 0x8825;
    const auto directoryOf = [&](const std::vector<TiffField>& fields, std::size_t offset) {
        return tiffDirectory(parts.order, static_cast<std::uint32_t>(offset), fields);
    };
    std::vector<TiffField> fields = parts.fields;
    // The values of the pointers do not change the length of the directory they stand in.
    if (!parts.exif.empty()) fields.push_back(longField(parts.order, kExifPointer, 0));
    if (!parts.gps.empty()) fields.push_back(longField(parts.order, kGpsPointer, 0));
    std::size_t end = kFirst + directoryOf(fields, kFirst).size();
    std::string others;
    for (std::size_t i = parts.fields.size(); i < fields.size(); i++) {
        const std::uint16_t tag = fields[i].tag;
        fields[i] = longField(parts.order, tag, static_cast<std::uint32_t>(end));
        others += directoryOf(tag == kExifPointer ? parts.exif : parts.gps, end);
        end = kFirst + directoryOf(fields, kFirst).size() + others.size();
    }
    return (parts.order == kBig ? "MM" : "II") + bytes16(parts.order, parts.number) +
           bytes32(parts.order, kFirst) + directoryOf(fields, kFirst) + others;
}

test::PictureFields test::everyField(ByteOrder order)
{
    return {.lat = 48.1,
            .latRef = "N",
            .lon = 11.5,
            .lonRef = "E",
            .altitude = 519.0,
            .altitudeRef = 1,
            .destDistance = 2.0,
            .destDistanceRef = "K",
            .satellites = "tilt:45.5",
            .imgDirection = 270.0,
            .orientation = 6,
            .city = "M\u00fcnchen",
            .state = "Bayern",
            .country = "Deutschland",
            .caption = "Marienplatz",
            .order = order};
}

std::vector<test::TiffField> test::gpsFields(const PictureFields& fields)
{
    std::vector<TiffField> gps;
    const auto addText = [&](std::uint16_t tag, const std::optional<std::string>& text) {
        if (text) gps.push_back(asciiField(tag, *text));
    };
    const auto addCoordinate = [&](std::uint16_t tag, std::optional<double> degrees) {
        if (degrees) {
            gps.push_back(rationalField(fields.order, tag, degreesMinutesSeconds(*degrees)));
        }
    };
    const auto addNumber = [&](std::uint16_t tag, std::optional<double> number) {
        if (number) gps.push_back(rationalField(fields.order, tag, {hundredths(*number)}));
    };
    addText(1, fields.latRef);
    addCoordinate(2, fields.lat);
    addText(3, fields.lonRef);
    addCoordinate(4, fields.lon);
    if (fields.altitudeRef) {
        gps.push_back(byteField(5, std::string(1, static_cast<char>(*fields.altitudeRef))));
    }
    addNumber(6, fields.altitude);
    if (!fields.gpsTime.empty()) gps.push_back(rationalField(fields.order, 7, fields.gpsTime));
    addText(8, fields.satellites);
    addText(16, fields.imgDirectionRef);
    addNumber(17, fields.imgDirection);
    addText(25, fields.destDistanceRef);
    addNumber(26, fields.destDistance);
    addText(29, fields.gpsDate);
    return gps;
}

std::string test::tiffWithGps(const PictureFields& fields)
{
    TiffParts parts{.order = fields.order, .gps = gpsFields(fields)};
    if (fields.taken) parts.exif.push_back(asciiField(0x9003, *fields.taken));
    if (fields.takenOffset) parts.exif.push_back(asciiField(0x9011, *fields.takenOffset));
    if (fields.orientation) {
        parts.fields.push_back(shortField(fields.order, 0x0112, *fields.orientation));
    }
    return tiffBlock(parts);
}

std::string test::iptcDataset(std::uint8_t record, std::uint8_t dataset, std::string_view data)
{
    const std::string begin{0x1c, static_cast<char>(record), static_cast<char>(dataset)};
    if (data.size() > kMaxShortDataset)
        return begin + bytes16(kBig, 0x8004) +
               bytes32(kBig, static_cast<std::uint32_t>(data.size())) + std::string(data);
    return begin + bytes16(kBig, static_cast<std::uint16_t>(data.size())) + std::string(data);
}

std::string test::iptcRecord(const PictureFields& fields)
{
    std::string texts;
    const auto add = [&](std::uint8_t dataset, const std::optional<std::string>& text) {
        if (text) texts += iptcDataset(2, dataset, *text);
    };
    add(90, fields.city);
    add(95, fields.state);
    add(101, fields.country);
    add(120, fields.caption);
    return texts.empty() ? texts : iptcDataset(1, 90, "\x1b%G") + texts;
}

std::string test::photoshopResource(std::uint16_t number, std::string_view data,
                                    std::string_view signature)
{
    std::string resource = std::string(signature) + bytes16(kBig, number) +
                           "\0\0"s  // an empty name, filled up to an even size
                           + bytes32(kBig, static_cast<std::uint32_t>(data.size())) +
                           std::string(data);
    if (data.size() % 2 != 0) resource += '\0';
    return resource;
}

std::string test::jpegSegment(std::uint8_t marker, std::string_view content)
{
    return std::string{'\xff', static_cast<char>(marker)} +
           bytes16(kBig, static_cast<std::uint16_t>(content.size() + 2)) + std::string(content);
}

std::string test::exifSegment(std::string_view tiff)
{
    return jpegSegment(0xe1, "Exif\0\0"s + std::string(tiff));
}

std::string test::photoshopSegment(std::string_view resources)
{
    return jpegSegment(0xed, "Photoshop 3.0\0"s + std::string(resources));
}

std::string test::jpegPicture(std::initializer_list<std::string_view> segments)
{
    std::string picture = "\xff\xd8";
    for (std::string_view segment : segments) picture += segment;
    // Quantization table 0: all ones.
    picture += jpegSegment(0xdb, '\0' + std::string(64, '\1'));
    // Frame: 8 bits, height 8, width 8, one component: number 1, sampling 1 x 1, table 0.
    picture += jpegSegment(0xc0, "\x08\0\x08\0\x08\x01\x01\x11\0"s);
    // Huffman tables DC 0 and AC 0: a single code of one bit each, for the symbol 0.
    const std::string code = '\1' + std::string(15, '\0') + '\0';
    picture += jpegSegment(0xc4, '\0' + code) + jpegSegment(0xc4, '\x10' + code);
    // Scan: component 1 with both tables, all coefficients; the one block is two zero bits.
    picture += jpegSegment(0xda, "\x01\x01\0\0\x3f\0"s) + "\x3f";
    return picture + "\xff\xd9";
}

std::string test::pictureWithGps(const PictureFields& fields)
{
    const std::string iptc = iptcRecord(fields);
    const std::string resources =
        iptc.empty() ? iptc : photoshopSegment(photoshopResource(0x0404, iptc));
    return jpegPicture({exifSegment(tiffWithGps(fields)), resources});
}

std::string test::pictureWithLongTexts(const std::string& text)
{
    const auto segmentOf = [](const PictureFields& fields) {
        return photoshopSegment(photoshopResource(0x0404, iptcRecord(fields)));
    };
    const PictureFields place{.lat = 48.1, .latRef = "N", .lon = 11.5, .lonRef = "E"};
    return jpegPicture({exifSegment(tiffWithGps(place)), segmentOf({.city = text}),
                        segmentOf({.state = text}), segmentOf({.country = text}),
                        segmentOf({.caption = text})});
}

std::string test::rafPicture(std::string_view jpeg)
{
    constexpr std::uint32_t kJpegOffset = 160;
    std::string header = "FUJIFILMCCD-RAW 0201";
    header.resize(84, '\0');  // camera number and name
    header += bytes32(kBig, kJpegOffset) + bytes32(kBig, static_cast<std::uint32_t>(jpeg.size()));
    header.resize(kJpegOffset, '\0');  // places of the raw data
    return header + std::string(jpeg);
}

std::string test::mrwPicture(std::string_view tiff)
{
    const auto block = [](std::string_view name, std::string_view content) {
        return '\0' + std::string(name) +
               bytes32(kBig, static_cast<std::uint32_t>(content.size())) + std::string(content);
    };
    const std::string blocks = block("PRD", std::string(24, '\0')) + block("TTW", tiff) +
                               block("WBG", std::string(12, '\0'));
    return block("MRM", blocks) + "picture data";
}

std::string test::crwPicture()
{
    // Byte order, length of the header (26), type, version, reserved.
    return "II\x1a\0\0\0HEAPCCDR\2\0\1\0"s + std::string(8, '\0');
}
