#include "pictures/xmp_packet.h"

#include "pictures/xmp_values.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::viewOf;
using namespace std::string_literals;

namespace {
std::optional<PictureProperties> read(const std::string& packet, std::string_view language = "en")
{
    MemoryByteSource source(viewOf(packet));
    return readXmp(ByteBlock(source), language);
}

// The properties of a packet whose description has these attributes and elements.
PictureProperties of(std::string_view attributes, std::string_view elements = {},
                     std::string_view language = "en")
{
    return read(test::xmpPacket(attributes, elements), language).value_or(PictureProperties{});
}

std::string inUTF16(const std::string& ascii, bool isBig, const char* mark)
{
    std::string bytes = mark;
    for (const char letter : ascii) {
        if (isBig) bytes += '\0';
        bytes += letter;
        if (!isBig) bytes += '\0';
    }
    return bytes;
}
}  // namespace

TEST(coordinateOfXmp, readsEveryForm)
{
    const struct {
        const char* text;
        const char* reference;
        double degrees;
        char letter;
    } rows[] = {
        {"48,51.504N", "", 48.8584, 'N'}, {"48,51,30.24N", "", 48.8584, 'N'},
        {"48,51.504S", "", 48.8584, 'S'}, {"48,51.504S", "N", 48.8584, 'S'},
        {"48,51.504s", "", 48.8584, 'S'}, {"48.8584N", "", 48.8584, 'N'},
        {"48.8584", "", 48.8584, 'N'},    {"-48.8584", "", 48.8584, 'S'},
        {"+48.8584", "", 48.8584, 'N'},   {"48.8584", "S", 48.8584, 'S'},
        {"-48.8584", "N", 48.8584, 'N'},  {"48.8584", "South", 48.8584, 'S'},
        {"48.8584", "?", 48.8584, 'N'},   {" 48,51.504N\n", "", 48.8584, 'N'},
        {"0,0N", "", 0.0, 'N'},           {"90,0N", "", 90.0, 'N'},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const auto found = coordinateOfXmp(row.text, row.reference, "NS", 90.0);
        ASSERT_TRUE(found);
        EXPECT_NEAR(found->degrees, row.degrees, 1e-9);
        EXPECT_EQ(found->letter, row.letter);
    }
}

TEST(coordinateOfXmp, refusesWhatIsNone)
{
    for (const char* text :
         {"", " ", "N", "48,51.504", "55/1 54/1 4074/100", "48,51.504E", "48,,30N", "48,51,30,1N",
          "-48,51N", "48,-51N", "90,1N", "91", "inf", "nan", "1e1", "0x10", "48;51N", "48 51N"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(coordinateOfXmp(text, "", "NS", 90.0));
    }
}

TEST(numberOfXmp, readsRationalsAndDecimals)
{
    EXPECT_EQ(numberOfXmp("633/5"), 126.6);
    EXPECT_EQ(numberOfXmp("-25/2"), -12.5);
    EXPECT_EQ(numberOfXmp(" 126.6 "), 126.6);
    for (const char* text : {"", "1/0", "0/0", "1/", "/1", "1/2/3", "inf", "a"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(numberOfXmp(text));
    }
}

TEST(readXmp, readsThePositionFromAttributesAndElements)
{
    const PictureProperties attributes =
        of("exif:GPSLatitude='33,51.4S' exif:GPSLongitude='151,12.9E' exif:GPSAltitude='125/10'"
           " exif:GPSAltitudeRef='1' exif:GPSImgDirection='27125/100' exif:GPSDestDistance='3/2'"
           " exif:GPSImgDirectionRef='M'"
           " exif:GPSDestDistanceRef='K' exif:GPSSatellites='tilt:45'");
    EXPECT_NEAR(*attributes.latitude, 33 + 51.4 / 60, 1e-12);
    EXPECT_EQ(attributes.latitudeReference, u"S");
    EXPECT_NEAR(*attributes.longitude, 151 + 12.9 / 60, 1e-12);
    EXPECT_EQ(attributes.longitudeReference, u"E");
    EXPECT_EQ(attributes.altitude, 12.5);
    EXPECT_EQ(attributes.altitudeReference, 1);
    EXPECT_EQ(attributes.imageDirection, 271.25);
    EXPECT_EQ(attributes.imageDirectionReference, u"M");
    EXPECT_EQ(attributes.destinationDistance, 1.5);
    EXPECT_EQ(attributes.destinationDistanceReference, u"K");
    EXPECT_EQ(attributes.satellites, u"tilt:45");
    EXPECT_TRUE(attributes.hasGps);
    EXPECT_FALSE(attributes.hasIptc);
    EXPECT_EQ(attributes.sources, ValueSources::all(ValueSource::xmp));

    const PictureProperties elements =
        of("",
           "<exif:GPSLatitude>33,51.4S</exif:GPSLatitude>"
           "<exif:GPSLongitude>151,12.9E</exif:GPSLongitude>"
           "<exif:GPSAltitude>125/10</exif:GPSAltitude><exif:GPSAltitudeRef>1</exif:GPSAltitudeRef>"
           "<exif:GPSImgDirection>27125/100</exif:GPSImgDirection>"
           "<exif:GPSImgDirectionRef>M</exif:GPSImgDirectionRef>"
           "<exif:GPSDestDistance>3/2</exif:GPSDestDistance>"
           "<exif:GPSDestDistanceRef>K</exif:GPSDestDistanceRef>"
           "<exif:GPSSatellites>tilt:45</exif:GPSSatellites>");
    EXPECT_EQ(elements, attributes);
}

TEST(readXmp, aReferenceOfItsOwnCountsForPlainDegrees)
{
    const PictureProperties properties = of("",
                                            "<exif:GPSLongitude>63.5697</exif:GPSLongitude>"
                                            "<exif:GPSLongitudeRef>W</exif:GPSLongitudeRef>"
                                            "<exif:GPSLatitude>44.6462</exif:GPSLatitude>");
    EXPECT_EQ(properties.longitude, 63.5697);
    EXPECT_EQ(properties.longitudeReference, u"W");
    EXPECT_EQ(properties.latitudeReference, u"N");
}

TEST(readXmp, aNegativeAltitudeIsBelowTheSea)
{
    const PictureProperties properties = of("exif:GPSAltitude='-12.5'");
    EXPECT_EQ(properties.altitude, 12.5);
    EXPECT_EQ(properties.altitudeReference, 1);
}

TEST(readXmp, readsThePlaceTexts)
{
    const PictureProperties properties =
        of("photoshop:City='K\xc3\xb6ln' photoshop:State='&amp;'",
           "<photoshop:Country><![CDATA[Germany]]></photoshop:Country>"
           "<dc:description>plain</dc:description>");
    EXPECT_EQ(properties.city, u"K\u00f6ln");
    EXPECT_EQ(properties.state, u"&");
    EXPECT_EQ(properties.country, u"Germany");
    EXPECT_EQ(properties.caption, u"plain");
    EXPECT_TRUE(properties.hasIptc);
    EXPECT_FALSE(properties.hasGps);
}

TEST(readXmp, theLocationCreatedServesWhereThereIsNoOther)
{
    const char* const kLocations[] = {
        "<Iptc4xmpExt:LocationCreated><rdf:Bag><rdf:li rdf:parseType='Resource'>"
        "<Iptc4xmpExt:City>Rome</Iptc4xmpExt:City>"
        "<Iptc4xmpExt:ProvinceState>Lazio</Iptc4xmpExt:ProvinceState>"
        "<Iptc4xmpExt:CountryName>Italy</Iptc4xmpExt:CountryName>"
        "</rdf:li></rdf:Bag></Iptc4xmpExt:LocationCreated>",
        "<Iptc4xmpExt:LocationCreated><rdf:Bag><rdf:li><rdf:Description Iptc4xmpExt:City='Rome'"
        " Iptc4xmpExt:ProvinceState='Lazio' Iptc4xmpExt:CountryName='Italy'/></rdf:li></rdf:Bag>"
        "</Iptc4xmpExt:LocationCreated>",
        "<Iptc4xmpExt:LocationCreated Iptc4xmpExt:City='Rome' Iptc4xmpExt:ProvinceState='Lazio'"
        " Iptc4xmpExt:CountryName='Italy'/>",
    };
    for (const char* location : kLocations) {
        SCOPED_TRACE(location);
        const PictureProperties properties = of("photoshop:Country='France'", location);
        EXPECT_EQ(properties.city, u"Rome");
        EXPECT_EQ(properties.state, u"Lazio");
        EXPECT_EQ(properties.country, u"France");
    }
    // What the picture shows is not where it was taken, and a city in no location means nothing.
    const PictureProperties shown = of("Iptc4xmpExt:City='Oslo'",
                                       "<Iptc4xmpExt:LocationShown><rdf:Bag>"
                                       "<rdf:li rdf:parseType='Resource'>"
                                       "<Iptc4xmpExt:City>Rome</Iptc4xmpExt:City>"
                                       "<exif:GPSLatitude>1,2N</exif:GPSLatitude>"
                                       "<photoshop:City>Rome</photoshop:City>"
                                       "</rdf:li></rdf:Bag></Iptc4xmpExt:LocationShown>");
    EXPECT_FALSE(shown.city);
    EXPECT_FALSE(shown.latitude);
}

TEST(readXmp, theDefaultCaptionCountsThenThatOfTheUser)
{
    const auto caption = [](const char* items, const char* language) {
        const std::string element =
            "<dc:description><rdf:Alt>"s + items + "</rdf:Alt></dc:description>";
        return of("", element, language).caption;
    };
    const char* const kAll =
        "<rdf:li xml:lang='fr'>un</rdf:li>"
        "<rdf:li xml:lang='de-CH'>eins</rdf:li>"
        "<rdf:li xml:lang='de-AT'>ans</rdf:li>"
        "<rdf:li xml:lang='x-default'>one</rdf:li>";
    const char* const kNoDefault =
        "<rdf:li xml:lang='fr'>un</rdf:li>"
        "<rdf:li xml:lang='de-CH'>eins</rdf:li>"
        "<rdf:li xml:lang='de-AT'>ans</rdf:li>";
    EXPECT_EQ(caption(kAll, "de_AT.UTF-8"), u"one");
    EXPECT_EQ(caption(kNoDefault, "de_AT.UTF-8"), u"ans");
    EXPECT_EQ(caption(kNoDefault, "de"), u"eins");
    EXPECT_EQ(caption(kNoDefault, "DE-de"), u"eins");
    EXPECT_EQ(caption(kNoDefault, "it"), u"un");
    EXPECT_EQ(caption(kNoDefault, ""), u"un");
    EXPECT_EQ(caption("<rdf:li>one</rdf:li>", "de"), u"one");
}

TEST(readXmp, blankAndMalformedValuesAreAbsent)
{
    const PictureProperties properties =
        of("photoshop:City=' \n' photoshop:State='' exif:GPSLatitude='55/1 54/1 4074/100'"
           " exif:GPSLongitude='200' exif:GPSAltitude='0/0' exif:GPSImgDirection='north'");
    PictureProperties nothing;
    nothing.sources = ValueSources::all(ValueSource::xmp);
    EXPECT_EQ(properties, nothing);
}

TEST(readXmp, prefixesMayBeAnyAndNamespacesMayNot)
{
    const auto city = [](const std::string& document) {
        const auto properties = read(document);
        return properties ? properties->city : std::nullopt;
    };
    const std::string rdf = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
    EXPECT_EQ(city("<r:RDF xmlns:r='" + rdf +
                   "'><r:Description>"
                   "<City xmlns='http://ns.adobe.com/photoshop/1.0/'>Rome</City>"
                   "</r:Description></r:RDF>"),
              u"Rome");
    EXPECT_EQ(city("<rdf:RDF xmlns:rdf='" + rdf +
                   "'><rdf:Description xmlns:photoshop='other'"
                   " photoshop:City='Rome'/></rdf:RDF>"),
              std::nullopt);
}

TEST(readXmp, readsUTF16)
{
    const std::string packet =
        "<x:xmpmeta xmlns:x='adobe:ns:meta/'><rdf:RDF xmlns:rdf="
        "'http://www.w3.org/1999/02/22-rdf-syntax-ns#'><rdf:Description"
        " xmlns:p='http://ns.adobe.com/photoshop/1.0/' p:City='Rome'/>"
        "</rdf:RDF></x:xmpmeta>";
    for (const std::string& bytes :
         {packet, "\xef\xbb\xbf" + packet, inUTF16(packet, true, "\xfe\xff"),
          inUTF16(packet, true, ""), inUTF16(packet, false, "\xff\xfe"), inUTF16(packet, false, ""),
          inUTF16(packet, true, "\xfe\xff") + "x"}) {
        const auto properties = read(bytes);
        ASSERT_TRUE(properties);
        EXPECT_EQ(properties->city, u"Rome");
    }
}

TEST(readXmp, whatStandsBeforeAFaultCounts)
{
    const std::string packet = test::xmpPacket("",
                                               "<photoshop:City>Rome</photoshop:City>&unknown;"
                                               "<photoshop:State>Lazio</photoshop:State>");
    const auto properties = read(packet);
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->city, u"Rome");
    EXPECT_FALSE(properties->state);
    // Nor is more read than the longest packet.
    const auto longOne = read(test::xmpPacket(
        "photoshop:City='Rome'",
        std::string(kMaxXmpLength, ' ') + "<photoshop:State>Lazio</photoshop:State>"));
    ASSERT_TRUE(longOne);
    EXPECT_EQ(longOne->city, u"Rome");
    EXPECT_FALSE(longOne->state);
}

TEST(readXmp, refusesWhatIsNoXmp)
{
    const std::string rdf = "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'/>";
    EXPECT_TRUE(read(rdf));
    for (const std::string& bytes :
         {""s, "text"s, "\0\1\2\3"s, "<a/>"s, "<svg>" + rdf + "</svg>", "<!DOCTYPE a>" + rdf}) {
        SCOPED_TRACE(bytes);
        EXPECT_FALSE(read(bytes));
    }
}
