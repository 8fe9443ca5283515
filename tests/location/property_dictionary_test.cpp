#include "location/property_dictionary.h"

#include "base/alloc.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "location/property_keys.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
using Dictionary = ObjectHolder<TovDictionaryRef>;

PictureProperties everything()
{
    PictureProperties all;
    all.hasGps = true;
    all.latitude = 33.9;
    all.latitudeReference = u"S";
    all.longitude = 18.4;
    all.longitudeReference = u"E";
    all.altitude = 12.0;
    all.altitudeReference = 1;
    all.destinationDistance = 2.0;
    all.destinationDistanceReference = u"K";
    all.satellites = u"tilt:30 and a text that is longer than small ones";
    all.imageDirection = 90.0;
    all.hasIptc = true;
    all.city = u"Cape Town";
    all.state = u"Western Cape";
    all.country = u"South Africa";
    all.caption = u"Table Mountain";
    return all;
}

PictureProperties thereAndBack(const PictureProperties& properties)
{
    return propertiesOfDictionary(Dictionary(createPropertyDictionary(properties)).get());
}
}  // namespace

TEST(propertiesOfDictionary, undoesCreatePropertyDictionary)
{
    EXPECT_EQ(thereAndBack(everything()), everything());
    EXPECT_EQ(thereAndBack({}), PictureProperties{});
    PictureProperties empty;
    empty.hasGps = empty.hasIptc = true;
    EXPECT_EQ(thereAndBack(empty), empty);
}

TEST(propertiesOfDictionary, hasNothingOfNullAndOfOtherKinds)
{
    EXPECT_EQ(propertiesOfDictionary(nullptr), PictureProperties{});

    const Dictionary image(TovDictionaryCreate());
    const Dictionary gps(TovDictionaryCreate());
    const ObjectHolder<TovNumberRef> number(TovNumberCreateSInt64(7));
    TovDictionarySetValue(gps.get(), kCGImagePropertyGPSLatitude, number.get());
    TovDictionarySetValue(gps.get(), kCGImagePropertyGPSLatitudeRef, number.get());
    const test::Text text = test::text("11.5");
    TovDictionarySetValue(gps.get(), kCGImagePropertyGPSLongitude, text.get());
    TovDictionarySetValue(gps.get(), kCGImagePropertyGPSAltitudeRef, text.get());
    TovDictionarySetValue(image.get(), kCGImagePropertyGPSDictionary, gps.get());
    TovDictionarySetValue(image.get(), kCGImagePropertyIPTCDictionary, number.get());

    PictureProperties expected;
    expected.hasGps = true;
    expected.latitude = 7.0;
    EXPECT_EQ(propertiesOfDictionary(image.get()), expected);
}

TEST(propertiesOfDictionary, leavesATextOutWhenMemoryRunsOut)
{
    const Dictionary dictionary(createPropertyDictionary(everything()));
    baseFailAllocation(1);  // of the texts the first that is too long to be kept without memory
    const PictureProperties found = propertiesOfDictionary(dictionary.get());
    baseFailAllocation(0);
    PictureProperties expected = everything();
    expected.city.reset();
    EXPECT_EQ(found, expected);
}
