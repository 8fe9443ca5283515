// Runs the whole program as a process.

#include "reader/sandbox_locks.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using Variables = std::vector<std::pair<std::string, std::string>>;

test::ProgramResult run(std::vector<std::string> arguments, const Variables& variables = {})
{
    arguments.insert(arguments.begin(), PINORAMA_INFO);
    return test::runProgram({.command = arguments, .variables = variables});
}

std::vector<ordered_json> objectsOf(const std::string& out)
{
    std::vector<ordered_json> objects;
    std::istringstream lines(out);
    for (std::string line; std::getline(lines, line);) objects.push_back(ordered_json::parse(line));
    return objects;
}

// A folder with a few files.
class pinoramaInfo : public testing::Test {
protected:
    test::TemporaryFolder folder_;
    std::string located_ =
        folder_.write("located.jpg", test::pictureWithGps({.lat = 48.125,
                                                           .latRef = "N",
                                                           .lon = 11.5,
                                                           .lonRef = "E",
                                                           .altitude = 520,
                                                           .imgDirection = 271.26,
                                                           .taken = "2008:12:16 11:58:00",
                                                           .takenOffset = "+01:00",
                                                           .city = "M\u00fcnchen",
                                                           .state = "Bayern",
                                                           .country = "Deutschland",
                                                           .caption = "A street"}));
    std::string plain_ = folder_.write("plain.JPG", test::jpegPicture({}));
    std::string notes_ = folder_.write("notes.txt", "1234");
};
}  // namespace

TEST_F(pinoramaInfo, letsNoTextControlTheTerminal)
{
    const std::string caption = "\x1b[31m\u009b2J\u202e\x7f";
    const std::string picture =
        folder_.write("\x1b[1m\u202egpj.jpg",
                      test::pictureWithGps(
                          {.lat = 1, .latRef = "N", .lon = 1, .lonRef = "E", .caption = caption}));
    for (const char* option : {"-q", "--json", "--csv", "--web=1", "--search", "--\x1b[31m\x9b"}) {
        const test::ProgramResult result =
            run({option, picture, folder_.file("missing\x1b\x9b.jpg"), folder_.path() + "/\x1b"});
        for (const std::string& printed : {result.out, result.err}) {
            for (const char* control : {"\x1b", "\u009b", "\x7f", "\u202e", "\x1b\x9b", "m\x9b"})
                EXPECT_EQ(printed.find(control), std::string::npos) << option << ": " << printed;
        }
    }
    const auto objects = objectsOf(run({"--json", picture}).out);
    ASSERT_EQ(objects.size(), 1u);
    EXPECT_EQ(objects[0]["description"], caption);
}

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

TEST_F(pinoramaInfo, findsItsTextsThroughASymbolicLink)
{
    const std::string link = folder_.path() + "/info";
    ASSERT_EQ(symlink(PINORAMA_INFO, link.c_str()), 0);
    const std::vector<std::vector<std::string>> starts = {
        {link}, {"/usr/bin/env", "-C", folder_.path(), "./info"}};
    for (std::vector<std::string> command : starts) {
        SCOPED_TRACE(command.back());
        command.push_back(notes_);
        const test::ProgramResult result = test::runProgram({.command = command});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_NE(result.out.find("Size:         0.0 KB\n"), std::string::npos) << result.out;
    }
}

TEST_F(pinoramaInfo, suggestsTheOptionForAFolder)
{
    const test::ProgramResult result = run({folder_.path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("Path:         " + folder_.path() + "\n"), std::string::npos);
    EXPECT_EQ(result.err,
              "pinorama-info: " + folder_.path() + ": is a folder; -r reads the pictures in it\n");
    // A program that reads the output knows what it asked for.
    EXPECT_EQ(run({"--json", folder_.path()}).err, "");
    EXPECT_EQ(run({located_}).err, "");
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

TEST_F(pinoramaInfo, doesWithoutThePlacesFile)
{
    const test::TemporaryFolder resources;
    std::filesystem::create_directory_symlink(PINORAMA_STRINGS, resources.file("strings"));
    const test::ScopedVariable variable("PINORAMA_RESOURCES", resources.path().c_str());
    const test::ProgramResult result = run({"--json", located_});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const ordered_json object = objectsOf(result.out).at(0);
    EXPECT_EQ(object["result"], 0);
    EXPECT_TRUE(object["place"].is_null());
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

TEST_F(pinoramaInfo, reportsWhatCannotBeReadAndContinues)
{
    const std::string missing = folder_.file("missing.jpg");
    const std::string dangling = folder_.file("dangling.jpg");
    const std::string missingNotes = folder_.file("missing.txt");
    ASSERT_EQ(symlink("nowhere", dangling.c_str()), 0);
    const test::ProgramResult result = run({"--json", missing, dangling, missingNotes, located_});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "pinorama-info: " + missing + ": No such file or directory\n" +
                              "pinorama-info: " + dangling + ": No such file or directory\n" +
                              "pinorama-info: " + missingNotes + ": No such file or directory\n");
    const std::vector<ordered_json> objects = objectsOf(result.out);
    ASSERT_EQ(objects.size(), 4u);
    EXPECT_EQ(objects[0]["result"], -43);
    EXPECT_EQ(objects[0]["sizeText"], "n.a.");
    EXPECT_EQ(objects[1]["result"], -43);
    EXPECT_TRUE(objects[2]["result"].is_null());
    EXPECT_EQ(objects[3]["result"], 0);

    const test::ProgramResult readable = run({missing, located_});
    EXPECT_EQ(readable.status, 1);
    EXPECT_EQ(readable.out.rfind("Path:         " + located_, 0), 0u) << readable.out;
}

TEST_F(pinoramaInfo, reportsAPictureThatMayNotBeOpened)
{
    ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(located_.c_str(), 0), 0);
    ASSERT_EQ(chmod(notes_.c_str(), 0), 0);
    const test::ProgramResult result =
        test::runProgram({.command = {PINORAMA_INFO, located_, notes_}, .asNobody = true});
    if (result.status == 127) GTEST_SKIP() << "the program lies where only the superuser may go";
    EXPECT_EQ(result.status, 1);
    // A file that is not a picture is not opened at all.
    EXPECT_EQ(result.err, "pinorama-info: " + located_ + ": Permission denied\n");
}

TEST_F(pinoramaInfo, separatesFilesByAnEmptyLine)
{
    const std::string out = run({located_, folder_.file("missing.jpg"), notes_}).out;
    EXPECT_NE(out.find("A street\n\nPath:"), std::string::npos) << out;
    EXPECT_EQ(out.find("\n\n\n"), std::string::npos);
    EXPECT_EQ(out.rfind("Path:", 0), 0u);
    EXPECT_TRUE(out.ends_with("Caption:\n"));
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

TEST_F(pinoramaInfo, printsNoControlCharactersOfAFile)
{
    const std::string path = folder_.write(
        "a\nb\x1b[31m.jpg", test::pictureWithGps({.caption = "\x1b]0;title\x07two\nlines"}));
    const test::ProgramResult result = run({path, folder_.file("\x1b[1m.jpg")});
    EXPECT_EQ(result.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(result.out.find('\x07'), std::string::npos);
    EXPECT_EQ(result.err.find('\x1b'), std::string::npos);
    EXPECT_NE(result.out.find("Name:         a b\ufffd[31m.jpg\n"), std::string::npos);
    EXPECT_NE(result.out.find("Caption:      \ufffd]0;title\ufffdtwo lines\n"), std::string::npos);
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

TEST_F(pinoramaInfo, printsTheUsageAfterWrongOptions)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"--json"}, {"--bogus", located_}, {"-j", located_}}) {
        const test::ProgramResult result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find("usage: pinorama-info"), std::string::npos) << result.err;
    }
    EXPECT_EQ(run({"--bogus", located_}).err.rfind("pinorama-info: unknown option '--bogus'\n", 0),
              0u);
}

TEST_F(pinoramaInfo, printsHelpAndVersion)
{
    const test::ProgramResult help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_EQ(help.out.rfind("usage: pinorama-info", 0), 0u);
    EXPECT_NE(help.out.find("--json"), std::string::npos);
    EXPECT_EQ(run({"-h"}).out, help.out);
    for (const char* option : {"--version", "-v"}) {
        const test::ProgramResult version = run({option});
        EXPECT_EQ(version.status, 0);
        EXPECT_EQ(version.out, "pinorama-info " PINORAMA_VERSION "\n");
    }
}

TEST_F(pinoramaInfo, saysWhichLocksTheSandboxHas)
{
    const test::ProgramResult version = run({"--version", "--verbose"});
    EXPECT_EQ(version.status, 0);
    const SandboxLocks locks = findSandboxLocks();
    const std::string landlock =
        locks.landlock > 0 ? "version " + std::to_string(locks.landlock) : "none";
    EXPECT_EQ(version.out,
              "pinorama-info " PINORAMA_VERSION "\nLandlock: " + landlock + "\nnamespaces: " +
                  (locks.namespaces ? "yes" : "none, users may not make them here") + "\n");
}

TEST_F(pinoramaInfo, takesFilesAfterTwoDashes)
{
    const std::string path = folder_.write("--json", "x");
    const test::ProgramResult result = run({"--", path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.rfind("Path:         " + path, 0), 0u);
}

TEST_F(pinoramaInfo, failsIfItsOutputCannotBeWritten)
{
    const test::ProgramResult result = test::runProgram(
        {.command = {PINORAMA_INFO, "--json", located_}, .outputPath = "/dev/full"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "pinorama-info: standard output: No space left on device\n");
}
