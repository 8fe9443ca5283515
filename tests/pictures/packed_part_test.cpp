#include "pictures/packed_part.h"

#include "pictures/more_properties.h"
#include "pictures/xmp_packet.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <dlfcn.h>

#include <cmath>
#include <string>

using namespace pinorama;

using test::viewOf;
using namespace std::string_literals;

namespace {
const std::string kXmp =
    test::xmpPacket("exif:GPSLatitude='10,30S' exif:GPSLongitude='20,15W' photoshop:City='Rome'");

std::string little(std::uint32_t value, int size)
{
    std::string bytes;
    for (int i = 0; i < size; i++) bytes += static_cast<char>(value >> (8 * i));
    return bytes;
}

// The text as zlib would store it without making it shorter.
// Source: RFC 1950; RFC 1951, 3.2.4.
std::string deflated(const std::string& text)
{
    std::string bytes = "\x78\x01";
    for (std::size_t at = 0; at < text.size(); at += 65535) {
        const std::string part = text.substr(at, 65535);
        const auto length = static_cast<std::uint32_t>(part.size());
        const bool isLast = at + part.size() == text.size();
        bytes += (isLast ? '\1' : '\0') + little(length, 2) + little(~length, 2) + part;
    }
    std::uint32_t a = 1, b = 0;
    for (const char c : text) {
        a = (a + static_cast<std::uint8_t>(c)) % 65521;
        b = (b + a) % 65521;
    }
    return bytes + test::big32(b << 16 | a);
}

// The same of Brotli.
// Source: RFC 7932, 9.2.
std::string brotli(const std::string& text)
{
    std::string bytes;
    for (std::size_t at = 0; at < text.size(); at += 65536) {
        const std::string part = text.substr(at, 65536);
        const auto length = static_cast<std::uint32_t>(part.size());
        // The window of the stream takes a bit of the first header.
        const std::uint32_t header = (length - 1) << 3 | 1u << 19;
        bytes += little(at == 0 ? header << 1 : header, 3) + part;
    }
    return bytes + '\3';
}

std::string packedChunk(const std::string& packed)
{
    return test::pngXmpChunk(packed, true);
}

std::string packedBox(const std::string& type, const std::string& packed)
{
    return test::isoBox("brob", type + packed);
}

std::string jxlWith(const std::string& boxes)
{
    return test::isoBox("JXL ", "\x0d\x0a\x87\x0a") + test::isoBox("ftyp", "jxl \0\0\0\0jxl "s) +
           boxes;
}

std::string unpackedText(const std::string& bytes, Packing packing)
{
    MemoryByteSource source(viewOf(bytes));
    const std::vector<std::uint8_t> text = unpacked({ByteBlock(source), packing});
    return {text.begin(), text.end()};
}

std::optional<PictureProperties> readMore(const std::string& bytes)
{
    MemoryByteSource source(viewOf(bytes));
    return readMoreProperties(source, "en");
}

bool has(const char* library)
{
    return dlopen(library, RTLD_NOW | RTLD_LOCAL) != nullptr;
}

const bool kHasZlib = has("libz.so.1");
const bool kHasBrotli = has("libbrotlidec.so.1");
}  // namespace

TEST(unpacked, unpacksNoMoreThanAPacketMayHave)
{
    const std::string longest(kMaxXmpLength, 'x');
    const struct {
        Packing packing;
        bool isThere;
        std::string (*pack)(const std::string& text);
    } rows[] = {{Packing::deflate, kHasZlib, deflated}, {Packing::brotli, kHasBrotli, brotli}};
    for (const auto& row : rows) {
        SCOPED_TRACE(static_cast<int>(row.packing));
        EXPECT_EQ(unpackedText("", row.packing), "");
        EXPECT_EQ(unpackedText("no packed data", row.packing), "");
        EXPECT_EQ(unpackedText(row.pack("text"), row.packing), row.isThere ? "text" : "");
        const std::string half = row.pack(longest).substr(0, kMaxXmpLength / 2);
        EXPECT_LE(unpackedText(half, row.packing).size(), kMaxXmpLength / 2);
        EXPECT_EQ(unpackedText(row.pack(longest), row.packing), "") << "too long as it is packed";
    }
    if (!kHasZlib) GTEST_SKIP() << "zlib is not installed";
    // 300,000 zeros.
    const std::string many = "\x78\xda\xed\xc1\x01\x0d\0\0\0\xc2\xa0\xf7\x4f\x6d\x0f\x07\x14"s +
                             std::string(290, '\0') + "\xfc\x18\x94\x1c\0\1"s;
    EXPECT_EQ(unpackedText(many, Packing::deflate), std::string(kMaxXmpLength, '\0'));
}

TEST(readMoreProperties, readsCompressedXmpOfPng)
{
    if (!kHasZlib) GTEST_SKIP() << "zlib is not installed";
    const auto properties = readMore(test::pngFile({packedChunk(deflated(kXmp))}));
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->latitude, 10.5);
    EXPECT_EQ(properties->latitudeReference, u"S");
    EXPECT_EQ(properties->city, u"Rome");
    EXPECT_EQ(properties->sources.position, ValueSource::xmp);

    const auto plain =
        readMore(test::pngFile({packedChunk(deflated(kXmp)),
                                test::pngXmpChunk(test::xmpPacket("photoshop:City='Oslo'"))}));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain->city, u"Oslo") << "what is not compressed counts";
    EXPECT_FALSE(plain->latitude);
}

TEST(readMoreProperties, readsCompressedBoxesOfJpegXl)
{
    if (!kHasBrotli) GTEST_SKIP() << "Brotli is not installed";
    const std::string tiff = test::tiffWithGps({.lat = 48.5, .latRef = "N", .lon = 2.25});
    const std::string exif = test::big32(0) + tiff;
    const auto both =
        readMore(jxlWith(packedBox("Exif", brotli(exif)) + packedBox("xml ", brotli(kXmp))));
    ASSERT_TRUE(both);
    EXPECT_EQ(both->latitude, 48.5);
    EXPECT_EQ(both->sources.position, ValueSource::exif);
    EXPECT_EQ(both->city, u"Rome");
    EXPECT_EQ(both->sources.city, ValueSource::xmp);

    const auto xmp = readMore(jxlWith(packedBox("xml ", brotli(kXmp))));
    ASSERT_TRUE(xmp);
    EXPECT_EQ(xmp->latitude, 10.5);
    const auto other = readMore(jxlWith(packedBox("jumb", brotli(kXmp))));
    ASSERT_TRUE(other);
    EXPECT_FALSE(other->latitude);
}

TEST(readMoreProperties, survivesEveryDamageOfCompressedParts)
{
    const std::string exif =
        test::big32(0) + test::tiffWithGps({.lat = 48.5, .latRef = "N", .lon = 2.25});
    const std::string files[] = {
        test::pngFile({packedChunk(deflated(kXmp))}),
        jxlWith(packedBox("Exif", brotli(exif)) + packedBox("xml ", brotli(kXmp))),
    };
    for (const std::string& file : files) {
        for (std::size_t size = 0; size < file.size(); size += 3) {
            (void)readMore(file.substr(0, size));
        }
        for (std::size_t i = 0; i < file.size(); i += 2) {
            std::string damaged = file;
            damaged[i] = static_cast<char>(damaged[i] ^ (i % 4 == 0 ? 0xff : 0x10));
            const auto properties = readMore(damaged);
            if (properties && properties->latitude) {
                EXPECT_TRUE(std::isfinite(*properties->latitude));
            }
        }
    }
}
