#include "pictures/exif_gps.h"

#include "tests/support/byte_views.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using namespace std::string_literals;

namespace {
constexpr auto kOrder = test::ByteOrder::little;

PictureProperties gpsOf(const std::vector<test::TiffField>& fields)
{
    const std::string bytes = test::tiffBlock({.fields = fields});
    MemoryByteSource source(test::viewOf(bytes));
    PictureProperties properties;
    const auto tiff = TiffBlock::open(ByteBlock(source));
    readGpsDirectory(*tiff, tiff->firstDirectory(), properties);
    return properties;
}

test::TiffField rationals(std::uint16_t tag, std::vector<test::Rational> values)
{
    return test::rationalField(kOrder, tag, std::move(values));
}

test::TiffField ofType(std::uint16_t type, test::TiffField field)
{
    field.type = type;
    return field;
}

constexpr std::uint32_t minus(std::uint32_t value)
{
    return ~value + 1;
}
}  // namespace

TEST(readGpsDirectory, foldsDegreesMinutesAndSeconds)
{
    const struct {
        const char* name;
        test::TiffField field;
        std::optional<double> expected;
    } rows[] = {
        {"three whole parts", rationals(2, {{36, 1}, {26, 1}, {54, 1}}),
         36.0 + 26.0 / 60.0 + 54.0 / 3600.0},
        {"minutes with fraction", rationals(2, {{33, 1}, {5400, 100}, {0, 1}}), 33.9},
        {"degrees only", rationals(2, {{481, 10}}), 48.1},
        {"degrees and minutes", rationals(2, {{48, 1}, {6, 1}}), 48.1},
        {"a fourth part is left alone", rationals(2, {{48, 1}, {6, 1}, {0, 1}, {9, 1}}), 48.1},
        {"zero", rationals(2, {{0, 1}, {0, 1}, {0, 1}}), 0.0},
        {"no range check", rationals(2, {{4294967295, 1}}), 4294967295.0},
        {"0/0 in every part", rationals(2, {{0, 0}, {0, 0}, {0, 0}}), std::nullopt},
        {"5/0 in every part", rationals(2, {{5, 0}, {5, 0}, {5, 0}}), std::nullopt},
        {"0/0 seconds", rationals(2, {{48, 1}, {6, 1}, {0, 0}}), 48.1},
        {"0/0 degrees", rationals(2, {{0, 0}, {6, 1}, {0, 1}}), 0.1},
        {"signed", ofType(10, rationals(2, {{48, 1}, {6, 1}, {0, 1}})), 48.1},
        {"negative", ofType(10, rationals(2, {{minus(48), 1}, {6, 1}, {0, 1}})), 48.1},
        {"negative denominator", ofType(10, rationals(2, {{48, minus(1)}})), 48.0},
        {"no items", rationals(2, {}), std::nullopt},
        {"text", test::asciiField(2, "52,00000,50,00000,34,01180"), std::nullopt},
        {"long integers", ofType(4, rationals(2, {{48, 6}})), std::nullopt},
        {"doubles", ofType(12, rationals(2, {{48, 1}})), std::nullopt},
        {"type 0", ofType(0, rationals(2, {{48, 1}})), std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const PictureProperties properties = gpsOf({row.field});
        EXPECT_TRUE(properties.hasGps);
        EXPECT_EQ(properties.latitude, row.expected);

        test::TiffField longitude = row.field;
        longitude.tag = 4;
        EXPECT_EQ(gpsOf({longitude}).longitude, row.expected);
    }
}

TEST(readGpsDirectory, aCoordinateThatEndsOutsideTheBlockIsAbsent)
{
    const std::string bytes =
        test::tiffBlock({.fields = {rationals(2, {{48, 1}, {6, 1}, {0, 1}})}});
    for (std::size_t size = bytes.size() - 24; size < bytes.size(); ++size) {
        SCOPED_TRACE(size);
        MemoryByteSource source(test::viewOf(bytes).first(size));
        PictureProperties properties;
        readGpsDirectory(*TiffBlock::open(ByteBlock(source)), 8, properties);
        EXPECT_TRUE(properties.hasGps);
        EXPECT_EQ(properties.latitude, std::nullopt);
    }
}

TEST(readGpsDirectory, readsNumbers)
{
    const struct {
        const char* name;
        test::TiffField field;
        std::optional<double> expected;
    } rows[] = {
        {"one rational", rationals(6, {{1428, 100}}), 14.28},
        {"of three the first", rationals(6, {{230, 1}, {0, 1}, {0, 1}}), 230.0},
        {"negative keeps its sign", ofType(10, rationals(6, {{minus(5), 2}})), -2.5},
        {"0/0", rationals(6, {{0, 0}}), std::nullopt},
        {"7/0", rationals(6, {{7, 0}}), std::nullopt},
        {"0/0 of several", rationals(6, {{0, 0}, {1, 1}}), std::nullopt},
        {"type 0", ofType(0, rationals(6, {{1, 1}})), std::nullopt},
        {"text", test::asciiField(6, "12 metres"), std::nullopt},
        {"one short integer", test::shortField(kOrder, 6, 12), std::nullopt},
        {"no items", rationals(6, {}), std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        test::TiffField field = row.field;
        EXPECT_EQ(gpsOf({field}).altitude, row.expected);
        field.tag = 17;
        EXPECT_EQ(gpsOf({field}).imageDirection, row.expected);
        field.tag = 26;
        EXPECT_EQ(gpsOf({field}).destinationDistance, row.expected);
    }
}

TEST(readGpsDirectory, readsWhatTheDirectionCountsFrom)
{
    EXPECT_EQ(gpsOf({test::asciiField(16, "M")}).imageDirectionReference, u"M");
    EXPECT_EQ(gpsOf({test::asciiField(16, "T")}).imageDirectionReference, u"T");
    EXPECT_FALSE(gpsOf({test::asciiField(16, "")}).imageDirectionReference);
    EXPECT_FALSE(gpsOf({test::shortField(kOrder, 16, 77)}).imageDirectionReference);
}

TEST(readGpsDirectory, readsTheAltitudeReference)
{
    const struct {
        const char* name;
        test::TiffField field;
        std::optional<std::int64_t> expected;
    } rows[] = {
        {"above", test::byteField(5, "\0"s), 0},
        {"below", test::byteField(5, "\1"), 1},
        {"anything else", test::byteField(5, "\xff"), 255},
        {"two bytes", test::byteField(5, "\0\x64"s), 0},
        {"a short integer", test::shortField(kOrder, 5, 1), 1},
        {"text", test::asciiField(5, "1"), std::nullopt},
        {"no byte", test::byteField(5, ""), std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(gpsOf({row.field}).altitudeReference, row.expected);
    }
}

TEST(readGpsDirectory, readsReferencesAsTheyAre)
{
    const struct {
        const char* name;
        test::TiffField field;
        std::optional<std::u16string> expected;
    } rows[] = {
        {"a letter", test::asciiField(1, "N"), u"N"},
        {"without a zero byte", {1, 2, 1, "S"}, u"S"},
        {"lower case", test::asciiField(1, "s"), u"s"},
        {"a digit", test::asciiField(1, "3"), u"3"},
        {"a blank", test::asciiField(1, " "), u" "},
        {"a word", test::asciiField(1, "North"), u"North"},
        {"UTF-8 type", {1, 129, 2, "N\0"s}, u"N"},
        {"a zero byte only", test::asciiField(1, ""), std::nullopt},
        {"a zero byte first", {1, 2, 2, "\0N"s}, std::nullopt},
        {"empty", {1, 2, 0, ""}, std::nullopt},
        {"a byte", test::byteField(1, "N"), std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        test::TiffField field = row.field;
        EXPECT_EQ(gpsOf({field}).latitudeReference, row.expected);
        field.tag = 3;
        EXPECT_EQ(gpsOf({field}).longitudeReference, row.expected);
        field.tag = 8;
        EXPECT_EQ(gpsOf({field}).satellites, row.expected);
        field.tag = 25;
        EXPECT_EQ(gpsOf({field}).destinationDistanceReference, row.expected);
    }
}

TEST(readGpsDirectory, cutsTextsOfUnreasonableLength)
{
    const PictureProperties properties = gpsOf({test::asciiField(8, std::string(100000, 'x'))});
    ASSERT_TRUE(properties.satellites);
    EXPECT_EQ(properties.satellites->size(), 4096u);
}

TEST(readGpsDirectory, aDirectoryOutsideTheBlockIsNone)
{
    const std::string bytes = test::tiffBlock({});
    MemoryByteSource source(test::viewOf(bytes));
    const auto tiff = TiffBlock::open(ByteBlock(source));
    for (const std::uint64_t offset : {0u, 4u, 8u, 13u, 14u, 0xffffffffu}) {
        SCOPED_TRACE(offset);
        PictureProperties properties;
        readGpsDirectory(*tiff, offset, properties);
        EXPECT_EQ(properties, PictureProperties{});
    }
}
