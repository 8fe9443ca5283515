#include "pictures/exif_time.h"

#include "pictures/picture_file.h"
#include "tests/support/byte_views.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <chrono>

using namespace pinorama;

namespace {
using std::chrono::sys_days;
using std::chrono::year;

constexpr std::int64_t kDay =
    std::int64_t{24} * 3600 * sys_days(year(2026) / 5 / 3).time_since_epoch().count();
constexpr std::int64_t kTime = kDay + 14 * 3600 + 3 * 60 + 22;  // 2026-05-03 14:03:22

PictureProperties propertiesOf(const test::PictureFields& fields)
{
    const std::string bytes = test::pictureWithGps(fields);
    MemoryByteSource source(test::viewOf(bytes));
    return readPictureProperties(source).value_or(PictureProperties{});
}
}  // namespace

TEST(readExifTime, prefersTheTimeThatKnowsItsOffset)
{
    const std::vector<test::Rational> noon = {{12, 1}, {0, 1}, {599, 100}};
    const struct {
        const char* name;
        test::PictureFields fields;
        std::optional<std::int64_t> taken, offset;
    } rows[] = {
        {"nothing", {}, std::nullopt, std::nullopt},
        {"clock alone", {.taken = "2026:05:03 14:03:22"}, kTime, std::nullopt},
        {"clock and offset",
         {.taken = "2026:05:03 14:03:22",
          .takenOffset = "+02:00",
          .gpsDate = "2026:05:03",
          .gpsTime = noon},
         kTime,
         120},
        {"west", {.taken = "2026:05:03 14:03:22", .takenOffset = "-03:30"}, kTime, -210},
        {"satellites rather than a clock without an offset",
         {.taken = "2026:05:03 14:03:22", .gpsDate = "2026:05:03", .gpsTime = noon},
         kDay + 12 * 3600 + 5,
         0},
        {"satellites before there were any",
         {.taken = "2026:05:03 14:03:22", .gpsDate = "1915:08:08", .gpsTime = noon},
         kTime,
         std::nullopt},
        {"satellites rather than a clock of the year 1",
         {.taken = "0001:01:01 00:00:00",
          .takenOffset = "+02:00",
          .gpsDate = "2026:05:03",
          .gpsTime = noon},
         kDay + 12 * 3600 + 5,
         0},
        {"satellites without a date",
         {.taken = "2026:05:03 14:03:22", .gpsTime = noon},
         kTime,
         std::nullopt},
        {"offset alone", {.takenOffset = "+02:00"}, std::nullopt, std::nullopt},
        {"big endian",
         {.taken = "2026:05:03 14:03:22", .takenOffset = "Z", .order = test::ByteOrder::big},
         kTime,
         std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const PictureProperties properties = propertiesOf(row.fields);
        EXPECT_EQ(properties.taken, row.taken);
        EXPECT_EQ(properties.takenOffset, row.offset);
    }
}

TEST(readExifTime, saysWhetherTheSatellitesDatedThePicture)
{
    const std::vector<test::Rational> noon = {{12, 1}, {0, 1}, {5, 1}};
    EXPECT_TRUE(propertiesOf({.gpsDate = "2026:05:03", .gpsTime = noon}).isTakenBySatellites);
    // The camera's clock counts first, also if it is in UTC.
    EXPECT_FALSE(propertiesOf({.taken = "2026:05:03 14:03:22",
                               .takenOffset = "+00:00",
                               .gpsDate = "2026:05:03",
                               .gpsTime = noon})
                     .isTakenBySatellites);
    EXPECT_FALSE(propertiesOf({.taken = "2026:05:03 14:03:22"}).isTakenBySatellites);
    EXPECT_FALSE(propertiesOf({.gpsTime = noon}).isTakenBySatellites);
}

TEST(readExifTime, takesNoTimeThatNoClockShows)
{
    for (const char* text :
         {"0000:00:00 00:00:00", "    :  :     :  :  ", "2026:13:03 14:03:22",
          "2026:02:30 14:03:22", "2026:05:03 24:00:00", "2026:05:03 14:60:22",
          "2026:05:03 14:03:60", "2026:05:03 14:03", "2026:05:03", "", "-026:05:03 14:03:22",
          "yesterday at a quarter", "0001:01:01 00:00:00", "1825:12:31 23:59:59"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(propertiesOf({.taken = text}).taken);
    }
    // A scan of an old print, and a clock that is set wrong.
    for (const char* text : {"1826:01:01 00:00:00", "1904:01:01 00:00:00", "1970:01:01 00:00:00",
                             "2099:12:31 23:59:59", "9999:12:31 23:59:59"}) {
        SCOPED_TRACE(text);
        EXPECT_TRUE(propertiesOf({.taken = text}).taken);
    }
    for (const char* offset : {"+16:00", "+02:60", "02:00 ", "+2:00", "      ", "*02:00"}) {
        SCOPED_TRACE(offset);
        const auto properties =
            propertiesOf({.taken = "2026:05:03 14:03:22", .takenOffset = offset});
        EXPECT_EQ(properties.taken, kTime);
        EXPECT_FALSE(properties.takenOffset);
    }
    for (const std::vector<test::Rational>& time :
         std::vector<std::vector<test::Rational>>{{{12, 1}, {0, 1}},
                                                  {{12, 0}, {0, 1}, {0, 1}},
                                                  {{24, 1}, {0, 1}, {0, 1}},
                                                  {{12, 1}, {60, 1}, {0, 1}},
                                                  {{4294967295, 1}, {0, 1}, {0, 1}}}) {
        EXPECT_FALSE(propertiesOf({.gpsDate = "2026:05:03", .gpsTime = time}).taken);
    }
}

TEST(readExifTime, readsDateAndTimeThatStandFarApart)
{
    // Farther than one view reaches, so that each of the two takes the place of the other.
    const std::string filler(70000, 'f');
    const auto order = test::ByteOrder::little;
    const std::string tiff = test::tiffBlock(
        {.gps = {test::asciiField(8, filler),
                 test::rationalField(order, 7, {{12, 1}, {30, 1}, {5, 1}}),
                 test::asciiField(27, filler), test::asciiField(29, "2026:05:03")}});
    const test::TemporaryFolder folder;
    const PictureFile file(folder.write("far.tif", tiff));
    FileByteSource source(file.descriptor(), file.size());
    const auto properties = readPictureProperties(source);
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->taken, kDay + 12 * 3600 + 30 * 60 + 5);
    EXPECT_TRUE(properties->isTakenBySatellites);
}
