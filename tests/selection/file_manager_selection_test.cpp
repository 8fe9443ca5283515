#include "selection/file_manager_selection.h"

#include "selection/dbus_query.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"

#include <gtest/gtest.h>

#include <QDBusConnection>
#include <QDeadlineTimer>

#include <algorithm>
#include <chrono>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using test::FakeFileManager;
using Paths = std::vector<std::string>;

constexpr int kView = FakeFileManager::kView;

// A file manager that shows four pictures, of which the first is selected. Nobody calls
// selectedPaths() five times a second here, so whatever is found later is found by a look.
class FileManagerSelectionTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        for (int i = 0; i < 4; i++) folder_.write(std::to_string(i) + ".jpg", "x");
        source_.setListener([this](const Paths& paths) { heard_.push_back(paths); });
        manager_.select({0});
        ASSERT_TRUE(findsTheFirst());
    }

    // Calls selectedPaths() until it finds the first picture. Two seconds later the source sleeps.
    bool findsTheFirst()
    {
        const QDeadlineTimer limit(test::kPatience);
        while (source_.selectedPaths() != Paths{picture(0)}) {
            if (limit.hasExpired()) return false;
            test::goOnFor(40);
        }
        // It may have found windows and read them meanwhile.
        test::goOnFor(200);
        heard_.clear();
        (void)manager_.takeCalls();
        return true;
    }

    void callAgain()
    {
        calls_++;
        (void)source_.selectedPaths();
    }

    // Whether the listener hears of these paths after a report. A machine that stalls for two
    // seconds gets another chance.
    bool hears(const Paths& paths)
    {
        const QDeadlineTimer limit(test::kPatience);
        do {
            callAgain();
            reportChange();
            for (int i = 0; i < 50 && (heard_.empty() || heard_.back() != paths); i++)
                test::goOnFor(20);
        } while ((heard_.empty() || heard_.back() != paths) && !limit.hasExpired());
        return !heard_.empty() && heard_.back() == paths;
    }

    void reportChange() { manager_.emitEvent(kView, "SelectionChanged", "", 0); }

    // Each look, and each call of selectedPaths(), asks the window once whether it is active.
    std::ptrdiff_t looks() const
    {
        return std::count(received_.begin(), received_.end(), "1 GetState");
    }
    void takeCalls()
    {
        for (std::string& call : manager_.takeCalls()) received_.push_back(std::move(call));
    }

    std::string picture(int number) const { return folder_.file(std::to_string(number) + ".jpg"); }

    test::TemporaryFolder folder_;
    FakeFileManager manager_{FakeFileManager::Kind::selection,
                             folder_.path(),
                             {QStringLiteral("0.jpg"), QStringLiteral("1.jpg"),
                              QStringLiteral("2.jpg"), QStringLiteral("3.jpg")}};
    // Here a busy machine has more time than a user has patience.
    FileManagerSelection source_{[](pid_t) { return fileManagerKind("nemo"); },
                                 std::chrono::milliseconds(300)};
    std::vector<Paths> heard_;
    int calls_ = 0;                      // of selectedPaths()
    std::vector<std::string> received_;  // by the file manager
};

TEST_F(FileManagerSelectionTest, looksAtOnceWhenAChangeIsReported)
{
    manager_.select({2});
    EXPECT_TRUE(hears({picture(2)}));
    manager_.select({1, 3});
    EXPECT_TRUE(hears({picture(1), picture(3)}));
    manager_.select({});
    EXPECT_TRUE(hears({}));
}

TEST_F(FileManagerSelectionTest, doesNotLookAtRest)
{
    test::goOnFor(300);
    takeCalls();
    EXPECT_EQ(looks(), 0);
    EXPECT_EQ(heard_, std::vector<Paths>());
}

TEST_F(FileManagerSelectionTest, looksAtMostFiftyTimesASecondDuringAFlood)
{
    using namespace std::chrono_literals;
    const Clock::time_point begin = Clock::now();
    for (int i = 0; i < 100; i++) {
        for (int j = 0; j < 100; j++) reportChange();
        QCoreApplication::processEvents();
        if (i % 20 == 0) callAgain();
    }
    manager_.select({3});
    ASSERT_TRUE(hears({picture(3)}));
    const auto elapsed = Clock::now() - begin;
    takeCalls();
    EXPECT_GT(looks(), calls_);
    EXPECT_LE(looks(), calls_ + elapsed / 20ms + 1);
}

TEST_F(FileManagerSelectionTest, hasOneLookInFlight)
{
    manager_.pauseOnCall("1 GetState");
    reportChange();
    ASSERT_TRUE(test::waitUntil([&] { return manager_.hasPaused(); }));
    for (int i = 0; i < 1000; i++) reportChange();
    test::goOnFor(100);
    manager_.setReplying(true);  // and handles the calls that wait
    takeCalls();
    EXPECT_EQ(looks(), 1);
}

TEST_F(FileManagerSelectionTest, looksOnceMoreWhenAChangeIsReportedDuringALook)
{
    manager_.pauseOnCall("1 GetState");
    reportChange();
    ASSERT_TRUE(test::waitUntil([&] { return manager_.hasPaused(); }));
    for (int i = 0; i < 3; i++) reportChange();
    manager_.waitUntilSent();
    test::goOnFor(100);
    manager_.setReplying(true);
    ASSERT_TRUE(test::waitUntil([&] {
        takeCalls();
        return looks() >= 2;
    }));
    test::goOnFor(200);
    takeCalls();
    EXPECT_EQ(looks(), 2);
}

// The first event about a change is mostly about the item that was selected before.
TEST_F(FileManagerSelectionTest, asksAboutTheItemOfALaterEventBeforeAnyReplyArrives)
{
    const auto asksAhead = [this] {
        callAgain();
        test::goOnFor(100);
        manager_.pauseOnCall("1 GetState");
        manager_.emitEvent(FakeFileManager::kFirstItem, "StateChanged", "selected", 0);
        if (!test::waitUntil([&] { return manager_.hasPaused(); })) return false;
        (void)manager_.takeCalls();
        manager_.select({2});
        manager_.emitEvent(FakeFileManager::kFirstItem + 2, "StateChanged", "selected", 1);
        manager_.waitUntilSent();
        test::goOnFor(100);
        manager_.setReplying(true);  // and handles the calls that wait
        const std::vector<std::string> calls = manager_.takeCalls();
        return std::count(calls.begin(), calls.end(), "102 Name") > 0;
    };
    const QDeadlineTimer limit(test::kPatience);
    bool hasAsked = false;
    while (!hasAsked && !limit.hasExpired()) hasAsked = asksAhead();
    EXPECT_TRUE(hasAsked);
    EXPECT_TRUE(hears({picture(2)}));
}

// The window calls selectedPaths() also while a look waits for replies.
TEST_F(FileManagerSelectionTest, aCallTakesThePlaceOfTheLookInFlight)
{
    manager_.pauseOnCall("1 GetState");
    reportChange();
    ASSERT_TRUE(test::waitUntil([&] { return manager_.hasPaused(); }));
    manager_.select({1});
    manager_.setReplying(true);
    EXPECT_EQ(source_.selectedPaths(), Paths{picture(1)});
    test::goOnFor(100);
    EXPECT_EQ(heard_, std::vector<Paths>());
}

TEST_F(FileManagerSelectionTest, doesNotLookWithoutAListener)
{
    source_.setListener({});
    for (int i = 0; i < 100; i++) reportChange();
    manager_.waitUntilSent();
    test::goOnFor(200);
    takeCalls();
    EXPECT_EQ(looks(), 0);
    EXPECT_EQ(heard_, std::vector<Paths>());
}

TEST_F(FileManagerSelectionTest, doesNotLookForAListenerThatHasGone)
{
    manager_.pauseOnCall("1 GetState");
    reportChange();
    ASSERT_TRUE(test::waitUntil([&] { return manager_.hasPaused(); }));
    source_.setListener({});
    manager_.setReplying(true);
    test::goOnFor(100);
    EXPECT_EQ(heard_, std::vector<Paths>());
}

TEST_F(FileManagerSelectionTest, doesNotLookWhileNobodyAsks)
{
    test::goOnFor(2500);
    (void)manager_.takeCalls();
    for (int i = 0; i < 100; i++) reportChange();
    manager_.waitUntilSent();
    test::goOnFor(200);
    takeCalls();
    EXPECT_EQ(received_, std::vector<std::string>());
}

// Its view of icons sends no event about the selection, but the status bar that names it does.
TEST_F(FileManagerSelectionTest, looksWhenANameChangesInThunar)
{
    FileManagerSelection source([](pid_t) { return fileManagerKind("thunar"); });
    std::vector<Paths> heard;
    source.setListener([&](const Paths& paths) { heard.push_back(paths); });
    manager_.select({1});
    const QDeadlineTimer limit(test::kPatience);
    while (source.selectedPaths() != Paths{picture(1)} && !limit.hasExpired()) test::goOnFor(40);
    test::goOnFor(200);
    manager_.select({2});
    heard.clear();
    manager_.emitEvent(kView, "PropertyChange", "accessible-name", 0);
    EXPECT_TRUE(test::waitUntil([&] { return !heard.empty(); }));
    EXPECT_EQ(heard, std::vector<Paths>{{picture(2)}});
}

// It replies to no call for a while, so its programs are left alone until one reply arrives.
TEST_F(FileManagerSelectionTest, looksWhenAProgramRepliesAgain)
{
    manager_.setReplying(false);
    manager_.select({2});
    EXPECT_EQ(source_.selectedPaths(), Paths());
    EXPECT_FALSE(source_.isKnown());
    manager_.setReplying(true);
    ASSERT_TRUE(test::waitUntil([&] { return !heard_.empty(); }));
    EXPECT_EQ(heard_.back(), Paths{picture(2)});
}

// It replies late, as one does that is busy, but it does reply.
TEST_F(FileManagerSelectionTest, asksAheadWhileAProgramIsSlow)
{
    source_.setListener({});
    manager_.pauseOnCall("1 GetState");
    manager_.select({3});
    (void)manager_.takeCalls();
    EXPECT_EQ(source_.selectedPaths(), Paths());
    EXPECT_FALSE(source_.isKnown());
    EXPECT_TRUE(manager_.hasPaused());
    manager_.setReplying(true);
    const QDeadlineTimer limit(test::kPatience);
    Paths found;
    while (found.empty() && !limit.hasExpired()) {
        test::goOnFor(40);
        found = source_.selectedPaths();
    }
    EXPECT_EQ(found, Paths{picture(3)});
    EXPECT_TRUE(source_.isKnown());
}

TEST_F(FileManagerSelectionTest, doesNotWaitAgainForAProgramThatDoesNotReply)
{
    using namespace std::chrono_literals;
    constexpr auto kLong = 1500ms;  // a busy machine takes less for what does not wait
    FileManagerSelection source([](pid_t) { return fileManagerKind("nemo"); }, kLong);
    const QDeadlineTimer limit(test::kPatience);
    while (source.selectedPaths() != Paths{picture(0)} && !limit.hasExpired()) test::goOnFor(40);
    manager_.setReplying(false);
    const auto timeOfACall = [&] {
        const Clock::time_point begin = Clock::now();
        EXPECT_EQ(source.selectedPaths(), Paths());
        return Clock::now() - begin;
    };
    EXPECT_GE(timeOfACall(), kLong / 2);
    // After a stall of two seconds it begins anew.
    int waits = 0;
    for (int i = 0; i < 8; i++) {
        test::goOnFor(100);
        if (timeOfACall() >= kLong / 2) waits++;
    }
    EXPECT_LT(waits, 4);
    manager_.setReplying(true);
    EXPECT_TRUE(findsTheFirst());
}
}  // namespace
