// The values that pinorama-info prints of a file, for people and for programs.

#include "tests/cli/info_fixture.h"
#include "tests/cli/info_run.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <nlohmann/json.hpp>
#include <string>
#include <utility>
#include <vector>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using test::objectsOf;
using test::pinoramaInfo;
using test::run;
using Variables = std::vector<std::pair<std::string, std::string>>;
}  // namespace

TEST_F(pinoramaInfo, writesALineForEveryField)
{
    const timespec times[2] = {{1229428800, 0}, {1229428800, 0}};  // 2008-12-16 12:00 UTC
    ASSERT_EQ(utimensat(AT_FDCWD, located_.c_str(), times, 0), 0);
    const test::ProgramResult result = run({located_}, {{"TZ", "Europe/Berlin"}});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::vector<std::string> expected = {
        "Path:         " + located_,
        "Name:         located.jpg",
        "Coordinate:   N 48\u00b0 7' 30.0\"   E 11\u00b0 30' 0.0\"",
        "Taken:        2008-12-16 11:58:00+01:00",
        "Decimal:      48.125000, 11.500000",
        "Altitude:     520 m",
        "Direction:    271.3",
        "City:         M\u00fcnchen",
        "State:        Bayern",
        "Country:      Deutschland",
        "Caption:      A street",
    };
    for (const std::string& line : expected) {
        EXPECT_NE(result.out.find(line + '\n'), std::string::npos) << line << '\n' << result.out;
    }
    EXPECT_NE(result.out.find("Modified:     Dec 16, 2008"), std::string::npos) << result.out;
    EXPECT_NE(result.out.find("1:00"), std::string::npos) << result.out;
}

TEST_F(pinoramaInfo, writesOneObjectPerFileWithTheKeysInOrder)
{
    const test::ProgramResult result = run({"--json", located_, plain_, notes_});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::vector<ordered_json> objects = objectsOf(result.out);
    ASSERT_EQ(objects.size(), 3u);
    const std::vector<std::string> keys = {
        "path",      "name",     "accepted",     "result",       "latti",     "longi",
        "refLatti",  "refLongi", "altitude",     "distance",     "azimuth",   "tilt",
        "city",      "state",    "country",      "description",  "size",      "sizeText",
        "modified",  "created",  "coordinate",   "altitudeText", "direction", "latitude",
        "longitude", "taken",    "modifiedTime", "createdTime",  "place"};
    for (const ordered_json& object : objects) {
        std::vector<std::string> found;
        for (const auto& [key, value] : object.items()) found.push_back(key);
        EXPECT_EQ(found, keys);
    }
}

TEST_F(pinoramaInfo, namesThePlaceOfAPicture)
{
    const ordered_json place = objectsOf(run({"--json", located_}).out).at(0)["place"];
    EXPECT_EQ(place["country"], "DE");
    EXPECT_EQ(place["countryName"], "Germany");
    EXPECT_TRUE(place["sea"].is_null());
    EXPECT_EQ(place["zone"], "Europe/Berlin");
    ASSERT_TRUE(place["town"].is_string());
    EXPECT_LT(place["distance"].get<double>(), 10000);
    const std::string words = place["words"];
    EXPECT_NE(words.find(place["town"].get<std::string>() + ", Germany"), std::string::npos)
        << words;
    EXPECT_NE(run({located_}).out.find("\nPlace:        " + words + "\n"), std::string::npos);
    EXPECT_TRUE(objectsOf(run({"--json", plain_}).out).at(0)["place"].is_null());
    EXPECT_EQ(run({plain_}).out.find("Place:"), std::string::npos);
}

TEST_F(pinoramaInfo, printsThePlaceOfAPicture)
{
    const ordered_json object = objectsOf(run({"--json", located_}).out).at(0);
    EXPECT_EQ(object["path"], located_);
    EXPECT_EQ(object["name"], "located.jpg");
    EXPECT_EQ(object["accepted"], true);
    EXPECT_EQ(object["result"], 0);
    EXPECT_EQ(object["latti"], 48.125);
    EXPECT_EQ(object["refLatti"], "N");
    EXPECT_EQ(object["longi"], 11.5);
    EXPECT_EQ(object["refLongi"], "E");
    EXPECT_EQ(object["altitude"], 520.0);
    EXPECT_EQ(object["distance"], 1000.0);
    EXPECT_EQ(object["azimuth"], 271.26);
    EXPECT_EQ(object["tilt"], 0.0);
    EXPECT_EQ(object["city"], "M\u00fcnchen");
    EXPECT_EQ(object["description"], "A street");
    EXPECT_EQ(object["coordinate"], "N 48\u00b0 7' 30.0\"   E 11\u00b0 30' 0.0\"");
    EXPECT_EQ(object["altitudeText"], "520 m");
    EXPECT_EQ(object["direction"], "271.3");
}

TEST_F(pinoramaInfo, printsSignedDegreesAndTimesThatAnyProgramReads)
{
    const std::string canyon =
        folder_.write("canyon.jpg", test::pictureWithGps({.lat = 36.25,
                                                          .latRef = "N",
                                                          .lon = 112.125,
                                                          .lonRef = "W",
                                                          .altitude = 7,
                                                          .altitudeRef = 1,
                                                          .taken = "2026:05:03 14:03:22",
                                                          .takenOffset = "-07:00"}));
    const std::string cape = folder_.write(
        "cape.jpg", test::pictureWithGps({.lat = 33.5, .latRef = "S", .lon = 18.5, .lonRef = "E"}));
    const std::string nowhere = folder_.write(
        "nowhere.jpg",
        test::pictureWithGps({.lat = 95.0, .latRef = "N", .lon = 11.0, .lonRef = "E"}));
    const timespec times[2] = {{1229428800, 0}, {1229428800, 0}};  // 2008-12-16 12:00 UTC
    for (const std::string& path : {canyon, cape, plain_, nowhere}) {
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }
    const Variables elsewhere = {{"TZ", "Asia/Tokyo"}, {"LC_ALL", "de_DE.UTF-8"}};
    const auto objects = objectsOf(run({"--json", canyon, cape, plain_, nowhere}, elsewhere).out);
    ASSERT_EQ(objects.size(), 4u);
    EXPECT_EQ(objects[0]["latitude"], 36.25);
    EXPECT_EQ(objects[0]["longitude"], -112.125);
    EXPECT_EQ(objects[0]["longi"], 112.125);
    EXPECT_EQ(objects[0]["taken"], "2026-05-03T14:03:22-07:00");
    EXPECT_EQ(objects[0]["modifiedTime"], "2008-12-16T12:00:00Z");
    EXPECT_EQ(objects[1]["latitude"], -33.5);
    EXPECT_EQ(objects[1]["longitude"], 18.5);
    EXPECT_TRUE(objects[1]["taken"].is_null());
    for (const std::size_t i : {2, 3}) {
        EXPECT_TRUE(objects[i]["latitude"].is_null()) << i;
        EXPECT_TRUE(objects[i]["longitude"].is_null()) << i;
    }
    const std::string table = run({"--csv", canyon, cape, plain_}, elsewhere).out;
    EXPECT_NE(table.find(canyon + ",36.25,-112.125,-7,,2026-05-03T14:03:22-07:00,canyon.jpg,"),
              std::string::npos)
        << table;
    EXPECT_NE(table.find(cape + ",-33.5,18.5,,,,cape.jpg,"), std::string::npos) << table;
    EXPECT_NE(table.find(plain_ + ",,,,,,plain.JPG,"), std::string::npos) << table;
    EXPECT_EQ(table.find("1000"), std::string::npos) << table;
    EXPECT_NE(run({"--csv", "--raw", canyon}).out.find(",true,0,36.25,112.125,N,W,1000,"),
              std::string::npos);
}

TEST_F(pinoramaInfo, printsNoSignForSeaLevel)
{
    const std::string beach = folder_.write("beach.jpg", test::pictureWithGps({.lat = 26.5,
                                                                               .latRef = "N",
                                                                               .lon = 80.25,
                                                                               .lonRef = "W",
                                                                               .altitude = 0,
                                                                               .altitudeRef = 1}));
    const struct {
        const char *format, *expected;
    } rows[] = {{"csv", ",26.5,-80.25,0,"},
                {"geojson", "[-80.25,26.5,0]"},
                {"gpx", "<ele>0</ele>"},
                {"kml", "<coordinates>-80.25,26.5,0</coordinates>"}};
    for (const auto& row : rows) {
        const std::string out = run({"--format", row.format, beach}).out;
        EXPECT_NE(out.find(row.expected), std::string::npos) << out;
    }
}

TEST_F(pinoramaInfo, keepsNothingOfThePreviousFile)
{
    const std::string halfway = folder_.write(
        "equator.jpg", test::pictureWithGps({.lat = 0.0, .lon = 10.0, .altitude = 7}));
    const std::vector<ordered_json> objects =
        objectsOf(run({"--json", located_, plain_, halfway, notes_}).out);
    ASSERT_EQ(objects.size(), 4u);

    const ordered_json& plain = objects[1];
    EXPECT_EQ(plain["result"], -1);
    EXPECT_EQ(plain["latti"], 0.0);
    EXPECT_EQ(plain["refLatti"], "");
    EXPECT_EQ(plain["distance"], 1000.0);
    EXPECT_TRUE(plain["city"].is_null());

    const ordered_json& equator = objects[2];
    EXPECT_EQ(equator["result"], -1);
    EXPECT_EQ(equator["longi"], 10.0);
    EXPECT_EQ(equator["altitude"], 7.0);

    const ordered_json& notes = objects[3];
    EXPECT_EQ(notes["accepted"], false);
    EXPECT_EQ(notes["size"], 4);
    for (const char* key : {"result", "latti", "refLatti", "distance", "city", "description"}) {
        EXPECT_TRUE(notes[key].is_null()) << key;
    }
    for (std::size_t i = 1; i < objects.size(); i++) {
        for (const char* key : {"coordinate", "altitudeText", "direction"}) {
            EXPECT_EQ(objects[i][key], "") << key;
        }
    }
}

TEST_F(pinoramaInfo, keepsPlaceTextsWithoutAPosition)
{
    const std::string path = folder_.write("rome.jpg", test::pictureWithGps({.city = "Rome"}));
    const ordered_json object = objectsOf(run({"--json", path}).out).at(0);
    EXPECT_EQ(object["result"], -1);
    EXPECT_EQ(object["city"], "Rome");
    EXPECT_TRUE(object["state"].is_null());
    EXPECT_NE(run({path}).out.find("City:         Rome\n"), std::string::npos);
}

TEST_F(pinoramaInfo, printsTheSizeOfRegularFilesOnly)
{
    const std::string subfolder = folder_.file("folder.jpg");
    const std::string pipe = folder_.file("pipe.jpg");
    ASSERT_EQ(mkdir(subfolder.c_str(), 0700), 0);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const test::ProgramResult result =
        run({"--json", notes_, folder_.write("empty.jpg", ""), subfolder + "/", pipe});
    EXPECT_EQ(result.status, 0);
    const std::vector<ordered_json> objects = objectsOf(result.out);
    ASSERT_EQ(objects.size(), 4u);
    EXPECT_EQ(objects[0]["size"], 4);
    EXPECT_EQ(objects[1]["size"], 0);
    EXPECT_EQ(objects[1]["sizeText"].get<std::string>().rfind("0.0", 0), 0u);
    for (const std::size_t i : {2, 3}) {
        EXPECT_TRUE(objects[i]["size"].is_null());
        EXPECT_EQ(objects[i]["sizeText"], "n.a.");
        EXPECT_EQ(objects[i]["accepted"], true);
        EXPECT_EQ(objects[i]["result"], -1);
    }
    EXPECT_EQ(objects[2]["name"], "folder.jpg");
    EXPECT_EQ(objects[2]["path"], subfolder + "/");
}

TEST_F(pinoramaInfo, showsNamesThatAreNotUTF8)
{
    const std::string path =
        folder_.write("f\xfcr\xc3.jpg", test::pictureWithGps({.lat = 1, .lon = 2}));
    const test::ProgramResult result = run({"--json", path});
    EXPECT_EQ(result.status, 0);
    const ordered_json object = objectsOf(result.out).at(0);
    EXPECT_EQ(object["name"], "f\ufffdr\ufffd.jpg");
    EXPECT_EQ(object["path"], folder_.file("f\ufffdr\ufffd.jpg"));
    EXPECT_EQ(object["result"], 0);
}

TEST_F(pinoramaInfo, usesTheLocaleForDatesAndSizesOnly)
{
    const std::string big = folder_.write("big.jpg", std::string(1536, ' '));
    const test::ProgramResult result =
        run({"--json", located_, big}, {{"LC_ALL", "de_DE.UTF-8"}, {"LANGUAGE", "de"}});
    const std::vector<ordered_json> objects = objectsOf(result.out);
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(objects[0]["latti"], 48.125);
    EXPECT_EQ(objects[0]["direction"], "271.3");
    EXPECT_NE(objects[0]["coordinate"].get<std::string>().find("30.0"), std::string::npos);
    EXPECT_EQ(objects[1]["sizeText"].get<std::string>().rfind("1,5", 0), 0u);
    EXPECT_NE(objects[1]["modified"].get<std::string>().find('.'), std::string::npos);
}
