// The places file as bytes: what is refused, and that nothing outside it is read.

#include "places/place_data.h"
#include "places/place_finder.h"
#include "tests/places/places_file.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <random>

using namespace pinorama;

namespace {
PlacesFile smallWorld()
{
    PlacesFile file;
    file.area("AA", {{0, 0}, {10, 0}, {10, 10}, {0, 10}})
        .area("BB", {{20, 0}, {30, 0}, {30, 10}, {20, 10}}, "BB")
        .sea("Wide Sea", {{-100, -50}, {100, -50}, {100, 50}, {-100, 50}});
    for (int i = 0; i < 40; ++i) {
        file.town({i % 2 == 0 ? "AA" : "BB", "Town " + std::to_string(i), 1 + i * 0.2,
                   i % 2 == 0 ? 5.0 : 25.0, 1000.0 + i,
                   i % 3 == 0 ? "Europe/Berlin" : "Europe/Paris"});
    }
    return file;
}

// Looks up places in a block of exactly the right size, so that a sanitizer notices a read past it.
void lookAround(const std::vector<std::uint8_t>& bytes)
{
    const auto block = std::make_unique<std::uint8_t[]>(bytes.size());
    std::copy(bytes.begin(), bytes.end(), block.get());
    const auto data = PlaceData::parse({block.get(), bytes.size()});
    if (!data) return;
    for (const double latitude : {-90.0, 2.0, 5.5, 40.0, 90.0}) {
        for (const double longitude : {-180.0, 5.0, 15.0, 25.0, 180.0}) {
            (void)findPlace(*data, latitude, longitude);
        }
    }
}
}  // namespace

TEST(PlaceData, namesAreInAlphabeticalOrder)
{
    PlacesFile file;
    std::vector<std::string> names;
    for (int i = 0; i < 50; ++i) {
        names.push_back("Sankt " + std::to_string(i * 7919 % 1000));
        file.town({"AA", names.back(), 0, static_cast<double>(i), 1, ""});
    }
    std::sort(names.begin(), names.end());
    const auto bytes = file.build();
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    for (std::uint32_t i = 0; i < names.size(); ++i) EXPECT_EQ(data->name(i), names[i]);
    EXPECT_EQ(data->name(1000), "");
    EXPECT_EQ(data->name(0xffffff), "");
}

TEST(PlaceDataParse, refusesEveryFileThatIsNotWhole)
{
    const auto whole = smallWorld().build();
    ASSERT_TRUE(PlaceData::parse(whole));
    for (std::size_t length = 0; length < whole.size(); length += length < 400 ? 1 : 97) {
        EXPECT_FALSE(PlaceData::parse({whole.data(), length})) << length;
    }
}

TEST(PlaceDataParse, refusesEveryFileWithOneWrongByte)
{
    auto bytes = smallWorld().build();
    for (std::size_t at = 0; at < bytes.size(); ++at) {
        if (at >= 12 && at < 16) continue;  // unused
        bytes[at] ^= 0x10;
        EXPECT_FALSE(PlaceData::parse(bytes)) << at;
        bytes[at] ^= 0x10;
    }
}

TEST(PlaceDataParse, refusesSectionsOutsideTheFile)
{
    auto bytes = smallWorld().build();
    const std::size_t firstLength = 32 + 8;
    for (const std::uint8_t length : {0x7f, 0xff}) {
        bytes[firstLength + 3] = length;
        sealPlacesFile(bytes);
        EXPECT_FALSE(PlaceData::parse(bytes));
    }
    bytes = smallWorld().build();
    bytes[28] = 65;  // sections
    sealPlacesFile(bytes);
    EXPECT_FALSE(PlaceData::parse(bytes));
}

TEST(PlaceDataParse, passesOverSectionsThatItDoesNotKnow)
{
    const auto bytes = smallWorld().build({{"ZZZZ", "something of a later version"}});
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    EXPECT_EQ(findPlace(*data, 2, 5)->country, "AA");
}

TEST(findPlace, survivesEveryChangedByteUnderARightChecksum)
{
    const auto whole = smallWorld().build();
    for (std::size_t at = 24; at < whole.size(); ++at) {
        for (const std::uint8_t value : {0x00, 0x7f, 0x80, 0xff}) {
            auto bytes = whole;
            bytes[at] = value;
            sealPlacesFile(bytes);
            lookAround(bytes);
        }
    }
}

TEST(findPlace, survivesRandomContentUnderRightChecksums)
{
    std::mt19937 random(11);
    const auto plain = smallWorld().build();
    const auto summed = smallWorld().blockSums().build();
    for (int round = 0; round < 6000; ++round) {
        const auto& whole = round % 2 == 0 ? plain : summed;
        auto bytes = whole;
        for (int changes = 0; changes < 12; ++changes) {
            bytes[24 + random() % (bytes.size() - 24)] = static_cast<std::uint8_t>(random());
        }
        // The length stays right, or nothing else would be looked at.
        std::copy(whole.begin() + 24, whole.begin() + 28, bytes.begin() + 24);
        sealPlacesFile(bytes);
        lookAround(bytes);
    }
}

TEST(findPlace, needsNoSection)
{
    for (const char* missing : {"AREA", "RING", "VERT", "SEAS", "SRNG", "SVRT", "TREE", "TOWN",
                                "NBLK", "NAME", "ZLST", "ZONE"}) {
        SCOPED_TRACE(missing);
        lookAround(smallWorld().build({{missing, ""}}));
    }
    const auto bytes = smallWorld().build({{"TOWN", ""}});
    const auto data = PlaceData::parse(bytes);
    ASSERT_TRUE(data);
    const auto place = findPlace(*data, 2, 5);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->country, "AA");
    EXPECT_FALSE(place->town);
}
