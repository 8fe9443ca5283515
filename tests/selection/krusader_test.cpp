// Krusader as it is on the accessibility bus: two panels, each with a view of cells and a row of
// tabs, and one status bar.

#include "selection/managers/krusader.h"

#include "selection/file_manager_kind.h"
#include "selection/frame_reader.h"
#include "tests/selection/fake_file_manager.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <QDBusConnection>

#include <chrono>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::FakeFileManager;
using test::FakeObject;
using Paths = std::optional<std::vector<std::string>>;

constexpr auto kLimit = 30s;  // no measure of speed
constexpr int kPanels = 50;
constexpr int kStatus = 51;
// The objects of a panel, from its number on.
constexpr int kLeft = 60;
constexpr int kRight = 80;
constexpr int kTree = 1;
constexpr int kHeader = 10;
constexpr int kTabs = 2;
constexpr int kTab = 3;
constexpr int kFirst = 4;  // cell, with the ending beside it
constexpr int kSecond = 6;

constexpr States bit(State state)
{
    return States{1} << static_cast<unsigned>(state);
}

// Both panels show a folder with a.jpg, a.nef and b.jpg; c.jpg is in that of the right one alone.
class Krusader : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        std::filesystem::create_directory(folder_.file("left"));
        std::filesystem::create_directory(folder_.file("right"));
        for (const char* name : {"left/a.jpg", "left/a.nef", "left/b.jpg", "right/a.jpg",
                                 "right/a.nef", "right/b.jpg", "right/c.jpg"})
            (void)folder_.write(name, "x");
        manager_ = std::make_unique<FakeFileManager>(FakeFileManager::Kind::states, folder_.path(),
                                                     std::vector<QString>{});
        manager_->change(FakeFileManager::kFrame,
                         [](FakeObject& frame) { frame.children.clear(); });
        add(kPanels, FakeFileManager::kFrame, Role::splitPane);
        add(kStatus, FakeFileManager::kFrame, Role::statusBar);
        // Says how many columns a view has.
        manager_->change(FakeFileManager::kFirstItem, [](FakeObject& row) { row.cells = {0}; });
        addPanel(kLeft, folder_.file("left"));
        addPanel(kRight, folder_.file("right"));
    }

    void describe(const char* text)
    {
        manager_->change(kStatus, [text](FakeObject& bar) { bar.name = QString::fromUtf8(text); });
    }

    void setFolder(int panel, const std::string& address)
    {
        manager_->change(panel + kTab,
                         [&](FakeObject& tab) { tab.name = QString::fromStdString(address); });
    }

    // What a reader finds that has heard of the focus of that object, and of nothing else; 0 for
    // none.
    Paths paths(int focused)
    {
        FrameReader frame(manager_->object(FakeFileManager::kFrame), *fileManagerKind("krusader"),
                          1, false);
        if (focused != 0) frame.noteFocus(manager_->object(focused));
        DBusQuery query(QDBusConnection::sessionBus(), kLimit);
        query.start(frame.findAndRead(query));
        EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
        return frame.paths();
    }

    Paths pathOf(const char* name) const { return std::vector{folder_.file(name)}; }

    const test::TemporaryFolder folder_;
    std::unique_ptr<FakeFileManager> manager_;

private:
    void add(int number, int parent, Role role, const char* name = "", States states = 0)
    {
        const States shown = bit(State::showing) | bit(State::visible);
        manager_->change(number, [&](FakeObject& object) {
            object = {.role = role,
                      .states = shown | states,
                      .name = QString::fromUtf8(name),
                      .parent = parent};
        });
        manager_->change(parent,
                         [number](FakeObject& object) { object.children.push_back(number); });
    }

    // The cursor is at both of its items, as nobody asks for more than the last that had the focus.
    void addPanel(int panel, const std::string& folder)
    {
        add(panel, kPanels, Role::filler);
        add(panel + kTree, panel, Role::tree);
        manager_->change(panel + kTree,
                         [](FakeObject& tree) { tree.interfaces = {"org.a11y.atspi.Table"}; });
        for (const int header : {kHeader, kHeader + 1})
            add(panel + header, panel + kTree, Role::tableCell);
        add(panel + kTabs, panel, Role::pageTabList);
        add(panel + kTab, panel + kTabs, Role::pageTab, folder.c_str(), bit(State::focused));
        for (const int cell : {kFirst, kSecond}) {
            add(panel + cell, panel + kTree, Role::listItem, cell == kFirst ? "a" : "b",
                bit(State::focused));
            add(panel + cell + 1, panel + kTree, Role::listItem, "jpg");
        }
    }
};
}  // namespace

TEST_F(Krusader, isFollowedIfOnlyOneOfItsFoldersHasTheItem)
{
    describe("c.jpg  (1 B)  JPEG image");
    EXPECT_EQ(paths(0), pathOf("right/c.jpg"));
    setFolder(kLeft, folder_.file("right"));
    EXPECT_EQ(paths(0), pathOf("right/c.jpg"));
}

TEST_F(Krusader, isFollowedInThePanelOfTheItemThatGotTheFocus)
{
    describe("a.jpg  (1 B)  JPEG image");
    EXPECT_EQ(paths(0), std::nullopt);
    EXPECT_EQ(paths(kLeft + kFirst), pathOf("left/a.jpg"));
    EXPECT_EQ(paths(kRight + kFirst), pathOf("right/a.jpg"));
}

// The view gets the focus when its panel comes into use.
TEST_F(Krusader, isFollowedInThePanelOfTheViewThatGotTheFocus)
{
    describe("b.jpg  (1 B)  JPEG image");
    for (const int panel : {kLeft, kRight})
        manager_->change(panel + kFirst, [](FakeObject& cell) { cell.states = 0; });
    EXPECT_EQ(paths(kLeft + kTree), pathOf("left/b.jpg"));
    EXPECT_EQ(paths(kRight + kTree), pathOf("right/b.jpg"));
    describe("a.jpg  (1 B)  JPEG image");
    EXPECT_EQ(paths(kRight + kTree), std::nullopt) << "another panel has come into use";
}

// The status bar changes before the focus does.
TEST_F(Krusader, isNotFollowedWhileTheFocusIsAtAnItemOfAnotherName)
{
    describe("b.jpg  (1 B)  JPEG image");
    EXPECT_EQ(paths(kLeft + kFirst), std::nullopt);
    EXPECT_EQ(paths(kLeft + kSecond), pathOf("left/b.jpg"));
    describe("a.nef  (1 B)  Nikon NEF raw image");
    EXPECT_EQ(paths(kLeft + kFirst), std::nullopt);
    manager_->change(kLeft + kFirst + 1, [](FakeObject& cell) { cell.name = "nef"; });
    EXPECT_EQ(paths(kLeft + kFirst), pathOf("left/a.nef"));
}

TEST_F(Krusader, isNotFollowedAtAnItemThatHasLostTheFocus)
{
    describe("a.jpg  (1 B)  JPEG image");
    manager_->change(kLeft + kFirst, [](FakeObject& cell) { cell.states = 0; });
    EXPECT_EQ(paths(kLeft + kFirst), std::nullopt);
}

TEST_F(Krusader, isFollowedBesideAFolderThatIsNotLocalOnlyWhereTheFocusIs)
{
    describe("c.jpg  (1 B)  JPEG image");
    setFolder(kLeft, "ftp://example.org/pictures");
    EXPECT_EQ(paths(0), std::nullopt);
    describe("a.jpg  (1 B)  JPEG image");
    EXPECT_EQ(paths(kRight + kFirst), pathOf("right/a.jpg"));
    EXPECT_EQ(paths(kLeft + kFirst), std::nullopt);
}

TEST_F(Krusader, hasNothingSelectedAtTheItemThatLeadsToTheFolderAbove)
{
    describe("Climb up the folder tree");
    EXPECT_EQ(paths(kLeft + kFirst), std::vector<std::string>{});
}

TEST(namesInStatusOfKrusader, areAllThatTheItemMayHave)
{
    const struct {
        const char* status;
        std::vector<QString> names;
    } rows[] = {{"", {}},
                {"Climb up the folder tree", {}},
                {"  (1 B)  JPEG image", {}},
                {"/  folder", {}},
                {"a.jpg  (142 B)  JPEG image", {"a.jpg"}},
                {"a (1).jpg  (142 B)  JPEG image", {"a (1).jpg"}},
                {"a  (1).jpg  (142 B)  JPEG image", {"a", "a  (1).jpg"}},
                {"line\nfeed.jpg  (142 B)  ", {"line\nfeed.jpg"}},
                {"Pictures/  folder", {"Pictures"}},
                {"b.jpg -> a.jpg  JPEG image (Link)", {"b.jpg"}},
                {"b.jpg -> gone  (Broken Link)", {"b.jpg -> gone", "b.jpg"}},
                {"a -> b.jpg  (142 B)  JPEG image", {"a -> b.jpg", "a"}},
                {"2024  (old)/  folder", {"2024", "2024  (old)"}},
                {"a.cpp  (142 B)  C/C++ source", {"a.cpp"}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.status);
        EXPECT_EQ(namesInStatusOfKrusader(QString::fromUtf8(row.status)), row.names);
    }
}
