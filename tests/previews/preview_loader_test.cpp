#include "previews/preview_loader.h"

#include "base/alloc.h"
#include "location/picture_source.h"
#include "pictures/pixels/av1_image.h"
#include "pictures/pixels/hevc_image.h"
#include "pictures/pixels/jxl_image.h"
#include "previews/picture_reader.h"
#include "tests/previews/preview_fixture.h"
#include "tests/support/heif_pictures.h"

#include <QCoreApplication>
#include <QDeadlineTimer>

#include <csignal>
#include <string>
#include <vector>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
using test::kCorners;
using test::kSize;
using test::quartersOf;

// Holds the reader up, so that no reply comes as long as this is there.
class HeldReader {
public:
    HeldReader()
    {
        cuPictureReader().start();
        kill(cuPictureReader().processID(), SIGSTOP);
    }
    HeldReader(const HeldReader&) = delete;
    HeldReader& operator=(const HeldReader&) = delete;
    ~HeldReader() { kill(cuPictureReader().processID(), SIGCONT); }
};

class PreviewLoader : public test::PreviewTest {
protected:
    struct Arrival {
        std::string path;
        QPixmap picture;
        bool isPreview;
    };

    PreviewLoader()
    {
        QObject::connect(&loader_, &pinorama::PreviewLoader::previewReady,
                         [this](const std::string& path, const QPixmap& picture, bool isPreview) {
                             arrivals_.push_back({path, picture, isPreview});
                         });
    }

    void request(const std::string& path, qreal ratio = 1)
    {
        loader_.request(path, PictureFile(path), kSize, ratio);
    }

    // Lets the event loop run until so many pictures have arrived in all.
    void wait(std::size_t count = 1)
    {
        EXPECT_TRUE(test::waitUntil([&] { return arrivals_.size() >= count; }));
    }

    // Lets the event loop run until the reader has been asked for a preview after the one with the
    // ticket `last`. The ticket of it.
    static std::uint32_t untilItIsUnderWay(std::uint32_t last = 0)
    {
        const QDeadlineTimer limit(test::kPatience);
        while (cuPictureReader().previewTicket() <= last && !limit.hasExpired()) {
            QCoreApplication::processEvents();
        }
        EXPECT_GT(cuPictureReader().previewTicket(), last);
        return cuPictureReader().previewTicket();
    }

    // Lets the event loop run until nothing more can come.
    static void settle() { test::goOnFor(300); }

    pinorama::PreviewLoader loader_;
    std::vector<Arrival> arrivals_;
};

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

// The decoder works in the process that reads one picture, which may not start a thread or open a
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
    const int failuresBefore = cuPictureReader().failureCount();
    setReadsMoreKinds(true);
    request(folder_.write("a.heic", test::heifPicture(parts)));
    wait();
    setReadsMoreKinds(false);
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(128, 121));
    EXPECT_EQ(cuPictureReader().failureCount(), failuresBefore);
}

TEST_F(PreviewLoader, showsAv1FromTheSandbox)
{
    if (!loadAv1Decoder()) GTEST_SKIP() << "dav1d is not installed";
    const int failuresBefore = cuPictureReader().failureCount();
    setReadsMoreKinds(true);
    request(folder_.write("a.avif", test::heifPicture({test::av1Part()})));
    wait();
    setReadsMoreKinds(false);
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_TRUE(arrivals_[0].isPreview);
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
    EXPECT_EQ(cuPictureReader().failureCount(), failuresBefore);
}

TEST_F(PreviewLoader, showsJxlFromTheSandbox)
{
    if (!loadJxlDecoder()) GTEST_SKIP() << "libjxl is not installed";
    const int failuresBefore = cuPictureReader().failureCount();
    setReadsMoreKinds(true);
    request(folder_.write("a.jxl", test::jxlQuarters()));
    wait();
    setReadsMoreKinds(false);
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_TRUE(arrivals_[0].isPreview);
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
    EXPECT_EQ(cuPictureReader().failureCount(), failuresBefore);
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

TEST_F(PreviewLoader, givesUpAPreviewThatIsUnderWay)
{
    const std::string last = picture("b.jpg");
    {
        const HeldReader held;
        request(picture("a.jpg"));
        const std::uint32_t ticket = untilItIsUnderWay();
        request(last);
        EXPECT_EQ(cuPictureReader().previewTicket(), 0u);
        untilItIsUnderWay(ticket);
    }
    wait();
    settle();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, last);
}

TEST_F(PreviewLoader, startsAgainWhenAPreviewThatIsWaitedForTookThePlace)
{
    const std::string path = picture("a.jpg");
    {
        const HeldReader held;
        request(path);
        untilItIsUnderWay();
    }
    EXPECT_EQ(test::pictureOf(picture("b.jpg")).size(), QSize(128, 85));
    EXPECT_TRUE(arrivals_.empty());
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, path);
}

TEST_F(PreviewLoader, startsAgainWhenAnotherOneTookThePlaceAndCancels)
{
    const std::string path = picture("a.jpg");
    const std::string otherPath = picture("b.jpg");
    {
        const HeldReader held;
        request(path);
        const std::uint32_t ticket = untilItIsUnderWay();
        pinorama::PreviewLoader other;
        other.request(otherPath, PictureFile(otherPath), kSize, 1);
        untilItIsUnderWay(ticket);
    }
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, path);
}

TEST_F(PreviewLoader, reportsAMissingReaderAndDeliversNothing)
{
    std::vector<std::string> reported;
    QObject::connect(&loader_, &pinorama::PreviewLoader::readerMissing,
                     [&](const std::string& path) { reported.push_back(path); });
    const std::string path = picture();
    {
        const test::ScopedVariable reader("PINORAMA_READER", "/nowhere/pinorama-reader");
        cuPictureReader().stop();
        request(path);
        EXPECT_TRUE(test::waitUntil([&] { return !reported.empty(); }));
        settle();
    }
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0], path);
    EXPECT_TRUE(arrivals_.empty());

    cuPictureReader().stop();
    request(path);
    wait();
    EXPECT_EQ(arrivals_.size(), 1u) << "there is one again";
}

TEST_F(PreviewLoader, comesHoweverLongTheDiskTakes)
{
    const std::string path = picture();
    {
        const HeldReader held;
        request(path);
        test::goOnFor(4000);
        EXPECT_TRUE(loader_.isLoading());
        EXPECT_TRUE(arrivals_.empty());
    }
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
    EXPECT_FALSE(loader_.isLoading());
}

TEST_F(PreviewLoader, reportsAStuckReaderAndDeliversTheIcon)
{
    std::vector<std::string> reported;
    QObject::connect(&loader_, &pinorama::PreviewLoader::readerStuck, [&](const std::string& path) {
        reported.push_back(path);
        EXPECT_TRUE(arrivals_.empty());
    });
    ReaderLimits limits;
    limits.preview.silence = std::chrono::seconds(1);
    cuPictureReader().setLimits(limits);
    const std::string path = picture();
    {
        request(picture("b.jpg"));
        wait();  // the reader has started
        arrivals_.clear();
        const HeldReader held;
        request(path);
        wait();
    }
    cuPictureReader().setLimits({});
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(128, 128));
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0], path);
}

TEST_F(PreviewLoader, settlesForTheIcon)
{
    loader_.settleForIcon();
    EXPECT_TRUE(arrivals_.empty()) << "nothing was asked for";
    const HeldReader held;
    request(picture());
    untilItIsUnderWay();
    loader_.settleForIcon();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(128, 128));
    EXPECT_FALSE(loader_.isLoading());
    EXPECT_EQ(cuPictureReader().previewTicket(), 0u);
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
