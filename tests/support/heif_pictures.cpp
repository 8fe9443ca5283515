#include "tests/support/heif_pictures.h"

#include "tests/support/container_builder.h"

#include <iterator>

namespace {
using namespace std::string_literals;

constexpr std::uint8_t kConfiguration[] = {
    0x01, 0x03, 0x70, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x1e, 0xf0, 0x00, 0xfc,
    0xfd, 0xf8, 0xf8, 0x00, 0x00, 0x0f, 0x03, 0x20, 0x00, 0x01, 0x00, 0x18, 0x40, 0x01, 0x0c, 0x01,
    0xff, 0xff, 0x03, 0x70, 0x00, 0x00, 0x03, 0x00, 0x90, 0x00, 0x00, 0x03, 0x00, 0x00, 0x03, 0x00,
    0x1e, 0xba, 0x02, 0x40, 0x21, 0x00, 0x01, 0x00, 0x2b, 0x42, 0x01, 0x01, 0x03, 0x70, 0x00, 0x00,
    0x03, 0x00, 0x90, 0x00, 0x00, 0x03, 0x00, 0x00, 0x03, 0x00, 0x1e, 0xa0, 0x20, 0x81, 0x05, 0x96,
    0xea, 0x49, 0x29, 0xae, 0x6e, 0x04, 0x04, 0x0c, 0x08, 0x00, 0x00, 0x03, 0x00, 0x08, 0x00, 0x00,
    0x03, 0x00, 0x08, 0x40, 0x22, 0x00, 0x01, 0x00, 0x07, 0x44, 0x01, 0xc1, 0x72, 0xb0, 0x22, 0x40,
};

constexpr std::uint8_t kQuarters[] = {
    0x00, 0x00, 0x00, 0x3e, 0x28, 0x01, 0xaf, 0x06, 0x38, 0x5a, 0xfc, 0xfd, 0x37, 0xf9,
    0x9d, 0xef, 0xff, 0xff, 0xca, 0xf5, 0xde, 0x87, 0xfb, 0xd8, 0x38, 0x6c, 0x25, 0x7f,
    0x97, 0x2e, 0x5f, 0xff, 0xd3, 0x7b, 0xbf, 0xff, 0xf8, 0x04, 0xbc, 0xb1, 0x98, 0xfe,
    0x39, 0x0a, 0x11, 0xbf, 0xa6, 0x58, 0x6f, 0xff, 0xf1, 0xf6, 0x2b, 0x2d, 0x41, 0xfb,
    0xd9, 0x9f, 0x7f, 0xf4, 0xba, 0x9f, 0xd7, 0xee, 0xbd, 0x59,
};

constexpr std::uint8_t kAv1Quarters[] = {
    0x12, 0x00, 0x0a, 0x09, 0x38, 0x15, 0x7f, 0xfd, 0x94, 0x04, 0x34, 0x1a, 0x40, 0x32, 0x30, 0x13,
    0xc0, 0x00, 0x00, 0x40, 0x00, 0xb4, 0x55, 0x55, 0xa8, 0x27, 0xd1, 0xa2, 0x67, 0x09, 0xc3, 0x70,
    0x69, 0x7b, 0xbd, 0x0c, 0xbb, 0xc6, 0x22, 0x9d, 0x00, 0x3c, 0xc6, 0xd3, 0x7c, 0x7b, 0xb2, 0xf3,
    0x5c, 0x17, 0x55, 0xd5, 0xa9, 0x4a, 0xce, 0x90, 0x21, 0xaf, 0x7a, 0xda, 0x2e, 0xbd, 0xc0,
};

constexpr std::uint8_t kJxlQuarters[] = {
    0xff, 0x0a, 0x4f, 0x40, 0x24, 0x08, 0x02, 0x01, 0x00, 0xa4, 0x00, 0x4b, 0x18,
    0x13, 0xef, 0x38, 0x78, 0x08, 0xc0, 0xae, 0x67, 0xff, 0x63, 0xd0, 0xe4, 0x02,
    0x41, 0x00, 0xfc, 0x7e, 0x03, 0x3c, 0xf8, 0x93, 0x54, 0xf7, 0x07, 0x12, 0xf4,
    0xf7, 0x2b, 0xd0, 0xb0, 0xf4, 0x87, 0xfd, 0x92, 0x03, 0xd5, 0x9f, 0x0b, 0x01,
};

std::string byte(int value)
{
    return {static_cast<char>(value)};
}

std::string half(std::size_t value)
{
    return test::big16(static_cast<std::uint32_t>(value));
}

std::string whole(std::size_t value)
{
    return test::big32(static_cast<std::uint32_t>(value));
}

std::string metaOf(const std::vector<test::HeifPart>& parts, int primary, std::size_t dataStart)
{
    std::string infos, locations, references, properties, associations;
    std::size_t offset = dataStart;
    std::size_t property = 1;
    for (std::size_t i = 0; i < parts.size(); i++) {
        const test::HeifPart& part = parts[i];
        infos += test::isoFullBox("infe", 2, half(i + 1) + half(0) + part.type + "\0"s);
        locations += half(i + 1) + half(0) + half(1) + whole(offset) + whole(part.bytes.size());
        offset += part.bytes.size();
        associations += half(i + 1) + byte(static_cast<int>(part.properties.size()));
        for (const std::string& box : part.properties) {
            properties += box;
            associations += byte(static_cast<int>(property++) | 0x80);  // essential
        }
        if (part.reference.empty()) continue;
        std::string to;
        for (const int item : part.to) to += half(static_cast<std::size_t>(item));
        references += test::isoBox(part.reference, half(i + 1) + half(part.to.size()) + to);
    }
    return test::isoFullBox(
        "meta", 0,
        test::isoFullBox("pitm", 0, half(static_cast<std::size_t>(primary))) +
            test::isoFullBox("iinf", 0, half(parts.size()) + infos) +
            test::isoFullBox("iref", 0, references) +
            test::isoBox("iprp",
                         test::isoBox("ipco", properties) +
                             test::isoFullBox("ipma", 0, whole(parts.size()) + associations)) +
            test::isoFullBox("iloc", 0, "\x44\0"s + half(parts.size()) + locations));
}
}  // namespace

std::string test::heifPicture(const std::vector<HeifPart>& parts, int primary)
{
    const std::string start = isoBox("ftyp", "heic\0\0\0\0mif1heic"s);
    const std::size_t dataStart = start.size() + metaOf(parts, primary, 0).size() + 8;
    std::string data;
    for (const HeifPart& part : parts) data += part.bytes;
    return start + metaOf(parts, primary, dataStart) + isoBox("mdat", data);
}

std::string test::heifSize(int width, int height)
{
    return isoFullBox(
        "ispe", 0,
        whole(static_cast<std::size_t>(width)) + whole(static_cast<std::size_t>(height)));
}

std::string test::heifRotation(int quarters)
{
    return isoBox("irot", byte(quarters));
}

std::string test::heifMirror(int axis)
{
    return isoBox("imir", byte(axis));
}

std::string test::heifColours(int matrix, bool isFullRange, int primaries, int transfer)
{
    return isoBox("colr", "nclx" + half(static_cast<std::size_t>(primaries)) +
                              half(static_cast<std::size_t>(transfer)) +
                              half(static_cast<std::size_t>(matrix)) +
                              byte(isFullRange ? 0x80 : 0));
}

std::string test::heifProfile(const std::string& icc)
{
    return isoBox("colr", "prof" + icc);
}

std::string test::heifPart(int width, int height, int right, int down)
{
    std::string fractions;
    for (const int number : {width, height, right, down}) {
        fractions += big32(static_cast<std::uint32_t>(2 * number)) + big32(2);
    }
    return isoBox("clap", fractions);
}

std::string test::heifDecoder(const std::string& hvcc)
{
    return isoBox("hvcC", hvcc);
}

std::string test::heifGrid(int rows, int columns, int width, int height)
{
    return "\0\0"s + byte(rows - 1) + byte(columns - 1) + half(static_cast<std::size_t>(width)) +
           half(static_cast<std::size_t>(height));
}

std::string test::hevcConfiguration()
{
    return {std::begin(kConfiguration), std::end(kConfiguration)};
}

std::string test::hevcQuarters()
{
    return {std::begin(kQuarters), std::end(kQuarters)};
}

test::HeifPart test::hevcPart()
{
    return {"hvc1", hevcQuarters(), {heifDecoder(hevcConfiguration()), heifSize(64, 64)}};
}

test::HeifPart test::av1Part()
{
    return {"av01", {std::begin(kAv1Quarters), std::end(kAv1Quarters)}, {heifSize(64, 64)}};
}

std::string test::jxlQuarters()
{
    return {std::begin(kJxlQuarters), std::end(kJxlQuarters)};
}

std::string test::cr3Picture(std::string_view tiff, std::string_view thumbnail,
                             std::string_view preview)
{
    const std::string canon = "\x85\xc0\xb6\x87\x82\x0f\x11\xe0\x81\x11\xf4\xce\x46\x2b\x6a\x48";
    const std::string large = "\xea\xf4\x2b\x5e\x1c\x98\x4b\x88\xb9\xfb\xb7\xdc\x40\x6e\x4d\x16";
    // Zeros, the size in pixels, the length and two more numbers; and the same in another order.
    const std::string small = whole(0) + half(160) + half(120) + whole(thumbnail.size()) + half(1) +
                              half(0) + std::string(thumbnail);
    const std::string shown = whole(0) + half(1) + half(1620) + half(1080) + half(1) +
                              whole(preview.size()) + std::string(preview);
    return isoBox("ftyp", "crx \0\0\0\1crx isom"s) +
           isoBox("moov", isoBox("uuid", canon + isoBox("CMT1", tiff) + isoBox("THMB", small))) +
           isoBox("uuid", large + whole(0) + whole(1) + isoBox("PRVW", shown)) +
           isoBox("mdat", "raw data");
}
