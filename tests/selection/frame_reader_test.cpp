#include "selection/frame_reader.h"

#include "selection/file_manager_kind.h"
#include "tests/selection/stand_in_file_manager.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <QDBusConnection>

#include <chrono>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::StandInFileManager;
using Kind = StandInFileManager::Kind;

constexpr auto kLimit = 10s;  // no test comes near it

// Two inquiries about one window: while one of them waits, the other finds the window changed.
class FrameReaderRead : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
    }

    void find(Kind kind, const char* process)
    {
        (void)folder_.write("a.jpg", "x");
        manager_ = std::make_unique<StandInFileManager>(
            kind, folder_.path(), std::vector<QString>{QStringLiteral("a.jpg")});
        frame_ = std::make_unique<FrameReader>(
            Accessible{manager_->service(), QStringLiteral("/org/a11y/atspi/accessible/1")},
            *fileManagerKind(process), 1, false);
        Inquiry inquiry(QDBusConnection::sessionBus(), kLimit);
        inquiry.begin(frame_->findAndRead(inquiry));
        ASSERT_TRUE(inquiry.finishUntil(Clock::now() + kLimit));
        ASSERT_TRUE(frame_->isFound());
    }

    void readBesides()
    {
        Inquiry inquiry(QDBusConnection::sessionBus(), kLimit);
        inquiry.begin(frame_->read(inquiry));
        ASSERT_TRUE(inquiry.finishUntil(Clock::now() + kLimit));
    }

    test::TemporaryFolder folder_;
    std::unique_ptr<StandInFileManager> manager_;
    std::unique_ptr<FrameReader> frame_;
    Inquiry inquiry_{QDBusConnection::sessionBus(), kLimit};
};

TEST_F(FrameReaderRead, endsWhenTheWindowHasBeenForgottenMeanwhile)
{
    find(Kind::selection, "nemo");
    manager_->select({0});
    inquiry_.begin(frame_->read(inquiry_));
    frame_->forget();
    ASSERT_TRUE(inquiry_.finishUntil(Clock::now() + kLimit));
    EXPECT_FALSE(frame_->isFound());
    EXPECT_EQ(frame_->paths(), std::vector<std::string>());
}

TEST_F(FrameReaderRead, endsWhenTheStatusBarHasBeenForgottenMeanwhile)
{
    find(Kind::statusBar, "thunar");
    manager_->change(StandInFileManager::kStatusBar,
                     [](test::StandInObject& bar) { bar.name = "\"a.jpg\""; });
    frame_->markStale();
    readBesides();
    ASSERT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
    // Nothing but the title and the status bar is asked of a window that was read a moment ago.
    inquiry_.begin(frame_->read(inquiry_));
    frame_->forget();
    ASSERT_TRUE(inquiry_.finishUntil(Clock::now() + kLimit));
    EXPECT_FALSE(frame_->isFound());
    EXPECT_EQ(frame_->paths(), std::vector<std::string>());
}

TEST_F(FrameReaderRead, leavesACheckWithTheAnswersToWhatItAsked)
{
    find(Kind::selection, "nemo");
    ASSERT_FALSE(frame_->isStale());
    inquiry_.begin(frame_->check(inquiry_));
    // More vouches for one selected item than for none.
    manager_->select({0});
    readBesides();
    ASSERT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
    ASSERT_TRUE(inquiry_.finishUntil(Clock::now() + kLimit));
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
}
}  // namespace
