// The window with files on a disk that does not answer: a network share whose server is gone, a
// card that was pulled out, a disk that dies.

#include "app/reading_notice.h"
#include "opener/events/picture_opener.h"
#include "tests/app/hostile_window.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <QMimeData>

#include <filesystem>
#include <memory>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
using test::SlowDisk;

class hungDisks : public test::HostileWindowTest {
protected:
    void SetUp() override
    {
        HostileWindowTest::SetUp();
        const std::string bytes = test::readFile(good_);
        disk_ = addDisk("disk");
        if (!disk_->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
        // Openers that ran before do not see the disk.
        cuPictureOpener().stop();
        expectGoodPicture();
    }
    void TearDown() override
    {
        disk_.reset();
        cuPictureOpener().stop();
        HostileWindowTest::TearDown();
    }

    std::unique_ptr<SlowDisk> addDisk(const std::string& name) const
    {
        const std::string bytes = test::readFile(good_);
        fs::create_directory(folder.file(name));
        return std::make_unique<SlowDisk>(
            folder.file(name),
            std::vector<SlowDisk::File>{{"good.jpg", bytes, 0},
                                        {"look.jpg", bytes, SlowDisk::kNever, SlowDisk::Step::look},
                                        {"open.jpg", bytes, SlowDisk::kNever, SlowDisk::Step::open},
                                        {"read.jpg", bytes, SlowDisk::kNever},
                                        {"late.jpg", bytes, 900, SlowDisk::Step::look}});
    }

    // What the foot of the window says; empty when it is not there.
    std::string notice() const
    {
        const auto* line = controller.myWindow->findChild<ReadingNotice*>();
        return line == nullptr || line->isHidden() ? "" : line->text().toStdString();
    }

    bool comesToSay(const std::string& text)
    {
        return test::waitUntil([&] { return notice() == text; });
    }

    std::unique_ptr<SlowDisk> disk_;
};
}  // namespace

TEST_F(hungDisks, doNotKeepTheWindow)
{
    // The system looks up one name in a folder at a time, so that one comes last.
    for (const std::string name : {"read.jpg", "open.jpg", "look.jpg"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(isQuickOfThree(disk_->file(name)));
        EXPECT_EQ(shown(controller.fileNameField), name);
        EXPECT_TRUE(comesToSay("Still reading " + name + "..."));
        EXPECT_TRUE(comesToSay(name + " does not answer."));
        EXPECT_EQ(shown(controller.gpsCoordinateField), "");
        EXPECT_EQ(shown(controller.fileSizeField).empty(), name != "read.jpg");
        EXPECT_EQ(controller.fileIconField->dragData() == nullptr, name != "read.jpg");
        expectLocationActions(false);
        EXPECT_TRUE(controller.reading().isGoingOn());
        expectGoodPicture();
        EXPECT_EQ(notice(), "");
    }
}

TEST_F(hungDisks, keepTwoProcessesEachAndFourInAll)
{
    const auto other = addDisk("other");
    const auto third = addDisk("third");
    cuPictureOpener().stop();
    for (int again = 0; again < 3; again++) {
        for (const SlowDisk* disk : {disk_.get(), other.get(), third.get()}) {
            for (const char* name : {"read.jpg", "open.jpg", "look.jpg", "good.jpg"}) {
                EXPECT_TRUE(isQuick(disk->file(name)));
                EXPECT_LE(cuPictureOpener().count(), OpenerClient::kMaxOpeners);
            }
        }
    }
    EXPECT_EQ(cuPictureOpener().countAtWork(), 4u);
    EXPECT_TRUE(isQuick(good_));
    EXPECT_TRUE(comesToSay("good.jpg does not answer.")) << "four disks too many";
}

TEST_F(hungDisks, showWhatWasSelectedLastWhenTheyAnswerAgain)
{
    EXPECT_TRUE(showsInTime(disk_->file("good.jpg")));
    disk_->hang();
    for (const char* name : {"none.jpg", "late.jpg", "open.jpg", "late.jpg"}) {
        EXPECT_TRUE(isQuick(disk_->file(name))) << name;
    }
    EXPECT_LE(cuPictureOpener().countAtWork(), 2u);
    EXPECT_TRUE(comesToSay("late.jpg does not answer."));
    disk_->recover();
    EXPECT_TRUE(test::waitUntil([this] { return !controller.reading().isGoingOn(); }));
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_NE(shown(controller.fileSizeField), "");
    EXPECT_NE(controller.fileIconField->dragData(), nullptr);
    EXPECT_FALSE(controller.fileIconField->pixmap().isNull());
    expectLocationActions(true);
}

TEST_F(hungDisks, thatAreSlowShowTheFileWhenItComes)
{
    EXPECT_TRUE(show(disk_->file("late.jpg")));
    EXPECT_EQ(notice(), "Still reading late.jpg...");
    EXPECT_EQ(shown(controller.fileSizeField), "");
    EXPECT_TRUE(test::waitUntil([this] { return !controller.reading().isGoingOn(); }));
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_NE(shown(controller.fileSizeField), "");
}

TEST_F(hungDisks, areDroppedForAnotherFile)
{
    EXPECT_TRUE(show(disk_->file("late.jpg")));
    EXPECT_FALSE(show(folder.write("notes.txt", "text")));
    test::goOnFor(1200);
    EXPECT_EQ(shown(controller.fileNameField), "notes.txt");
    EXPECT_EQ(shown(controller.fileSizeField), "0.0 KB");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "");
    expectLocationActions(false);
    EXPECT_EQ(cuPictureOpener().countAtWork(), 0u);
}

TEST_F(hungDisks, doNotKeepTheWindowThatIsDoneWithAFile)
{
    EXPECT_TRUE(show(disk_->file("good.jpg")));
    disk_->hang();  // while the file is open for its preview
    EXPECT_TRUE(isQuick(good_));
    EXPECT_EQ(shown(controller.fileNameField), "good.jpg");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_TRUE(isQuick(other_));
    EXPECT_EQ(shown(controller.gpsAltitudeField), "7 m");
    disk_->recover();
}

// For a file manager, in the same turn of its event loop.
TEST_F(hungDisks, doNotKeepTheWindowThatHasWaitedAlready)
{
    constexpr auto kPatience = std::chrono::seconds(20);
    controller.reading().setPatience(kPatience);
    disk_->hang();  // for a quarter of a minute
    const auto start = std::chrono::steady_clock::now();
    controller.reading().begin(disk_->file("good.jpg"), kPatience + PictureReading::kMoreInATurn);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(8));
    EXPECT_TRUE(controller.reading().isOpening());
    disk_->recover();
    EXPECT_TRUE(test::waitUntil([this] { return !controller.reading().isGoingOn(); }));
}

TEST_F(hungDisks, withoutAnOpenerTheWindowSaysSo)
{
    cuPictureOpener().stop();
    const test::ScopedVariable none("PINORAMA_OPENER", "/nowhere/pinorama-opener");
    EXPECT_TRUE(isQuick(other_));
    EXPECT_EQ(shown(controller.fileNameField), "other.jpg");
    EXPECT_EQ(shown(controller.fileSizeField), "n.a.");
    EXPECT_TRUE(
        controller.fileIconField->text().startsWith(QStringLiteral("Files cannot be opened: ")));
    expectLocationActions(false);
    EXPECT_FALSE(controller.reading().isGoingOn());
}
