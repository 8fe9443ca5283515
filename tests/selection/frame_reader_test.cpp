#include "selection/frame_reader.h"

#include "base/file_uri.h"
#include "selection/file_manager_kind.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <QDBusConnection>

#include <algorithm>
#include <chrono>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::FakeFileManager;
using Kind = FakeFileManager::Kind;

constexpr auto kLimit = 10s;  // no test comes near it

// Two queries about one window: while one of them waits, the other finds that the window has
// changed.
class FrameReaderTest : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
    }

    void find(Kind kind, const char* process,
              const std::vector<QString>& names = {QStringLiteral("a.jpg")})
    {
        for (const QString& name : names) (void)folder_.write(name.toStdString(), "x");
        manager_ = std::make_unique<FakeFileManager>(kind, folder_.path(), names);
        if (isGtk4_) manager_->useObjectsOfGtk4();
        frame_ = std::make_unique<FrameReader>(manager_->object(FakeFileManager::kFrame),
                                               *fileManagerKind(process), process_, false);
        findAgain();
        ASSERT_TRUE(frame_->isFound());
    }

    void hideRows()
    {
        manager_->change(FakeFileManager::kView,
                         [](test::FakeObject& view) { view.hidesRows = true; });
    }

    void findAgain()
    {
        DBusQuery query(QDBusConnection::sessionBus(), kLimit);
        query.start(frame_->findAndRead(query));
        ASSERT_TRUE(query.runUntil(Clock::now() + kLimit));
    }

    void readWithAnotherQuery()
    {
        DBusQuery query(QDBusConnection::sessionBus(), kLimit);
        query.start(frame_->read(query));
        ASSERT_TRUE(query.runUntil(Clock::now() + kLimit));
        roundTrips_ = query.roundTrips();
    }

    // Selects an item and reads the window as after an event about it.
    void selectAndRead(int place)
    {
        const Accessible item = manager_->object(FakeFileManager::kFirstItem + place);
        manager_->select({place});
        frame_->noteFocus(item);
        frame_->noteSelected(item);
        readWithAnotherQuery();
    }

    pid_t process_ = 1;
    int roundTrips_ = 0;  // of the last reading
    bool isGtk4_ = false;
    test::TemporaryFolder folder_;
    std::unique_ptr<FakeFileManager> manager_;
    std::unique_ptr<FrameReader> frame_;
    DBusQuery query_{QDBusConnection::sessionBus(), kLimit};
};

TEST_F(FrameReaderTest, readLeavesAWindowForgottenThatWasForgottenMeanwhile)
{
    find(Kind::selection, "nemo");
    manager_->select({0});
    query_.start(frame_->read(query_));
    frame_->forget();
    ASSERT_TRUE(query_.runUntil(Clock::now() + kLimit));
    EXPECT_FALSE(frame_->isFound());
    EXPECT_EQ(frame_->paths(), std::nullopt);
}

TEST_F(FrameReaderTest, readLeavesAStatusBarForgottenThatWasForgottenMeanwhile)
{
    find(Kind::statusBar, "thunar");
    manager_->change(FakeFileManager::kStatusBar,
                     [](test::FakeObject& bar) { bar.name = "\"a.jpg\""; });
    frame_->markStale();
    readWithAnotherQuery();
    ASSERT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
    // Of a window that was read a moment ago, only the title and the status bar are read again.
    query_.start(frame_->read(query_));
    frame_->forget();
    ASSERT_TRUE(query_.runUntil(Clock::now() + kLimit));
    EXPECT_FALSE(frame_->isFound());
    EXPECT_EQ(frame_->paths(), std::nullopt);
}

TEST_F(FrameReaderTest, revalidateComparesTheRepliesWithTheValidatorsThatItSent)
{
    find(Kind::selection, "nemo");
    ASSERT_FALSE(frame_->isStale());
    query_.start(frame_->revalidate(query_));
    // One selected item has more validators than none.
    manager_->select({0});
    readWithAnotherQuery();
    ASSERT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
    ASSERT_TRUE(query_.runUntil(Clock::now() + kLimit));
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
}

TEST_F(FrameReaderTest, readFindsThePathInAFolderThatIsKnownTwice)
{
    find(Kind::selection, "nemo");
    manager_->select({0});
    frame_->noteFolder(folder_.path());
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
}

// As two memory cards have them, in the two panes of one window.
TEST_F(FrameReaderTest, readFindsNoPathInTwoFoldersOfOneName)
{
    find(Kind::selection, "nemo");
    manager_->select({0});
    const std::string name = folder_.path().substr(folder_.path().rfind('/'));
    ASSERT_EQ(mkdir(folder_.file(name.substr(1)).c_str(), 0700), 0);
    frame_->noteFolder(folder_.path() + name);
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
    folder_.write(name.substr(1) + "/a.jpg", "x");
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::nullopt);
}

TEST_F(FrameReaderTest, readTakesTheFoldersThatNautilusPublishes)
{
    process_ = getpid();
    find(Kind::selection, "nautilus");
    manager_->select({0});
    readWithAnotherQuery();
    ASSERT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")})
        << "it publishes none: its path bar";

    ASSERT_EQ(mkdir(folder_.file("Pictures").c_str(), 0700), 0);
    const std::string other = folder_.write("Pictures/a.jpg", "x");
    const QString folder = QString::fromStdString(fileURIOfPath(folder_.path()));
    const QString trash = QStringLiteral("trash:///");
    const struct {
        const char* name;
        std::vector<QStringList> windows;
        std::optional<std::vector<std::string>> paths;
    } rows[] = {
        {"one window", {{folder}}, {{folder_.file("a.jpg")}}},
        {"the one with its title", {{folder}, {folder, folder + "/Pictures"}}, {{other}}},
        {"not the Trash", {{trash}}, std::nullopt},
        {"perhaps the Trash", {{trash}, {folder}}, std::nullopt},
        {"no window", {}, std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        manager_->publishWindows(row.windows);
        frame_->markStale();
        readWithAnotherQuery();
        EXPECT_EQ(frame_->paths(), row.paths);
    }
}

// As in Nautilus 48, whose tabs behind the one in front still reply as if they were visible.
TEST_F(FrameReaderTest, readForgetsAViewWhoseGtk4ContainerIsNoLongerInFront)
{
    constexpr int kTab = 2;  // the container of the view
    isGtk4_ = true;
    find(Kind::selection, "nautilus");
    manager_->select({0});
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});

    std::vector<int> children;
    manager_->change(kTab, [&](test::FakeObject& tab) { tab.children.swap(children); });
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_FALSE(frame_->isFound());
    findAgain();
    EXPECT_FALSE(frame_->isFound());

    manager_->change(kTab, [&](test::FakeObject& tab) { tab.children.swap(children); });
    findAgain();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
}

// As in Nautilus 43, where the window is showing but no view ever says so.
TEST_F(FrameReaderTest, readLooksWhatIsAtAPointOfTheWindowIfTheViewsDoNotSayThatTheyAreShowing)
{
    isGtk4_ = true;
    find(Kind::selection, "nautilus");
    manager_->change(FakeFileManager::kView, [](test::FakeObject& view) {
        view.states &= ~(States{1} << static_cast<unsigned>(State::showing));
    });
    (void)manager_->takeCalls();
    frame_->markStale();
    readWithAnotherQuery();
    const std::vector<std::string> calls = manager_->takeCalls();
    EXPECT_NE(std::find(calls.begin(), calls.end(),
                        std::to_string(FakeFileManager::kView) + " GetExtents"),
              calls.end());
    EXPECT_FALSE(frame_->isFound()) << "the stand-in has no objects at points";
}

// As in Nautilus 48.
TEST_F(FrameReaderTest, readKeepsThePathOfAnItemThatLosesItsNameWhenItIsScrolledOutOfView)
{
    find(Kind::selection, "nautilus");
    const auto rename = [this](const char* name) {
        manager_->change(FakeFileManager::kFirstItem,
                         [name](test::FakeObject& item) { item.name = QLatin1String(name); });
        frame_->markStale();
        readWithAnotherQuery();
    };
    manager_->select({0});
    rename("");
    EXPECT_EQ(frame_->paths(), std::nullopt) << "it has never had a name";
    rename("a.jpg");
    rename("");
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
    ASSERT_EQ(unlink(folder_.file("a.jpg").c_str()), 0);
    rename("");
    EXPECT_EQ(frame_->paths(), std::nullopt);
}

// Nautilus replies only between two frames that it draws, so each round trip costs it a frame.
TEST_F(FrameReaderTest, readNeedsOneRoundTripOnceItHasReadTheWindow)
{
    struct Row {
        const char* name;
        Kind kind;
        const char* process;
        bool isGtk4;
        int roundTrips;
    };
    const Row rows[] = {
        {"icons of Nautilus", Kind::selection, "nautilus", true, 1},
        {"icons of Nemo", Kind::selection, "nemo", false, 1},
        {"list of Nemo, whose cells are known only after the row", Kind::table, "nemo", false, 2},
        {"Dolphin", Kind::states, "dolphin", false, 1},
    };
    process_ = getpid();
    for (const Row& row : rows) {
        SCOPED_TRACE(row.name);
        isGtk4_ = row.isGtk4;
        frame_.reset();
        manager_.reset();
        find(row.kind, row.process, {"a.jpg", "b.jpg", "c.jpg"});
        if (row.kind == Kind::states) {
            manager_->claimOneSelected();
            findAgain();
        }
        selectAndRead(0);
        for (const int place : {1, 2, 1}) {
            const char* name = place == 1 ? "b.jpg" : "c.jpg";
            selectAndRead(place);
            EXPECT_EQ(roundTrips_, row.roundTrips);
            EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file(name)});
        }
    }
}

// As in the icons of Nautilus, whose names are labels.
TEST_F(FrameReaderTest, readNeedsASecondRoundTripForANameInsideTheItem)
{
    find(Kind::selection, "nautilus", {"a.jpg", "b.jpg"});
    for (const int place : {0, 1}) manager_->moveNameInside(place);
    selectAndRead(0);
    selectAndRead(1);
    EXPECT_EQ(roundTrips_, 2);
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("b.jpg")});
}

// As in the detailed list of PCManFM-Qt 1.2, whose status bar changes half a second after the
// selection.
TEST_F(FrameReaderTest, readAsksForTheRowsBesideAStatusBarThatIsLate)
{
    std::vector<QString> names;
    for (int i = 0; i < 500; i++) names.push_back(QString::number(i));
    find(Kind::states, "pcmanfm-qt", names);
    manager_->addStatusBar(QStringLiteral("\"3\""));
    findAgain();
    (void)manager_->takeCalls();
    selectAndRead(1);
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("1")});
    EXPECT_LT(manager_->takeCalls().size(), 40U) << "not each of the items";
    manager_->select({1, 2});
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), (std::vector<std::string>{folder_.file("1"), folder_.file("2")}));
    manager_->select({});
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{}) << "it has reported rows before";
}

// As in the icons of PCManFM-Qt 1.2.
TEST_F(FrameReaderTest, readAsksTheItemsBesideAStatusBarThatIsLate)
{
    find(Kind::states, "pcmanfm-qt", {"a.jpg", "b.jpg", "c.jpg"});
    hideRows();
    manager_->addStatusBar(QStringLiteral("\"a.jpg\" (1 byte)"));
    findAgain();
    selectAndRead(1);
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("b.jpg")});
    manager_->select({1, 2});
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(),
              (std::vector<std::string>{folder_.file("b.jpg"), folder_.file("c.jpg")}));
    manager_->select({});
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")})
        << "no item says that it is selected";
}

// Asking each of them would keep the file manager busy.
TEST_F(FrameReaderTest, readTakesTheStatusBarsWordForALargeFolder)
{
    std::vector<QString> names;
    for (int i = 0; i < 129; i++) names.push_back(QString::number(i));
    find(Kind::states, "pcmanfm-qt", names);
    hideRows();
    manager_->addStatusBar(QStringLiteral("\"3\""));
    findAgain();
    (void)manager_->takeCalls();
    selectAndRead(1);
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("3")});
    EXPECT_LT(manager_->takeCalls().size(), 20U);
}

TEST_F(FrameReaderTest, readTrustsTheViewAndNotTheEvent)
{
    find(Kind::selection, "nemo", {"a.jpg", "b.jpg", "c.jpg"});
    selectAndRead(0);
    manager_->select({2});
    frame_->noteSelected(manager_->object(FakeFileManager::kFirstItem + 1));
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("c.jpg")});
}

// The replies may be older than the change.
TEST_F(FrameReaderTest, readStaysStaleIfAChangeIsReportedAfterItHasAskedAhead)
{
    find(Kind::selection, "nemo", {"a.jpg", "b.jpg"});
    selectAndRead(0);
    ASSERT_FALSE(frame_->isStale());
    frame_->markStale();
    frame_->askAhead(query_);
    manager_->select({1});
    frame_->noteSelected(manager_->object(FakeFileManager::kFirstItem + 1));
    query_.start(frame_->read(query_));
    ASSERT_TRUE(query_.runUntil(Clock::now() + kLimit));
    EXPECT_TRUE(frame_->isStale());
    readWithAnotherQuery();
    EXPECT_FALSE(frame_->isStale());
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("b.jpg")});
}

TEST_F(FrameReaderTest, readIgnoresTheFoldersOfAnotherProcess)
{
    find(Kind::selection, "nautilus");
    manager_->publishWindows({{QStringLiteral("file:///")}});
    manager_->select({0});
    frame_->markStale();
    readWithAnotherQuery();
    EXPECT_EQ(frame_->paths(), std::vector<std::string>{folder_.file("a.jpg")});
}
}  // namespace
