// pinorama-info --more, through the program itself.

#include "tests/cli/running_program.h"
#include "tests/support/collection.h"
#include "tests/support/container_builder.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <sstream>

namespace {
using nlohmann::json;
using Arguments = std::vector<std::string>;

// The objects that the program prints.
std::vector<json> objectsOf(Arguments arguments)
{
    arguments.insert(arguments.begin(), {"--json", "-q"});
    test::RunningProgram program(arguments);
    (void)program.finish();  // the status is that of files that cannot be read
    std::vector<json> objects;
    std::istringstream lines(program.out());
    for (std::string line; std::getline(lines, line);) objects.push_back(json::parse(line));
    return objects;
}

std::string placedHeic()
{
    const std::string tiff = test::tiffWithGps({.lat = 48.5, .latRef = "S", .lon = 2.25});
    return test::heifFile({.items = {{"Exif", test::heifExif(tiff)}}});
}

const std::string kXmp =
    test::xmpPacket("exif:GPSLatitude='10,30N' exif:GPSLongitude='20,15W' photoshop:City='Rome'");

json signedLatitude(const json& object)
{
    return object["refLatti"] == "S" ? json(-object["latti"].get<double>()) : object["latti"];
}
}  // namespace

TEST(pinoramaInfoMore, readsMoreKindsOfFilesOnRequest)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.heic", placedHeic());
    const json without = objectsOf({path}).at(0);
    EXPECT_EQ(without["accepted"], false);
    EXPECT_TRUE(without["result"].is_null());
    EXPECT_FALSE(without.contains("source"));

    const json with = objectsOf({"--more", path}).at(0);
    EXPECT_EQ(with["accepted"], true);
    EXPECT_EQ(with["result"], 0);
    EXPECT_EQ(signedLatitude(with), -48.5);
    EXPECT_EQ(with["source"], "exif");
}

TEST(pinoramaInfoMore, findsThemInFolders)
{
    const test::TemporaryFolder folder;
    folder.write("a.heic", placedHeic());
    folder.write("b.jpg", test::pictureWithGps({.lat = 1.5, .latRef = "N", .lon = 2.5}));
    folder.write("c.txt", "text");
    folder.write("b.xmp", kXmp);
    EXPECT_EQ(objectsOf({"-r", folder.path()}).size(), 1u);
    const std::vector<json> objects = objectsOf({"--more", "-r", folder.path()});
    ASSERT_EQ(objects.size(), 2u);
    EXPECT_EQ(objects[0]["name"], "a.heic");
    EXPECT_EQ(objects[1]["name"], "b.jpg");
    EXPECT_EQ(objects[1]["source"], "exif");
    EXPECT_EQ(objects[1]["city"], "Rome");
    EXPECT_EQ(objects[1]["citySource"], "sidecar");
}

TEST(pinoramaInfoMore, readsSidecarsOfTheirOwnPicturesOnly)
{
    const test::TemporaryFolder folder;
    Arguments arguments = {"--more"};
    for (int i = 0; i < 100; i++) {
        const std::string name = std::to_string(i);
        arguments.push_back(folder.write(name + ".jpg", test::jpegPicture({})));
        if (i % 3 == 0) {
            folder.write(name + ".jpg.xmp", test::xmpPacket("photoshop:City='" + name +
                                                            "' exif:GPSLatitude='1,0N'"
                                                            " exif:GPSLongitude='2,0E'"));
        }
    }
    const std::vector<json> objects = objectsOf(arguments);
    ASSERT_EQ(objects.size(), 100u);
    for (int i = 0; i < 100; i++) {
        SCOPED_TRACE(i);
        const json& object = objects[static_cast<std::size_t>(i)];
        EXPECT_EQ(object["city"], i % 3 == 0 ? json(std::to_string(i)) : json());
        EXPECT_EQ(object["source"], i % 3 == 0 ? json("sidecar") : json());
    }
}

TEST(pinoramaInfoMore, printsWhatIsExpectedOfTheFormatCollection)
{
    const std::optional<std::string> folder = test::formatCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_FORMAT_COLLECTION is not set";
    Arguments arguments = {"--more"};
    std::vector<test::CollectedPicture> pictures;
    for (const test::CollectedPicture& picture : test::picturesOf(*folder)) {
        if (picture.expected["kind"] == "damaged") continue;
        pictures.push_back(picture);
        arguments.push_back(picture.path);
    }
    const std::vector<json> objects = objectsOf(arguments);
    ASSERT_EQ(objects.size(), pictures.size());
    int located = 0;
    for (std::size_t i = 0; i < objects.size(); i++) {
        SCOPED_TRACE(pictures[i].name);
        const json& expected = pictures[i].expected;
        for (const char* field : {"city", "state", "country", "description"}) {
            EXPECT_EQ(objects[i][field], expected[field]) << field;
        }
        // A place on the equator or the prime meridian counts as none.
        const bool isLocated = expected["latitude"].is_number() && expected["latitude"] != 0 &&
                               expected["longitude"] != 0;
        EXPECT_EQ(objects[i]["result"], isLocated ? 0 : -1);
        if (!isLocated) continue;
        located++;
        EXPECT_NEAR(signedLatitude(objects[i]).get<double>(), expected["latitude"].get<double>(),
                    1e-4);
    }
    EXPECT_GE(located, 35);
}
