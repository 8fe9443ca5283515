#include "pictures/merged_properties.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
PictureProperties withPosition(double latitude, double longitude)
{
    PictureProperties properties;
    properties.hasGps = true;
    properties.latitude = latitude;
    properties.latitudeReference = u"N";
    properties.longitude = longitude;
    properties.longitudeReference = u"E";
    return properties;
}

PictureProperties everything()
{
    PictureProperties properties = withPosition(10.0, 20.0);
    properties.altitude = 30.0;
    properties.altitudeReference = 1;
    properties.imageDirection = 40.0;
    properties.imageDirectionReference = u"M";
    properties.destinationDistance = 50.0;
    properties.destinationDistanceReference = u"K";
    properties.satellites = u"six";
    properties.hasIptc = true;
    properties.city = u"city";
    properties.state = u"state";
    properties.country = u"country";
    properties.caption = u"caption";
    return properties;
}
}  // namespace

TEST(addMissing, takesEverythingWhereThereIsNothing)
{
    PictureProperties properties;
    addMissing(properties, everything(), ValueSource::sidecar);
    PictureProperties expected = everything();
    expected.sources = ValueSources::all(ValueSource::sidecar);
    EXPECT_EQ(properties, expected);
}

TEST(addMissing, keepsWhatThereIs)
{
    PictureProperties other = withPosition(1.0, 2.0);
    other.altitude = 3.0;
    other.imageDirection = 4.0;
    other.imageDirectionReference = u"T";
    other.destinationDistance = 5.0;
    other.satellites = u"seven";
    other.city = other.state = other.country = other.caption = u"other";
    PictureProperties properties = everything();
    addMissing(properties, other, ValueSource::xmp);
    EXPECT_EQ(properties, everything());
}

TEST(addMissing, addsNothingOfNothing)
{
    PictureProperties properties;
    addMissing(properties, {}, ValueSource::xmp);
    EXPECT_EQ(properties, PictureProperties{});
}

TEST(addMissing, aWholePositionReplacesHalfOfOne)
{
    PictureProperties properties;
    properties.latitude = 1.0;
    properties.latitudeReference = u"S";
    addMissing(properties, everything(), ValueSource::xmp);
    EXPECT_EQ(properties.latitude, 10.0);
    EXPECT_EQ(properties.latitudeReference, u"N");
    EXPECT_EQ(properties.longitude, 20.0);
    EXPECT_EQ(properties.sources.position, ValueSource::xmp);
}

TEST(addMissing, halfAPositionCompletesNoOther)
{
    PictureProperties half;
    half.longitude = 2.0;
    PictureProperties properties;
    properties.latitude = 1.0;
    addMissing(properties, half, ValueSource::xmp);
    EXPECT_FALSE(properties.longitude);
    EXPECT_EQ(properties.sources.position, ValueSource::exif);

    PictureProperties nothing;
    addMissing(nothing, half, ValueSource::xmp);
    EXPECT_EQ(nothing.longitude, 2.0);
}

TEST(addMissing, zeroIsAPosition)
{
    PictureProperties properties = withPosition(0.0, 0.0);
    addMissing(properties, everything(), ValueSource::xmp);
    EXPECT_EQ(properties.latitude, 0.0);
    EXPECT_EQ(properties.sources.position, ValueSource::exif);
}

TEST(addMissing, anEmptyTextIsLacking)
{
    PictureProperties properties;
    properties.hasIptc = true;
    properties.city = u"";
    properties.state = u"Lazio";
    addMissing(properties, everything(), ValueSource::xmp);
    EXPECT_EQ(properties.city, u"city");
    EXPECT_EQ(properties.sources.city, ValueSource::xmp);
    EXPECT_EQ(properties.state, u"Lazio");
    EXPECT_EQ(properties.sources.state, ValueSource::iptc);
}
