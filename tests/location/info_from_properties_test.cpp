// What of the properties of a picture goes into the record of it.

#include "location/metadata_reader.h"

#include "base/alloc.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "tests/location/info_record.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <utility>

using namespace pinorama;

namespace {
using test::Record;
using test::text;
using test::utf8;

// The properties of a picture, built key by key.
class Properties {
public:
    Properties() : image_(TovDictionaryCreate()) {}

    Properties& number(const char* key, double value)
    {
        return gps(key, TovNumberCreateDouble(value));
    }
    Properties& integer(const char* key, std::int64_t value)
    {
        return gps(key, TovNumberCreateSInt64(value));
    }
    Properties& string(const char* key, std::string_view value)
    {
        return gps(key, text(value).take());
    }
    Properties& iptc(const char* key, std::string_view value)
    {
        set(inner("kCGImagePropertyIPTCDictionary"), key, text(value).take());
        return *this;
    }
    Properties& gps(const char* key, TovTypeRef value)
    {
        set(inner("kCGImagePropertyGPSDictionary"),
            (std::string("kCGImagePropertyGPS") + key).c_str(), value);
        return *this;
    }
    // Sets a value of the image itself.
    Properties& own(const char* key, TovTypeRef value)
    {
        set(image_.get(), key, value);
        return *this;
    }
    Properties& emptyGps()
    {
        inner("kCGImagePropertyGPSDictionary");
        return *this;
    }
    TovDictionaryRef get() const { return image_.get(); }

private:
    static void set(TovDictionaryRef dictionary, const char* key, TovTypeRef value)
    {
        const ObjectHolder<TovTypeRef> owned(value);
        TovDictionarySetValue(dictionary, text(key).get(), value);
    }
    TovDictionaryRef inner(const char* key)
    {
        const test::Text name = text(key);
        if (TovDictionaryGetValue(image_.get(), name.get()) == nullptr) {
            set(image_.get(), key, TovDictionaryCreate());
        }
        return asDictionary(TovDictionaryGetValue(image_.get(), name.get()));
    }

    ObjectHolder<TovDictionaryRef> image_;
};

Properties munich()
{
    return std::move(Properties()
                         .number("Latitude", 48.1)
                         .string("LatitudeRef", "N")
                         .number("Longitude", 11.5)
                         .string("LongitudeRef", "E"));
}
}  // namespace

TEST(gpsFillInfoFromProperties, readsAPosition)
{
    Record record;
    EXPECT_EQ(gpsFillInfoFromProperties(munich().get(), record.get()), 0);
    EXPECT_EQ(record->latti, 48.1);
    EXPECT_EQ(record->refLatti, 'N');
    EXPECT_EQ(record->longi, 11.5);
    EXPECT_EQ(record->refLongi, 'E');
    EXPECT_EQ(record->altitude, 0.0);
    EXPECT_EQ(record->distance, 1000.0);
    EXPECT_EQ(record->azimuth, 0.0);
    EXPECT_EQ(record->tilt, 0.0);
}

TEST(gpsFillInfoFromProperties, carriesTheLetterOfTheLatitudeOver)
{
    const struct {
        const char *name, *latitude, *longitude;
        char expectedLatitude, expectedLongitude;
    } rows[] = {
        {"both", "S", "W", 'S', 'W'},
        {"no longitude reference", "S", nullptr, 'S', 'S'},
        {"no latitude reference", nullptr, "W", 0, 'W'},
        {"none", nullptr, nullptr, 0, 0},
        {"empty ones are missing", "", "", 0, 0},
        {"an empty longitude reference", "N", "", 'N', 'N'},
        {"small letters stay", "s", "w", 's', 'w'},
        {"only the first character", "North", "West", 'N', 'W'},
        {"figures as some cameras write them", "3", "4", '3', '4'},
        {"the low 8 bits", "\u014e", "\u0245", 'N', 'E'},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Properties properties;
        properties.number("Latitude", 33.9).number("Longitude", 18.4);
        if (row.latitude != nullptr) properties.string("LatitudeRef", row.latitude);
        if (row.longitude != nullptr) properties.string("LongitudeRef", row.longitude);
        Record record;
        EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), 0);
        EXPECT_EQ(record->refLatti, row.expectedLatitude);
        EXPECT_EQ(record->refLongi, row.expectedLongitude);
    }
}

TEST(gpsFillInfoFromProperties, needsTwoCoordinatesThatAreNotZero)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* name;
        double latitude, longitude;
        std::int32_t expected;
    } rows[] = {
        {"equator", 0.0, 10.0, -1},
        {"prime meridian", 51.5, 0.0, -1},
        {"both", 0.0, 0.0, -1},
        {"negative zero", -0.0, 10.0, -1},
        {"tiny", 1e-300, 1e-300, 0},
        {"negative", -5.0, 5.0, 0},
        {"no number counts", nan, 10.0, 0},
        {"out of range", 500.0, 10.0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Properties properties;
        properties.number("Latitude", row.latitude).number("Longitude", row.longitude);
        // Everything after the decision is read all the same.
        properties.number("Altitude", 12)
            .number("ImgDirection", 90)
            .string("Satellites", "tilt:30");
        properties.number("DestDistance", 2).string("DestDistanceRef", "K");
        Record record;
        EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), row.expected);
        EXPECT_TRUE(record->latti == row.latitude || std::isnan(row.latitude));
        EXPECT_EQ(record->longi, row.longitude);
        EXPECT_EQ(record->altitude, 12.0);
        EXPECT_EQ(record->azimuth, 90.0);
        EXPECT_EQ(record->tilt, 30.0);
        EXPECT_EQ(record->distance, 2000.0);
    }
}

TEST(gpsFillInfoFromProperties, turnsTheAltitudeAroundBelowSeaLevel)
{
    const struct {
        const char* name;
        double altitude;
        std::int64_t reference;
        double expected;
    } rows[] = {
        {"above", 12, 0, 12},
        {"below", 12, 1, -12},
        {"any other reference", 12, 7, -12},
        {"negative twice", -3, 1, 3},
        {"bits above 32", 12, 4294967296, 12},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Properties properties = munich();
        properties.number("Altitude", row.altitude).integer("AltitudeRef", row.reference);
        Record record;
        EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), 0);
        EXPECT_EQ(record->altitude, row.expected);
    }
    Properties atSea = munich();
    atSea.integer("AltitudeRef", 1);
    Record record;
    gpsFillInfoFromProperties(atSea.get(), record.get());
    EXPECT_EQ(record->altitude, 0.0);
    EXPECT_TRUE(std::signbit(record->altitude));
}

TEST(gpsFillInfoFromProperties, writesTheDistanceOnlyForAKnownUnit)
{
    const struct {
        const char *name, *reference;
        double distance, expected;
    } rows[] = {
        {"kilometres", "K", 2, 2000},
        {"small letter", "k", 2, 2000},
        {"miles", "M", 1, 621.3711922},
        {"small m", "m", 2, 2 * 621.3711922},
        {"knots", "N", 1, 5399.568},
        {"small n", "n", 1, 5399.568},
        {"zero", "K", 0, 0},
        {"unknown", "X", 2, 1000},
        {"more than the letter", "KM", 2, 1000},
        {"empty", "", 2, 1000},
        {"the sign of the unit kelvin is a K", "\u212a", 2, 2000},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        Properties properties = munich();
        properties.number("DestDistance", row.distance).string("DestDistanceRef", row.reference);
        Record record;
        EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), 0);
        EXPECT_EQ(record->distance, row.expected);
    }
    Properties noReference = munich();
    noReference.number("DestDistance", 2);
    Record record;
    gpsFillInfoFromProperties(noReference.get(), record.get());
    EXPECT_EQ(record->distance, 1000.0);

    Properties noDistance = munich();
    noDistance.string("DestDistanceRef", "K");
    gpsFillInfoFromProperties(noDistance.get(), record.get());
    EXPECT_EQ(record->distance, 0.0);
}

TEST(gpsFillInfoFromProperties, readsTheTiltFromAMarkedSatellitesText)
{
    const struct {
        const char* satellites;
        double expected;
    } rows[] = {
        {"tilt:45.5", 45.5}, {"TILT:30", 30},      {"Tilt: 45x", 45}, {"tilt:-3e1", -30},
        {"tilt:", 0},        {"tilt:abc", 0},      {"tilt:1,5", 1},   {"gps tilt:30", 99},
        {" tilt:30", 99},    {"tilt", 99},         {"tilt 30", 99},   {"", 99},
        {"07", 99},          {"tilt:3 tilt:4", 3},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.satellites);
        Properties properties = munich();
        properties.string("Satellites", row.satellites);
        Record record;
        record->tilt = 99;
        EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), 0);
        EXPECT_EQ(record->tilt, row.expected);
    }
}

TEST(gpsFillInfoFromProperties, readsNumbersWithAPointInEveryLocale)
{
    const test::ScopedVariable locale("LC_ALL", "de_DE.UTF-8");
    Properties properties = munich();
    properties.string("Satellites", "tilt:45.5");
    Record record;
    gpsFillInfoFromProperties(properties.get(), record.get());
    EXPECT_EQ(record->tilt, 45.5);
}

TEST(gpsFillInfoFromProperties, overwritesEveryFieldOfTheGpsDictionaryButDistanceAndTilt)
{
    Record record;
    *record.get() = {1, 2, 'N', 'E', 3, 4, 5, 6, nullptr, nullptr, nullptr, nullptr};
    Properties properties;
    EXPECT_EQ(gpsFillInfoFromProperties(properties.emptyGps().get(), record.get()), -1);
    EXPECT_EQ(record->latti, 0.0);
    EXPECT_EQ(record->longi, 0.0);
    EXPECT_EQ(record->refLatti, 0);
    EXPECT_EQ(record->refLongi, 0);
    EXPECT_EQ(record->altitude, 0.0);
    EXPECT_EQ(record->azimuth, 0.0);
    EXPECT_EQ(record->distance, 4.0);
    EXPECT_EQ(record->tilt, 6.0);
}

TEST(gpsFillInfoFromProperties, writesNothingOfThePositionWithoutAGpsDictionary)
{
    Record record;
    *record.get() = {1, 2, 'N', 'E', 3, 4, 5, 6, nullptr, nullptr, nullptr, nullptr};
    Properties properties;
    properties.iptc("kCGImagePropertyIPTCCity", "Rome");
    EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), -1);
    EXPECT_EQ(record->latti, 1.0);
    EXPECT_EQ(record->refLongi, 'E');
    EXPECT_EQ(record->azimuth, 5.0);
    EXPECT_EQ(utf8(record->city), "Rome");
}

TEST(gpsFillInfoFromProperties, copiesThePlaceTextsWhateverTheResult)
{
    Properties properties = munich();
    properties.iptc("kCGImagePropertyIPTCCity", "M\u00fcnchen")
        .iptc("kCGImagePropertyIPTCProvinceState", "Bayern")
        .iptc("kCGImagePropertyIPTCCountryPrimaryLocationName", "Deutschland")
        .iptc("kCGImagePropertyIPTCCaptionAbstract", "");
    Record record;
    EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), 0);
    EXPECT_EQ(utf8(record->city), "M\u00fcnchen");
    EXPECT_EQ(utf8(record->state), "Bayern");
    EXPECT_EQ(utf8(record->country), "Deutschland");
    EXPECT_EQ(utf8(record->description), "");
    EXPECT_EQ(uCFGetRetainCount(record->city), 1);
}

TEST(gpsFillInfoFromProperties, leavesAbsentPlaceTextsAsTheyWere)
{
    Record record;
    record->city = text("Rome").take();
    Properties properties = munich();
    properties.iptc("kCGImagePropertyIPTCCaptionAbstract", "A street");
    gpsFillInfoFromProperties(properties.get(), record.get());
    EXPECT_EQ(utf8(record->city), "Rome");
    EXPECT_EQ(record->state, nullptr);
    EXPECT_EQ(utf8(record->description), "A street");
}

TEST(gpsFillInfoFromProperties, takesValuesOfAnotherKindAsMissing)
{
    Properties properties;
    properties.string("Latitude", "48.1").gps("Longitude", TovBooleanCreate(true));
    properties.integer("LatitudeRef", 78).number("Satellites", 45);
    properties.own("kCGImagePropertyIPTCDictionary", text("no dictionary").take());
    Record record;
    EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), -1);
    EXPECT_EQ(record->latti, 0.0);
    EXPECT_EQ(record->refLatti, 0);
    EXPECT_EQ(record->tilt, 0.0);

    Properties noDictionary;
    noDictionary.own("kCGImagePropertyGPSDictionary", TovNumberCreateSInt64(1));
    EXPECT_EQ(gpsFillInfoFromProperties(noDictionary.get(), record.get()), -1);
}

TEST(gpsFillInfoFromProperties, findsNothingInNull)
{
    Record record;
    record->latti = 7;
    EXPECT_EQ(gpsFillInfoFromProperties(nullptr, record.get()), -1);
    EXPECT_EQ(record->latti, 7.0);
    EXPECT_EQ(gpsFillInfoFromProperties(munich().get(), nullptr), -1);
}

TEST(gpsFillInfoFromProperties, leavesATextOutWhenMemoryRunsOut)
{
    Properties properties = munich();
    properties.iptc("kCGImagePropertyIPTCCity", "Rome");
    Record record;
    baseFailAllocation(1);
    EXPECT_EQ(gpsFillInfoFromProperties(properties.get(), record.get()), 0);
    baseFailAllocation(0);
    EXPECT_EQ(record->city, nullptr);
    EXPECT_EQ(record->latti, 48.1);
}

TEST(fillInfoRecord, copiesTextsOfAnIptcRecordOnly)
{
    PictureProperties properties;
    properties.city = u"Rome";
    Record record;
    EXPECT_EQ(fillInfoRecord(properties, record.get()), -1);
    EXPECT_EQ(record->city, nullptr);
    properties.hasIptc = true;
    EXPECT_EQ(fillInfoRecord(properties, record.get()), -1);
    EXPECT_EQ(utf8(record->city), "Rome");
    EXPECT_EQ(fillInfoRecord(properties, nullptr), -1);
}
