// The documents of places, read back by the programs that people open them with.

#include "cli/kmz_document.h"
#include "pictures/pixels/jpeg_decode.h"
#include "tests/support/byte_views.h"
#include "tests/support/environment.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using nlohmann::json;

// A folder with three places, and a picture without one.
class placeFormats : public testing::Test {
protected:
    placeFormats()
    {
        (void)folder_.write("1 canyon.jpg", test::pictureWithGps({.lat = 36.25,
                                                                  .latRef = "N",
                                                                  .lon = 112.1234,
                                                                  .lonRef = "W",
                                                                  .altitude = 2095.5,
                                                                  .imgDirection = 271.25,
                                                                  .taken = "2026:05:03 14:03:22",
                                                                  .takenOffset = "-07:00",
                                                                  .caption = "<Rim> & \"river\""}));
        (void)folder_.write(kCape, test::pictureWithGps({.lat = 34.3568,
                                                         .latRef = "S",
                                                         .lon = 18.474,
                                                         .lonRef = "E",
                                                         .altitude = 12,
                                                         .altitudeRef = 1,
                                                         .taken = "2026:05:03 12:00:00",
                                                         .takenOffset = "+02:00"}));
        (void)folder_.write("3 clock.jpg", test::pictureWithGps({.lat = 48.125,
                                                                 .latRef = "N",
                                                                 .lon = 11.5,
                                                                 .lonRef = "E",
                                                                 .taken = "2026:05:03 09:00:00"}));
        (void)folder_.write("4 plain.jpg", test::jpegPicture({}));
    }

    // The document of the whole folder, in a file.
    std::string document(const std::string& format, bool hasTrack = false) const
    {
        std::vector<std::string> command = {PINORAMA_INFO, "-r", "--format", format,
                                            folder_.path()};
        if (hasTrack) command.push_back("--track");
        const std::string path = out_.file("places." + format);
        const test::ProgramResult result =
            test::runProgram({.command = command, .outputPath = path});
        EXPECT_EQ(result.status, 0) << result.err;
        return path;
    }

    // What GDAL reads out of a document, by name.
    std::map<std::string, json> readByGdal(const std::string& path, const std::string& layer = {})
    {
        const std::string out = out_.file("gdal.json");
        std::vector<std::string> command = {
            "/usr/bin/ogr2ogr", "-f", "GeoJSON", out, path, "-lco", "COORDINATE_PRECISION=15"};
        if (!layer.empty()) command.push_back(layer);
        const test::ProgramResult result = test::runProgram({.command = command});
        hasGdal_ = result.status != 127;
        EXPECT_TRUE(!hasGdal_ || result.status == 0) << result.err;
        std::map<std::string, json> places;
        if (!hasGdal_) return places;
        const json document = json::parse(test::readFile(out));
        for (const json& feature : document["features"]) {
            const json& properties = feature["properties"];
            const char* key = properties.contains("Name") ? "Name" : "name";
            places[properties.value(key, "")] = feature;
        }
        return places;
    }

    static void expectPlace(const json& feature, std::vector<double> expected)
    {
        const auto found = feature["geometry"]["coordinates"].get<std::vector<double>>();
        ASSERT_EQ(found.size(), expected.size()) << feature;
        for (std::size_t i = 0; i < found.size(); i++) EXPECT_NEAR(found[i], expected[i], 1e-12);
    }

    static constexpr char kCape[] = "2 <Cape> & \"Gr\u00fc\u00dfe\".jpg";
    const test::TemporaryFolder folder_;
    const test::TemporaryFolder out_;
    bool hasGdal_ = true;
};

void expectXML(const std::string& path)
{
    const test::ProgramResult result =
        test::runProgram({.command = {"/usr/bin/xmllint", "--noout", path}});
    EXPECT_EQ(result.status, 0) << result.err;
}
}  // namespace

TEST_F(placeFormats, gdalReadsTheGeoJson)
{
    const std::string path = document("geojson");
    const json collection = json::parse(test::readFile(path));
    EXPECT_EQ(collection["type"], "FeatureCollection");
    ASSERT_EQ(collection["features"].size(), 3u);
    EXPECT_FALSE(collection.contains("crs"));  // RFC 7946 has none
    auto places = readByGdal(path);
    if (!hasGdal_) GTEST_SKIP() << "ogr2ogr is not installed";
    ASSERT_EQ(places.size(), 3u);
    const json& canyon = places["1 canyon.jpg"];
    expectPlace(canyon, {-112.1234, 36.25, 2095.5});
    EXPECT_EQ(canyon["properties"]["direction"], 271.25);
    EXPECT_EQ(canyon["properties"]["taken"], "2026-05-03T14:03:22-07:00");
    EXPECT_EQ(canyon["properties"]["description"], "<Rim> & \"river\"");
    EXPECT_EQ(canyon["properties"]["path"], folder_.file("1 canyon.jpg"));
    expectPlace(places[kCape], {18.474, -34.3568, -12.0});
    expectPlace(places["3 clock.jpg"], {11.5, 48.125});
}

TEST_F(placeFormats, gdalReadsTheKml)
{
    const std::string path = document("kml");
    expectXML(path);
    const std::string text = test::readFile(path);
    EXPECT_NE(text.find("<Camera><longitude>-112.12"), std::string::npos);
    EXPECT_NE(text.find("<heading>271.25</heading>"), std::string::npos);
    EXPECT_EQ(text.find("<StyleMap "), text.rfind("<StyleMap "));
    auto places = readByGdal(path);
    if (!hasGdal_) GTEST_SKIP() << "ogr2ogr is not installed";
    ASSERT_EQ(places.size(), 3u);
    const json& canyon = places["1 canyon.jpg"];
    expectPlace(canyon, {-112.1234, 36.25, 2095.5});
    EXPECT_EQ(canyon["properties"]["direction"], "271.25");
    EXPECT_EQ(canyon["properties"]["path"], folder_.file("1 canyon.jpg"));
    EXPECT_NE(canyon["properties"]["timestamp"].dump().find("14:03:22"), std::string::npos);
    expectPlace(places[kCape], {18.474, -34.3568, -12.0});
    expectPlace(places["3 clock.jpg"], {11.5, 48.125});
}

// Marble hides the placemarks of any other style while it cannot load the icon from the web.
TEST_F(placeFormats, theStyleOfTheKmlStandsInsideAStyleMap)
{
    const std::string text = test::readFile(document("kml"));
    const std::size_t beginning = text.find("<StyleMap id=\"picture\">");
    const std::size_t end = text.find("</StyleMap>");
    ASSERT_NE(beginning, std::string::npos);
    ASSERT_NE(end, std::string::npos);
    EXPECT_GT(text.find("<Style>"), beginning);
    EXPECT_LT(text.rfind("<Style>"), end);
    EXPECT_EQ(text.find("<Style "), std::string::npos);
    EXPECT_NE(text.find("<styleUrl>#picture</styleUrl>", end), std::string::npos);
}

TEST_F(placeFormats, gdalReadsTheKmz)
{
    const std::string path = document("kmz");
    auto places = readByGdal(path);
    if (!hasGdal_) GTEST_SKIP() << "ogr2ogr is not installed";
    ASSERT_EQ(places.size(), 3u);
    const json& canyon = places["1 canyon.jpg"];
    expectPlace(canyon, {-112.1234, 36.25, 2095.5});
    EXPECT_EQ(canyon["properties"]["direction"], "271.25");
    EXPECT_EQ(canyon["properties"]["path"], folder_.file("1 canyon.jpg"));
    expectPlace(places[kCape], {18.474, -34.3568, -12.0});
    expectPlace(places["3 clock.jpg"], {11.5, 48.125});
}

TEST_F(placeFormats, theKmzIsTheKmlWithThumbnails)
{
    const test::TemporaryFolder pictures;
    const std::string gps = test::tiffWithGps({.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"});
    const std::string picture =
        pictures.write("a.jpg", test::jpegOfQuarters(400, 300, {.exif = gps}));
    const std::string other = folder_.file("3 clock.jpg");
    const std::string archive = out_.file("a.kmz");
    const auto write = [&](const char* reader) {
        const test::ProgramResult result =
            test::runProgram({.command = {PINORAMA_INFO, "--format", "kmz", picture, other},
                              .variables = {{"PINORAMA_READER", reader}},
                              .outputPath = archive});
        EXPECT_EQ(result.status, 0) << result.err;
    };
    const auto extracted = [&archive](const std::string& name) {
        return test::runProgram({.command = {"/usr/bin/bsdtar", "-xOf", archive, name}}).out;
    };
    const test::ProgramResult kml =
        test::runProgram({.command = {PINORAMA_INFO, "--format", "kml", picture, other}});
    write("/nowhere");
    EXPECT_EQ(extracted("doc.kml"), kml.out) << "without a reader";
    if (!PINORAMA_MAKES_THUMBNAILS) GTEST_SKIP() << "a build without Qt has no thumbnails";

    write("");
    std::string document = extracted("doc.kml");
    for (const std::string& path : {picture, other}) {
        SCOPED_TRACE(path);
        const std::string description = "<description>&lt;img src=&quot;" + thumbnailName(path) +
                                        "&quot;/&gt;&lt;br/&gt;</description>";
        const std::size_t at = document.find(description);
        ASSERT_NE(at, std::string::npos) << document;
        document.erase(at, description.size());
    }
    EXPECT_EQ(document, kml.out);
    const std::string jpeg = extracted(thumbnailName(picture));
    MemoryByteSource source(test::viewOf(jpeg));
    const auto image = decodeJpeg(ByteBlock(source), {256, 256});
    ASSERT_TRUE(image);
    EXPECT_EQ(image->width, 256);
    EXPECT_EQ(image->height, 192);
    EXPECT_TRUE(test::areNear(test::quartersOf(*image),
                              {test::kRed, test::kGreen, test::kBlue, test::kYellow}));
}

TEST_F(placeFormats, aSearchSortsTheKmz)
{
    const test::ProgramResult result =
        test::runProgram({.command = {PINORAMA_INFO, "-rq", "--near", "48,11,20000000", "--format",
                                      "kmz", folder_.path()},
                          .outputPath = out_.file("near.kmz")});
    EXPECT_EQ(result.status, 0) << result.err;
    const std::string kml =
        test::runProgram({.command = {"/usr/bin/bsdtar", "-xOf", out_.file("near.kmz"), "doc.kml"}})
            .out;
    const std::size_t clock = kml.find("<name>3 clock.jpg");
    const std::size_t cape = kml.find("<name>2 ");
    const std::size_t canyon = kml.find("<name>1 canyon.jpg");
    ASSERT_NE(cape, std::string::npos) << kml;
    EXPECT_LT(clock, canyon);
    EXPECT_LT(canyon, cape);
}

TEST_F(placeFormats, noTerminalGetsTheKmz)
{
    const test::ProgramResult result = test::runProgram(
        {.command = {"/usr/bin/script", "-qec", PINORAMA_INFO " --format kmz /tmp", "/dev/null"}});
    if (result.status == 127) GTEST_SKIP() << "script is not installed";
    EXPECT_EQ(result.status, 2);
    EXPECT_NE(result.out.find("--format kmz makes an archive"), std::string::npos) << result.out;
}

TEST_F(placeFormats, gdalReadsTheGpx)
{
    const std::string path = document("gpx");
    expectXML(path);
    EXPECT_EQ(test::readFile(path).find("<trk>"), std::string::npos);
    auto places = readByGdal(path, "waypoints");
    if (!hasGdal_) GTEST_SKIP() << "ogr2ogr is not installed";
    ASSERT_EQ(places.size(), 3u);
    expectPlace(places["1 canyon.jpg"], {-112.1234, 36.25});
    EXPECT_EQ(places["1 canyon.jpg"]["properties"]["ele"], 2095.5);
    EXPECT_EQ(places["1 canyon.jpg"]["properties"]["src"], folder_.file("1 canyon.jpg"));
    EXPECT_NE(places["1 canyon.jpg"]["properties"]["time"].dump().find("21:03:22"),
              std::string::npos);
    expectPlace(places[kCape], {18.474, -34.3568});
    EXPECT_EQ(places[kCape]["properties"]["ele"], -12.0);
    EXPECT_TRUE(places["3 clock.jpg"]["properties"]["time"].is_null());
    EXPECT_EQ(places["3 clock.jpg"]["properties"]["cmt"], "taken 2026-05-03T09:00:00");
}

TEST_F(placeFormats, gpsbabelReadsTheTrackInTheOrderOfTime)
{
    const std::string path = document("gpx", true);
    expectXML(path);
    const test::ProgramResult result =
        test::runProgram({.command = {"/usr/bin/gpsbabel", "-t", "-i", "gpx", "-f", path, "-o",
                                      "unicsv,utc=0", "-F", "-"}});
    if (result.status == 127) GTEST_SKIP() << "gpsbabel is not installed";
    EXPECT_EQ(result.status, 0) << result.err;
    const std::size_t clock = result.out.find("48.125");
    const std::size_t cape = result.out.find("-34.3568");
    const std::size_t canyon = result.out.find("36.25");
    ASSERT_NE(clock, std::string::npos) << result.out;
    ASSERT_NE(cape, std::string::npos) << result.out;
    ASSERT_NE(canyon, std::string::npos) << result.out;
    EXPECT_LT(clock, cape);
    EXPECT_LT(cape, canyon);
    EXPECT_NE(result.out.find("10:00:00"), std::string::npos) << result.out;
}

TEST_F(placeFormats, areTheSameForFilesAndFolders)
{
    std::vector<std::string> files = {folder_.file("1 canyon.jpg"), folder_.file(kCape),
                                      folder_.file("3 clock.jpg"), folder_.file("4 plain.jpg")};
    for (const char* format : {"json", "csv", "kml", "kmz", "geojson", "gpx", "list"}) {
        SCOPED_TRACE(format);
        std::vector<std::string> command = {PINORAMA_INFO, "--track", "--format", format};
        command.insert(command.end(), files.begin(), files.end());
        const test::ProgramResult result = test::runProgram({.command = command});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_EQ(result.out, test::readFile(document(format, true)));
    }
}

TEST_F(placeFormats, areCompleteWithoutAPlace)
{
    const std::string plain = folder_.file("4 plain.jpg");
    for (const char* format : {"kml", "geojson", "gpx"}) {
        SCOPED_TRACE(format);
        const std::string path = out_.file("empty");
        const test::ProgramResult result = test::runProgram(
            {.command = {PINORAMA_INFO, "--track", "--format", format, plain}, .outputPath = path});
        EXPECT_EQ(result.status, 0) << result.err;
        if (std::string(format) == "geojson") {
            EXPECT_EQ(json::parse(test::readFile(path))["features"], json::array());
        } else {
            expectXML(path);
        }
    }
}
