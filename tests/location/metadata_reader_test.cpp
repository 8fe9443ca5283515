#include "location/metadata_reader.h"

#include "base/status.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "tests/location/info_record.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>

using namespace pinorama;

namespace {
using test::Record;
using test::text;
using test::utf8;

// Four texts of which a record holds one reference and the test another.
class PlaceTexts {
public:
    void putInto(fileInfoRecord* record)
    {
        TovStringRef* const fields[] = {&record->city, &record->state, &record->country,
                                        &record->description};
        for (int i = 0; i < 4; i++) *fields[i] = asString(uCFRetain(texts_[i].get()));
    }
    void expectDroppedFrom(const fileInfoRecord& record)
    {
        for (const test::Text& held : texts_) EXPECT_EQ(uCFGetRetainCount(held.get()), 1);
        EXPECT_EQ(record.city, nullptr);
        EXPECT_EQ(record.state, nullptr);
        EXPECT_EQ(record.country, nullptr);
        EXPECT_EQ(record.description, nullptr);
    }

private:
    test::Text texts_[4] = {text("Rome"), text("Lazio"), text("Italy"), text("A street")};
};
}  // namespace

TEST(gpsPrepareInfoRecord, zeroesAllButTheDistance)
{
    PlaceTexts earlier;
    fileInfoRecord record{1, 2, 'N', 'E', 3, 4, 5, 6, nullptr, nullptr, nullptr, nullptr};
    earlier.putInto(&record);
    gpsPrepareInfoRecord(&record);
    EXPECT_EQ(record.latti, 0.0);
    EXPECT_EQ(record.longi, 0.0);
    EXPECT_EQ(record.refLatti, 0);
    EXPECT_EQ(record.refLongi, 0);
    EXPECT_EQ(record.altitude, 0.0);
    EXPECT_EQ(record.distance, 1000.0);
    EXPECT_EQ(record.azimuth, 0.0);
    EXPECT_EQ(record.tilt, 0.0);
    earlier.expectDroppedFrom(record);
    gpsPrepareInfoRecord(nullptr);
}

TEST(gpsReleaseInfoRecord, dropsTheTextsAndKeepsTheNumbers)
{
    PlaceTexts texts;
    fileInfoRecord record{1, 2, 'N', 'E', 3, 4, 5, 6, nullptr, nullptr, nullptr, nullptr};
    texts.putInto(&record);
    gpsReleaseInfoRecord(&record);
    texts.expectDroppedFrom(record);
    EXPECT_EQ(record.latti, 1.0);
    EXPECT_EQ(record.refLongi, 'E');
    EXPECT_EQ(record.tilt, 6.0);
    gpsReleaseInfoRecord(&record);  // nothing left to drop
    gpsReleaseInfoRecord(nullptr);
}

TEST(readInfoRecord, readsThePictureThatIsOpenWhateverItsNameMeansNow)
{
    const test::TemporaryFolder folder;
    const std::string path =
        folder.write("a.jpg", test::pictureWithGps({.lat = 48.125, .latRef = "N", .lon = 11.5}));
    const PictureFile picture(path);
    ASSERT_EQ(unlink(path.c_str()), 0);
    folder.write("a.jpg", "no picture");
    Record record;
    EXPECT_EQ(readInfoRecord(picture, record.get()), 0);
    EXPECT_EQ(record->latti, 48.125);
    EXPECT_EQ(readInfoRecord(PictureFile(), record.get()), -1);
    EXPECT_EQ(record->latti, 48.125);
}

TEST(gpsGetCoordinatesFromFilePath, readsAPicture)
{
    const test::TemporaryFolder folder;
    const std::string path =
        folder.write("photo.jpg", test::pictureWithGps({.lat = 48.125,
                                                        .latRef = "N",
                                                        .lon = 11.5,
                                                        .lonRef = "E",
                                                        .altitude = 12,
                                                        .altitudeRef = 1,
                                                        .destDistance = 2,
                                                        .destDistanceRef = "K",
                                                        .satellites = "tilt:45.5",
                                                        .imgDirection = 271.25,
                                                        .city = "M\u00fcnchen"}));
    Record record;
    EXPECT_EQ(gpsGetCoordinatesFromFilePath(text(path).get(), record.get()), 0);
    EXPECT_EQ(record->latti, 48.125);
    EXPECT_EQ(record->refLatti, 'N');
    EXPECT_EQ(record->longi, 11.5);
    EXPECT_EQ(record->refLongi, 'E');
    EXPECT_EQ(record->altitude, -12.0);
    EXPECT_EQ(record->distance, 2000.0);
    EXPECT_EQ(record->tilt, 45.5);
    EXPECT_EQ(record->azimuth, 271.25);
    EXPECT_EQ(utf8(record->city), "M\u00fcnchen");
    EXPECT_EQ(record->state, nullptr);
}

TEST(gpsGetCoordinatesFromFilePath, decidesByContentAndNotByName)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("notes.txt", test::pictureWithGps({.lat = 1, .lon = 2}));
    Record record;
    EXPECT_EQ(gpsGetCoordinatesFromFilePath(text(path).get(), record.get()), 0);
}

TEST(gpsGetCoordinatesFromFilePath, passesTheStatusOfThePathOn)
{
    const test::TemporaryFolder folder;
    Record record;
    record->latti = 7;
    EXPECT_EQ(gpsGetCoordinatesFromFilePath(text(folder.file("none.jpg")).get(), record.get()),
              kErrNotFound);
    ASSERT_EQ(symlink("nowhere", folder.file("dangling.jpg").c_str()), 0);
    EXPECT_EQ(gpsGetCoordinatesFromFilePath(text(folder.file("dangling.jpg")).get(), record.get()),
              kErrNotFound);
    EXPECT_NE(gpsGetCoordinatesFromFilePath(nullptr, record.get()), 0);
    EXPECT_NE(gpsGetCoordinatesFromFilePath(text("").get(), record.get()), 0);
    EXPECT_EQ(record->latti, 7.0);
}

TEST(gpsGetCoordinatesFromFilePath, aPathWithAZeroInItNamesNoOtherFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", test::pictureWithGps({.lat = 1, .lon = 2}));
    Record record;
    record->latti = 7;
    const auto withZero = text(path + '\0' + ".jpg");
    EXPECT_EQ(gpsGetCoordinatesFromFilePath(withZero.get(), record.get()), kErrNotFound);
    EXPECT_EQ(record->latti, 7.0);
}

TEST(gpsGetCoordinatesFromFile, findsNothingInWhatIsNoPicture)
{
    const test::TemporaryFolder folder;
    const std::string pipe = folder.file("pipe.jpg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const std::string& path :
         {folder.write("empty.jpg", ""), folder.write("text.jpg", "no picture"),
          folder.write("plain.jpg", test::jpegPicture({})), folder.path(), pipe,
          folder.file("none.jpg")}) {
        SCOPED_TRACE(path);
        const FSRef ref{path};
        Record record;
        record->latti = 7;
        EXPECT_EQ(gpsGetCoordinatesFromFile(&ref, record.get()), -1);
        EXPECT_EQ(record->latti, 7.0);
    }
    Record record;
    EXPECT_EQ(gpsGetCoordinatesFromFile(nullptr, record.get()), -1);
}

TEST(gpsCopyImageProperties, givesNestedDictionaries)
{
    const test::TemporaryFolder folder;
    const FSRef ref{
        folder.write("photo.jpg", test::pictureWithGps({.lat = 48.125, .city = "Rome"}))};
    const ObjectHolder<TovDictionaryRef> properties(gpsCopyImageProperties(&ref));
    ASSERT_TRUE(properties);
    EXPECT_EQ(uCFGetRetainCount(properties.get()), 1);
    const TovDictionaryRef gps = asDictionary(
        TovDictionaryGetValue(properties.get(), text("kCGImagePropertyGPSDictionary").get()));
    const TovNumber* latitude =
        asNumber(TovDictionaryGetValue(gps, text("kCGImagePropertyGPSLatitude").get()));
    ASSERT_NE(latitude, nullptr);
    EXPECT_EQ(latitude->floating, 48.125);
}

TEST(gpsCopyImageProperties, isNullForWhatIsNoPicture)
{
    const test::TemporaryFolder folder;
    const FSRef ref{folder.write("text.jpg", "no picture")};
    EXPECT_EQ(gpsCopyImageProperties(&ref), nullptr);
    EXPECT_EQ(gpsCopyImageProperties(nullptr), nullptr);
}
