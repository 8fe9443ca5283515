#include "lib/ui/preview.h"

#include "lib/ui/file_icon.h"
#include "lib/ui/preview_loader.h"
#include "lib/ui/thumbnail_cache.h"
#include "platform/files/path_text.h"
#include "tests/support/environment.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/texts.h"
#include "tests/support/toolkit.h"

#include <QCryptographicHash>
#include <QEventLoop>
#include <QIcon>
#include <QImage>
#include <QTimer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>

namespace {
constexpr QSizeF kSize(128, 128);

const auto* const kToolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

QPixmap pictureOf(const std::string& path, QSizeF size = kSize, std::uint8_t asIcon = 0)
{
    return ::imageWithPreviewOfFileAtPath(test::text(path).get(), size, asIcon);
}

// The colours of the quarters, as test::quartersOf.
std::vector<std::uint32_t> quartersOf(const QPixmap& pixmap)
{
    const QImage image = pixmap.toImage().convertToFormat(QImage::Format_ARGB32);
    std::vector<std::uint32_t> colors;
    for (const int row : {1, 3}) {
        for (const int column : {1, 3}) {
            colors.push_back(image.pixel(image.width() * column / 4, image.height() * row / 4));
        }
    }
    return colors;
}

const std::vector<std::uint32_t> kCorners = {test::kRed, test::kGreen, test::kBlue, test::kYellow};

// A folder with pictures, and a cache folder of the test's own beside it.
class PreviewTest : public testing::Test {
protected:
    std::string cachePath(const std::string& sizeName, const std::string& uri) const
    {
        const QByteArray hash =
            QCryptographicHash::hash(QByteArray::fromStdString(uri), QCryptographicHash::Md5);
        return folder_.file("cache/thumbnails/" + sizeName + "/" + hash.toHex().toStdString() +
                            ".png");
    }

    // Puts a thumbnail of one colour into the cache.
    void cache(const std::string& sizeName, int side, const std::string& uri, std::int64_t mtime,
               QColor color, const std::string& uriText = "?") const
    {
        QImage image(side, side / 2, QImage::Format_RGB32);
        image.fill(color);
        image.setText(QStringLiteral("Thumb::URI"),
                      QString::fromStdString(uriText == "?" ? uri : uriText));
        image.setText(QStringLiteral("Thumb::MTime"), QString::number(mtime));
        const std::string path = cachePath(sizeName, uri);
        std::filesystem::create_directories(std::filesystem::path(path).parent_path());
        ASSERT_TRUE(image.save(QString::fromStdString(path), "PNG"));
    }

    std::string picture(const std::string& name = "a.jpg") const
    {
        return folder_.write(name, test::jpegOfQuarters(600, 400));
    }

    static std::int64_t mtimeOf(const std::string& path)
    {
        struct stat status = {};
        stat(path.c_str(), &status);
        return status.st_mtim.tv_sec;
    }

    test::TemporaryFolder folder_;
    test::ScopedVariable cache_{"XDG_CACHE_HOME", folder_.file("cache").c_str()};
};

// Suites are named after the functions; their tests share the folder above.
using imageWithPreviewOfFileAtPath = PreviewTest;
using cuThumbnailPlaces = PreviewTest;

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
    const ObjectHolder<TovStringRef> text(platform::createPathText(path));
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

TEST_F(cuThumbnailPlaces, nameTheSizesFromTheOneAskedForOn)
{
    const std::string uri = "file:///a/b.jpg";
    const auto pathsOf = [](const std::vector<ThumbnailPlace>& places) {
        std::vector<std::string> paths;
        for (const ThumbnailPlace& place : places) paths.push_back(place.path);
        return paths;
    };
    EXPECT_EQ(pathsOf(::cuThumbnailPlaces("/a/b.jpg", 5, 129)),
              (std::vector<std::string>{cachePath("large", uri), cachePath("x-large", uri),
                                        cachePath("xx-large", uri)}));
    EXPECT_TRUE(::cuThumbnailPlaces("/a/b.jpg", 5, 1025).empty());
    EXPECT_TRUE(::cuThumbnailPlaces("b.jpg", 5, 128).empty());
    EXPECT_TRUE(::cuThumbnailPlaces("", 5, 128).empty());
    // Known from the standard's own example.
    EXPECT_EQ(QCryptographicHash::hash("file:///home/jens/photos/me.png", QCryptographicHash::Md5)
                  .toHex(),
              "c6ee772d9e49320e97ec29a7eb5b1697");
}

TEST_F(cuThumbnailPlaces, lookUnderBothWaysToEscapeASemicolon)
{
    const std::vector<ThumbnailPlace> places = ::cuThumbnailPlaces("/a;b [1].jpg", 5, 1024);
    ASSERT_EQ(places.size(), 2u);
    EXPECT_EQ(places[0].label.uri, "file:///a%3Bb%20%5B1%5D.jpg");
    EXPECT_EQ(places[1].label.uri, "file:///a;b%20%5B1%5D.jpg");
}

TEST(ThumbnailLabel, matchesTheSameFileOnly)
{
    const ThumbnailLabel label = {"file:///a.jpg", 1234567890};
    EXPECT_TRUE(label.matches("file:///a.jpg", "1234567890"));
    EXPECT_FALSE(label.matches("file:///b.jpg", "1234567890"));
    EXPECT_FALSE(label.matches("file:///a.jpg", "1234567891"));
    EXPECT_FALSE(label.matches("file:///a.jpg", "1234567890.5"));
    EXPECT_FALSE(label.matches("file:///a.jpg", ""));
    EXPECT_FALSE(label.matches("", ""));
}

TEST(cuIconOfItem, isNeverEmpty)
{
    QIcon::setThemeName(QStringLiteral("no such theme"));
    for (const char* path : {"/nowhere/a.jpg", "/nowhere/a", "/", "/dev/null", ""}) {
        for (const qreal ratio : {1.0, 1.5, 2.0}) {
            const QPixmap icon = cuIconOfItem(path, QSizeF(64, 48), ratio);
            EXPECT_EQ(icon.size(),
                      QSize(static_cast<int>(64 * ratio), static_cast<int>(48 * ratio)));
            EXPECT_EQ(icon.devicePixelRatio(), ratio);
            const QImage image = icon.toImage();
            EXPECT_EQ(qAlpha(image.pixel(image.width() / 2, image.height() / 2)), 255) << path;
        }
    }
}

TEST(cuIconOfItem, comesFromTheThemeForTheTypeOfTheName)
{
    // A theme of two icons, one for a type and one for its general kind.
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.file("test/16"));
    folder.write("test/index.theme",
                 "[Icon Theme]\nName=test\nDirectories=16\n[16]\nSize=16\nType=Fixed\n");
    QImage icon(16, 16, QImage::Format_ARGB32);
    icon.fill(Qt::red);
    ASSERT_TRUE(icon.save(QString::fromStdString(folder.file("test/16/text-html.png"))));
    icon.fill(Qt::green);
    ASSERT_TRUE(icon.save(QString::fromStdString(folder.file("test/16/image-x-generic.png"))));
    icon.fill(Qt::blue);
    ASSERT_TRUE(icon.save(QString::fromStdString(folder.file("test/16/inode-directory.png"))));
    QIcon::setThemeSearchPaths({QString::fromStdString(folder.path())});
    QIcon::setThemeName(QStringLiteral("test"));

    const struct {
        const char* path;
        std::uint32_t color;
    } rows[] = {{"/nowhere/a.html", 0xffff0000},
                {"/nowhere/a.jpg", 0xff00ff00},
                {"/nowhere/a.NEF", 0xff00ff00},
                {"/", 0xff0000ff}};
    for (const auto& row : rows) {
        // Larger than anything in the theme, and filled all the same.
        const QImage image = cuIconOfItem(row.path, QSizeF(64, 64), 2).toImage();
        EXPECT_EQ(image.size(), QSize(128, 128));
        EXPECT_TRUE(test::isNear(image.pixel(64, 64), row.color)) << row.path;
        EXPECT_TRUE(test::isNear(image.pixel(10, 120), row.color)) << row.path;
    }
    QIcon::setThemeName(QStringLiteral("no such theme"));
}

class PreviewLoader : public PreviewTest {
protected:
    struct Arrival {
        QByteArray path;
        QPixmap picture;
    };

    PreviewLoader()
    {
        QObject::connect(&loader_, &::PreviewLoader::previewReady,
                         [this](const QByteArray& path, const QPixmap& picture) {
                             arrivals_.push_back({path, picture});
                             loop_.quit();
                         });
    }

    void request(const std::string& path, qreal ratio = 1)
    {
        loader_.request(test::text(path).get(), kSize, ratio);
    }

    // Lets the event loop run until something arrives, 5 seconds at most.
    void wait()
    {
        QTimer::singleShot(5000, &loop_, &QEventLoop::quit);
        loop_.exec();
    }

    // Lets the event loop run until nothing more can come.
    void settle()
    {
        QTimer::singleShot(300, &loop_, &QEventLoop::quit);
        loop_.exec();
    }

    ::PreviewLoader loader_;
    QEventLoop loop_;
    std::vector<Arrival> arrivals_;
};

TEST_F(PreviewLoader, answersThroughTheEventLoop)
{
    const std::string path = picture();
    request(path, 2);
    EXPECT_TRUE(arrivals_.empty());
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path.toStdString(), path);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(256, 171));
    EXPECT_EQ(arrivals_[0].picture.devicePixelRatio(), 2);
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
}

TEST_F(PreviewLoader, showsADecodedPreviewBeforeItIsStored)
{
    const std::string path = picture();
    const std::string stored = cachePath("normal", "file://" + path);
    request(path);
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(stored));
    settle();
    EXPECT_EQ(QImage(QString::fromStdString(stored)).size(), QSize(128, 85));
}

TEST_F(PreviewLoader, storesAPreviewThatIsLeftEarly)
{
    const std::string path = picture();
    {
        ::PreviewLoader loader;
        QObject::connect(&loader, &::PreviewLoader::previewReady, &loop_, &QEventLoop::quit);
        loader.request(test::text(path).get(), kSize, 1);
        wait();
    }
    EXPECT_TRUE(std::filesystem::exists(cachePath("normal", "file://" + path)));
}

TEST_F(PreviewLoader, answersTheLastRequestOnly)
{
    const std::string last = picture("b.jpg");
    request(picture("a.jpg"));
    request(last);
    wait();
    settle();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path.toStdString(), last);
}

TEST_F(PreviewLoader, aNullPathCancels)
{
    request(picture());
    loader_.request(nullptr, kSize, 1);
    settle();
    EXPECT_TRUE(arrivals_.empty());
}

TEST_F(PreviewLoader, answersWithAnIconWithoutAPreview)
{
    request(folder_.file("missing.jpg"), 1.5);
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(192, 192));
}

TEST_F(PreviewLoader, mayBeAskedAgainByTheReceiver)
{
    const std::string second = picture("b.jpg");
    QObject::connect(&loader_, &::PreviewLoader::previewReady, [&] {
        if (arrivals_.size() == 1) request(second);
    });
    request(picture("a.jpg"));
    wait();
    wait();
    ASSERT_EQ(arrivals_.size(), 2u);
    EXPECT_EQ(arrivals_[1].path.toStdString(), second);
}
}  // namespace
