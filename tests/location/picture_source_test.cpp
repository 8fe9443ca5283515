#include "location/picture_source.h"

#include "base/alloc.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "location/metadata_reader.h"
#include "location/property_keys.h"
#include "tests/support/container_builder.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/picture_builder.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using Dictionary = ObjectHolder<TovDictionaryRef>;

const test::PictureFields kFields{.lat = 33.9,
                                  .latRef = "S",
                                  .lon = 18.4,
                                  .lonRef = "E",
                                  .altitude = 12.0,
                                  .altitudeRef = 1,
                                  .destDistance = 2.0,
                                  .destDistanceRef = "k",
                                  .satellites = "TILT:30",
                                  .imgDirection = 90.0,
                                  .city = "Cape Town",
                                  .state = "Western Cape",
                                  .country = "South Africa",
                                  .caption = "Table Mountain"};

TovDictionaryRef inner(const Dictionary& properties, TovStringRef key)
{
    return asDictionary(TovDictionaryGetValue(properties.get(), key));
}

double number(TovDictionaryRef dictionary, TovStringRef key)
{
    const TovNumber* value = asNumber(TovDictionaryGetValue(dictionary, key));
    return value != nullptr && value->isFloat ? value->floating : -1.0;
}

std::optional<std::string> text(TovDictionaryRef dictionary, TovStringRef key)
{
    return test::utf8(asString(TovDictionaryGetValue(dictionary, key)));
}

TovDictionaryRef copyProperties(const std::string& path)
{
    const FSRef ref{path};
    return gpsCopyImageProperties(&ref);
}

// Puts reading in this process back at the end of a test.
struct SourceGuard {
    ~SourceGuard() { installPropertySource({}); }
};
}  // namespace

TEST(gpsCopyImageProperties, givesEveryPropertyUnderItsName)
{
    const test::TemporaryFolder folder;
    const Dictionary properties(
        copyProperties(folder.write("a.jpg", test::pictureWithGps(kFields))));
    ASSERT_TRUE(properties);

    TovDictionaryRef gps = inner(properties, kCGImagePropertyGPSDictionary);
    ASSERT_NE(gps, nullptr);
    EXPECT_EQ(gps->count, 10);
    EXPECT_EQ(number(gps, kCGImagePropertyGPSLatitude), 33.9);
    EXPECT_EQ(text(gps, kCGImagePropertyGPSLatitudeRef), "S");
    EXPECT_EQ(number(gps, kCGImagePropertyGPSLongitude), 18.4);
    EXPECT_EQ(text(gps, kCGImagePropertyGPSLongitudeRef), "E");
    EXPECT_EQ(number(gps, kCGImagePropertyGPSAltitude), 12.0);
    EXPECT_EQ(number(gps, kCGImagePropertyGPSDestDistance), 2.0);
    EXPECT_EQ(text(gps, kCGImagePropertyGPSDestDistanceRef), "k");
    EXPECT_EQ(text(gps, kCGImagePropertyGPSSatellites), "TILT:30");
    EXPECT_EQ(number(gps, kCGImagePropertyGPSImgDirection), 90.0);
    const TovNumber* reference =
        asNumber(TovDictionaryGetValue(gps, kCGImagePropertyGPSAltitudeRef));
    ASSERT_NE(reference, nullptr);
    EXPECT_FALSE(reference->isFloat);
    EXPECT_EQ(reference->integer, 1);

    TovDictionaryRef iptc = inner(properties, kCGImagePropertyIPTCDictionary);
    ASSERT_NE(iptc, nullptr);
    EXPECT_EQ(iptc->count, 4);
    EXPECT_EQ(text(iptc, kCGImagePropertyIPTCCity), "Cape Town");
    EXPECT_EQ(text(iptc, kCGImagePropertyIPTCProvinceState), "Western Cape");
    EXPECT_EQ(text(iptc, kCGImagePropertyIPTCCountryPrimaryLocationName), "South Africa");
    EXPECT_EQ(text(iptc, kCGImagePropertyIPTCCaptionAbstract), "Table Mountain");
}

TEST(gpsCopyImageProperties, keysAreEqualToTextsOfTheSameName)
{
    const test::TemporaryFolder folder;
    const Dictionary properties(
        copyProperties(folder.write("a.jpg", test::pictureWithGps(kFields))));
    TovDictionaryRef gps = inner(properties, test::text("kCGImagePropertyGPSDictionary").get());
    EXPECT_EQ(number(gps, test::text("kCGImagePropertyGPSLatitude").get()), 33.9);
}

TEST(gpsCopyImageProperties, leavesOutWhatThePictureLacks)
{
    const test::TemporaryFolder folder;
    const Dictionary plain(copyProperties(folder.write("a.jpg", test::jpegPicture({}))));
    ASSERT_TRUE(plain);
    EXPECT_EQ(plain.get()->count, 0);

    const Dictionary position(
        copyProperties(folder.write("b.jpg", test::pictureWithGps({.lat = 1.0}))));
    ASSERT_TRUE(position);
    EXPECT_EQ(position.get()->count, 1);
    EXPECT_EQ(inner(position, kCGImagePropertyGPSDictionary)->count, 1);
}

TEST(gpsCopyImageProperties, goesByTheContentAndNotByTheName)
{
    const test::TemporaryFolder folder;
    const std::string jpeg = test::pictureWithGps(kFields);
    const std::string tiff = test::tiffWithGps(kFields);
    const std::string paths[] = {folder.write("a.nef", jpeg), folder.write("b.jpg", tiff),
                                 folder.write("c", jpeg),
                                 folder.write("d.raf", test::mrwPicture(tiff)),
                                 folder.write("e.mrw", test::rafPicture(jpeg))};
    for (const std::string& path : paths) {
        SCOPED_TRACE(path);
        const Dictionary properties(copyProperties(path));
        EXPECT_EQ(
            number(inner(properties, kCGImagePropertyGPSDictionary), kCGImagePropertyGPSLatitude),
            33.9);
    }
}

TEST(gpsCopyImageProperties, acceptsRegularFilesOnly)
{
    const test::TemporaryFolder folder;
    const std::string picture = folder.write("picture.jpg", test::pictureWithGps(kFields));
    std::filesystem::create_directory(folder.file("folder.jpg"));
    std::filesystem::create_symlink(picture, folder.file("link.jpg"));
    std::filesystem::create_symlink(folder.file("nothing"), folder.file("dangling.jpg"));
    std::filesystem::create_symlink(folder.file("loop.jpg"), folder.file("loop.jpg"));
    ASSERT_EQ(mkfifo(folder.file("pipe.jpg").c_str(), 0600), 0);

    const struct {
        const char* name;
        std::string path;
        bool isRead;
    } rows[] = {
        {"a picture", picture, true},
        {"a link to it", folder.file("link.jpg"), true},
        {"a folder", folder.file("folder.jpg"), false},
        {"a pipe that nobody writes to", folder.file("pipe.jpg"), false},
        {"a link to nothing", folder.file("dangling.jpg"), false},
        {"a link to itself", folder.file("loop.jpg"), false},
        {"nothing", folder.file("none.jpg"), false},
        {"a device", "/dev/zero", false},
        {"an empty file", folder.write("empty.jpg", ""), false},
        {"a text", folder.write("text.jpg", "no picture"), false},
        {"no path", "", false},
        {"a picture's path with a zero byte after it", picture + '\0' + ".jpg", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Dictionary properties(copyProperties(row.path));
        EXPECT_EQ(static_cast<bool>(properties), row.isRead);
    }
}

TEST(gpsCopyImageProperties, leavesNoDescriptorOpen)
{
    const test::TemporaryFolder folder;
    const std::string paths[] = {folder.write("a.jpg", test::pictureWithGps(kFields)),
                                 folder.write("b.jpg", "text"), folder.path()};
    const auto nextDescriptor = [] {
        const int descriptor = open("/dev/null", O_RDONLY | O_CLOEXEC);
        close(descriptor);
        return descriptor;
    };
    const int before = nextDescriptor();
    for (const std::string& path : paths) const Dictionary ignored(copyProperties(path));
    EXPECT_EQ(nextDescriptor(), before);
}

TEST(gpsCopyImageProperties, isNullWhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", test::pictureWithGps(kFields));
    const FSRef ref{path};
    int failures = 0;
    while (true) {
        baseFailAllocation(static_cast<std::uint64_t>(failures) + 1);
        const Dictionary properties(gpsCopyImageProperties(&ref));
        const bool hasFailed = baseAllocationHasFailed();
        baseFailAllocation(0);
        EXPECT_EQ(static_cast<bool>(properties), !hasFailed);
        if (!hasFailed) break;
        ++failures;
    }
    // At least the three dictionaries and their fourteen values.
    EXPECT_GE(failures, 17);
}

TEST(installPropertySource, replacesAndRestoresReading)
{
    const SourceGuard guard;
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", "twelve bytes");
    std::uint64_t seenSize = 0;
    char seenByte = 0;
    installPropertySource([&](int descriptor, std::uint64_t size) {
        seenSize = size;
        EXPECT_EQ(pread(descriptor, &seenByte, 1, 0), 1);
        PictureProperties properties;
        properties.hasIptc = true;
        properties.city = u"Rome";
        return std::optional(properties);
    });
    const Dictionary properties(copyProperties(path));
    EXPECT_EQ(text(inner(properties, kCGImagePropertyIPTCDictionary), kCGImagePropertyIPTCCity),
              "Rome");
    EXPECT_EQ(seenSize, 12u);
    EXPECT_EQ(seenByte, 't');

    installPropertySource([](int, std::uint64_t) { return std::nullopt; });
    EXPECT_FALSE(Dictionary(copyProperties(path)));

    installPropertySource({});
    EXPECT_FALSE(Dictionary(copyProperties(path)));
    EXPECT_TRUE(Dictionary(copyProperties(folder.write("b.jpg", test::pictureWithGps(kFields)))));
}

TEST(setReadsMoreKinds, decidesWhetherMoreIsRead)
{
    const test::TemporaryFolder folder;
    const std::string xmp = test::xmpPacket("photoshop:City='Rome'");
    const std::string jpeg = folder.write("a.jpg", test::jpegPicture({test::xmpSegment(xmp)}));
    const std::string png = folder.write("a.png", test::pngFile({test::pngXmpChunk(xmp)}));
    const auto cityOf = [](const std::string& path) -> std::u16string {
        const auto properties = propertiesOf(PictureFile(path));
        return properties ? properties->city.value_or(u"none") : u"no picture";
    };
    EXPECT_FALSE(readsMoreKinds()) << "off at first";
    EXPECT_EQ(cityOf(jpeg), u"none");
    EXPECT_EQ(cityOf(png), u"no picture");
    setReadsMoreKinds(true);
    EXPECT_TRUE(readsMoreKinds());
    EXPECT_EQ(cityOf(jpeg), u"Rome");
    EXPECT_EQ(cityOf(png), u"Rome");
    setReadsMoreKinds(false);
    EXPECT_EQ(cityOf(jpeg), u"none");
}

TEST(gpsCopyImageProperties, isNullOrWholeWhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a picture of the harbour.jpg",
                                          test::pictureWithGps({.lat = 48.1, .latRef = "N"}));
    const FSRef ref{path};
    std::uint64_t nulls = 0;
    for (std::uint64_t nth = 1;; nth++) {
        baseFailAllocation(nth);
        const Dictionary made(gpsCopyImageProperties(&ref));
        const bool ranOut = baseAllocationHasFailed();
        baseFailAllocation(0);
        nulls += made.get() == nullptr;
        if (!ranOut) {
            EXPECT_NE(made.get(), nullptr);
            break;
        }
    }
    EXPECT_GT(nulls, 3u);
}
