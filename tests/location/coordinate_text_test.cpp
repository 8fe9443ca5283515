#include "location/coordinate_text.h"

#include "lib/ui/string_tables.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <clocale>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>

using namespace pinorama;

namespace {
using test::ScopedVariable;
using test::takeUTF8;
using test::text;

// Tables whose text number 11 is `format`; none when it is null.
class Texts {
public:
    explicit Texts(const char* format)
    {
        std::filesystem::create_directory(folder_.file("en"));
        std::ofstream table(folder_.file("en/Localizable.strings"));
        if (format != nullptr) table << "\"11\" = \"" << format << "\";\n";
        table.close();
        (void)iuRegisterBundle(text("test.coordinates").get(), folder_.path().c_str(), true);
    }

private:
    test::TemporaryFolder folder_;
};

constexpr char kFormat[] = "%c %.0f\u00b0 %.0f' %.1f''";

fileInfoRecord recordAt(double latitude, char latitudeLetter, double longitude,
                        char longitudeLetter)
{
    fileInfoRecord record{};
    record.latti = latitude;
    record.refLatti = latitudeLetter;
    record.longi = longitude;
    record.refLongi = longitudeLetter;
    return record;
}

std::string altitudeText(double altitude)
{
    fileInfoRecord record{};
    record.altitude = altitude;
    return takeUTF8(gpsMakeAltitudeText(record)).value_or("null");
}

std::string directionText(double direction)
{
    fileInfoRecord record{};
    record.azimuth = direction;
    return takeUTF8(gpsMakeDirectionText(record)).value_or("null");
}
}  // namespace

TEST(gpsMakeCoordianteString, splitsDegreesMinutesAndSeconds)
{
    const struct {
        const char* name;
        double value;
        char letter;
        const char* expected;
    } rows[] = {
        {"tenths of seconds are cut", 48.1234567, 'N', "N 48\u00b0 7' 24.4''"},
        {"half a degree", 11.5, 'E', "E 11\u00b0 30' 0.0''"},
        {"never 60", 0.999999, 'S', "S 0\u00b0 59' 59.9''"},
        {"never the next degree", 12.99999999, 'W', "W 12\u00b0 59' 59.9''"},
        {"not exact in binary", 48.1, 'N', "N 48\u00b0 6' 0.0''"},
        {"zero", 0.0, 'N', "N 0\u00b0 0' 0.0''"},
        {"whole", 180.0, 'E', "E 180\u00b0 0' 0.0''"},
        {"the largest below", 179.99999999999997, 'E', "E 179\u00b0 59' 59.9''"},
        {"negative parts", -48.1234567, 'N', "N -48\u00b0 -7' -24.4''"},
        {"negative zero degrees", -0.5, 'N', "N -0\u00b0 -30' -0.0''"},
        {"no letter prints nothing", 11.5, 0, " 11\u00b0 30' 0.0''"},
        {"any letter", 11.5, '3', "3 11\u00b0 30' 0.0''"},
        {"a MacRoman letter", 11.5, '\x8a', "\u00e4 11\u00b0 30' 0.0''"},
    };
    const Texts texts(kFormat);
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(gpsMakeCoordianteString(row.value, row.letter)), row.expected);
    }
}

TEST(gpsMakeCoordianteString, takesNoNumberAsItIs)
{
    const Texts texts(kFormat);
    EXPECT_EQ(takeUTF8(gpsMakeCoordianteString(std::numeric_limits<double>::quiet_NaN(), 'N')),
              "N nan\u00b0 nan' nan''");
    EXPECT_EQ(takeUTF8(gpsMakeCoordianteString(std::numeric_limits<double>::infinity(), 'N')),
              "N inf\u00b0 0' 0.0''");
}

TEST(gpsMakeCoordianteString, givesTheTemplateLetterDegreesMinutesSeconds)
{
    const Texts texts("%4$.1f %3$.0f %2$.0f %1$c");
    EXPECT_EQ(takeUTF8(gpsMakeCoordianteString(48.1234567, 'N')), "24.4 7 48 N");
}

TEST(gpsMakeCoordianteString, showsTheNumberOfAMissingText)
{
    const Texts texts(nullptr);
    EXPECT_EQ(takeUTF8(gpsMakeCoordianteString(48.1, 'N')), "11");
}

TEST(gpsMakeCoordianteString, keepsThePointInEveryLocale)
{
    const Texts texts(kFormat);
    const ScopedVariable locale("LC_ALL", "de_DE.UTF-8");
    const std::string earlier = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "");  // as toolkits do; the locale may not be installed
    EXPECT_EQ(takeUTF8(gpsMakeCoordianteString(48.1234567, 'N')), "N 48\u00b0 7' 24.4''");
    EXPECT_EQ(directionText(271.26), "271.3");
    std::setlocale(LC_ALL, earlier.c_str());
}

TEST(gpsMakePositionText, putsTheLatitudeFirst)
{
    const Texts texts(kFormat);
    EXPECT_EQ(takeUTF8(gpsMakePositionText(recordAt(48.1, 'N', 11.5, 'E'))),
              "N 48\u00b0 6' 0.0''   E 11\u00b0 30' 0.0''");
    EXPECT_EQ(takeUTF8(gpsMakePositionText(recordAt(33.5, 'S', 18.25, 'S'))),
              "S 33\u00b0 30' 0.0''   S 18\u00b0 15' 0.0''");
}

TEST(gpsMakeDecimalDegreesText, signsSouthAndWest)
{
    const struct {
        double latitude;
        char refLatitude;
        double longitude;
        char refLongitude;
        const char* expected;
    } rows[] = {
        {33.9, 'S', 18.4, 'E', "-33.900000, 18.400000"},
        {48.1, 'N', 11.5, 'W', "48.100000, -11.500000"},
        {0.0, 'S', 180.0, 'W', "0.000000, -180.000000"},
        {0.0000001, 'S', 0.0000006, 'W', "0.000000, -0.000001"},
        {1.25, 0, 2.5, 's', "1.250000, 2.500000"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(takeUTF8(gpsMakeDecimalDegreesText(
                      recordAt(row.latitude, row.refLatitude, row.longitude, row.refLongitude))),
                  row.expected);
    }
}

TEST(gpsMakeDecimalDegreesText, keepsThePointInEveryLocale)
{
    const ScopedVariable locale("LC_ALL", "de_DE.UTF-8");
    const std::string earlier = std::setlocale(LC_ALL, nullptr);
    std::setlocale(LC_ALL, "");  // as toolkits do; the locale may not be installed
    EXPECT_EQ(takeUTF8(gpsMakeDecimalDegreesText(recordAt(33.9, 'S', 18.4, 'E'))),
              "-33.900000, 18.400000");
    std::setlocale(LC_ALL, earlier.c_str());
}

TEST(gpsMakeAltitudeText, roundsToWholeMetres)
{
    const struct {
        double altitude;
        const char* expected;
    } rows[] = {
        {520, "520 m"},      {-3.6, "-4 m"},
        {2.5, "2 m"},        {3.5, "4 m"},
        {0.4, "0 m"},        {-0.4, "-0 m"},
        {0.0, ""},           {-0.0, ""},
        {8848.86, "8849 m"}, {1e15, "1000000000000000 m"},
        {1e-300, "0 m"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.altitude);
        EXPECT_EQ(altitudeText(row.altitude), row.expected);
    }
}

TEST(gpsMakeDirectionText, hasOneDecimalAndIsEmptyForDueNorth)
{
    const struct {
        double direction;
        const char* expected;
    } rows[] = {
        {271.26, "271.3"}, {0.0, ""},      {-0.0, ""},   {0.04, "0.0"},     {0.25, "0.2"},
        {0.75, "0.8"},     {360, "360.0"}, {90, "90.0"}, {-12.34, "-12.3"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.direction);
        EXPECT_EQ(directionText(row.direction), row.expected);
    }
}

TEST(gpsMakePositionText, isNullWhenMemoryRunsOut)
{
    fileInfoRecord record{};
    gpsPrepareInfoRecord(&record);
    EXPECT_GT(test::failEachRequest([&] { return gpsMakePositionText(record); }), 4u);
    EXPECT_GT(test::failEachRequest([&] { return gpsMakeDecimalDegreesText(record); }), 0u);
    EXPECT_GT(test::failEachRequest([] { return gpsMakeCoordianteString(48.5, 'N'); }), 1u);
}
