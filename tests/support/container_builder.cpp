#include "tests/support/container_builder.h"

#include "tests/support/picture_builder.h"

#include <cmath>

using namespace std::string_literals;

namespace {
std::string numberOf(int size, std::uint64_t value)
{
    std::string bytes;
    for (int i = size - 1; i >= 0; i--) bytes += static_cast<char>(value >> (8 * i) & 0xff);
    return bytes;
}

std::string little32(std::uint32_t value)
{
    return test::bytes32(test::ByteOrder::little, value);
}

std::string fixedPoint(double value)
{
    return test::big32(static_cast<std::uint32_t>(std::lround(value * 65536.0)));
}

std::string str(std::string_view text)
{
    return std::string(text);
}

std::string itemInfo(const test::HeifItem& item, int version, std::uint32_t number)
{
    std::string content = numberOf(version == 2 ? 2 : 4, number) + test::big16(0) + item.type;
    content += "name\0"s;
    if (item.type == "mime") content += item.contentType + '\0';
    return test::isoFullBox("infe", version, content);
}

std::string itemLocations(const test::HeifParts& parts, std::uint64_t dataStart)
{
    const int version = parts.locationVersion;
    std::string content = numberOf(1, 0x44) + numberOf(1, parts.baseOffsetSize << 4);
    content += numberOf(version < 2 ? 2 : 4, parts.items.size());
    std::uint64_t offset = dataStart;
    for (std::size_t i = 0; i < parts.items.size(); i++) {
        content += numberOf(version < 2 ? 2 : 4, i + 1);
        if (version > 0) content += test::big16(parts.isDataInMeta ? 1 : 0);
        content += test::big16(0);
        // A base offset and the rest of it, or all of it at once.
        const std::uint64_t base = parts.baseOffsetSize == 0 ? 0 : offset / 2;
        content += numberOf(parts.baseOffsetSize, base) + test::big16(1);
        content += numberOf(4, offset - base);
        content += numberOf(4, parts.items[i].data.size());
        offset += parts.items[i].data.size();
    }
    return test::isoFullBox("iloc", version, content);
}

std::string metaOf(const test::HeifParts& parts, std::uint64_t dataStart)
{
    std::string infos = test::big16(static_cast<std::uint32_t>(parts.items.size()));
    std::string data;
    for (std::size_t i = 0; i < parts.items.size(); i++) {
        infos += itemInfo(parts.items[i], parts.infoVersion, static_cast<std::uint32_t>(i + 1));
        data += parts.items[i].data;
    }
    std::string boxes = test::isoFullBox("hdlr", 0, "\0\0\0\0pict"s + std::string(13, '\0'));
    boxes += test::isoFullBox("iinf", 0, infos) + itemLocations(parts, dataStart);
    if (parts.isDataInMeta) boxes += test::isoBox("idat", data);
    return test::isoFullBox("meta", 0, boxes);
}

std::string dataItem(std::string_view type, std::string_view text)
{
    return test::isoBox(type, test::isoBox("data", "\0\0\0\1\0\0\0\0"s + str(text)));
}
}  // namespace

std::string test::big16(std::uint32_t value)
{
    return numberOf(2, value);
}

std::string test::big32(std::uint32_t value)
{
    return numberOf(4, value);
}

std::string test::big64(std::uint64_t value)
{
    return numberOf(8, value);
}

std::string test::isoBox(std::string_view type, std::string_view content)
{
    return big32(static_cast<std::uint32_t>(content.size() + 8)) + str(type) + str(content);
}

std::string test::isoFullBox(std::string_view type, int version, std::string_view content)
{
    return isoBox(type, numberOf(4, static_cast<std::uint64_t>(version) << 24) + str(content));
}

std::string test::heifFile(const HeifParts& parts)
{
    const std::string start = isoBox("ftyp", "heic\0\0\0\0mif1heic"s);
    std::string data;
    if (!parts.isDataInMeta) {
        for (const HeifItem& item : parts.items) data += item.data;
    }
    const std::string mdat = isoBox("mdat", data);
    std::uint64_t dataStart = start.size() + 8;
    if (parts.isDataInMeta) dataStart = 0;
    if (!parts.isDataInMeta && !parts.isMetaLast) dataStart += metaOf(parts, 0).size();
    const std::string meta = metaOf(parts, dataStart);
    return parts.isMetaLast ? start + mdat + meta : start + meta + mdat;
}

std::string test::heifExif(std::string_view tiff, bool hasName)
{
    return hasName ? big32(6) + "Exif\0\0"s + str(tiff) : big32(0) + str(tiff);
}

std::string test::quickTimeFile(std::string_view boxesOfMoov, std::size_t dataSize)
{
    return isoBox("ftyp", "qt  \0\0\0\0qt  "s) + isoBox("wide", "") +
           isoBox("mdat", std::string(dataSize, 'v')) +
           isoBox("moov", isoFullBox("mvhd", 0, std::string(96, '\0')) + str(boxesOfMoov));
}

std::string test::placeAsKey(std::string_view text, std::string_view key)
{
    const std::string first = isoBox("mdta", "com.apple.quicktime.make");
    const std::string keys = big32(2) + first + isoBox("mdta", key);
    const std::string items = dataItem("\0\0\0\1"s, "camera") + dataItem("\0\0\0\2"s, text);
    return isoBox("meta", isoFullBox("hdlr", 0, std::string(22, '\0')) +
                              isoFullBox("keys", 0, keys) + isoBox("ilst", items));
}

std::string test::placeAsUserText(std::string_view text)
{
    const std::string content = big16(static_cast<std::uint32_t>(text.size())) + big16(0x15c7);
    return isoBox("udta", isoBox("\xa9xyz", content + str(text)));
}

std::string test::placeAsItem(std::string_view text)
{
    const std::string items = dataItem("\xa9nam", "name") + dataItem("\xa9xyz", text);
    return isoBox("udta",
                  isoFullBox("meta", 0,
                             isoFullBox("hdlr", 0, std::string(21, '\0')) + isoBox("ilst", items)));
}

std::string test::placeAsLoci(double latitude, double longitude, double altitude,
                              std::string_view name)
{
    const std::string content = big16(0x15c7) + str(name) + '\0' + '\0' + fixedPoint(longitude) +
                                fixedPoint(latitude) + fixedPoint(altitude) + "earth\0\0"s;
    return isoBox("udta", isoFullBox("loci", 0, content));
}

std::string test::cr3File(std::string_view tiff, std::string_view gpsTiff, std::string_view xmp)
{
    const std::string canon = "\x85\xc0\xb6\x87\x82\x0f\x11\xe0\x81\x11\xf4\xce\x46\x2b\x6a\x48";
    const std::string adobe = "\xbe\x7a\xcf\xcb\x97\xa9\x42\xe8\x9c\x71\x99\x94\x91\xe3\xaf\xac";
    const std::string boxes =
        isoBox("CNCV", "CanonCR3") + isoBox("CMT1", tiff) + isoBox("CMT4", gpsTiff);
    return isoBox("ftyp", "crx \0\0\0\1crx isom"s) + isoBox("moov", isoBox("uuid", canon + boxes)) +
           isoBox("uuid", adobe + str(xmp)) + isoBox("mdat", "raw data");
}

std::string test::bigTiffFile(pinorama::ByteOrder order, int pointerType, std::string_view xmp)
{
    const auto half = [order](std::size_t value) {
        return bytes16(order, static_cast<std::uint16_t>(value));
    };
    const auto wide = [order](std::uint64_t value) {
        const std::string low = bytes32(order, static_cast<std::uint32_t>(value));
        const std::string high = bytes32(order, static_cast<std::uint32_t>(value >> 32));
        return order == ByteOrder::big ? high + low : low + high;
    };
    // Values of up to eight bytes stand in the entry.
    const auto entry = [&](std::size_t tag, std::size_t type, std::uint64_t count,
                           std::string value) {
        value.resize(8);
        return half(tag) + half(type) + wide(count) + value;
    };
    const auto degrees = [order](std::uint32_t whole, std::uint32_t minutes) {
        return bytes32(order, whole) + bytes32(order, 1) + bytes32(order, minutes) +
               bytes32(order, 1) + bytes32(order, 0) + bytes32(order, 1);
    };
    constexpr std::size_t kFirst = 16;
    constexpr std::size_t kGps = kFirst + 8 + 2 * 20 + 8;
    constexpr std::size_t kValues = kGps + 8 + 4 * 20 + 8;
    constexpr std::size_t kLatitudeSize = 24;
    const bool isShort = pointerType == 4 || pointerType == 13;
    const std::string pointer = isShort ? bytes32(order, kGps) : wide(kGps);
    return (order == ByteOrder::big ? "MM" : "II") + half(43) + half(8) + half(0) + wide(kFirst) +
           wide(2) + entry(0x02bc, 1, xmp.size(), wide(kValues + 2 * kLatitudeSize)) +
           entry(0x8825, static_cast<std::size_t>(pointerType), 1, pointer) + wide(0) +  //
           wide(4) + entry(1, 2, 2, "N") + entry(2, 5, 3, wide(kValues)) + entry(3, 2, 2, "E") +
           entry(4, 5, 3, wide(kValues + kLatitudeSize)) + wide(0) +  //
           degrees(48, 30) + degrees(2, 15) + str(xmp);
}

std::string test::jxlFile(std::string_view tiff, std::string_view xmp, std::string_view codestream)
{
    return isoBox("JXL ", "\x0d\x0a\x87\x0a") + isoBox("ftyp", "jxl \0\0\0\0jxl "s) +
           isoBox("Exif", big32(0) + str(tiff)) + isoBox("xml ", xmp) + isoBox("jxlc", codestream);
}

std::string test::pngChunk(std::string_view type, std::string_view data)
{
    return big32(static_cast<std::uint32_t>(data.size())) + str(type) + str(data) + big32(0);
}

std::string test::pngXmpChunk(std::string_view xmp, bool isCompressed)
{
    return pngChunk("iTXt", "XML:com.adobe.xmp\0"s + (isCompressed ? '\1' : '\0') +
                                "\0en\0keyword\0"s + str(xmp));
}

std::string test::pngFile(const std::vector<std::string>& chunks)
{
    std::string png = "\x89PNG\r\n\x1a\n" + pngChunk("IHDR", std::string(13, '\1'));
    for (const std::string& chunk : chunks) png += chunk;
    return png + pngChunk("IEND", "");
}

std::string test::webpChunk(std::string_view type, std::string_view data)
{
    return str(type) + little32(static_cast<std::uint32_t>(data.size())) + str(data) +
           std::string(data.size() % 2, '\0');
}

std::string test::webpFile(const std::vector<std::string>& chunks)
{
    std::string content = "WEBP";
    for (const std::string& chunk : chunks) content += chunk;
    return "RIFF" + little32(static_cast<std::uint32_t>(content.size())) + content;
}

std::string test::gifFile(std::string_view xmp, bool isXmpLast)
{
    const std::string start = "GIF89a\1\0\1\0\x80\0\0"s + std::string(6, '\x7f');
    const std::string other = "\x21\xff\x0bNETSCAPE2.0\3\1\0\0\0"s;
    const std::string image = "\x2c\0\0\0\0\1\0\1\0\0\2\2\x44\1\0"s;
    std::string packet = "\x21\xff\x0bXMP DataXMP" + str(xmp) + '\1';
    for (int length = 255; length >= 0; length--) packet += static_cast<char>(length);
    packet += '\0';
    return start + other + (isXmpLast ? image + packet : packet + image) + ';';
}

std::string test::psdFile(std::string_view resources)
{
    const std::string header = "8BPS\0\1"s + std::string(6, '\0') + std::string(14, '\1');
    return header + big32(3) + "RGB" + big32(static_cast<std::uint32_t>(resources.size())) +
           str(resources) + big32(0);
}

std::string test::x3fFile(std::string_view jpeg)
{
    const std::string header = "FOVb" + std::string(36, '\0');
    const std::string section = "SECi" + std::string(24, '\0') + str(jpeg);
    const auto entry = [](std::uint32_t offset, std::uint32_t length, const char* type) {
        return little32(offset) + little32(length) + type;
    };
    const auto start = static_cast<std::uint32_t>(header.size());
    const auto length = static_cast<std::uint32_t>(section.size());
    const std::string directory = "SECd" + little32(0x20000) + little32(2) +
                                  entry(start, 4, "PROP") + entry(start, length, "IMA2");
    return header + section + directory + little32(start + length);
}

std::string test::xmpSegment(std::string_view xmp)
{
    return jpegSegment(0xe1, "http://ns.adobe.com/xap/1.0/\0"s + str(xmp));
}

std::string test::xmpPieceSegment(std::string_view name, std::uint32_t length, std::uint32_t offset,
                                  std::string_view piece)
{
    return jpegSegment(0xe1, "http://ns.adobe.com/xmp/extension/\0"s + str(name) + big32(length) +
                                 big32(offset) + str(piece));
}

std::string test::xmpPacket(std::string_view attributes, std::string_view elements)
{
    return "<?xpacket begin='\xef\xbb\xbf' id='W5M0MpCehiHzreSzNTczkc9d'?>"
           "<x:xmpmeta xmlns:x='adobe:ns:meta/'>"
           "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>\n"
           "<rdf:Description rdf:about='' xmlns:exif='http://ns.adobe.com/exif/1.0/'"
           " xmlns:photoshop='http://ns.adobe.com/photoshop/1.0/'"
           " xmlns:dc='http://purl.org/dc/elements/1.1/'"
           " xmlns:Iptc4xmpExt='http://iptc.org/std/Iptc4xmpExt/2008-02-29/' " +
           str(attributes) + ">\n" + str(elements) +
           "\n</rdf:Description></rdf:RDF></x:xmpmeta>\n<?xpacket end='w'?>";
}
