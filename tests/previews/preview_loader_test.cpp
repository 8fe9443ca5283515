#include "previews/preview_loader.h"

#include "base/alloc.h"
#include "location/picture_source.h"
#include "pictures/pixels/av1_image.h"
#include "pictures/pixels/hevc_image.h"
#include "pictures/pixels/jxl_image.h"
#include "previews/picture_reader.h"
#include "tests/previews/preview_loader_fixture.h"
#include "tests/support/heif_pictures.h"

#include <filesystem>
#include <string>
#include <vector>

namespace pinorama::tests {
TEST_F(PreviewLoader, deliversThroughTheEventLoop)
{
    const std::string path = picture();
    request(path, 2);
    EXPECT_TRUE(arrivals_.empty());
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, path);
    EXPECT_TRUE(arrivals_[0].isPreview);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(256, 171));
    EXPECT_EQ(arrivals_[0].picture.devicePixelRatio(), 2);
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
}

TEST_F(PreviewLoader, showsMoreKindsOfPicturesWhereSomebodyAsksForThem)
{
    const std::string path = folder_.write(
        "a.heic", test::heifPicture({{"????", "bytes", {test::heifSize(600, 400)}},
                                     {"jpeg", test::jpegOfQuarters(300, 200), {}, "thmb", {1}}}));
    request(path);
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_FALSE(test::areNear(quartersOf(arrivals_[0].picture), kCorners)) << "the icon";

    setReadsMoreKinds(true);
    request(path);
    wait(2);
    setReadsMoreKinds(false);
    ASSERT_EQ(arrivals_.size(), 2u);
    EXPECT_EQ(arrivals_[1].picture.size(), QSize(128, 85));
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[1].picture), kCorners));
}

// The decoders work in the process that reads one picture, which may not start a thread or open a
// file.
TEST_F(PreviewLoader, showsHevcFromTheSandbox)
{
    if (!loadHevcDecoder()) GTEST_SKIP() << "libde265 is not installed";
    const test::HeifPart tile = test::hevcPart();
    test::HeifPart grid = {"grid", test::heifGrid(3, 3, 180, 170), {}, "dimg", {}};
    std::vector<test::HeifPart> parts = {grid};
    for (int i = 2; i <= 10; i++) {
        parts[0].to.push_back(i);
        parts.push_back(tile);
    }
    requestFromTheSandbox(folder_.write("a.heic", test::heifPicture(parts)));
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(128, 121));
}

TEST_F(PreviewLoader, showsAv1FromTheSandbox)
{
    if (!loadAv1Decoder()) GTEST_SKIP() << "dav1d is not installed";
    expectQuartersFromTheSandbox(folder_.write("a.avif", test::heifPicture({test::av1Part()})));
}

TEST_F(PreviewLoader, showsJxlFromTheSandbox)
{
    if (!loadJxlDecoder()) GTEST_SKIP() << "libjxl is not installed";
    expectQuartersFromTheSandbox(folder_.write("a.jxl", test::jxlQuarters()));
}

TEST_F(PreviewLoader, showsADecodedPreviewBeforeItIsStored)
{
    const std::string path = picture();
    const std::string stored = cachePath("normal", "file://" + path);
    request(path);
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_FALSE(std::filesystem::exists(stored));
    EXPECT_TRUE(test::waitUntil([&] { return std::filesystem::exists(stored); }));
    EXPECT_EQ(QImage(QString::fromStdString(stored)).size(), QSize(128, 85));
}

TEST_F(PreviewLoader, storesAPreviewThatIsLeftEarly)
{
    const std::string path = picture();
    {
        bool hasArrived = false;
        pinorama::PreviewLoader loader;
        QObject::connect(&loader, &pinorama::PreviewLoader::previewReady,
                         [&] { hasArrived = true; });
        loader.request(path, PictureFile(path), kSize, 1);
        EXPECT_TRUE(test::waitUntil([&] { return hasArrived; }));
    }
    EXPECT_TRUE(std::filesystem::exists(cachePath("normal", "file://" + path)));
}

TEST_F(PreviewLoader, deliversTheLastRequestOnly)
{
    const std::string last = picture("b.jpg");
    request(picture("a.jpg"));
    request(last);
    wait();
    settle();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, last);
}

TEST_F(PreviewLoader, cancelsARequest)
{
    request(picture());
    loader_.cancel();
    settle();
    EXPECT_TRUE(arrivals_.empty());
}

TEST_F(PreviewLoader, deliversTheIconWithoutAPreview)
{
    request(folder_.file("missing.jpg"), 1.5);
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_FALSE(arrivals_[0].isPreview);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(192, 192));
}

TEST_F(PreviewLoader, deliversTheIconOfAFileThatIsNoPicture)
{
    request(folder_.write("text.jpg", "no picture"));
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(128, 128));
}

TEST_F(PreviewLoader, takesALargeThumbnailAndKeepsNoLargerPreview)
{
    pinorama::PreviewLoader larger(PreviewUse::larger);
    QObject::connect(&larger, &pinorama::PreviewLoader::previewReady,
                     [this](const std::string& path, const QPixmap& picture, bool isPreview) {
                         arrivals_.push_back({path, picture, isPreview});
                     });
    const std::string path = picture();
    const std::string cached = cachePath("x-large", "file://" + path);
    larger.request(path, PictureFile(path), QSizeF(512, 512), 1);
    wait();
    settle();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_TRUE(arrivals_[0].isPreview);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(512, 341));
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
    EXPECT_FALSE(std::filesystem::exists(cached));

    cache("x-large", 512, "file://" + path, mtimeOf(path), Qt::cyan);
    larger.request(path, PictureFile(path), QSizeF(512, 512), 1);
    wait(2);
    ASSERT_EQ(arrivals_.size(), 2u);
    EXPECT_EQ(arrivals_[1].picture.toImage().pixelColor(100, 100), QColor(Qt::cyan));

    const std::string text = folder_.write("text.jpg", "no picture");
    larger.request(text, PictureFile(text), QSizeF(512, 512), 1);
    wait(3);
    ASSERT_EQ(arrivals_.size(), 3u);
    EXPECT_FALSE(arrivals_[2].isPreview);
    EXPECT_TRUE(arrivals_[2].picture.isNull());
}

TEST_F(PreviewLoader, passesOverAThumbnailOfAnotherFile)
{
    const std::string path = picture();
    cache("normal", 128, "file://" + path, mtimeOf(path), Qt::cyan, "file:///other.jpg");
    request(path);
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
}

TEST_F(PreviewLoader, deliversNullAndNoIconWhenMemoryRunsOutForAPreview)
{
    const std::string path = picture();
    request(path);
    baseFailAllocation(1);
    wait();
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, path);
    EXPECT_TRUE(arrivals_[0].picture.isNull());
}

TEST_F(PreviewLoader, mayBeAskedAgainByTheReceiver)
{
    const std::string second = picture("b.jpg");
    QObject::connect(&loader_, &pinorama::PreviewLoader::previewReady, [&] {
        if (arrivals_.size() == 1) request(second);
    });
    request(picture("a.jpg"));
    wait(2);
    ASSERT_EQ(arrivals_.size(), 2u);
    EXPECT_EQ(arrivals_[1].path, second);
}

}  // namespace pinorama::tests
