// Where the names of a packet end.

#include "pictures/xmp_names.h"

#include "pictures/xmp_packet.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <optional>
#include <string>

using namespace pinorama;

namespace {
// Settings of a raw converter: names that nobody looks for.
std::string settings(int count)
{
    std::string text;
    for (int i = 0; i < count; i++) text += " crs:Contrast" + std::to_string(i) + "='+7'";
    return text;
}

std::optional<PictureProperties> read(const std::string& document)
{
    MemoryByteSource source(test::viewOf(document));
    return readXmp(ByteBlock(source), "en");
}
}  // namespace

TEST(endOfXmpNames, isAfterTheLastNameWhereverItIs)
{
    for (const char* name :
         {"exif:GPSLatitude='1,0N'", "photoshop:City='x'", "photoshop:State='x'",
          "photoshop:Country='x'", "<dc:description/>", "<City>x</City>", "</description>",
          "Iptc4xmpExt:ProvinceState='x'", "Iptc4xmpExt:CountryName='x'", "/Country='x'"}) {
        SCOPED_TRACE(name);
        const std::string named = name;
        // In front of the name.
        const std::size_t sign = named.find_last_of(":</", named.find_first_of("='>") - 2);
        for (std::size_t before = 0; before < 200; before++) {
            for (const std::size_t after : {0, 1, 57, 63, 64, 65, 500}) {
                const std::string document =
                    std::string(before, ' ') + named + std::string(after, ' ');
                ASSERT_GT(endOfXmpNames(document), before + sign) << before << " " << after;
            }
        }
    }
}

TEST(endOfXmpNames, leavesOutWhatHasNoNames)
{
    const std::string named = "<rdf:Description photoshop:City='Rome'";
    const std::string document = named + std::string(5000, ' ');
    EXPECT_LE(endOfXmpNames(document), named.size() + 80);
    EXPECT_LE(endOfXmpNames(std::string(5000, 'C')), 80u);
    EXPECT_EQ(endOfXmpNames(""), 0u);
    EXPECT_EQ(endOfXmpNames(":Cit"), 4u);
}

TEST(readXmp, findsValuesBeforeAndAfterManySettings)
{
    const std::string many = "xmlns:crs='http://ns.adobe.com/camera-raw-settings/1.0/'";
    for (const bool isFirst : {true, false}) {
        const std::string city = " photoshop:City='Rome' ";
        const auto found = read(
            test::xmpPacket(many + (isFirst ? city : "") + settings(200) + (isFirst ? "" : city)));
        ASSERT_TRUE(found);
        EXPECT_EQ(found->city, u"Rome");
    }
    EXPECT_TRUE(read(test::xmpPacket(many + settings(200)))) << "a packet without any value";
}

TEST(readXmp, findsTheValueOfAnOpenPropertyAfterTheLastName)
{
    const std::string packet = test::xmpPacket("");
    const std::size_t end = packet.find("</rdf:RDF");
    ASSERT_NE(end, std::string::npos);
    const std::string start =
        packet.substr(0, packet.rfind("<rdf:Description", end)) +
        "<rdf:Description xmlns:dc='http://purl.org/dc/elements/1.1/'><dc:description>";
    // It is cut off in front of the end of the property.
    const auto found = read(start + std::string(300, ' ') + "<rdf:Alt><rdf:li>A view</rdf:li>");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->caption, u"A view");
}

TEST(readXmp, readsNothingAfterTheEndOfThePacket)
{
    const std::string packet = test::xmpPacket("photoshop:City='Rome'");
    const std::size_t end = packet.find("</rdf:RDF");
    ASSERT_NE(end, std::string::npos);
    // The elements of the packet are still open where it ends.
    const std::string open = packet.substr(0, end) + "<?xpacket end='w'?>";
    const std::string more =
        "<rdf:Description xmlns:photoshop='http://ns.adobe.com/photoshop/1.0/' "
        "photoshop:State='Lazio'/>";
    const auto found = read(open + more + packet.substr(end));
    ASSERT_TRUE(found);
    EXPECT_EQ(found->city, u"Rome");
    EXPECT_FALSE(found->state);
    EXPECT_TRUE(read(packet.substr(0, end) + more + packet.substr(end))->state);
}
