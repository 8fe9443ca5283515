// What pinorama-info makes of a place: a document, addresses, a script.

#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"
#include "tests/support/texts.h"

#include "globe/google_earth_connector.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include <sys/stat.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
using Texts = std::vector<std::string>;

class pinoramaInfoPlaceOutputs : public testing::Test {
protected:
    test::ProgramResult run(Texts arguments) const
    {
        arguments.insert(arguments.begin(), PINORAMA_INFO);
        return test::runProgram(
            {.command = arguments, .variables = {{"PINORAMA_RESOURCES", resources_}}});
    }

    test::TemporaryFolder folder_;
    std::string resources_ = PINORAMA_SOURCE_FOLDER "/resources";
    std::string located_ = folder_.write(
        "a & b.jpg",
        test::pictureWithGps({.lat = 48.5, .latRef = "S", .lon = 11.25, .lonRef = "E"}));
    std::string plain_ = folder_.write("plain.jpg", test::jpegPicture({}));
};

class pinoramaInfoWebServices : public pinoramaInfoPlaceOutputs {
protected:
    void SetUp() override
    {
        resources_ = folder_.path();
        std::filesystem::create_directories(folder_.file("strings/en"));
        (void)folder_.write("strings/en/GPS.strings",
                            "\"a1\" = \"One\"; \"b1\" = \"https://x.example/?q=%f,%f&n=%@\";"
                            "\"a2\" = \"Two\"; \"b2\" = \"geo:%f,%f\";");
    }
};
}  // namespace

TEST_F(pinoramaInfoPlaceOutputs, writeTheDocumentOfTheWindowForOneFile)
{
    const std::string expected = folder_.write("expected.kml", "");
    const std::string path = folder_.file("a.kml");
    const fileInfoRecord record = {.latti = 48.5,
                                   .longi = 11.25,
                                   .refLatti = 'S',
                                   .refLongi = 'E',
                                   .altitude = 0,
                                   .distance = 0,
                                   .azimuth = 0,
                                   .tilt = 0,
                                   .city = nullptr,
                                   .state = nullptr,
                                   .country = nullptr,
                                   .description = nullptr};
    GoogleEarthConnector::exportToKML(test::text(expected).get(), &record,
                                      test::text("a &amp; b.jpg").get());
    const test::ProgramResult result = run({"--kml", path, located_});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(test::readFile(path), test::readFile(expected));
    EXPECT_NE(test::readFile(path).find("<name>a &amp; b.jpg</name>"), std::string::npos);
    struct stat facts = {};
    ASSERT_EQ(stat(path.c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0111, 0u) << "a document is not a program";
}

TEST_F(pinoramaInfoPlaceOutputs, replaceALongerDocument)
{
    const std::string path = folder_.file("a.kml");
    ASSERT_EQ(run({"--kml", path, located_}).status, 0);
    const std::string document = test::readFile(path);
    (void)folder_.write("a.kml", std::string(document.size(), 'x') + "tail");
    ASSERT_EQ(run({"--kml", path, located_}).status, 0);
    EXPECT_EQ(test::readFile(path), document);
}

TEST_F(pinoramaInfoPlaceOutputs, writeADocumentToAPipeAndAppendItToAnOpenFile)
{
    const std::string path = folder_.file("a.kml");
    for (const Texts& pictures : {Texts{located_}, Texts{located_, located_}}) {
        Texts arguments = {"--kml", path};
        arguments.insert(arguments.end(), pictures.begin(), pictures.end());
        ASSERT_EQ(run(arguments).status, 0);
        arguments[1] = "/dev/stdout";
        const test::ProgramResult piped = run(arguments);
        EXPECT_EQ(piped.status, 0);
        EXPECT_EQ(piped.out, test::readFile(path));

        const std::string all = folder_.write("all", "before\n");
        std::string line = PINORAMA_INFO " --kml /dev/stdout";
        for (const std::string& picture : pictures) line += " '" + picture + "'";
        const test::ProgramResult appended =
            test::runProgram({.command = {"/bin/sh", "-c", line + " >> '" + all + "'"}});
        EXPECT_EQ(appended.status, 0);
        EXPECT_EQ(test::readFile(all), "before\n" + test::readFile(path));
    }
}

TEST_F(pinoramaInfoPlaceOutputs, writeOneDocumentForSeveralFiles)
{
    const std::string path = folder_.write("a.kml", std::string(100'000, 'x'));
    const test::ProgramResult result = run({"--kml", path, located_, plain_, located_});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "");
    const std::string document = test::readFile(path);
    EXPECT_TRUE(document.ends_with("</Document></kml>"));
    EXPECT_NE(document.find("<name>a &amp; b.jpg</name>"), std::string::npos);
    EXPECT_EQ(document.find("plain.jpg"), std::string::npos);
}

TEST_F(pinoramaInfoPlaceOutputs, writeADocumentBesidesThePrintedOutput)
{
    for (const Texts& files : {Texts{located_}, Texts{located_, plain_}}) {
        const std::string path = folder_.file("a.kml");
        Texts arguments = {"--json", "--kml", path};
        arguments.insert(arguments.end(), files.begin(), files.end());
        const test::ProgramResult result = run(arguments);
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'),
                  static_cast<std::ptrdiff_t>(files.size()));
        EXPECT_TRUE(test::readFile(path).ends_with("</kml>"));
    }
}

TEST_F(pinoramaInfoPlaceOutputs, reportWhyThereIsNoDocument)
{
    const std::string path = folder_.file("a.kml");
    const struct {
        Texts arguments;
        std::string error;
    } rows[] = {
        {{"--kml", path, plain_}, plain_ + ": no position"},
        {{"--kml", path, "/missing.jpg"}, "/missing.jpg: No such file or directory"},
        {{"--kml", "/missing/a.kml", located_}, "/missing/a.kml: No such file or directory"},
        {{"--kml", folder_.path(), located_}, folder_.path() + ": Is a directory"},
        {{"--kml", "/missing/a.kml", located_, plain_},
         "/missing/a.kml: No such file or directory"},
        {{"--kml", "/dev/full", located_, plain_}, "/dev/full: No space left on device"},
        {{"--kml", "/dev/full", located_}, "/dev/full: No space left on device"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.error);
        const test::ProgramResult result = run(row.arguments);
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err, "pinorama-info: " + row.error + "\n");
    }
    EXPECT_FALSE(std::filesystem::exists(path));
}

TEST_F(pinoramaInfoPlaceOutputs, neverReplaceAPictureByADocument)
{
    const std::string bytes = test::readFile(plain_);
    for (const Texts& files : {Texts{located_}, Texts{located_, located_}}) {
        Texts arguments = {"--kml", plain_};
        arguments.insert(arguments.end(), files.begin(), files.end());
        const test::ProgramResult result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err,
                  "pinorama-info: " + plain_ + ": a KML document never replaces a picture\n");
        EXPECT_EQ(test::readFile(plain_), bytes);
    }
    EXPECT_EQ(run({"--kml", folder_.file("new.jpg"), located_}).status, 0) << "it is no picture";
}

TEST_F(pinoramaInfoWebServices, printsTheAddressOfAService)
{
    const test::ProgramResult one = run({"--web", "1", located_});
    EXPECT_EQ(one.status, 0);
    EXPECT_EQ(one.out, "https://x.example/?q=-48.500000,11.250000&n=a%20%26%20b.jpg\n");
    EXPECT_EQ(one.err, "");
    EXPECT_EQ(run({"--web=2", located_, plain_, located_}).out,
              "geo:-48.500000,11.250000\ngeo:-48.500000,11.250000\n");
}

TEST_F(pinoramaInfoWebServices, reportsThatAServiceDoesNotExist)
{
    const test::ProgramResult result = run({"--web", "3", located_});
    EXPECT_EQ(result.status, 2);
    EXPECT_EQ(result.out, "");
    EXPECT_EQ(result.err, "pinorama-info: there is no web service 3\n");
}

TEST_F(pinoramaInfoPlaceOutputs, printTheCatalogueSearchAndTheScript)
{
    EXPECT_EQ(run({"--search", located_}).out,
              "skallion://find/gps/&lat=-48.500000&long=11.250000&distance=2000m\n");
    EXPECT_EQ(run({"--print-script", located_}).out,
              "tell application \"Google Earth\" \r activate \r SetViewInfo {latitude:-48.500000, "
              "longitude:11.250000, distance:1000.000000, tilt:44.000000, azimuth:0.000000} speed "
              "0.600000  \r  end tell\n");
}

TEST_F(pinoramaInfoPlaceOutputs, failForAPictureWithoutAPosition)
{
    for (const char* form : {"--search", "--print-script"}) {
        const test::ProgramResult result = run({form, plain_});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "pinorama-info: no position\n");
        EXPECT_EQ(run({form, plain_, located_}).status, 0);
    }
}
