#include "pictures/video_place.h"

#include "pictures/iso_media.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::viewOf;
using namespace std::string_literals;

namespace {
const std::string kParis = "+48.8584+002.2945+330.000/";

std::optional<StatedPlace> placeIn(const std::string& boxesOfMoov)
{
    const std::string file = test::quickTimeFile(boxesOfMoov);
    MemoryByteSource source(viewOf(file));
    return findIsoMetadata(ByteBlock(source)).place;
}
}  // namespace

TEST(placeOfIso6709, readsDegreesMinutesAndSeconds)
{
    const struct {
        const char* name;
        const char* text;
        StatedPlace expected;
    } rows[] = {
        {"degrees", "+48.8584+002.2945/", {48.8584, 2.2945}},
        {"and metres", "+48.8584+002.2945+330.5/", {48.8584, 2.2945, 330.5}},
        {"south, west, below the sea", "-33.8568-070.6483-012/", {-33.8568, -70.6483, -12.0}},
        {"no end", "+48.8584+002.2945", {48.8584, 2.2945}},
        {"a reference system", "+48.8+002.2+10/CRSWGS_84/", {48.8, 2.2, 10.0}},
        {"minutes", "+4830.6+00215.3/", {48.51, 2.255}},
        {"seconds", "+483045.0-0021530.0/", {48.5125, -(2 + 15 / 60.0 + 30 / 3600.0)}},
        {"whole degrees", "+48-070/", {48.0, -70.0}},
        {"no leading zeros", "+5.5+7.25/", {5.5, 7.25}},
        {"the poles and the date line", "-90+180/", {-90.0, 180.0}},
        {"the altitude is malformed", "+48+002+inf/", {48.0, 2.0}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::optional<StatedPlace> place = placeOfIso6709(row.text);
        ASSERT_TRUE(place);
        EXPECT_NEAR(place->latitude, row.expected.latitude, 1e-9);
        EXPECT_NEAR(place->longitude, row.expected.longitude, 1e-9);
        EXPECT_EQ(place->altitude, row.expected.altitude);
    }
}

TEST(placeOfIso6709, refusesWhatIsNoPlace)
{
    for (const char* text :
         {"", "hello", "+", "+48.8584", "48.8584+002.2945/", "+48.8584,+002.2945", "+inf+inf/",
          "+nan+nan/", "+91+000/", "+000+181/", "+300+300/", "+.5+.5/", "+4.8.5+002/",
          "+99999999999999999999+1/", "+-5+7/", "+1e1+001/"}) {
        SCOPED_TRACE(text);
        EXPECT_FALSE(placeOfIso6709(text));
    }
}

TEST(findVideoPlace, findsEveryWayToSayIt)
{
    const StatedPlace paris{48.8584, 2.2945, 330.0};
    EXPECT_EQ(placeIn(test::placeAsKey(kParis)), paris);
    EXPECT_EQ(placeIn(test::placeAsKey(kParis, "com.apple.quicktime.location.ISO6709-und-US")),
              paris);
    EXPECT_EQ(placeIn(test::placeAsUserText(kParis)), paris);
    EXPECT_EQ(placeIn(test::placeAsItem(kParis)), paris);
    EXPECT_EQ(placeIn(test::placeAsLoci(-12.5, 100.25, -3.0)), (StatedPlace{-12.5, 100.25, -3.0}));
    // The name of the place in UTF-16.
    EXPECT_EQ(placeIn(test::placeAsLoci(-12.5, 100.25, 0.0, "\xfe\xff\0P\0"s)),
              (StatedPlace{-12.5, 100.25, 0.0}));
}

TEST(findVideoPlace, theKeyCountsBeforeTheUserData)
{
    const std::string rome = "+41.9+012.5/";
    EXPECT_EQ(placeIn(test::placeAsUserText(rome) + test::placeAsKey(kParis))->latitude, 48.8584);
    const auto inOneBox = [](const std::string& first, const std::string& second) {
        return test::isoBox("udta", first.substr(8) + second.substr(8));
    };
    EXPECT_EQ(placeIn(inOneBox(test::placeAsItem(kParis), test::placeAsUserText(rome)))->latitude,
              41.9);
    EXPECT_EQ(placeIn(inOneBox(test::placeAsLoci(1, 2, 3), test::placeAsItem(rome)))->latitude,
              41.9);
    // A malformed one does not count.
    EXPECT_EQ(placeIn(test::placeAsKey("hello") + test::placeAsUserText(rome))->latitude, 41.9);
}

TEST(findVideoPlace, otherKeysSayNothing)
{
    EXPECT_FALSE(placeIn(test::placeAsKey(kParis, "com.apple.quicktime.location.ISO67090")));
    EXPECT_FALSE(placeIn(test::placeAsKey(kParis, "com.apple.quicktime.location.name")));
    EXPECT_FALSE(placeIn(""));
    EXPECT_FALSE(placeIn(test::placeAsLoci(91, 0, 0)));
    EXPECT_FALSE(placeIn(test::isoBox("udta", test::isoFullBox("loci", 0, "\0\0name"s))));
}
