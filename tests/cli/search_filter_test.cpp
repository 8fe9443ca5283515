// Searches for pictures by place, by the whole program.

#include "cli/search/search_filter.h"

#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <map>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include <sys/stat.h>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using Texts = std::vector<std::string>;

std::string pictureAt(double latitude, double longitude)
{
    return test::pictureWithGps({.lat = std::abs(latitude),
                                 .latRef = latitude < 0 ? "S" : "N",
                                 .lon = std::abs(longitude),
                                 .lonRef = longitude < 0 ? "W" : "E"});
}

// Pictures around the point 0.5 N, 10 E, where a thousandth of a degree is about 111 m.
class placeSearch : public testing::Test {
protected:
    placeSearch()
    {
        (void)folder_.write("a far.jpg", pictureAt(1.5, 10.0));
        (void)folder_.write("b third.jpg", pictureAt(0.5, 10.01));
        (void)folder_.write("c first.jpg", pictureAt(0.5, 10.0));
        (void)folder_.write("d second.jpg", pictureAt(0.495, 10.0));
        (void)folder_.write("e mirrored.jpg", pictureAt(-0.5, 10.0));
        (void)folder_.write("f plain.jpg", test::jpegPicture({}));
        (void)folder_.write("g no picture.jpg", "x");
        (void)folder_.write("h notes.txt", "x");
    }

    test::ProgramResult run(Texts arguments) const
    {
        arguments.insert(arguments.begin(), {PINORAMA_INFO, "-r", "-q"});
        arguments.push_back(folder_.path());
        return test::runProgram({.command = arguments});
    }

    Texts namesFoundBy(Texts arguments) const
    {
        arguments.push_back("--json");
        const test::ProgramResult result = run(arguments);
        EXPECT_EQ(result.status, 0) << result.err;
        Texts names;
        std::istringstream lines(result.out);
        for (std::string line; std::getline(lines, line);) {
            names.push_back(ordered_json::parse(line)["name"].get<std::string>().substr(2));
        }
        return names;
    }

    const test::TemporaryFolder folder_;
};

// The file in a list, as its device and its number there.
std::string fileOf(const std::string& path)
{
    struct stat status {};
    EXPECT_EQ(stat(path.c_str(), &status), 0);
    return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino);
}
}  // namespace

TEST_F(placeSearch, findsWhatIsNearNearestFirst)
{
    EXPECT_EQ(namesFoundBy({"--near", "0.5,10"}), (Texts{"first.jpg", "second.jpg", "third.jpg"}));
    EXPECT_EQ(namesFoundBy({"--near", "0.5,10,600"}), (Texts{"first.jpg", "second.jpg"}));
    EXPECT_EQ(namesFoundBy({"--near", "0.5,10,0"}), (Texts{"first.jpg"}));
    EXPECT_EQ(namesFoundBy({"--near", "50,10"}), Texts{});
    EXPECT_EQ(namesFoundBy({"--near=-0.5,10"}), (Texts{"mirrored.jpg"}));
    EXPECT_EQ(namesFoundBy({"--near", "0.5,10,20000000"}),
              (Texts{"first.jpg", "second.jpg", "third.jpg", "mirrored.jpg", "far.jpg"}));
}

TEST_F(placeSearch, printsThemAsFoundOnRequest)
{
    EXPECT_EQ(namesFoundBy({"--near", "0.5,10", "--as-found"}),
              (Texts{"third.jpg", "first.jpg", "second.jpg"}));
}

TEST_F(placeSearch, findsWhatIsNearAPicture)
{
    EXPECT_EQ(namesFoundBy({"--near", folder_.file("d second.jpg")}),
              (Texts{"second.jpg", "first.jpg", "third.jpg"}));
    EXPECT_EQ(namesFoundBy({"--near", folder_.file("d second.jpg") + ",600"}),
              (Texts{"second.jpg", "first.jpg"}));
}

TEST_F(placeSearch, saysHowFarAndInWhichDirection)
{
    std::istringstream lines(run({"--near", "0.5,10", "--json"}).out);
    std::string line;
    std::getline(lines, line);
    EXPECT_EQ(ordered_json::parse(line)["metres"], 0.0);
    std::getline(lines, line);
    const ordered_json second = ordered_json::parse(line);
    EXPECT_NEAR(second["metres"].get<double>(), 552.88, 0.01);
    EXPECT_NEAR(second["bearing"].get<double>(), 180.0, 1e-6);
    EXPECT_EQ(second["distance"], 1000.0) << "the view distance of the record";
    std::getline(lines, line);
    EXPECT_NEAR(ordered_json::parse(line)["bearing"].get<double>(), 90.0, 1e-3);

    const std::string table = run({"--near", "0.5,10", "--csv"}).out;
    EXPECT_EQ(table.find("path,latitude,longitude,altitude,direction,taken,metres,bearing,name,"),
              0u)
        << table;
    const std::string text = run({"--near", "0.5,10,600"}).out;
    EXPECT_NE(text.find("Distance:     553 m\nBearing:      180\u00b0\n"), std::string::npos)
        << text;
    EXPECT_EQ(text.rfind("Path:", 0), 0u);
    EXPECT_NE(text.find("\n\nPath:"), std::string::npos);
}

TEST_F(placeSearch, findsWhatIsInAnArea)
{
    const test::TemporaryFolder other;
    const std::string area = other.write(
        "area.geojson",
        R"({"type":"Polygon","coordinates":[[[9,0],[10.005,0],[10.005,0.6],[9,0.6],[9,0]]]})");
    EXPECT_EQ(namesFoundBy({"--within", area}), (Texts{"first.jpg", "second.jpg"}));
    EXPECT_EQ(namesFoundBy({"--within", area, "--near", "0.5,10,100"}), Texts{"first.jpg"});
}

TEST_F(placeSearch, findsPicturesWithoutAPosition)
{
    EXPECT_EQ(namesFoundBy({"--no-position"}), (Texts{"plain.jpg", "no picture.jpg"}));
}

TEST_F(placeSearch, worksForEveryOutput)
{
    for (const char* format : {"kml", "geojson", "gpx"}) {
        const std::string out = run({"--near", "0.5,10", "--format", format}).out;
        const std::size_t first = out.find(">c first.jpg<") + out.find("\"c first.jpg\"") + 1;
        EXPECT_NE(first, std::string::npos) << out;
        EXPECT_EQ(out.find("a far.jpg"), std::string::npos) << out;
    }
    const std::string features = run({"--near", "0.5,10", "--format", "geojson"}).out;
    EXPECT_EQ(ordered_json::parse(features)["features"].size(), 3u);
    std::istringstream addresses(run({"--near", "0.5,10", "--search"}).out);
    int count = 0;
    for (std::string line; std::getline(addresses, line);) count++;
    EXPECT_EQ(count, 3);
}

TEST_F(placeSearch, listsThePathsInTheBytesOfTheSystem)
{
    const std::string odd = folder_.write("i line\nand \xff.jpg", pictureAt(0.5, 10.0));
    std::istringstream fields(run({"--near", "0.5,10,600", "--format", "list"}).out);
    Texts found;
    for (std::string field; std::getline(fields, field, '\0');) found.push_back(field);
    ASSERT_EQ(found.size(), 18u);
    EXPECT_EQ(Texts(found.begin(), found.begin() + 4),
              (Texts{folder_.file("c first.jpg"), "0.5", "10", "0"}));
    EXPECT_EQ(found[6], odd);
    EXPECT_EQ(found[12], folder_.file("d second.jpg"));
    EXPECT_EQ(found[13], "0.495");
    EXPECT_NEAR(std::stod(found[15]), 552.88, 0.01);
    EXPECT_EQ(found[16], "180");
}

TEST_F(placeSearch, listsPicturesWithoutAPositionWithEmptyFields)
{
    using namespace std::string_literals;
    const auto entryOf = [this](const char* name) {
        return folder_.file(name) + "\0\0\0\0\0"s + fileOf(folder_.file(name)) + "\0"s;
    };
    EXPECT_EQ(run({"--no-position", "--format", "list"}).out,
              entryOf("f plain.jpg") + entryOf("g no picture.jpg"));
}

TEST_F(placeSearch, namesTheFileThatALinkLeadsTo)
{
    const std::string link = folder_.file("a link.jpg");
    std::filesystem::create_symlink(folder_.file("c first.jpg"), link);
    std::istringstream fields(run({"--near", "0.5,10,1", "--format", "list"}).out);
    std::map<std::string, std::string> files;
    for (Texts entry(6); std::getline(fields, entry[0], '\0');) {
        for (std::size_t i = 1; i < entry.size(); i++) std::getline(fields, entry[i], '\0');
        files[entry[0]] = entry[5];
    }
    ASSERT_EQ(files.size(), 2u);
    EXPECT_EQ(files[link], fileOf(folder_.file("c first.jpg")));
    EXPECT_EQ(files[folder_.file("c first.jpg")], files[link]);
}

TEST_F(placeSearch, explainsWhatItCannotSearch)
{
    const std::string plain = folder_.file("f plain.jpg");
    const std::string notes = folder_.file("h notes.txt");
    const struct {
        Texts arguments;
        std::string expected;
    } rows[] = {
        {{"--near", "91,10"}, "--near: there is no place 91,10 on the Earth"},
        {{"--near", "10,181"}, "--near: there is no place 10,181 on the Earth"},
        {{"--near", "1,2,x"}, "--near needs a distance of 0 to 20100000 metres, not 'x'"},
        {{"--near", "1,2,-1"}, "--near needs a distance of 0 to 20100000 metres, not '-1'"},
        {{"--near", "1,nan"}, "1,nan: No such file or directory"},
        {{"--near", plain}, plain + ": no position"},
        {{"--within", notes}, notes + ": is not JSON"},
        {{"--within", "/missing"}, "/missing: No such file or directory"},
        {{"--within", "/"}, "/: Is a directory"},
    };
    for (const auto& row : rows) {
        const test::ProgramResult result = run(row.arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_EQ(result.err, "pinorama-info: " + row.expected + '\n');
    }
}

TEST(readNearPlace, takesNumbersBeforeNames)
{
    std::string error;
    const auto circle = readNearPlace("-33.5,18.25", &error);
    ASSERT_TRUE(circle) << error;
    EXPECT_EQ(circle->centre().latitude, -33.5);
    EXPECT_EQ(circle->centre().longitude, 18.25);
    EXPECT_EQ(circle->radius(), kDefaultRadius);
    EXPECT_EQ(readNearPlace("1,2,1e3", &error)->radius(), 1000.0);
}
