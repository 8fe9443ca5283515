#include "lib/ui/preview.h"

#include "base/alloc.h"
#include "lib/files/path_text.h"
#include "tests/previews/preview_fixture.h"
#include "tests/support/small_disk.h"

#include <algorithm>
#include <cmath>
#include <fstream>

using namespace pinorama;

namespace {
using test::kCorners;
using test::kSize;
using test::pictureOf;
using test::quartersOf;

const auto* const kToolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

// The suite is named after the function; its tests share the folder of the fixture.
using imageWithPreviewOfFileAtPath = test::PreviewTest;

TEST_F(imageWithPreviewOfFileAtPath, aNullPathGivesNull)
{
    EXPECT_TRUE(::imageWithPreviewOfFileAtPath(nullptr, kSize, 0).isNull());
    EXPECT_TRUE(::imageWithPreviewOfFileAtPath(nullptr, kSize, 1).isNull());
}

TEST_F(imageWithPreviewOfFileAtPath, showsAJpegPictureInItsAspect)
{
    const QPixmap picture = pictureOf(this->picture());
    EXPECT_EQ(picture.size(), QSize(128, 85));
    EXPECT_TRUE(test::areNear(quartersOf(picture), kCorners));
}

TEST_F(imageWithPreviewOfFileAtPath, doesNotEnlargeAPicture)
{
    const std::string small = folder_.write("small.jpg", test::jpegOfQuarters(60, 40));
    EXPECT_EQ(pictureOf(small).size(), QSize(60, 40));
}

TEST_F(imageWithPreviewOfFileAtPath, readsAFileWhoseNameIsNoUTF8)
{
    const std::string path = picture("b\xff\xfe.jpg");
    const ObjectHolder<TovStringRef> text(createPathText(path));
    EXPECT_EQ(::imageWithPreviewOfFileAtPath(text.get(), kSize, 0).size(), QSize(128, 85));
}

TEST_F(imageWithPreviewOfFileAtPath, showsOtherKindsOfPictures)
{
    QImage image(400, 200, QImage::Format_ARGB32);
    image.fill(QColor(0, 0, 255));
    for (const char* format : {"png", "bmp", "ppm", "xpm"}) {
        const std::string path = folder_.file(std::string("x.") + format);
        ASSERT_TRUE(image.save(QString::fromStdString(path), format)) << format;
        const QPixmap shown = pictureOf(path);
        EXPECT_EQ(shown.size(), QSize(128, 64)) << format;
        EXPECT_TRUE(test::areNear(quartersOf(shown), std::vector<std::uint32_t>(4, test::kBlue)))
            << format;
    }
}

TEST_F(imageWithPreviewOfFileAtPath, showsLargePicturesOfOtherKinds)
{
    // Large enough for the toolkit to use several threads, which the reader must not.
    QImage image(2400, 1200, QImage::Format_RGB32);
    image.fill(Qt::white);
    for (const QImage::Format format :
         {QImage::Format_Grayscale8, QImage::Format_Grayscale16, QImage::Format_Mono}) {
        const std::string path = folder_.file("large.png");
        ASSERT_TRUE(image.convertToFormat(format).save(QString::fromStdString(path)));
        EXPECT_TRUE(test::areNear(quartersOf(pictureOf(path, QSizeF(100, 100))),
                                  std::vector<std::uint32_t>(4, 0xffffffff)))
            << format;
    }
    image.fill(QColor(0, 0, 255));
    for (const QImage::Format format :
         {QImage::Format_RGB32, QImage::Format_ARGB32, QImage::Format_RGBA64,
          QImage::Format_Indexed8, QImage::Format_RGB16}) {
        const std::string path = folder_.file("large.png");
        ASSERT_TRUE(image.convertToFormat(format).save(QString::fromStdString(path)));
        const QPixmap shown = pictureOf(path, QSizeF(100, 100));
        EXPECT_EQ(shown.size(), QSize(100, 50)) << format;
        EXPECT_TRUE(test::areNear(quartersOf(shown), std::vector<std::uint32_t>(4, test::kBlue)))
            << format;
    }
}

TEST_F(imageWithPreviewOfFileAtPath, keepsTransparencyOfOtherPictures)
{
    QImage image(40, 40, QImage::Format_ARGB32);
    image.fill(QColor(255, 0, 0, 128));
    const std::string path = folder_.file("x.png");
    ASSERT_TRUE(image.save(QString::fromStdString(path)));
    EXPECT_TRUE(
        test::areNear(quartersOf(pictureOf(path)), std::vector<std::uint32_t>(4, 0x80ff0000), 2));
}

TEST_F(imageWithPreviewOfFileAtPath, aFileWithoutPreviewHasAnIconOfTheSizeAskedFor)
{
    const std::string jpeg = test::jpegOfQuarters(60, 40);
    const std::string paths[] = {
        folder_.write("notes.txt", "text"),
        folder_.write("empty.jpg", ""),
        folder_.write("text.jpg", "no picture"),
        folder_.write("cut.jpg", jpeg.substr(0, jpeg.find("\xff\xda"))),
        folder_.file("missing.jpg"),
        folder_.file("missing"),
        folder_.path(),
        "/dev/null",
        "relative.jpg",
        "",
    };
    for (const std::string& path : paths) {
        for (const std::uint8_t asIcon : {0, 1}) {
            const QPixmap icon = pictureOf(path, QSizeF(100, 40), asIcon);
            EXPECT_EQ(icon.size(), QSize(100, 40)) << path;
        }
    }
}

TEST_F(imageWithPreviewOfFileAtPath, aPipeIsNotWaitedFor)
{
    const std::string path = folder_.file("pipe.jpg");
    ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(pictureOf(path).size(), QSize(128, 128));
}

TEST_F(imageWithPreviewOfFileAtPath, asAnIconThePreviewLiesOnACard)
{
    const QPixmap card = pictureOf(picture(), kSize, 1);
    EXPECT_EQ(card.size(), QSize(128, 128));
    const QImage image = card.toImage();
    EXPECT_EQ(qAlpha(image.pixel(2, 2)), 0);
    EXPECT_TRUE(test::isNear(image.pixel(30, 50), test::kRed));
    EXPECT_TRUE(test::isNear(image.pixel(100, 80), test::kYellow));
}

TEST_F(imageWithPreviewOfFileAtPath, aSizeThatIsNotPositiveGivesNull)
{
    const std::string path = picture();
    EXPECT_TRUE(pictureOf(path, QSizeF(0, 128)).isNull());
    EXPECT_TRUE(pictureOf(path, QSizeF(128, -1)).isNull());
    EXPECT_TRUE(pictureOf(path, QSizeF(std::nan(""), 128)).isNull());
    EXPECT_FALSE(pictureOf(path, QSizeF(0.3, 0.3)).isNull());
    EXPECT_FALSE(pictureOf(path, QSizeF(1e9, 1e9)).isNull());
}

TEST_F(imageWithPreviewOfFileAtPath, isNullAndNoIconWhenMemoryRunsOutForAPreview)
{
    const test::Text path = test::text(picture());
    for (const char* source : {"the picture", "the cache"}) {
        for (const std::uint8_t asIcon : {0, 1}) {
            SCOPED_TRACE(source);
            baseFailAllocation(1);
            EXPECT_TRUE(::imageWithPreviewOfFileAtPath(path.get(), kSize, asIcon).isNull());
            EXPECT_TRUE(baseAllocationHasFailed());
            baseFailAllocation(0);
        }
        EXPECT_FALSE(::imageWithPreviewOfFileAtPath(path.get(), kSize, 0).isNull());
    }
}

TEST_F(imageWithPreviewOfFileAtPath, takesAThumbnailFromTheCache)
{
    const std::string path = picture();
    cache("normal", 128, "file://" + path, mtimeOf(path), Qt::cyan);
    const QPixmap shown = pictureOf(path);
    EXPECT_EQ(shown.size(), QSize(128, 64));
    EXPECT_EQ(quartersOf(shown)[0], 0xff00ffff);
}

TEST_F(imageWithPreviewOfFileAtPath, scalesALargerThumbnailDown)
{
    const std::string path = picture();
    for (const auto& [name, side] :
         {std::pair("xx-large", 1024), {"x-large", 512}, {"large", 256}}) {
        cache(name, side, "file://" + path, mtimeOf(path), Qt::cyan);
        const QPixmap shown = pictureOf(path);
        EXPECT_EQ(shown.size(), QSize(128, 64)) << name;
        EXPECT_EQ(quartersOf(shown)[0], 0xff00ffff) << name;
        std::filesystem::remove(cachePath(name, "file://" + path));
        std::filesystem::remove_all(folder_.file("cache"));
    }
}

TEST_F(imageWithPreviewOfFileAtPath, passesOverThumbnailsThatDoNotServe)
{
    const std::string path = picture();
    const std::string uri = "file://" + path;
    const std::int64_t mtime = mtimeOf(path);
    const auto isPassedOver = [&] {
        return test::areNear(quartersOf(pictureOf(path, QSizeF(120, 120))), kCorners);
    };
    cache("normal", 128, uri, mtime - 1, Qt::cyan);
    EXPECT_TRUE(isPassedOver()) << "older than the file";
    cache("normal", 128, uri, mtime, Qt::cyan, "file:///other.jpg");
    EXPECT_TRUE(isPassedOver()) << "of another file";
    cache("normal", 128, uri, mtime, Qt::cyan, "");
    EXPECT_TRUE(isPassedOver()) << "without a name";
    cache("normal", 2000, uri, mtime, Qt::cyan);
    EXPECT_TRUE(isPassedOver()) << "far larger than thumbnails are";
    std::ofstream(cachePath("normal", uri)) << "no picture";
    EXPECT_TRUE(isPassedOver()) << "damaged";
    std::filesystem::remove(cachePath("normal", uri));
    std::filesystem::create_directory(cachePath("normal", uri));
    EXPECT_TRUE(isPassedOver()) << "a folder";
}

TEST_F(imageWithPreviewOfFileAtPath, doesNotEnlargeAThumbnail)
{
    const std::string path = picture();
    cache("normal", 128, "file://" + path, mtimeOf(path), Qt::cyan);
    const QPixmap shown = pictureOf(path, QSizeF(256, 256));
    EXPECT_EQ(shown.size(), QSize(256, 171));
    EXPECT_TRUE(test::areNear(quartersOf(shown), kCorners));
}

TEST_F(imageWithPreviewOfFileAtPath, keepsADecodedPreviewInTheCache)
{
    const std::string path = picture("Bäume; 100%.jpg");
    (void)pictureOf(path);

    std::string uri = "file://" + folder_.path() + "/B%C3%A4ume%3B%20100%25.jpg";
    const std::string stored = cachePath("normal", uri);
    struct stat status = {};
    ASSERT_EQ(stat(stored.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
    ASSERT_EQ(stat(folder_.file("cache/thumbnails/normal").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);

    const QImage thumbnail(QString::fromStdString(stored));
    EXPECT_EQ(thumbnail.size(), QSize(128, 85));
    EXPECT_EQ(thumbnail.text(QStringLiteral("Thumb::URI")).toStdString(), uri);
    EXPECT_EQ(thumbnail.text(QStringLiteral("Thumb::MTime")).toStdString(),
              std::to_string(mtimeOf(path)));
    EXPECT_EQ(thumbnail.text(QStringLiteral("Thumb::Size")).toStdString(),
              std::to_string(std::filesystem::file_size(path)));
    const auto isLonger = [](const auto& entry) { return entry.path().extension() != ".png"; };
    const std::filesystem::directory_iterator entries(folder_.file("cache/thumbnails/normal"));
    EXPECT_EQ(std::count_if(begin(entries), end(entries), isLonger), 0) << "left behind";

    // The next look is served by it, also after the picture's content has become unreadable.
    const auto time = std::filesystem::last_write_time(path);
    std::ofstream(path) << "no picture";
    std::filesystem::last_write_time(path, time);
    EXPECT_TRUE(test::areNear(quartersOf(pictureOf(path)), kCorners));
}

TEST_F(imageWithPreviewOfFileAtPath, keepsNothingThatWasQuickOrSmallOrIsInTheCache)
{
    const std::string withThumbnail = folder_.write(
        "thumbnail.jpg",
        test::jpegOfQuarters(600, 400,
                             {.exif = test::exifWithThumbnail(0, test::jpegOfQuarters(150, 100))}));
    (void)pictureOf(withThumbnail);
    (void)pictureOf(folder_.write("small.jpg", test::jpegOfQuarters(60, 40)));
    (void)pictureOf(picture(), QSizeF(100, 100));  // no size that the cache knows
    EXPECT_FALSE(std::filesystem::exists(folder_.file("cache")));

    std::filesystem::create_directories(folder_.file("cache/thumbnails/normal"));
    const std::string inside =
        folder_.write("cache/thumbnails/normal/a.jpg", test::jpegOfQuarters(600, 400));
    EXPECT_EQ(pictureOf(inside).size(), QSize(128, 85));
    std::filesystem::create_directory_symlink(folder_.file("cache/thumbnails/normal"),
                                              folder_.file("link"));
    EXPECT_EQ(pictureOf(folder_.file("link/a.jpg")).size(), QSize(128, 85));
    const std::filesystem::directory_iterator entries(folder_.file("cache/thumbnails/normal"));
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1);
}

TEST_F(imageWithPreviewOfFileAtPath, aCacheThatCannotBeWrittenIsNoFault)
{
    folder_.write("cache", "a file in the way");
    EXPECT_EQ(pictureOf(picture()).size(), QSize(128, 85));
    const test::ScopedVariable noCache("XDG_CACHE_HOME", nullptr);
    const test::ScopedVariable noHome("HOME", nullptr);
    EXPECT_EQ(pictureOf(picture()).size(), QSize(128, 85));
}

TEST_F(imageWithPreviewOfFileAtPath, leavesNoHalfThumbnailOnAFullDisk)
{
    const std::string folder = folder_.file("cache/thumbnails/normal");
    std::filesystem::create_directories(folder);
    if (!test::mountSmallDisk(folder)) GTEST_SKIP() << "cannot mount a small disk here";
    test::fillDisk(folder);
    EXPECT_EQ(pictureOf(picture()).size(), QSize(128, 85));
    const std::filesystem::directory_iterator entries(folder);
    EXPECT_EQ(std::distance(begin(entries), end(entries)), 1) << "only the filler";
    std::filesystem::remove(folder + "/filler");
    EXPECT_EQ(pictureOf(picture()).size(), QSize(128, 85));
    EXPECT_FALSE(std::filesystem::is_empty(folder)) << "there is room again";
    test::leaveSmallDisk(folder);
}
}  // namespace
