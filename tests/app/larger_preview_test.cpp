// The larger preview that follows the small one where the window has room for it.

#include "app/larger_preview.h"

#include "app/picture_field.h"
#include "base/resource_folder.h"
#include "previews/picture_reader.h"
#include "tests/app/hostile_window.h"
#include "tests/previews/preview_fixture.h"
#include "tests/support/reader_signal.h"

#include <csignal>
#include <filesystem>
#include <memory>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
namespace {
namespace fs = std::filesystem;
using namespace std::chrono_literals;

class LargerPreview : public test::PreviewTest {
protected:
    LargerPreview()
    {
        field_.setMinimumSize(PictureField::kSmallest, PictureField::kSmallest);
        giveRoom(PictureField::kSmallest);
        window_.resize(600, 600);
        window_.show();
    }
    ~LargerPreview() override
    {
        larger_.forget();
        cuPictureReader().stop();
        cuPictureReader().setLimits({});
    }

    void giveRoom(int side)
    {
        field_.setRoom({side, side}, {side, side});
        field_.resize(side, side);
    }

    // As if the window showed the file with this preview.
    void follow(const std::string& path, QSize small = {128, 85})
    {
        QPixmap preview(small);
        preview.fill(Qt::magenta);
        field_.showPreview(preview);
        larger_.follow(path, attributesOf(path).value_or(FileAttributes{}));
    }

    // Lets the event loop run until all that was asked for has come or failed.
    void rest(int requests)
    {
        EXPECT_TRUE(
            test::waitUntil([&] { return larger_.requests() >= requests && !larger_.isComing(); }));
        EXPECT_EQ(larger_.requests(), requests);
    }

    // The same, and what must not happen could happen.
    void restForLong(int requests)
    {
        rest(requests);
        test::goOnFor(600);
        rest(requests);
    }

    QPixmap seen() { return field_.grab(QRect(QPoint(0, 0), field_.shownSize())); }

    QWidget window_;
    PictureField field_{&window_};
    pinorama::LargerPreview larger_{field_};
};

// Does harm when a file tells it to.
class FaultyReader {
public:
    explicit FaultyReader(const std::string& arguments = {})
    {
        const std::string path = folder_.write("reader", "#!/bin/sh\nexec '" + programFolder() +
                                                             "/faulty-reader' " + arguments + "\n");
        fs::permissions(path, fs::perms::owner_all);
        variable_ = std::make_unique<test::ScopedVariable>("PINORAMA_READER", path.c_str());
        cuPictureReader().stop();
    }
    FaultyReader(const FaultyReader&) = delete;
    FaultyReader& operator=(const FaultyReader&) = delete;
    ~FaultyReader() { cuPictureReader().stop(); }

private:
    test::TemporaryFolder folder_;
    std::unique_ptr<test::ScopedVariable> variable_;
};
}  // namespace

TEST_F(LargerPreview, isNotAskedForWithoutRoom)
{
    follow(picture());
    restForLong(0);
    EXPECT_EQ(field_.shownSize(), QSize(128, 85));
}

TEST_F(LargerPreview, comesWhereThereIsRoom)
{
    field_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    giveRoom(450);
    follow(picture());
    EXPECT_EQ(field_.shownSize(), QSize(450, 298)) << "the small one fills the room meanwhile";
    EXPECT_EQ(seen().toImage().pixelColor(10, 10), QColor(Qt::magenta));
    rest(1);
    EXPECT_EQ(field_.shownSize().width(), 450);
    EXPECT_NEAR(field_.shownSize().height(), 299, 1);
    EXPECT_TRUE(test::areNear(test::quartersOf(seen()), test::kCorners));
    EXPECT_EQ(field_.pixmap().size(), QSize(128, 85));
    restForLong(1);
}

TEST_F(LargerPreview, isTheSmallestThatCoversTheRoom)
{
    const std::string path = picture();
    cache("large", 256, "file://" + path, mtimeOf(path), Qt::cyan);
    cache("x-large", 512, "file://" + path, mtimeOf(path), Qt::yellow);
    field_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    giveRoom(256);
    follow(path, {128, 64});
    rest(1);
    EXPECT_EQ(seen().toImage().pixelColor(100, 100), QColor(Qt::cyan));
    EXPECT_EQ(seen().size(), QSize(256, 128));
    giveRoom(257);
    rest(2);
    EXPECT_EQ(seen().toImage().pixelColor(100, 100), QColor(Qt::yellow));
    EXPECT_EQ(seen().size(), QSize(257, 128));
}

TEST_F(LargerPreview, leavesTheCacheAsItIs)
{
    giveRoom(500);
    follow(picture());
    restForLong(1);
    EXPECT_FALSE(fs::exists(folder_.file("cache/thumbnails")));
}

TEST_F(LargerPreview, isAskedForOnceWhenTheRoomHasSettled)
{
    follow(picture());
    for (int side = 130; side <= 500; side += 10) giveRoom(side);
    EXPECT_EQ(larger_.requests(), 0);
    restForLong(1);
    EXPECT_EQ(field_.shownSize().width(), 500);
    for (const int side : {200, 512, 128, 300}) giveRoom(side);
    restForLong(1);
    EXPECT_EQ(field_.shownSize().width(), 300);

    follow(picture("b.jpg"), {128, 85});
    rest(2);
    giveRoom(PictureField::kSmallest);
    follow(picture("c.jpg"), {128, 85});
    giveRoom(500);
    giveRoom(PictureField::kSmallest);
    restForLong(2);
}

TEST_F(LargerPreview, isNotAskedForIfTheSmallOneShowsAllPixels)
{
    giveRoom(500);
    follow(folder_.write("tiny.jpg", test::jpegOfQuarters(100, 60)), {100, 60});
    EXPECT_EQ(field_.shownSize(), QSize(100, 60)) << "it is not enlarged";
    restForLong(0);
}

TEST_F(LargerPreview, isNoLargerThanThePicture)
{
    giveRoom(500);
    follow(folder_.write("small.jpg", test::jpegOfQuarters(300, 200)));
    rest(1);
    EXPECT_EQ(field_.shownSize(), QSize(300, 200));
    giveRoom(510);
    giveRoom(200);
    giveRoom(512);
    restForLong(1);
}

TEST_F(LargerPreview, standsUprightLikeTheSmallOne)
{
    field_.setAlignment(Qt::AlignLeft | Qt::AlignTop);
    giveRoom(400);
    const std::string path = folder_.write(
        "turned.jpg", test::jpegOfQuarters(600, 400, {.exif = test::exifWithThumbnail(6, "")}));
    follow(path, {85, 128});
    rest(1);
    EXPECT_NEAR(field_.shownSize().width(), 267, 1);
    EXPECT_EQ(field_.shownSize().height(), 400);
    EXPECT_TRUE(test::areNear(test::quartersOf(seen()),
                              {test::kBlue, test::kRed, test::kYellow, test::kGreen}));
}

TEST_F(LargerPreview, doesNotComeForAnotherPicture)
{
    giveRoom(500);
    const std::string path = picture();
    cuPictureReader().start();
    test::signalReader(cuPictureReader(), SIGSTOP);
    follow(path);
    EXPECT_TRUE(test::waitUntil([] { return cuPictureReader().previewTicket() != 0; }));
    larger_.forget();
    EXPECT_FALSE(larger_.isComing());
    EXPECT_EQ(cuPictureReader().previewTicket(), 0u);
    QPixmap other(64, 64);
    other.fill(Qt::black);
    field_.showPreview(other);
    test::signalReader(cuPictureReader(), SIGCONT);
    test::goOnFor(600);
    EXPECT_EQ(field_.shownSize(), QSize(64, 64));

    // While the file is being opened, and before it is.
    follow(path);
    larger_.forget();
    field_.showPreview(other);
    giveRoom(PictureField::kSmallest);
    follow(path);
    giveRoom(500);
    larger_.forget();
    field_.showPreview(other);
    test::goOnFor(600);
    EXPECT_EQ(field_.shownSize(), QSize(64, 64));
    EXPECT_EQ(larger_.requests(), 2);
}

TEST_F(LargerPreview, isNotThatOfAFileThatHasChanged)
{
    giveRoom(500);
    const std::string path = picture();
    FileAttributes before = *attributesOf(path);
    before.modified -= 10;
    QPixmap preview(128, 85);
    field_.showPreview(preview);
    larger_.follow(path, before);
    rest(1);
    EXPECT_EQ(field_.shownSize(), QSize(128, 85));
    EXPECT_EQ(cuPictureReader().previewTicket(), 0u);

    fs::remove(path);
    follow(path);
    rest(2);
    EXPECT_EQ(field_.shownSize(), QSize(128, 85));
}

TEST_F(LargerPreview, waitsUntilTheWindowIsShown)
{
    window_.hide();
    giveRoom(500);
    follow(picture());
    restForLong(0);
    window_.show();
    rest(1);
    EXPECT_EQ(field_.shownSize().width(), 500);
}

TEST_F(LargerPreview, leavesTheSmallOneWhenTheReaderDoesHarm)
{
    ReaderLimits limits;
    limits.preview.processor = 1s;
    cuPictureReader().setLimits(limits);
    for (const char* arguments : {"", "--alone"}) {
        const FaultyReader faulty(arguments);
        int requests = larger_.requests();
        giveRoom(500);
        for (const char* fault : {"large-preview", "short-preview", "long-preview", "flat-preview",
                                  "half-preview", "crash", "nothing"}) {
            SCOPED_TRACE(std::string(fault) + arguments);
            const std::string path =
                folder_.write("fault.jpg", "FAULT " + std::string(fault) + "\n");
            follow(path);
            rest(++requests);
            EXPECT_EQ(field_.shownSize(), QSize(128, 85));
        }
        follow(picture());
        rest(++requests);
        EXPECT_EQ(field_.shownSize().width(), 500) << "a good one comes";
    }
}

TEST_F(LargerPreview, leavesTheSmallOneWhenTheReaderIsStuckOrMissing)
{
    ReaderLimits limits;
    limits.preview = {.processor = 500ms, .silence = 1000ms, .whole = 5s};
    {
        const FaultyReader faulty;
        cuPictureReader().setLimits(limits);
        giveRoom(500);
        follow(folder_.write("loop.jpg", "FAULT loop\n"));
        rest(1);
        EXPECT_EQ(field_.shownSize(), QSize(128, 85));
        follow(folder_.write("never.jpg", test::jpegOfQuarters(600, 400) + "SLOW 3600000"));
        rest(2);
        EXPECT_EQ(field_.shownSize(), QSize(128, 85));
    }
    {
        const test::ScopedVariable reader("PINORAMA_READER", "/nowhere/pinorama-reader");
        cuPictureReader().stop();
        follow(picture());
        rest(3);
        EXPECT_EQ(field_.shownSize(), QSize(128, 85));
    }
    cuPictureReader().stop();
}

namespace {
class largerPreviews : public test::HostileWindowTest {
protected:
    // Shows the window larger than usual by so much each way.
    void showLargerBy(int more)
    {
        controller.showMainWindow();
        const QSize size = window.size() + QSize(more, more);
        window.resize(size);
        EXPECT_TRUE(test::waitUntil([&] {
            return window.size() == size &&
                   (more == 0) == (window.fileIconField->room() == QSize(128, 128));
        }));
    }

    std::string picture(const std::string& name, const test::JpegOptions& options = {})
    {
        return folder.write(name, test::jpegOfQuarters(600, 600, options));
    }

    // Shows a file and waits until nothing more is to come of it.
    void showAll(const std::string& path)
    {
        (void)show(path);
        EXPECT_TRUE(test::waitUntil(
            [this] { return !controller.reading().isGoingOn() && !larger.isComing(); }));
    }

    MainWindow& window = *controller.myWindow;
    const pinorama::LargerPreview& larger = controller.reading().larger();
};
}  // namespace

TEST_F(largerPreviews, areNotThereInAWindowOfTheUsualSize)
{
    showLargerBy(0);
    showAll(picture("a.jpg"));
    test::goOnFor(600);
    EXPECT_EQ(larger.requests(), 0);
    EXPECT_EQ(window.fileIconField->pixmap().size(), QSize(128, 128));
    EXPECT_EQ(window.fileIconField->shownSize(), QSize(128, 128));
    EXPECT_EQ(window.fileIconField->size().height(), 128);
}

TEST_F(largerPreviews, followThePreviewInALargeWindow)
{
    showLargerBy(300);
    showAll(picture("a.jpg"));
    const PictureField& field = *window.fileIconField;
    EXPECT_EQ(larger.requests(), 1);
    EXPECT_EQ(field.pixmap().size(), QSize(128, 128)) << "the preview itself";
    const int room = std::min(field.room().width(), field.room().height());
    EXPECT_GT(room, 128);
    EXPECT_EQ(field.shownSize(), QSize(room, room));

    showAll(folder.write("notes.txt", "text"));
    EXPECT_EQ(larger.requests(), 1) << "an icon is not enlarged";
    EXPECT_EQ(field.shownSize(), QSize(128, 128));
}

TEST_F(largerPreviews, areThoseOfTheLastOfManyPictures)
{
    showLargerBy(300);
    for (int i = 0; i < 10; ++i) {
        (void)show(picture(std::to_string(i) + ".jpg"));
        for (int turn = 0; turn < i; ++turn) QCoreApplication::processEvents();
    }
    test::JpegOptions black;
    for (std::uint32_t& corner : black.corners) corner = 0xff000000;
    showAll(picture("last.jpg", black));
    const PictureField& field = *window.fileIconField;
    EXPECT_GT(field.shownSize().width(), 128);
    QPixmap seen = window.fileIconField->grab();
    EXPECT_EQ(seen.toImage().pixelColor(seen.width() / 2, 30), QColor(Qt::black));
}

TEST_F(largerPreviews, comeAgainWhenTheFileIsReadAgain)
{
    showLargerBy(300);
    showAll(picture("a.jpg"));
    EXPECT_EQ(larger.requests(), 1);
    controller.reload();
    EXPECT_EQ(window.fileIconField->shownSize(), QSize(0, 0));
    EXPECT_TRUE(test::waitUntil([this] { return larger.requests() == 2 && !larger.isComing(); }));
    EXPECT_GT(window.fileIconField->shownSize().width(), 128);
}

}  // namespace pinorama::tests
