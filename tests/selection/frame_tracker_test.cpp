#include "selection/frame_tracker.h"

#include "selection/file_manager_kind.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusConnection>

#include <algorithm>
#include <string>

using namespace pinorama;

namespace {
using test::FakeFileManager;

// Scans the windows of two programs, one after the other.
class FrameTrackerTest : public testing::Test {
public:
    using OutlivesItsTasks = void;

protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        ASSERT_TRUE(test::waitUntil([&] { return bus_.isReady(); }));
        first_.list(second_);
        QObject::connect(&bus_, &AccessibilityBus::programDisconnected,
                         [&](const QString& service) { left_.append(service); });
    }

    // Keeps the tracker awake until the condition is met.
    template <typename Condition>
    bool scanUntil(Condition condition)
    {
        return test::waitUntil([&] {
            (void)tracker_.isReady();
            return condition();
        });
    }

    // Lets the tracker receive the events that the bus has delivered so far.
    void receiveEvents() { test::goOnFor(100); }

    // Searches for the latest window until it is that of the program.
    bool findsTheWindowOf(const FakeFileManager& program)
    {
        return scanUntil([&] {
            const auto frame = tracker_.lastFrame();
            if (frame && frame->isFound() && frame->frame().service == program.service())
                return true;
            DBusQuery query(tracker_.bus(), std::chrono::seconds(1));
            query.start(find(query));
            (void)query.runUntil(Clock::now() + std::chrono::seconds(1));
            return false;
        });
    }

    Task<Done> find(DBusQuery& query)
    {
        (void)co_await tracker_.findLatestFrame(query);
        co_return {};
    }

    test::TemporaryFolder folder_;
    FakeFileManager first_{
        FakeFileManager::Kind::selection, folder_.path(), {QStringLiteral("a.jpg")}};
    FakeFileManager second_{
        FakeFileManager::Kind::selection, folder_.path(), {QStringLiteral("b.jpg")}};
    QStringList left_;
    AccessibilityBus bus_;
    FrameTracker tracker_{[](pid_t) { return fileManagerKind("nemo"); }};
};

// The entry of the second program moves when that of the first is removed.
TEST_F(FrameTrackerTest, scanContinuesIfAnotherProgramLeavesDuringACall)
{
    second_.pauseOnCall("1 GetAttributes");
    ASSERT_TRUE(scanUntil([&] { return second_.hasPaused(); }));
    first_.leave();
    ASSERT_TRUE(scanUntil([&] { return left_.contains(first_.service()); }));
    receiveEvents();
    second_.setReplying(true);
    EXPECT_TRUE(findsTheWindowOf(second_));
}

TEST_F(FrameTrackerTest, scanSkipsAProgramThatLeavesDuringACall)
{
    // The last of the calls about its window; the tracker has its role by then.
    first_.leaveOnCall("1 GetAttributes");
    ASSERT_TRUE(scanUntil([&] { return left_.contains(first_.service()); }));
    const std::vector<std::string> calls = first_.takeCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), "1 GetRole"), 1);
    EXPECT_TRUE(findsTheWindowOf(second_));
}

TEST_F(FrameTrackerTest, scanSkipsAProgramThatLeavesBeforeItListsItsWindows)
{
    first_.leaveOnCall("0 GetChildren");
    ASSERT_TRUE(scanUntil([&] { return left_.contains(first_.service()); }));
    EXPECT_TRUE(findsTheWindowOf(second_));
}
}  // namespace
