#include "selection/accessibility_selection.h"

#include "selection/file_manager_kind.h"
#include "tests/selection/stand_in_file_manager.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>

#include <algorithm>
#include <functional>
#include <memory>
#include <string>

using namespace pinorama;

namespace {
using test::StandInFileManager;
using Kind = StandInFileManager::Kind;
using Paths = std::vector<std::string>;

constexpr int kFrame = StandInFileManager::kFrame;
constexpr int kFirstItem = StandInFileManager::kFirstItem;
constexpr int kStatusBar = StandInFileManager::kStatusBar;

std::vector<QString> pictureNames(int count)
{
    std::vector<QString> names;
    for (int i = 0; i < count; i++) names.push_back(QStringLiteral("%1.jpg").arg(i));
    return names;
}

class SelectedPaths : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
    }

    // Puts a file manager with so many pictures there and follows it.
    void follow(Kind kind, const char* process, int count)
    {
        // Thousands of files take their time to be made, and only those that are selected must
        // exist.
        for (int i = 0; i < count; i++) {
            if (i < 12 || i == count - 1) folder_.write(std::to_string(i) + ".jpg", "x");
        }
        manager_ = std::make_unique<StandInFileManager>(kind, folder_.path(), pictureNames(count));
        tracker_ =
            std::make_unique<FrameTracker>([process](pid_t) { return fileManagerKind(process); });
        source_ = std::make_unique<AccessibilitySelection>(*tracker_);
    }

    // Asks five times a second, as the window does, until the answer is the wanted one.
    bool hears(const Paths& wanted)
    {
        return waitFor([&] { return source_->selectedPaths() == wanted; });
    }

    static bool waitFor(const std::function<bool()>& condition)
    {
        const QDeadlineTimer limit(test::kPatience);
        while (!limit.hasExpired()) {
            if (condition()) return true;
            test::goOnFor(200);
        }
        return false;
    }

    // What is asked of the window for one answer when nothing has changed. Now and then a little
    // more is asked, so that the shortest of several rounds counts.
    std::vector<std::string> questionsAtRest(const Paths& wanted)
    {
        std::vector<std::string> shortest;
        for (int round = 0; round < 5; round++) {
            (void)takeQuestions();
            EXPECT_TRUE(hears(wanted));
            std::vector<std::string> questions = takeQuestions();
            std::sort(questions.begin(), questions.end());
            if (shortest.empty() || questions.size() < shortest.size()) shortest = questions;
        }
        return shortest;
    }

    // Without those that look for windows that came or went.
    std::vector<std::string> takeQuestions()
    {
        std::vector<std::string> questions = manager_->takeQuestions();
        std::erase_if(questions,
                      [](const std::string& question) { return question.starts_with("0 "); });
        return questions;
    }

    std::string picture(int number) const { return folder_.file(std::to_string(number) + ".jpg"); }

    test::TemporaryFolder folder_;
    std::unique_ptr<StandInFileManager> manager_;
    std::unique_ptr<FrameTracker> tracker_;
    std::unique_ptr<AccessibilitySelection> source_;
};

TEST_F(SelectedPaths, areThoseOfTheItemsThatTheViewTells)
{
    follow(Kind::selection, "nemo", 4);
    manager_->select({2});
    EXPECT_TRUE(hears({picture(2)}));
    manager_->select({1, 3});
    EXPECT_TRUE(hears({picture(1), picture(3)}));
    manager_->select({});
    EXPECT_TRUE(hears({}));
}

TEST_F(SelectedPaths, areThoseOfTheItemsThatSaySoThemselves)
{
    follow(Kind::states, "dolphin", 4);
    manager_->select({2});
    EXPECT_TRUE(hears({picture(2)}));
    manager_->select({1});
    EXPECT_TRUE(hears({picture(1)}));
}

TEST_F(SelectedPaths, areWhatTheStatusBarNames)
{
    follow(Kind::statusBar, "thunar", 4);
    const auto say = [this](const QString& text) {
        manager_->change(kStatusBar, [&](test::StandInObject& bar) { bar.name = text; });
    };
    say("\"2.jpg\" (1 byte) JPEG image");
    EXPECT_TRUE(hears({picture(2)}));
    say("\"1.jpg\" (1 byte) JPEG image");
    EXPECT_TRUE(hears({picture(1)}));
    say("2 items selected");
    EXPECT_TRUE(hears({}));
    say("\"3.jpg\" (1 byte) JPEG image");
    EXPECT_TRUE(hears({picture(3)}));
}

// The changes above and below come without a word, so that only asking anew tells of them.
TEST_F(SelectedPaths, followAnItemThatGetsAnotherName)
{
    follow(Kind::selection, "nemo", 2);
    manager_->select({1});
    ASSERT_TRUE(hears({picture(1)}));
    const std::string renamed = folder_.write("renamed.jpg", "x");
    manager_->change(kFirstItem + 1, [](test::StandInObject& item) { item.name = "renamed.jpg"; });
    EXPECT_TRUE(hears({renamed}));
}

TEST_F(SelectedPaths, areNoneWhenTheFileIsGone)
{
    follow(Kind::selection, "nemo", 2);
    manager_->select({1});
    ASSERT_TRUE(hears({picture(1)}));
    std::remove(picture(1).c_str());
    EXPECT_EQ(source_->selectedPaths(), Paths());
}

TEST_F(SelectedPaths, askFiveQuestionsAllAtOnceWhileNothingChanges)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(hears({picture(3)}));
    EXPECT_EQ(questionsAtRest({picture(3)}),
              (std::vector<std::string>{"1 GetState", "1 Name", "103 GetState", "103 Name",
                                        "4 NSelectedChildren"}));
}

TEST_F(SelectedPaths, askTheStatusBarAnewEachTime)
{
    follow(Kind::statusBar, "thunar", 12);
    manager_->change(kStatusBar, [](test::StandInObject& bar) { bar.name = "\"3.jpg\""; });
    ASSERT_TRUE(hears({picture(3)}));
    EXPECT_EQ(questionsAtRest({picture(3)}),
              (std::vector<std::string>{"1 GetState", "1 Name", "5 Name"}));
}

TEST_F(SelectedPaths, askAsLittleInALargeFolder)
{
    follow(Kind::states, "dolphin", 3000);
    manager_->select({2999});
    ASSERT_TRUE(hears({picture(2999)}));
    EXPECT_EQ(questionsAtRest({picture(2999)}),
              (std::vector<std::string>{"1 GetState", "1 Name", "3099 GetState", "3099 Name"}));
}

// Nobody waits for a reading that nothing has called for.
TEST_F(SelectedPaths, areReadAgainFromTimeToTimeInTheEventLoop)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(hears({picture(3)}));
    const std::string reading = "4 GetSelectedChild";
    std::vector<std::string> inBetween;
    EXPECT_TRUE(waitFor([&] {
        for (std::string& question : takeQuestions()) inBetween.push_back(std::move(question));
        EXPECT_EQ(source_->selectedPaths(), Paths{picture(3)});
        const std::vector<std::string> waitedFor = takeQuestions();
        EXPECT_EQ(std::count(waitedFor.begin(), waitedFor.end(), reading), 0);
        return std::count(inBetween.begin(), inBetween.end(), reading) > 0;
    }));
}

TEST_F(SelectedPaths, costNothingForWhatAProgramSaysInBetween)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(hears({picture(3)}));
    int heard = 0;
    QObject::connect(tracker_.get(), &FrameTracker::selectionMayHaveChanged, [&] { heard++; });
    (void)takeQuestions();
    for (int i = 0; i < 500; i++)
        manager_->tell(kFirstItem + i % 12, "StateChanged", "selected", 0);
    ASSERT_TRUE(waitFor([&] { return heard == 500; }));
    // A reading of the kind that comes from time to time may have fallen in between.
    EXPECT_LT(takeQuestions().size(), 20U);
    EXPECT_TRUE(hears({picture(3)}));
}

TEST_F(SelectedPaths, leaveAProgramAloneThatDoesNotAnswer)
{
    follow(Kind::selection, "nemo", 12);
    manager_->select({3});
    ASSERT_TRUE(hears({picture(3)}));
    (void)takeQuestions();
    manager_->setAnswering(false);
    for (int tick = 0; tick < 4; tick++) EXPECT_EQ(source_->selectedPaths(), Paths());
    manager_->setAnswering(true);
    const std::vector<std::string> asked = takeQuestions();
    EXPECT_EQ(std::count(asked.begin(), asked.end(), std::to_string(kFrame) + " GetState"), 1);
    EXPECT_TRUE(hears({picture(3)}));
}
}  // namespace
