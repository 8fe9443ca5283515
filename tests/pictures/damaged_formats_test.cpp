// Every file of the collection of further formats, cut short and with single bytes turned over at
// the places that are looked at. What such a file says is nobody's business; reading it has to end,
// inside its bytes (which the sanitizers see) and soon.

#include "pictures/more_properties.h"

#include "pictures/picture_file.h"
#include "tests/support/byte_views.h"
#include "tests/support/collection.h"
#include "tests/support/environment.h"
#include "tests/support/strict_source.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>

using namespace pinorama;

namespace {
constexpr std::size_t kCutsPerFile = 200;
constexpr std::size_t kFlipsPerFile = 600;
// A JPEG picture with foreign bytes is looked through byte by byte.
constexpr std::size_t kMaxViews = 200'000;

struct File {
    std::string name;
    std::string bytes;
};

std::vector<File> filesOf(const std::string& folder)
{
    std::vector<File> files;
    for (const test::CollectedPicture& picture : test::picturesOf(folder)) {
        files.push_back({picture.name, test::readFile(picture.path)});
        const std::string sidecar = picture.expected.value("sidecar", "");
        if (sidecar.empty()) continue;
        const std::string beside = picture.path.substr(0, picture.path.rfind('/') + 1) + sidecar;
        files.push_back({picture.name + ", " + sidecar, test::readFile(beside)});
    }
    return files;
}

// Reads the file and holds what comes of it against what every caller relies on.
void expectHarmless(test::StrictSource& source)
{
    const std::optional<PictureProperties> properties = readMoreProperties(source, "en");
    EXPECT_LE(source.views().size(), kMaxViews);
    if (!properties) return;
    for (const std::optional<double>& number :
         {properties->latitude, properties->longitude, properties->altitude,
          properties->imageDirection, properties->destinationDistance}) {
        EXPECT_TRUE(!number || std::isfinite(*number));
    }
}

// The places that are looked at in the undamaged file, no more than `count` of them, evenly spread.
std::vector<std::uint64_t> placesLookedAt(const std::string& bytes, std::size_t count)
{
    test::StrictSource source(test::viewOf(bytes));
    expectHarmless(source);
    std::set<std::uint64_t> places;
    for (const auto& [start, length] : source.views()) {
        for (std::size_t i = 0; i < length; i++) places.insert(places.end(), start + i);
    }
    std::vector<std::uint64_t> chosen;
    const std::size_t step = places.size() / count + 1;
    std::size_t index = 0;
    for (const std::uint64_t place : places) {
        if (index++ % step == 0) chosen.push_back(place);
    }
    return chosen;
}
}  // namespace

TEST(readMoreProperties, readsTheSameByStrictViews)
{
    const std::optional<std::string> folder = test::formatCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_FORMAT_COLLECTION is not set";
    for (const test::CollectedPicture& picture : test::picturesOf(*folder)) {
        SCOPED_TRACE(picture.name);
        const PictureFile file(picture.path);
        FileByteSource usual(file.descriptor(), file.size());
        const std::string bytes = test::readFile(picture.path);
        test::StrictSource strict(test::viewOf(bytes));
        EXPECT_EQ(readMoreProperties(strict, "en"), readMoreProperties(usual, "en"));
    }
}

TEST(readMoreProperties, endsWhereverACollectedFileIsCut)
{
    const std::optional<std::string> folder = test::formatCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_FORMAT_COLLECTION is not set";
    std::size_t cuts = 0;
    for (const File& file : filesOf(*folder)) {
        SCOPED_TRACE(file.name);
        EXPECT_FALSE(file.bytes.empty());
        for (const std::uint64_t length : placesLookedAt(file.bytes, kCutsPerFile)) {
            test::StrictSource source(
                test::viewOf(file.bytes).first(static_cast<std::size_t>(length)));
            expectHarmless(source);
            cuts++;
        }
    }
    EXPECT_GT(cuts, 5000u);
}

TEST(readMoreProperties, endsWhicheverByteOfACollectedFileIsTurnedOver)
{
    const std::optional<std::string> folder = test::formatCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_FORMAT_COLLECTION is not set";
    std::size_t flips = 0;
    for (const File& file : filesOf(*folder)) {
        SCOPED_TRACE(file.name);
        for (const std::uint64_t place : placesLookedAt(file.bytes, kFlipsPerFile)) {
            static constexpr std::uint8_t kBits[] = {0xff, 0x80, 0x01, 0x20};
            test::StrictSource source(test::viewOf(file.bytes));
            source.flip(place, kBits[flips++ % std::size(kBits)]);
            expectHarmless(source);
        }
    }
    EXPECT_GT(flips, 15'000u);
}
