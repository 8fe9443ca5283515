#include "pictures/extended_xmp.h"

#include "pictures/more_properties.h"
#include "pictures/xmp_packet.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <random>

using namespace pinorama;

using test::viewOf;
using namespace std::string_literals;

namespace {
const std::string kName = "0123456789ABCDEF0123456789ABCDEF";
const std::string kOtherName = "FEDCBA9876543210FEDCBA9876543210";
const std::string kDocument =
    test::xmpPacket("exif:GPSLatitude='10,30S' exif:GPSLongitude='20,15W' photoshop:City='Rome'",
                    "<dc:description>" + std::string(3000, 'd') + "</dc:description>");

// A packet that names a further document, and has a city of its own if there is one.
std::string packetNaming(const std::string& name, const std::string& city = {})
{
    std::string attributes = "xmlns:xmpNote='http://ns.adobe.com/xmp/note/'";
    if (!name.empty()) attributes += " xmpNote:HasExtendedXMP='" + name + "'";
    if (!city.empty()) attributes += " photoshop:City='" + city + "'";
    return test::xmpPacket(attributes);
}

std::string pieceOf(const std::string& document, std::size_t offset, std::size_t length,
                    const std::string& name = kName)
{
    return test::xmpPieceSegment(name, static_cast<std::uint32_t>(document.size()),
                                 static_cast<std::uint32_t>(offset),
                                 document.substr(offset, length));
}

std::string jpegWith(const std::string& packet, const std::vector<std::string>& pieces)
{
    std::string segments = test::xmpSegment(packet);
    for (const std::string& piece : pieces) segments += piece;
    return test::jpegPicture({segments});
}

std::optional<PictureProperties> readMore(const std::string& bytes)
{
    MemoryByteSource source(viewOf(bytes));
    return readMoreProperties(source, "en");
}

std::string joined(const std::string& packet, const std::vector<std::string>& pieces)
{
    const std::string jpeg = jpegWith(packet, pieces);
    MemoryByteSource source(viewOf(jpeg));
    const std::vector<std::uint8_t> bytes =
        extendedXmp(findJpegMetadata(ByteBlock(source), WithXmp::yes).xmp);
    return {bytes.begin(), bytes.end()};
}
}  // namespace

TEST(extendedXmp, joinsThePiecesByTheirOffsets)
{
    const std::string first = pieceOf(kDocument, 0, 1000);
    const std::string second = pieceOf(kDocument, 1000, 1000);
    const std::string third = pieceOf(kDocument, 2000, kDocument.size());
    const std::string packet = packetNaming(kName);
    const struct {
        const char* name;
        std::vector<std::string> pieces;
        std::string expected;
    } rows[] = {
        {"none", {}, ""},
        {"one", {pieceOf(kDocument, 0, kDocument.size())}, kDocument},
        {"in order", {first, second, third}, kDocument},
        {"in another order", {third, first, second}, kDocument},
        {"twice", {first, first, second, third, second}, kDocument},
        {"overlapping", {first, pieceOf(kDocument, 500, 2000), third}, kDocument},
        {"one within another", {first, pieceOf(kDocument, 100, 10), second, third}, kDocument},
        {"without the start", {second, third}, ""},
        {"with a gap", {first, third}, kDocument.substr(0, 1000)},
        {"empty ones",
         {pieceOf(kDocument, 0, 0), first, pieceOf(kDocument, 1000, 0)},
         kDocument.substr(0, 1000)},
        {"of another document",
         {pieceOf("other", 0, 5, kOtherName), first, pieceOf("text", 0, 4, kOtherName), second},
         kDocument.substr(0, 2000)},
        {"half a header",
         {test::jpegSegment(0xe1, "http://ns.adobe.com/xmp/extension/\0"s + kName), first},
         kDocument.substr(0, 1000)},
        {"a wrong length, which nobody needs",
         {test::xmpPieceSegment(kName, 0xffffffff, 0, kDocument.substr(0, 1000)),
          test::xmpPieceSegment(kName, 0, 1000, kDocument.substr(1000))},
         kDocument},
        {"offsets beyond everything",
         {test::xmpPieceSegment(kName, 10, 0xffffffff, "far"),
          test::xmpPieceSegment(kName, 10, 0x80000000, "far"), first},
         kDocument.substr(0, 1000)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(joined(packet, row.pieces), row.expected);
    }
}

TEST(extendedXmp, isOnlyWhatThePacketNames)
{
    const std::string piece = pieceOf(kDocument, 0, kDocument.size());
    EXPECT_EQ(joined(packetNaming(""), {piece}), "");
    EXPECT_EQ(joined(packetNaming(kOtherName), {piece}), "");
    EXPECT_EQ(joined(packetNaming(kName.substr(1)), {piece}), "") << "a name that is too short";
    EXPECT_EQ(joined("no XML", {piece}), "");
    EXPECT_EQ(joined("", {piece}), "");
    const std::string element =
        test::xmpPacket("xmlns:n='http://ns.adobe.com/xmp/note/'",
                        "<n:HasExtendedXMP>" + kName + "</n:HasExtendedXMP>");
    EXPECT_EQ(joined(element, {piece}), kDocument);
    const std::string foreign = test::xmpPacket("photoshop:HasExtendedXMP='" + kName + "'");
    EXPECT_EQ(joined(foreign, {piece}), "") << "a name in another namespace";
}

TEST(extendedXmp, isNoLongerThanAPacketMayBe)
{
    const std::string document(kMaxXmpLength + 100000, 'x');
    std::vector<std::string> pieces;
    for (std::size_t at = 0; at < document.size(); at += 65000) {
        pieces.push_back(pieceOf(document, at, 65000));
    }
    EXPECT_EQ(joined(packetNaming(kName), pieces), document.substr(0, kMaxXmpLength));
}

TEST(extendedXmp, isOfAFewPiecesAtMost)
{
    std::vector<std::string> pieces(JpegXmp::kMaxPieces - 1, pieceOf("other", 0, 5, kOtherName));
    pieces.push_back(pieceOf(kDocument, 0, 1000));
    pieces.push_back(pieceOf(kDocument, 1000, 1000));
    EXPECT_EQ(joined(packetNaming(kName), pieces), kDocument.substr(0, 1000));
}

TEST(readMoreProperties, readsTheSecondPartOfALongPacket)
{
    const std::vector<std::string> pieces = {pieceOf(kDocument, 2000, kDocument.size()),
                                             pieceOf(kDocument, 0, 2000)};
    const std::string jpeg = jpegWith(packetNaming(kName, "Oslo"), pieces);
    for (const std::string& file : {jpeg, test::rafPicture(jpeg), test::x3fFile(jpeg)}) {
        const auto properties = readMore(file);
        ASSERT_TRUE(properties);
        EXPECT_EQ(properties->latitude, 10.5);
        EXPECT_EQ(properties->latitudeReference, u"S");
        EXPECT_EQ(properties->longitude, 20.25);
        EXPECT_EQ(properties->sources.position, ValueSource::xmp);
        EXPECT_EQ(properties->caption, std::u16string(3000, u'd'));
        EXPECT_EQ(properties->city, u"Oslo") << "what the packet itself says counts";
    }
    const auto other = readMore(jpegWith(packetNaming(kOtherName), pieces));
    ASSERT_TRUE(other);
    EXPECT_FALSE(other->latitude);
    EXPECT_FALSE(other->city);

    MemoryByteSource source(viewOf(jpeg));
    EXPECT_FALSE(readPictureProperties(source)->latitude) << "only where somebody asks for more";
}

TEST(readMoreProperties, survivesEveryDamageOfALongPacket)
{
    const std::string good = jpegWith(
        packetNaming(kName), {pieceOf(kDocument, 0, 1500), pieceOf(kDocument, 1500, 9000)});
    for (std::size_t size = 0; size < good.size(); size += 3) (void)readMore(good.substr(0, size));
    std::mt19937 random(1904);
    const auto start = std::chrono::steady_clock::now();
    int withPlace = 0;
    for (int i = 0; i < 4000; i++) {
        std::string bytes = good;
        for (std::uint32_t changes = random() % 3 + 1; changes != 0; --changes) {
            // Mostly where the headers of segments and pieces are.
            const std::size_t name = bytes.rfind("/extension/");
            const std::size_t at = random() % 2 == 0 ? name - 40 + random() % 100 : random();
            bytes[at % bytes.size()] = static_cast<char>(random());
        }
        const auto properties = readMore(bytes);
        withPlace += properties && properties->latitude ? 1 : 0;
    }
    EXPECT_GT(withPlace, 100);
    EXPECT_LT(withPlace, 3900);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(60));
}
