// Following the selection in folders on a disk that does not answer: a network share whose server
// is gone, a card that was pulled out.

#include "opener/events/picture_opener.h"
#include "selection/file_manager_selection.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDeadlineTimer>
#include <QElapsedTimer>

#include <algorithm>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using test::FakeFileManager;
using test::SlowDisk;
using Paths = std::vector<std::string>;

// The disk stands still for 15 seconds, and a busy machine for a few.
constexpr qint64 kTooLong = 8000;  // milliseconds

class hungFolders : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        std::filesystem::create_directory(folder_.file("disk"));
        disk_ = std::make_unique<SlowDisk>(
            folder_.file("disk"),
            std::vector<SlowDisk::File>{{"0.jpg", "x", 0}, {"1.jpg", "x", 0}, {"2.jpg", "x", 0}});
        if (!disk_->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
        cuPictureOpener().stop();  // openers that ran before do not see the disk
    }

    void TearDown() override
    {
        disk_.reset();
        cuPictureOpener().stop();
    }

    // Calls selectedPaths() five times a second, as the window does, until it has these paths.
    bool finds(const Paths& wanted)
    {
        const QDeadlineTimer limit(test::kPatience);
        while (!limit.hasExpired()) {
            if (source_.selectedPaths() == wanted) return true;
            test::goOnFor(100);
        }
        return false;
    }

    // The same for a while. Returns how long it was kept at most; milliseconds.
    qint64 longestWait(int milliseconds)
    {
        qint64 longest = 0;
        const QDeadlineTimer end(milliseconds);
        while (!end.hasExpired()) {
            QElapsedTimer timer;
            timer.start();
            (void)source_.selectedPaths();
            longest = std::max(longest, timer.restart());
            for (int i = 0; i < 20; i++) {
                test::goOnFor(10);
                longest = std::max(longest, timer.restart());
            }
        }
        return longest;
    }

    test::TemporaryFolder folder_;
    FileManagerSelection source_{[](pid_t) { return fileManagerKind("nemo"); }};
    std::unique_ptr<SlowDisk> disk_;
};
}  // namespace

TEST_F(hungFolders, doNotKeepWhoeverFollowsTheSelection)
{
    FakeFileManager manager(
        FakeFileManager::Kind::selection, folder_.file("disk"),
        {QStringLiteral("0.jpg"), QStringLiteral("1.jpg"), QStringLiteral("2.jpg")});
    manager.select({0});
    ASSERT_TRUE(finds({disk_->file("0.jpg")}));
    disk_->hang();
    manager.select({1});
    manager.emitEvent(FakeFileManager::kView, "SelectionChanged", "", 0);
    EXPECT_LT(longestWait(2000), kTooLong);
    EXPECT_LE(cuPictureOpener().count(), OpenerClient::kMaxOpeners);
    EXPECT_TRUE(source_.selectedPaths().empty());
    EXPECT_FALSE(source_.isKnown()) << "nothing can be said about it";
    disk_->recover();
    EXPECT_TRUE(finds({disk_->file("1.jpg")}));
}

TEST_F(hungFolders, doNotKeepAFileManagerThatShowsAnotherOne)
{
    FakeFileManager manager(FakeFileManager::Kind::selection, folder_.path(),
                            {QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
    for (const char* name : {"a.jpg", "b.jpg"}) folder_.write(name, "x");
    manager.select({0});
    ASSERT_TRUE(finds({folder_.file("a.jpg")}));
    disk_->hang();
    // Two processes are kept by the disk, as when the window has been there before.
    for (const char* name : {"1.jpg", "2.jpg"}) {
        cuPictureOpener().request(disk_->file(name));
        (void)cuPictureOpener().wait(std::chrono::milliseconds(50));
    }
    manager.select({1});
    EXPECT_TRUE(finds({folder_.file("b.jpg")}));
    disk_->recover();
}
