#include "cli/json_line.h"

#include <gtest/gtest.h>

#include <limits>
#include <nlohmann/json.hpp>
#include <string>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;

std::string lineOf(const FileReport& report)
{
    std::string line;
    appendJsonLine(report, &line);
    return line;
}

FileReport munich()
{
    FileReport report{};
    report.path = "/a/b.jpg";
    report.name = "b.jpg";
    report.isAccepted = true;
    report.place = PlaceReport{.result = 0,
                               .latitude = 48.1,
                               .longitude = 11.5,
                               .latitudeLetter = "N",
                               .longitudeLetter = "",
                               .altitude = -12.0,
                               .distance = 1000.0,
                               .azimuth = 271.26,
                               .tilt = 0.0,
                               .city = "M\u00fcnchen",
                               .state = std::nullopt,
                               .country = "",
                               .description = "two\nlines"};
    report.size = 18446744073709551615u;
    report.sizeText = "16,777,216.0 TB";
    report.modified = "m";
    report.created = "c";
    report.coordinate = "N 48";
    report.altitudeText = "-12 m";
    report.direction = "271.3";
    report.position = Position{48.1, -11.5};
    report.taken = "2026-05-03T14:03:22";
    report.modifiedTime = "2026-05-04T00:00:00Z";
    report.namedPlace = NamedPlace{.words = "Near M\u00fcnchen, Germany",
                                   .country = "DE",
                                   .countryName = "Germany",
                                   .sea = "",
                                   .zone = "Europe/Berlin",
                                   .town = "M\u00fcnchen",
                                   .distance = 1200.0,
                                   .bearing = 45.0};
    return report;
}
}  // namespace

TEST(appendJsonLine, writesAllKeysInTheirOrder)
{
    EXPECT_EQ(lineOf(munich()),
              R"({"path":"/a/b.jpg","name":"b.jpg","accepted":true,"result":0,)"
              R"("latti":48.1,"longi":11.5,"refLatti":"N","refLongi":"","altitude":-12.0,)"
              R"("distance":1000.0,"azimuth":271.26,"tilt":0.0,"city":"München","state":null,)"
              R"("country":"","description":"two\nlines","size":18446744073709551615,)"
              R"("sizeText":"16,777,216.0 TB","modified":"m","created":"c","coordinate":"N 48",)"
              R"("altitudeText":"-12 m","direction":"271.3","latitude":48.1,"longitude":-11.5,)"
              R"("taken":"2026-05-03T14:03:22","modifiedTime":"2026-05-04T00:00:00Z",)"
              R"("createdTime":null,"place":{"words":"Near München, Germany","country":"DE",)"
              R"("countryName":"Germany","sea":null,"town":"München","distance":1200.0,)"
              R"("bearing":45.0,"zone":"Europe/Berlin"}})"
              "\n");
}

TEST(appendJsonLine, writesTheSourcesOfValuesWhereMoreIsRead)
{
    FileReport report = munich();
    EXPECT_FALSE(ordered_json::parse(lineOf(report)).contains("source"));
    report.source = SourceReport{.position = "exif", .city = "sidecar"};
    const std::string line = lineOf(report);
    EXPECT_NE(line.find(R"(,"source":"exif","altitudeSource":null,"directionSource":null,)"
                        R"("citySource":"sidecar","stateSource":null,"countrySource":null,)"
                        R"("descriptionSource":null)"),
              std::string::npos)
        << line;
}

TEST(appendJsonLine, writesNullForThePlaceOfARefusedFile)
{
    FileReport report = munich();
    report.isAccepted = false;
    report.place.reset();
    report.size.reset();
    const ordered_json object = ordered_json::parse(lineOf(report));
    EXPECT_EQ(object["accepted"], false);
    for (const char* key :
         {"result", "latti", "longi", "refLatti", "refLongi", "altitude", "distance", "azimuth",
          "tilt", "city", "state", "country", "description", "size"}) {
        EXPECT_TRUE(object[key].is_null()) << key;
    }
    EXPECT_EQ(object["sizeText"], "16,777,216.0 TB");
    EXPECT_EQ(object.size(), ordered_json::parse(lineOf(munich())).size());
}

TEST(appendJsonLine, writesNullForAPlaceWithoutAName)
{
    FileReport report = munich();
    report.namedPlace.reset();
    const ordered_json object = ordered_json::parse(lineOf(report));
    ASSERT_TRUE(object.contains("place"));
    EXPECT_TRUE(object["place"].is_null());
}

TEST(appendJsonLine, writesNullForNaNAndInfinity)
{
    FileReport report = munich();
    report.place->latitude = std::numeric_limits<double>::quiet_NaN();
    report.place->longitude = std::numeric_limits<double>::infinity();
    report.place->altitude = -std::numeric_limits<double>::infinity();
    const ordered_json object = ordered_json::parse(lineOf(report));
    EXPECT_TRUE(object["latti"].is_null());
    EXPECT_TRUE(object["longi"].is_null());
    EXPECT_TRUE(object["altitude"].is_null());
}

TEST(appendJsonLine, writesNumbersThatReadBackExactly)
{
    for (const double value :
         {0.1, 1.0 / 3.0, 1e300, 5e-324, -0.0, 123456789.0, 1e21, 48.1234567}) {
        FileReport report = munich();
        report.place->latitude = value;
        const ordered_json object = ordered_json::parse(lineOf(report));
        EXPECT_TRUE(object["latti"].is_number_float()) << value;
        EXPECT_EQ(object["latti"].get<double>(), value);
    }
}

TEST(appendJsonLine, escapesControlCharactersAndQuotes)
{
    FileReport report = munich();
    report.name.clear();
    for (int c = 0; c < 128; c++) report.name += static_cast<char>(c);
    report.name += "\u00fc\u65e5\U0001f600\u2028";
    const std::string line = lineOf(report);
    EXPECT_EQ(line.find('\n'), line.size() - 1);
    for (const char c : line.substr(0, line.size() - 1)) {
        EXPECT_TRUE(static_cast<unsigned char>(c) >= 0x20 && c != 0x7f);
    }
    EXPECT_EQ(ordered_json::parse(line)["name"], report.name);
}

TEST(appendJsonLine, escapesWhatControlsADisplayAndKeepsItsValue)
{
    FileReport report = munich();
    report.name = "a\u009b2J\u0080\u202egpj.exe\u2069\u00a0";
    const std::string line = lineOf(report);
    EXPECT_NE(line.find("a\\u009b2J\\u0080\\u202egpj.exe\\u2069\u00a0"), line.npos) << line;
    EXPECT_EQ(ordered_json::parse(line)["name"], report.name);
}

TEST(appendJsonLine, appends)
{
    std::string lines = "x";
    appendJsonLine(munich(), &lines);
    appendJsonLine(munich(), &lines);
    EXPECT_EQ(lines, "x" + lineOf(munich()) + lineOf(munich()));
}
