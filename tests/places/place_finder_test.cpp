// Places in a file.

#include "places/place_finder.h"
#include "places/place_data.h"
#include "tests/places/places_file.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>
#include <limits>

#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
PlacesFile smallWorld()
{
    return PlacesFile()
        .area("AA", {{0, 0}, {10, 0}, {10, 10}, {0, 10}})
        .area("BB", {{40, 0}, {41, 0}, {41, 1}, {40, 1}}, "BI")
        .area("CC", {{60, 0}, {70, 0}, {70, 10}, {60, 10}})
        .sea("Wide Sea", {{-100, -50}, {100, -50}, {100, 50}, {-100, 50}})
        .town({"AA", "Middle", 5, 5, 1000, "Europe/Berlin"})
        .town({"BB", "Harbour", 0.5, 40.5, 1000, "Atlantic/Azores"});
}

class PlaceFinderFile : public ::testing::Test {
protected:
    std::string write(const std::vector<std::uint8_t>& bytes) const
    {
        return folder_.write("places.bin",
                             {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }

    test::TemporaryFolder folder_;
};
}  // namespace

TEST_F(PlaceFinderFile, findsCountryTownAndZone)
{
    PlaceFinder finder(write(smallWorld().build()));
    const auto place = finder.find(5, 5.1);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->country, "AA");
    EXPECT_EQ(place->sea, "");
    EXPECT_EQ(place->zone, "Europe/Berlin");
    EXPECT_EQ(place->islands, "");
    ASSERT_TRUE(place->town);
    EXPECT_EQ(place->town->name, "Middle");
    EXPECT_NEAR(place->town->distance, 11.08, 0.02);
    EXPECT_NEAR(place->town->bearing, 90, 0.1);
}

TEST_F(PlaceFinderFile, findsTheSeaAndTheNearestIslands)
{
    PlaceFinder finder(write(smallWorld().build()));
    const auto place = finder.find(-5, 40.5);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->country, "");
    EXPECT_EQ(place->sea, "Wide Sea");
    EXPECT_EQ(place->islands, "BI");
    EXPECT_EQ(place->zone, "");
    ASSERT_TRUE(place->town);
    EXPECT_EQ(place->town->name, "Harbour");
    EXPECT_NEAR(place->town->bearing, 180, 0.1);
    EXPECT_EQ(finder.find(-5, 5)->islands, "");
}

TEST_F(PlaceFinderFile, findsACountryWithoutTowns)
{
    PlaceFinder finder(write(smallWorld().build()));
    const auto place = finder.find(5, 65);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->country, "CC");
    EXPECT_FALSE(place->town);
    EXPECT_EQ(place->zone, "");
}

TEST_F(PlaceFinderFile, findsNothingForWhatIsNoPoint)
{
    PlaceFinder finder(write(smallWorld().build()));
    ASSERT_TRUE(finder.find(5, 5));
    constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
    constexpr double kEndless = std::numeric_limits<double>::infinity();
    for (const auto& [latitude, longitude] : {std::pair{90.01, 5.0},
                                              {-91, 5},
                                              {5, 180.01},
                                              {5, -181},
                                              {kNone, 5},
                                              {5, kNone},
                                              {kEndless, 5},
                                              {5, -kEndless},
                                              {1e300, 1e300}}) {
        EXPECT_FALSE(finder.find(latitude, longitude));
    }
    EXPECT_FALSE(finder.find(80, 5));  // neither land nor sea
}

TEST_F(PlaceFinderFile, opensTheFileForTheFirstPlaceOnly)
{
    const std::string path = write(smallWorld().build());
    PlaceFinder early(path);
    std::filesystem::remove(path);
    EXPECT_FALSE(early.find(5, 5));
    write(smallWorld().build());
    EXPECT_FALSE(early.find(5, 5));  // not tried again
    PlaceFinder late(path);
    EXPECT_TRUE(late.find(5, 5));
    std::filesystem::remove(path);
    EXPECT_TRUE(late.find(5, 5));
}

TEST_F(PlaceFinderFile, findsNothingInOtherFiles)
{
    EXPECT_FALSE(PlaceFinder("/nonexistent/places.bin").find(5, 5));
    EXPECT_FALSE(PlaceFinder(folder_.path()).find(5, 5));
    EXPECT_FALSE(PlaceFinder("/dev/zero").find(5, 5));
    EXPECT_FALSE(PlaceFinder(write({})).find(5, 5));
    EXPECT_FALSE(PlaceFinder(write(std::vector<std::uint8_t>(7 * 1024 * 1024))).find(5, 5));
    auto bytes = smallWorld().build();
    bytes[bytes.size() / 2] ^= 1;
    EXPECT_FALSE(PlaceFinder(write(bytes)).find(5, 5));
}

TEST_F(PlaceFinderFile, saysWhyAFileThatIsThereCannotBeUsed)
{
    PlaceFinder good(write(smallWorld().build()));
    EXPECT_EQ(good.error(), 0);
    EXPECT_EQ(PlaceFinder("/nonexistent/places.bin").error(), 0);
    ASSERT_EQ(symlink("loop", folder_.file("loop").c_str()), 0);
    PlaceFinder loop(folder_.file("loop"));
    EXPECT_EQ(loop.error(), ELOOP);
    EXPECT_FALSE(loop.find(5, 5));
}

TEST_F(PlaceFinderFile, doesNotWaitForAPipe)
{
    const std::string path = folder_.file("pipe");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_FALSE(PlaceFinder(path).find(5, 5));
}
