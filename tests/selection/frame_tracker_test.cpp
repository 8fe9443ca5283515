#include "selection/frame_tracker.h"

#include "selection/file_manager_kind.h"
#include "tests/selection/stand_in_file_manager.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusConnection>

#include <algorithm>
#include <string>

using namespace pinorama;

namespace {
using test::StandInFileManager;

// Looks at the windows of two programs, one after the other.
class FrameTrackerLookAt : public testing::Test {
public:
    using OutlivesItsTasks = void;

protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        ASSERT_TRUE(test::waitUntil([&] { return bus_.isReady(); }));
        first_.list(second_);
        QObject::connect(&bus_, &AccessibilityBus::programLeft,
                         [&](const QString& service) { left_.append(service); });
    }

    // Keeps the tracker awake until the condition is met.
    template <typename Condition>
    bool looksUntil(Condition condition)
    {
        return test::waitUntil([&] {
            (void)tracker_.isReady();
            return condition();
        });
    }

    // Has the tracker hear whatever the bus has said so far.
    void letItHear() { test::goOnFor(100); }

    // Asks for the window that counts until it is that of the program.
    bool findsTheWindowOf(const StandInFileManager& program)
    {
        return looksUntil([&] {
            const auto frame = tracker_.lastFrame();
            if (frame && frame->isFound() && frame->frame().service == program.service())
                return true;
            Inquiry inquiry(tracker_.bus(), std::chrono::seconds(1));
            inquiry.begin(ask(inquiry));
            (void)inquiry.finishUntil(Clock::now() + std::chrono::seconds(1));
            return false;
        });
    }

    Task<Done> ask(Inquiry& inquiry)
    {
        (void)co_await tracker_.askForFrame(inquiry);
        co_return {};
    }

    test::TemporaryFolder folder_;
    StandInFileManager first_{
        StandInFileManager::Kind::selection, folder_.path(), {QStringLiteral("a.jpg")}};
    StandInFileManager second_{
        StandInFileManager::Kind::selection, folder_.path(), {QStringLiteral("b.jpg")}};
    QStringList left_;
    AccessibilityBus bus_;
    FrameTracker tracker_{[](pid_t) { return fileManagerKind("nemo"); }};
};

// What is known of the second one has another place then.
TEST_F(FrameTrackerLookAt, goesOnWhenAnotherProgramLeavesDuringAQuestion)
{
    second_.pauseWhenAsked("1 GetAttributes");
    ASSERT_TRUE(looksUntil([&] { return second_.hasPaused(); }));
    first_.leave();
    ASSERT_TRUE(looksUntil([&] { return left_.contains(first_.service()); }));
    letItHear();
    second_.setAnswering(true);
    EXPECT_TRUE(findsTheWindowOf(second_));
}

TEST_F(FrameTrackerLookAt, goesOnWithoutAProgramThatLeavesDuringAQuestion)
{
    // The last of the questions about its window: what it is has been told by then.
    first_.leaveWhenAsked("1 GetAttributes");
    ASSERT_TRUE(looksUntil([&] { return left_.contains(first_.service()); }));
    const std::vector<std::string> asked = first_.takeQuestions();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), "1 GetRole"), 1);
    EXPECT_TRUE(findsTheWindowOf(second_));
}

TEST_F(FrameTrackerLookAt, goesOnWithoutAProgramThatLeavesBeforeItNamesItsWindows)
{
    first_.leaveWhenAsked("0 GetChildren");
    ASSERT_TRUE(looksUntil([&] { return left_.contains(first_.service()); }));
    EXPECT_TRUE(findsTheWindowOf(second_));
}
}  // namespace
