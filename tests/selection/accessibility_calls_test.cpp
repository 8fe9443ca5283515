// How many questions the selection puts to a file manager, and when.

#include "tests/selection/accessibility_fixture.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

using namespace pinorama;

namespace {
using test::AccessibilitySelectionTest;
using Kind = test::FakeFileManager::Kind;
using Paths = std::vector<std::string>;

constexpr int kFrame = test::FakeFileManager::kFrame;
constexpr int kFirstItem = test::FakeFileManager::kFirstItem;
constexpr int kStatusBar = test::FakeFileManager::kStatusBar;

TEST_F(AccessibilitySelectionTest, getFiveQuestionsAllAtOnceWhileNothingChanges)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(findsPaths({picture(3)}));
    EXPECT_EQ(callsAtRest({picture(3)}),
              (std::vector<std::string>{"1 GetState", "1 Name", "103 GetState", "103 Name",
                                        "4 NSelectedChildren"}));
}

TEST_F(AccessibilitySelectionTest, readsTheStatusBarEveryTime)
{
    follow(Kind::statusBar, "thunar", 12);
    manager_->change(kStatusBar, [](test::FakeObject& bar) { bar.name = "\"3.jpg\""; });
    ASSERT_TRUE(findsPaths({picture(3)}));
    EXPECT_EQ(callsAtRest({picture(3)}),
              (std::vector<std::string>{"1 GetState", "1 Name", "5 Name"}));
}

TEST_F(AccessibilitySelectionTest, makesNoMoreCallsInALargeFolder)
{
    follow(Kind::states, "dolphin", 3000);
    manager_->select({2999});
    ASSERT_TRUE(findsPaths({picture(2999)}));
    EXPECT_EQ(callsAtRest({picture(2999)}),
              (std::vector<std::string>{"1 GetState", "1 Name", "3099 GetState", "3099 Name"}));
}

// Nobody waits for a reading that no change has caused.
TEST_F(AccessibilitySelectionTest, readsAgainFromTimeToTimeInTheEventLoop)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(findsPaths({picture(3)}));
    const std::string reading = "4 GetSelectedChild";
    std::vector<std::string> inBetween;
    EXPECT_TRUE(waitFor([&] {
        for (std::string& call : takeCalls()) inBetween.push_back(std::move(call));
        EXPECT_EQ(source_->selectedPaths(), Paths{picture(3)});
        const std::vector<std::string> waitedFor = takeCalls();
        EXPECT_EQ(std::count(waitedFor.begin(), waitedFor.end(), reading), 0);
        return std::count(inBetween.begin(), inBetween.end(), reading) > 0;
    }));
}

TEST_F(AccessibilitySelectionTest, makesNoCallsForABurstOfEvents)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(findsPaths({picture(3)}));
    int received = 0;
    QObject::connect(tracker_.get(), &FrameTracker::selectionMayHaveChanged, [&] { received++; });
    (void)takeCalls();
    for (int i = 0; i < 500; i++)
        manager_->emitEvent(kFirstItem + i % 12, "StateChanged", "selected", 0);
    ASSERT_TRUE(waitFor([&] { return received == 500; }));
    // One of the regular readings in the event loop may have happened meanwhile.
    EXPECT_LT(takeCalls().size(), 20U);
    EXPECT_TRUE(findsPaths({picture(3)}));
}

TEST_F(AccessibilitySelectionTest, pausesAProgramThatDoesNotReply)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(findsPaths({picture(3)}));
    (void)takeCalls();
    manager_->setReplying(false);
    for (int tick = 0; tick < 4; tick++) EXPECT_EQ(source_->selectedPaths(), Paths());
    manager_->setReplying(true);
    const std::vector<std::string> calls = takeCalls();
    EXPECT_EQ(std::count(calls.begin(), calls.end(), std::to_string(kFrame) + " GetState"), 1);
    EXPECT_TRUE(findsPaths({picture(3)}));
}
}  // namespace
