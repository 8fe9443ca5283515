// Every file of the collection of further formats, read with its sidecar.

#include "pictures/more_properties.h"

#include "base/utf8.h"
#include "pictures/merged_properties.h"
#include "pictures/picture_file.h"
#include "pictures/sidecar_file.h"
#include "tests/support/collection.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <algorithm>

using namespace pinorama;

namespace {
using nlohmann::json;

std::optional<PictureProperties> readMore(const PictureFile& file, int* outReads = nullptr)
{
    if (!file.isOpen()) return std::nullopt;
    FileByteSource source(file.descriptor(), file.size());
    std::optional<PictureProperties> properties = readMoreProperties(source, "en");
    if (outReads != nullptr) *outReads = source.readCount();
    return properties;
}

std::optional<PictureProperties> readWithSidecar(const std::string& path)
{
    std::optional<PictureProperties> properties = readMore(PictureFile(path));
    const std::optional<PictureProperties> sidecar = readMore(openSidecar(path));
    if (properties && sidecar) addMissing(*properties, *sidecar, ValueSource::sidecar);
    return properties;
}

const char* nameOf(ValueSource source)
{
    static constexpr const char* kNames[] = {"exif", "iptc", "xmp", "quicktime", "sidecar"};
    return kNames[static_cast<std::size_t>(source)];
}

json signedBy(const std::optional<double>& magnitude, const std::optional<std::u16string>& letter,
              const char16_t* negative)
{
    if (!magnitude) return nullptr;
    return letter == negative ? -*magnitude : *magnitude;
}

json textOf(const std::optional<std::u16string>& text)
{
    return text ? json(displayUTF8(*text)) : json();
}

// The properties in the form of expected.json.
json described(const PictureProperties& properties)
{
    const bool hasPlace = properties.latitude && properties.longitude;
    json altitude;
    if (properties.altitude) {
        altitude = properties.altitudeReference == 1 ? -*properties.altitude : *properties.altitude;
    }
    return {{"source", hasPlace ? json(nameOf(properties.sources.position)) : json()},
            {"latitude", signedBy(properties.latitude, properties.latitudeReference, u"S")},
            {"longitude", signedBy(properties.longitude, properties.longitudeReference, u"W")},
            {"altitude", altitude},
            {"direction", properties.imageDirection ? json(*properties.imageDirection) : json()},
            {"city", textOf(properties.city)},
            {"state", textOf(properties.state)},
            {"country", textOf(properties.country)},
            {"description", textOf(properties.caption)}};
}

json textSources(const PictureProperties& properties)
{
    json sources = json::object();
    if (properties.city) sources["city"] = nameOf(properties.sources.city);
    if (properties.state) sources["state"] = nameOf(properties.sources.state);
    if (properties.country) sources["country"] = nameOf(properties.sources.country);
    if (properties.caption) sources["description"] = nameOf(properties.sources.caption);
    return sources;
}

// Where expected.json states the reading of a program that gave up.
const struct {
    const char* name;
    const char* field;
    const char* value;
} kExceptions[] = {
    // exiftool reads none of the Exif data; the GPS directory there is whole, and says the same.
    {"jpeg-xmp/digikam__exiftest-5_15_25.jpg", "source", "exif"},
};

json expectedOf(const test::CollectedPicture& picture, const std::string& field)
{
    for (const auto& exception : kExceptions) {
        if (picture.name == exception.name && field == exception.field) return exception.value;
    }
    return picture.expected[field];
}

void compare(const std::string& field, const json& read, const json& expected,
             const std::string& source)
{
    if (!read.is_number() || !expected.is_number()) {
        EXPECT_EQ(read, expected) << field;
        return;
    }
    // The texts of videos have four decimals; expected.json has nine.
    const double tolerance = source == "quicktime" ? 1e-4 : 1e-6;
    EXPECT_NEAR(read.get<double>(), expected.get<double>(), tolerance) << field;
}
}  // namespace

TEST(readMoreProperties, readsEveryFileOfTheCollection)
{
    const std::optional<std::string> folder = test::formatCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_FORMAT_COLLECTION is not set";

    int compared = 0;
    for (const test::CollectedPicture& picture : test::picturesOf(*folder)) {
        SCOPED_TRACE(picture.name);
        const std::optional<PictureProperties> properties = readWithSidecar(picture.path);
        if (picture.expected["kind"] == "damaged") continue;
        ++compared;
        ASSERT_TRUE(properties);
        const json advisory = picture.expected.value("advisory", json::array());
        const std::string source = nameOf(properties->sources.position);
        const json read = described(*properties);
        for (const auto& [field, value] : read.items()) {
            if (std::find(advisory.begin(), advisory.end(), field) != advisory.end()) continue;
            compare(field, value, expectedOf(picture, field), source);
        }
        EXPECT_EQ(textSources(*properties), picture.expected.value("textSource", json::object()));
    }
    EXPECT_GE(compared, 50) << "the collection is not whole";
}

TEST(readMoreProperties, readsEveryFileOfTheCollectionInAFewReads)
{
    const std::optional<std::string> folder = test::formatCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_FORMAT_COLLECTION is not set";

    for (const test::CollectedPicture& picture : test::picturesOf(*folder)) {
        SCOPED_TRACE(picture.name);
        int reads = 0;
        (void)readMore(PictureFile(picture.path), &reads);  // only the cost is looked at
        // Of each track of a video there may be one.
        EXPECT_LE(reads, 8);
    }
}
