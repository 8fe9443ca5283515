// The record of every picture of the collection, read the way the window reads it.

#include "location/metadata_reader.h"

#include "base/status.h"
#include "lib/files/path_text.h"
#include "pictures/picture_file.h"
#include "pictures/picture_properties.h"
#include "tests/support/collection.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace pinorama;

namespace {
using nlohmann::json;

json letter(char reference)
{
    return reference == 0 ? std::string() : std::string(1, reference);
}

json text(TovStringRef string)
{
    const std::optional<std::string> utf8 = test::utf8(string);
    return utf8 ? json(*utf8) : json();
}

// The record and the result in the form of expected.json.
json readRecord(const std::string& path)
{
    fileInfoRecord record{};
    gpsPrepareInfoRecord(&record);
    const test::Text pathText(createPathText(path));
    const std::int32_t result = gpsGetCoordinatesFromFilePath(pathText.get(), &record);
    json read = {{"result", result},
                 {"latti", record.latti},
                 {"longi", record.longi},
                 {"refLatti", letter(record.refLatti)},
                 {"refLongi", letter(record.refLongi)},
                 {"altitude", record.altitude},
                 {"distance", record.distance},
                 {"azimuth", record.azimuth},
                 {"tilt", record.tilt},
                 {"city", text(record.city)},
                 {"state", text(record.state)},
                 {"country", text(record.country)},
                 {"description", text(record.description)}};
    gpsReleaseInfoRecord(&record);
    return read;
}
}  // namespace

TEST(gpsGetCoordinatesFromFilePath, readsEveryPictureOfTheCollection)
{
    const std::optional<std::string> folder = test::pictureCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";

    const std::vector<test::CollectedPicture> pictures = test::picturesOf(*folder);
    ASSERT_GE(pictures.size(), 400u) << "the collection is not whole";
    for (const test::CollectedPicture& picture : pictures) {
        SCOPED_TRACE(picture.name);
        const json read = readRecord(picture.path);
        if (picture.isAdvisory()) continue;
        for (const auto& [field, value] : read.items()) {
            if (!picture.expected.contains(field) || picture.isAmbiguous(field)) continue;
            const json& expected = picture.expected[field];
            if (expected == "nonzero path error") {
                // A link to nothing; copying the collection can have made a text file of it.
                const bool isLink = std::filesystem::is_symlink(picture.path);
                EXPECT_EQ(value, isLink ? kErrNotFound : kErrNothingUsable) << field;
            } else {
                EXPECT_EQ(value, expected) << field;
            }
        }
    }
}

TEST(readPictureProperties, readsEveryPictureOfTheCollectionInAFewReads)
{
    const std::optional<std::string> folder = test::pictureCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";

    int pictures = 0;
    int withOneRead = 0;
    for (const test::CollectedPicture& picture : test::picturesOf(*folder)) {
        SCOPED_TRACE(picture.name);
        const PictureFile file(picture.path);
        if (!file.isOpen()) continue;
        FileByteSource source(file.descriptor(), file.size());
        (void)readPictureProperties(source);  // only the cost is looked at
        ++pictures;
        if (source.readCount() <= 1) ++withOneRead;
        // Thermal cameras put half a megabyte of raw data in front of the picture, 64 KiB at a
        // time.
        EXPECT_LE(source.readCount(), 12);
    }
    EXPECT_GE(withOneRead, pictures * 9 / 10);
}
