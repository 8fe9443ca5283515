#include "pictures/iptc_record.h"
#include "pictures/iptc_text.h"
#include "pictures/photoshop_resources.h"

#include "tests/support/byte_views.h"
#include "tests/support/icu_texts.h"
#include "tests/support/picture_builder.h"
#include "tests/support/random_texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::viewOf;
using namespace std::string_literals;

namespace {
PictureProperties textsOf(const std::string& record)
{
    MemoryByteSource source(viewOf(record));
    PictureProperties properties;
    readIptcRecord(ByteBlock(source), properties);
    return properties;
}

const std::string kUTF8Marker = test::iptcDataset(1, 90, "\x1b%G");
}  // namespace

TEST(readIptcRecord, readsTheFourTexts)
{
    const PictureProperties properties =
        textsOf(test::iptcDataset(2, 0, "\0\4"s) + test::iptcDataset(2, 25, "keyword") +
                test::iptcDataset(2, 90, "Rome") + test::iptcDataset(2, 95, "Lazio") +
                test::iptcDataset(2, 101, "Italy") + test::iptcDataset(2, 120, "A fountain"));
    EXPECT_TRUE(properties.hasIptc);
    EXPECT_EQ(properties.city, u"Rome");
    EXPECT_EQ(properties.state, u"Lazio");
    EXPECT_EQ(properties.country, u"Italy");
    EXPECT_EQ(properties.caption, u"A fountain");
    EXPECT_FALSE(properties.hasGps);
}

TEST(readIptcRecord, edges)
{
    const std::string city = test::iptcDataset(2, 90, "Rome");
    const struct {
        const char* name;
        std::string record;
        bool hasIptc;
        std::optional<std::u16string> city;
    } rows[] = {
        {"nothing", "", false, std::nullopt},
        {"no marker", "Rome", false, std::nullopt},
        {"other datasets only", test::iptcDataset(2, 5, "title"), true, std::nullopt},
        {"another record", test::iptcDataset(3, 90, "Rome"), true, std::nullopt},
        {"an empty text is present", test::iptcDataset(2, 90, ""), true, u""},
        {"a zero byte ends the text", test::iptcDataset(2, 90, "Rome\0Paris"s), true, u"Rome"},
        {"only zero bytes", test::iptcDataset(2, 90, "\0\0\0"s), true, u""},
        {"the first of two", city + test::iptcDataset(2, 90, "Paris"), true, u"Rome"},
        {"an empty first of two", test::iptcDataset(2, 90, "") + city, true, u""},
        {"nothing after foreign bytes", "\0\0"s + city, false, std::nullopt},
        {"what stands before foreign bytes", city + "\0\0\0\0\0"s, true, u"Rome"},
        {"longer than the record", "\x1c\2\x5a\0\5Rome"s, false, std::nullopt},
        {"a damaged dataset after it", city + "\x1c\2\x5f\x7f\xffL"s, true, u"Rome"},
        {"extended length of two bytes", "\x1c\2\x5a\x80\2\0\4Rome"s, true, u"Rome"},
        {"extended length of four bytes", "\x1c\2\x5a\x80\4\0\0\0\4Rome"s, true, u"Rome"},
        {"extended length of no bytes", "\x1c\2\x5a\x80\0"s, true, u""},
        {"extended length of five bytes", "\x1c\2\x5a\x80\5\0\0\0\0\4Rome"s, false, std::nullopt},
        {"extended length that is cut", "\x1c\2\x5a\x80\4\0\0"s, false, std::nullopt},
        {"extended length beyond the end", "\x1c\2\x5a\x80\4\xff\xff\xff\xffRome"s, false,
         std::nullopt},
        {"a cut header", "\x1c\2\x5a\0"s, false, std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const PictureProperties properties = textsOf(row.record);
        EXPECT_EQ(properties.hasIptc, row.hasIptc);
        EXPECT_EQ(properties.city, row.city);
    }
}

TEST(readIptcRecord, cutsTextsOfUnreasonableLength)
{
    const std::string text(200000, 'x');
    const PictureProperties properties =
        textsOf("\x1c\2\x78\x80\4\0"s + "\x03\x0d\x40" + text + test::iptcDataset(2, 90, "Rome"));
    ASSERT_TRUE(properties.caption);
    EXPECT_EQ(properties.caption->size(), 65536u);
    EXPECT_EQ(properties.city, u"Rome");
}

TEST(readIptcRecord, theMarkerSaysUTF8)
{
    const struct {
        const char* name;
        std::string record;
        std::u16string city;
    } rows[] = {
        {"declared", kUTF8Marker + test::iptcDataset(2, 90, "M\xc3\xbcnchen"), u"M\u00fcnchen"},
        {"declared and cut in a character",
         kUTF8Marker + test::iptcDataset(2, 90, "M\xc3\xbcnchen\xe2\x82"), u"M\u00fcnchen"},
        {"undeclared and cut in a character", test::iptcDataset(2, 90, "M\xfcnchen\xe2\x82"),
         u"M\u00fcnchen\u00e2\u201a"},
        {"wrongly declared", kUTF8Marker + test::iptcDataset(2, 90, "M\xfcnchen"), u"M\u00fcnchen"},
        {"another set declared",
         test::iptcDataset(1, 90, "\x1b.A") + test::iptcDataset(2, 90, "M\xfcnchen"),
         u"M\u00fcnchen"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(textsOf(row.record).city, row.city);
    }
}

TEST(decodeUndeclaredText, tellsTheCharacterSet)
{
    const struct {
        const char* name;
        std::string bytes;
        std::u16string expected;
    } rows[] = {
        {"empty", "", u""},
        {"ASCII", "Rome", u"Rome"},
        {"zero byte", "Rome\0\xff"s, u"Rome"},
        {"UTF-8", "Sk\xc3\xa5ne", u"Sk\u00e5ne"},
        {"UTF-8 beyond the basic plane", "\xf0\x9f\x98\x80", u"\U0001f600"},
        {"Windows letters", "M\xfcnchen", u"M\u00fcnchen"},
        {"Windows dash between blanks", "a \x96 b\xfc", u"a \u2013 b\u00fc"},
        {"Windows apostrophe between letters", "l\x92\xe9t\xe9", u"l\u2019\u00e9t\u00e9"},
        {"Windows trade mark after a letter", "Kodak\x99", u"Kodak\u2122"},
        {"Windows euro beside a digit", "5 \x80", u"5 \u20ac"},
        {"a Windows letter that touches no letter", " \x8a ", u" \u0160 "},
        {"a byte without a character", "\x81", u"\u0081"},
        {"MacRoman a with ring", "Sk\x8cne", u"Sk\u00e5ne"},
        {"MacRoman at the start", "\x80lg", u"\u00c4lg"},
        {"MacRoman at the end", "Universit\x88", u"Universit\u00e0"},
        {"MacRoman beside an upper letter", "\x9f\xc9", u"\u00fc\u2026"},
        {"the multiplication sign is no letter", "\x9f\xd7", u"\u0178\u00d7"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(decodeUndeclaredText(viewOf(row.bytes)), row.expected);
    }
}

TEST(findPhotoshopResource, findsTheFirstOfItsNumber)
{
    const std::string resources =
        test::photoshopResource(0x03ed, "odd") + test::photoshopResource(0x0404, "other", "PHUT") +
        test::photoshopResource(0x0404, "first") + test::photoshopResource(0x0404, "second");
    MemoryByteSource source(viewOf(resources));
    const ByteBlock found = findPhotoshopResource(ByteBlock(source), kIptcResource);
    EXPECT_EQ(found.length(), 5u);
    EXPECT_TRUE(found.beginsWith(viewOf("first")));
}

TEST(findPhotoshopResource, edges)
{
    const std::string wanted = test::photoshopResource(0x0404, "data");
    const struct {
        const char* name;
        std::string resources;
        std::string expected;
    } rows[] = {
        {"nothing", "", ""},
        {"a name of even length", "8BIM\4\4\4name\0\0\0\0\4data"s, "data"},
        {"a name of odd length", "8BIM\4\4\3abc\0\0\0\4data"s, "data"},
        {"a size beyond the end", "8BIM\4\4\0\0\xff\xff\xff\xff"s + "data", "data"},
        {"a size beyond the end before it", "8BIM\3\xed\0\0\xff\xff\xff\xff"s + wanted, ""},
        {"an unknown signature before it", test::photoshopResource(1, "x", "ABCD") + wanted, ""},
        {"other programs' resources before it",
         test::photoshopResource(1, "x", "AgHg") + test::photoshopResource(1, "x", "DCSR") +
             test::photoshopResource(1, "xy", "MeSa") + wanted,
         "data"},
        {"cut in the size", wanted.substr(0, 11), ""},
        {"cut in the name", "8BIM\4\4\xff" + std::string(20, 'n'), ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.resources));
        const ByteBlock found = findPhotoshopResource(ByteBlock(source), kIptcResource);
        EXPECT_EQ(found.length(), row.expected.size());
        EXPECT_TRUE(row.expected.empty() || found.beginsWith(viewOf(row.expected)));
    }
}

TEST(decodeUndeclaredText, hasTheUnitsOfUTF8OrOneForEachByte)
{
    test::forRandomBytes([](const std::string& bytes) {
        const std::string shown = bytes.substr(0, bytes.find('\0'));
        const std::u16string units = decodeUndeclaredText(viewOf(bytes));
        if (const auto expected = test::unitsByICU(shown)) {
            ASSERT_EQ(units, *expected);
            ASSERT_EQ(decodeUTF8Text(viewOf(bytes)), *expected);
        } else {
            ASSERT_EQ(units.size(), shown.size());
            ASSERT_EQ(units.find(u'\0'), units.npos);
        }
    });
}
