// Pictures as telephones write them, with more in the file than the picture: a film that was taken
// with it, a map of brightness, a map of depth.

#include "pictures/more_properties.h"
#include "pictures/pixels/picture_preview.h"
#include "tests/support/byte_views.h"
#include "tests/support/container_builder.h"
#include "tests/support/heif_pictures.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
const std::vector<std::uint32_t> kCorners = {test::kRed, test::kGreen, test::kBlue, test::kYellow};
const test::PictureFields kPlace = {.lat = 48.5, .latRef = "N", .lon = 2.25, .lonRef = "E"};

// The film says another place than the picture.
std::string film()
{
    return test::isoBox("ftyp", "mp42") +
           test::quickTimeFile(test::placeAsUserText("-10.5000+020.2500/"));
}

std::optional<Preview> previewOf(const std::string& bytes)
{
    MemoryByteSource source(test::viewOf(bytes));
    return makeMorePreview(source, 128, 128);
}

void expectPlaceOfThePicture(const std::string& bytes)
{
    MemoryByteSource source(test::viewOf(bytes));
    const auto properties = readMoreProperties(source, "en");
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->latitude, 48.5);
    EXPECT_EQ(properties->longitude, 2.25);
    EXPECT_EQ(properties->sources.position, ValueSource::exif);
}

void expectPreviewOfThePicture(const std::string& bytes)
{
    const auto preview = previewOf(bytes);
    ASSERT_TRUE(preview);
    EXPECT_EQ(preview->image.width, 128);
    EXPECT_EQ(preview->image.height, 85);
    EXPECT_TRUE(test::areNear(test::quartersOf(preview->image), kCorners));
}

// A picture, in JPEG and without a thumbnail, with its place.
std::string jpeg()
{
    return test::jpegOfQuarters(300, 200, {.exif = test::tiffWithGps(kPlace)});
}

// An image of one colour that is none of the picture's.
std::string grayJpeg()
{
    const std::uint32_t gray = 0xff606060;
    return test::jpegOfQuarters(300, 200, {.corners = {gray, gray, gray, gray}});
}
}  // namespace

TEST(makeMorePreview, showsThePictureThatAFilmIsAppendedTo)
{
    const std::string heic = test::heifPicture({{"jpeg", test::jpegOfQuarters(300, 200)}});
    expectPreviewOfThePicture(jpeg() + film());
    expectPreviewOfThePicture(heic + film());
    expectPreviewOfThePicture(heic + test::isoBox("mpvd", film()));
}

TEST(readMoreProperties, readsThePlaceOfThePictureThatAFilmIsAppendedTo)
{
    const std::string heic = test::heifFile(
        {.items = {{"hvc1", "image"}, {"Exif", test::heifExif(test::tiffWithGps(kPlace))}}});
    expectPlaceOfThePicture(jpeg() + film());
    expectPlaceOfThePicture(heic + film());
    expectPlaceOfThePicture(heic + test::isoBox("mpvd", film()));
}

TEST(makeMorePreview, showsThePictureAndNotItsMapOfBrightness)
{
    // A JPEG picture with an index of several (CIPA DC-007), and the map after its end.
    const std::string picture = jpeg();
    const std::string index = "\xff\xe2" + test::big16(2 + 4 + 8) + std::string("MPF\0MM\0*", 8);
    const std::string withMap = picture.substr(0, 2) + index + picture.substr(2) + grayJpeg();
    expectPreviewOfThePicture(withMap);
    expectPlaceOfThePicture(withMap);
}

TEST(makeMorePreview, showsThePictureAndNoneOfItsCompanions)
{
    using test::HeifPart;
    const HeifPart picture = {"jpeg", test::jpegOfQuarters(300, 200)};
    const HeifPart depth = {"jpeg", grayJpeg(), {}, "auxl", {1}};
    const HeifPart gainMap = {"jpeg", grayJpeg(), {}, "auxl", {1}};
    const HeifPart toneMapped = {"tmap", "how", {test::heifSize(300, 200)}, "dimg", {1, 3}};
    const HeifPart thumbnailOfDepth = {"jpeg", grayJpeg(), {}, "thmb", {2}};
    const HeifPart other = {"jpeg", grayJpeg()};  // of a series
    expectPreviewOfThePicture(
        test::heifPicture({picture, depth, gainMap, toneMapped, thumbnailOfDepth, other}));
    expectPreviewOfThePicture(test::heifPicture({other, picture}, 2));
}
