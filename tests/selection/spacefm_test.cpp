// SpaceFM as it is on the accessibility bus: a tab with a location entry, a view and a status bar.

#include "selection/managers/spacefm.h"

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
using Kind = FakeFileManager::Kind;
using Paths = std::optional<std::vector<std::string>>;

constexpr auto kLimit = 30s;  // no measure of speed
constexpr int kTab = 2;       // the container in the window
constexpr int kScrollPane = 50;

// Of a second panel.
constexpr int kOtherTab = 60;
constexpr int kOtherLocation = 61;
constexpr int kOtherList = 62;
constexpr int kOtherItem = 63;

class SpaceFM : public testing::Test {
protected:
    void SetUp() override
    {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus can be started";
        (void)folder_.write("a.jpg", "x");
        (void)folder_.write("b.jpg", "x");
    }

    // Shows two pictures, of which the first is selected.
    void show(Kind kind)
    {
        manager_ = std::make_unique<FakeFileManager>(
            kind, folder_.path(),
            std::vector<QString>{QStringLiteral("a.jpg"), QStringLiteral("b.jpg")});
        setName(FakeFileManager::kFrame, folder_.path());
        manager_->change(kTab, [](FakeObject& tab) { tab.role = Role::pageTab; });
        if (kind == Kind::statusBar) {
            showIcons();
        } else {
            manager_->select({0});
        }
    }

    void setName(int number, const std::string& name)
    {
        manager_->change(number,
                         [&](FakeObject& object) { object.name = QString::fromStdString(name); });
    }

    // Shows a list beside it, in the same folder, in which the other picture is selected.
    void showListBeside()
    {
        const States shown = statesOf(FakeFileManager::kView);
        add(kOtherTab, {.role = Role::pageTab, .states = shown, .parent = FakeFileManager::kFrame});
        add(kOtherLocation, {.role = Role::text,
                             .states = shown,
                             .name = QString::fromStdString(folder_.path()),
                             .parent = kOtherTab});
        add(kOtherList, {.role = Role::treeTable,
                         .states = shown,
                         .interfaces = {"org.a11y.atspi.Selection", "org.a11y.atspi.Table"},
                         .parent = kOtherTab,
                         .selected = {0}});
        add(kOtherItem, {.role = Role::tableCell,
                         .states = shown,
                         .name = QStringLiteral("b.jpg"),
                         .parent = kOtherList});
    }

    // Gives the focus to the first of the two objects and takes it from the other one.
    void setFocus(int number, int other)
    {
        const States focused = States{1} << static_cast<unsigned>(State::focused);
        manager_->change(number, [&](FakeObject& object) { object.states |= focused; });
        manager_->change(other, [&](FakeObject& object) { object.states &= ~focused; });
    }

    // What a reader of the window finds that has not seen it before.
    Paths paths()
    {
        FrameReader frame(manager_->object(FakeFileManager::kFrame), *fileManagerKind("spacefm"), 1,
                          false);
        DBusQuery query(QDBusConnection::sessionBus(), kLimit);
        query.start(frame.findAndRead(query));
        EXPECT_TRUE(query.runUntil(Clock::now() + kLimit));
        return frame.paths();
    }

    Paths pathOfFirst() const { return std::vector{folder_.file("a.jpg")}; }
    Paths pathOfSecond() const { return std::vector{folder_.file("b.jpg")}; }

    const test::TemporaryFolder folder_;
    std::unique_ptr<FakeFileManager> manager_;

private:
    States statesOf(int number)
    {
        States states = 0;
        manager_->change(number, [&](const FakeObject& object) { states = object.states; });
        return states;
    }

    void add(int number, const FakeObject& object)
    {
        manager_->change(number, [&](FakeObject& added) { added = object; });
        manager_->change(object.parent,
                         [number](FakeObject& parent) { parent.children.push_back(number); });
    }

    // A bare panel in a scroll pane, and the status bar below.
    void showIcons()
    {
        States shown = 0;
        manager_->change(FakeFileManager::kView, [&](FakeObject& view) {
            shown = view.states;
            view.role = Role::panel;
            view.parent = kScrollPane;
        });
        manager_->change(kScrollPane, [&](FakeObject& pane) {
            pane = {.role = Role::scrollPane, .states = shown, .parent = kTab};
            pane.children = {FakeFileManager::kView};
        });
        manager_->change(kTab, [](FakeObject& tab) {
            tab.children = {FakeFileManager::kLocation, kScrollPane, FakeFileManager::kStatusBar};
        });
        setName(FakeFileManager::kStatusBar, " 58 G free / 252 G   1 / 2 (4.0 K)   a.jpg");
    }
};
}  // namespace

TEST_F(SpaceFM, isFollowedInItsListAndInItsIcons)
{
    for (const Kind kind : {Kind::table, Kind::statusBar}) {
        SCOPED_TRACE(static_cast<int>(kind));
        show(kind);
        EXPECT_EQ(paths(), pathOfFirst());
        setName(FakeFileManager::kLocation, folder_.path() + '/');
        EXPECT_EQ(paths(), pathOfFirst());
    }
}

// Each of the folders has a picture of that name.
TEST_F(SpaceFM, isNotFollowedUnlessTitleAndEntryNameOneFolder)
{
    const std::string other = folder_.file("other");
    std::filesystem::create_directory(other);
    (void)folder_.write("other/a.jpg", "x");
    const struct {
        const char* name;
        std::string title;
        std::string entry;
    } rows[] = {{"a panel that is not in use", other, folder_.path()},
                {"a path that is being typed", folder_.path(), other},
                {"a title of another format", "Pictures", folder_.path()},
                {"an empty entry", folder_.path(), ""}};
    for (const Kind kind : {Kind::table, Kind::statusBar}) {
        show(kind);
        for (const auto& row : rows) {
            SCOPED_TRACE(row.name);
            setName(FakeFileManager::kFrame, row.title);
            setName(FakeFileManager::kLocation, row.entry);
            EXPECT_EQ(paths(), std::nullopt);
        }
    }
}

TEST_F(SpaceFM, isNotFollowedIfTheEntryMayBeThatOfAnotherTab)
{
    show(Kind::table);
    manager_->change(kTab, [](FakeObject& panel) { panel.role = Role::panel; });
    EXPECT_EQ(paths(), std::nullopt);
}

TEST_F(SpaceFM, isFollowedInTheOneOfTwoPanelsThatHasTheFocus)
{
    for (const Kind kind : {Kind::table, Kind::statusBar}) {
        SCOPED_TRACE(static_cast<int>(kind));
        show(kind);
        showListBeside();
        setFocus(kOtherList, FakeFileManager::kView);
        EXPECT_EQ(paths(), pathOfSecond());
        setFocus(FakeFileManager::kView, kOtherList);
        EXPECT_EQ(paths(), pathOfFirst());
    }
}

// A narrow panel has no room for its entry.
TEST_F(SpaceFM, isNotFollowedInAPanelWithoutAnEntry)
{
    for (const Kind kind : {Kind::table, Kind::statusBar}) {
        SCOPED_TRACE(static_cast<int>(kind));
        show(kind);
        showListBeside();
        manager_->change(FakeFileManager::kLocation, [](FakeObject& entry) { entry.states = 0; });
        manager_->change(FakeFileManager::kView, [](FakeObject& view) { view.size.width = 200; });
        setFocus(FakeFileManager::kView, kOtherList);
        EXPECT_EQ(paths(), std::nullopt);
        setFocus(kOtherList, FakeFileManager::kView);
        EXPECT_EQ(paths(), pathOfSecond());
    }
}

// Which of two panels with the same folder is in use, only their views can say.
TEST_F(SpaceFM, isNotFollowedBesideAPanelWithoutAView)
{
    show(Kind::table);
    showListBeside();
    manager_->change(kOtherList, [](FakeObject& list) { list.interfaces.clear(); });
    EXPECT_EQ(paths(), std::nullopt);
}

TEST_F(SpaceFM, hasNothingSelectedWhileItsStatusBarCountsOtherThanOne)
{
    show(Kind::statusBar);
    for (const char* text : {" 58 G free / 252 G   2", " 58 G free / 252 G   2 / 2 (8.0 K)"}) {
        SCOPED_TRACE(text);
        setName(FakeFileManager::kStatusBar, text);
        EXPECT_EQ(paths(), std::vector<std::string>{});
    }
}

TEST(nameInStatusOfSpaceFM, isThatOfTheOnlySelectedFile)
{
    const struct {
        const char* status;
        const char* name;  // null for none
    } rows[] = {
        {"", nullptr},
        {"a.jpg", nullptr},
        {" 58 G free / 252 G   10", nullptr},
        {" 58 G free / 252 G   2 / 10 (8.0 K)", nullptr},
        {" 58 G free / 252 G   1 / 10 (4.0 K)", nullptr},
        {" 58 G free / 252 G   1 / 10 (4.0 K)   ", nullptr},
        {" 58 G free / 252 G   11 / 12 (8.0 K)   a.jpg", nullptr},
        {" 58 G free / 252 G   1 / 10 (4.0 K)   a.jpg", "a.jpg"},
        {" 58 G frei / 252 G   1 / 10 (4,0 K)   a b.jpg", "a b.jpg"},
        {" 58 G frei / 252 G1 / 10 (4,0 K)   a b.jpg", "a b.jpg"},  // in German
        {" 58 G frei / 252 G11 / 12 (4,0 K)   a.jpg", nullptr},
        {" 58 G frei / 252 G2 / 10 (4,0 K)   a.jpg", nullptr},
        {" 58 G frei / 252 G21 / 30 (4,0 K)   1 / 2 (3 K)   a.jpg", nullptr},
        {" 58 G / 2521 / 10 (4.0 K)   a.jpg", nullptr},
        {" 58 G / 252 G \u0661\u0661 / 12 (4.0 K)   a.jpg", nullptr},
        {" 58 G / 252 G\u06611 / 12 (4.0 K)   a.jpg", nullptr},
        {" 58 G / 252 G 1,1 / 12 (4.0 K)   a.jpg", nullptr},
        {" 58 G / 252 G 1.1 / 12 (4.0 K)   a.jpg", nullptr},
        {"1 / 1 (4.0 K)   a.jpg", "a.jpg"},
        {" 58 G free / 252 G   1 / 10 (4.0 K)    a.jpg", " a.jpg"},
        {" 58 G free / 252 G   1 / 10 (4.0 K)   1 / 2 (3 K)   a.jpg", "1 / 2 (3 K)   a.jpg"},
        {" 58 G free / 252 G   2 / 10 (4.0 K)   1 / 2 (3 K)   a.jpg", nullptr}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.status);
        const auto expected =
            row.name == nullptr ? std::nullopt : std::optional(QString::fromUtf8(row.name));
        EXPECT_EQ(nameInStatusOfSpaceFM(QString::fromUtf8(row.status)), expected);
    }
}
