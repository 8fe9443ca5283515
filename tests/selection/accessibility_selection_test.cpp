#include "selection/accessibility_selection.h"

#include "tests/selection/accessibility_fixture.h"

#include <sys/stat.h>

#include <cstdio>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using test::AccessibilitySelectionTest;
using test::FakeFileManager;
using Kind = FakeFileManager::Kind;
using Paths = std::vector<std::string>;

constexpr int kFrame = FakeFileManager::kFrame;
constexpr int kFirstItem = FakeFileManager::kFirstItem;
constexpr int kStatusBar = FakeFileManager::kStatusBar;

TEST_F(AccessibilitySelectionTest, readsTheItemsThatTheViewReports)
{
    follow(Kind::selection, "nemo", 4);
    manager_->select({2});
    EXPECT_TRUE(findsPaths({picture(2)}));
    manager_->select({1, 3});
    EXPECT_TRUE(findsPaths({picture(1), picture(3)}));
    manager_->select({});
    EXPECT_TRUE(findsPaths({}));
}

TEST_F(AccessibilitySelectionTest, readsTheItemsThatReportTheStateSelected)
{
    follow(Kind::states, "dolphin", 4);
    manager_->select({2});
    EXPECT_TRUE(findsPaths({picture(2)}));
    manager_->select({1});
    EXPECT_TRUE(findsPaths({picture(1)}));
}

TEST_F(AccessibilitySelectionTest, readsTheNameInTheStatusBar)
{
    follow(Kind::statusBar, "thunar", 4);
    const auto setStatus = [this](const QString& text) {
        manager_->change(kStatusBar, [&](test::FakeObject& bar) { bar.name = text; });
    };
    setStatus("\"2.jpg\" (1 byte) JPEG image");
    EXPECT_TRUE(findsPaths({picture(2)}));
    setStatus("\"1.jpg\" (1 byte) JPEG image");
    EXPECT_TRUE(findsPaths({picture(1)}));
    setStatus("2 items selected");
    EXPECT_TRUE(findsPaths({}));
    setStatus("\"3.jpg\" (1 byte) JPEG image");
    EXPECT_TRUE(findsPaths({picture(3)}));
}

TEST_F(AccessibilitySelectionTest, readsTheStatusBarBelowABarePanelOfPCManFM)
{
    constexpr int kScrollPane = 2;  // the container of the view
    follow(Kind::statusBar, "pcmanfm", 2);
    manager_->change(kScrollPane, [](test::FakeObject& pane) { pane.role = Role::scrollPane; });
    manager_->change(FakeFileManager::kView,
                     [](test::FakeObject& view) { view.role = Role::panel; });
    manager_->change(kStatusBar, [](test::FakeObject& bar) { bar.name = "\"1.jpg\" (1 byte)"; });
    EXPECT_TRUE(findsPaths({picture(1)}));
}

TEST_F(AccessibilitySelectionTest, readsARowOfATreeInTheFolderOfItsParents)
{
    ASSERT_EQ(mkdir(folder_.file("A").c_str(), 0700), 0);
    ASSERT_EQ(mkdir(folder_.file("A/B").c_str(), 0700), 0);
    const Paths pictures = {folder_.write("A/B/0.jpg", "x"), folder_.write("A/0.jpg", "x"),
                            folder_.write("0.jpg", "x")};
    follow(Kind::table, "nemo", 0, {"A", "B", "0.jpg", "0.jpg", "0.jpg"});
    const int parents[] = {FakeFileManager::kView, kFirstItem, kFirstItem + 1, kFirstItem,
                           FakeFileManager::kView};
    for (int i = 0; i < 5; i++) {
        manager_->change(kFirstItem + i,
                         [&](test::FakeObject& row) { row.treeParent = parents[i]; });
    }
    for (int i = 0; i < 3; i++) {
        manager_->select({2 + i});
        EXPECT_TRUE(findsPaths({pictures[static_cast<std::size_t>(i)]}));
    }
}

// As the views of Dolphin 25 and PCManFM-Qt 2.1.
TEST_F(AccessibilitySelectionTest, readsTheSelectionOfAQt6ViewThatReportsNoRows)
{
    for (const char* process : {"dolphin", "pcmanfm-qt"}) {
        SCOPED_TRACE(process);
        follow(Kind::table, process, 4);
        manager_->change(FakeFileManager::kView,
                         [](test::FakeObject& view) { view.hidesRows = true; });
        manager_->select({2});
        EXPECT_TRUE(findsPaths({picture(2)}));
        manager_->select({1, 3});
        EXPECT_TRUE(findsPaths({picture(1), picture(3)}));
        manager_->select({});
        EXPECT_TRUE(findsPaths({}));
        manager_->select({0});
        EXPECT_TRUE(findsPaths({picture(0)}));
    }
}

// The detailed list of PCManFM-Qt 2.1 counts each cell of the row.
TEST_F(AccessibilitySelectionTest, readsTheCellsOfOneQt6RowAsOneItem)
{
    follow(Kind::table, "pcmanfm-qt", 1, {"0.jpg", "JPEG image", "1 byte"});
    manager_->change(FakeFileManager::kView, [](test::FakeObject& view) { view.hidesRows = true; });
    manager_->addCell(0, "JPEG image");
    manager_->addCell(0, "1 byte");
    manager_->select({0, 1, 2});
    EXPECT_TRUE(findsPaths({picture(0)}));
}

// Dolphin says only a third of a second after the key that no longer one item is selected.
// Its columns of icons are then as many as the selected items.
TEST_F(AccessibilitySelectionTest, takesNoItemOfSeveralForACellOfTheOnlyOne)
{
    for (const char* process : {"dolphin", "pcmanfm-qt"}) {
        SCOPED_TRACE(process);
        follow(Kind::table, process, 2);
        manager_->addCell(0, "1 byte");
        manager_->change(FakeFileManager::kView, [](test::FakeObject& view) {
            view.hidesRows = true;
            view.hidesLater = true;
        });
        manager_->select({0});
        EXPECT_TRUE(findsPaths({picture(0)}));
        manager_->select({1, 0});
        EXPECT_TRUE(
            waitFor([&] { return source_->selectedPaths().empty() && source_->isKnown(); }));
    }
}

TEST_F(AccessibilitySelectionTest, doesNotTakeASecondItemForTheOnlyOne)
{
    follow(Kind::states, "dolphin", 4);
    manager_->claimOneSelected();
    manager_->select({2});
    ASSERT_TRUE(findsPaths({picture(2)}));
    manager_->select({1, 2});
    for (int tick = 0; tick < 10; tick++) {
        manager_->emitEvent(kFirstItem + 1, "StateChanged", "focused", 1);
        EXPECT_NE(source_->selectedPaths(), Paths{picture(1)});
        test::goOnFor(50);
    }
    manager_->select({1});
    manager_->emitEvent(kFirstItem + 1, "StateChanged", "focused", 1);
    EXPECT_TRUE(findsPaths({picture(1)}));
}

TEST_F(AccessibilitySelectionTest, givesNoPathForARowOfATreeWhoseParentIsUnknown)
{
    folder_.write("0.jpg", "x");
    follow(Kind::table, "caja", 1, {"0.jpg", "0.jpg"});
    manager_->select({0});
    ASSERT_TRUE(findsPaths({picture(0)}));
    manager_->change(kFirstItem + 1, [](test::FakeObject& row) { row.treeParent = 999; });
    manager_->select({1});
    EXPECT_TRUE(waitFor([&] { return source_->selectedPaths().empty() && !source_->isKnown(); }));
}

// As Nemo and Thunar show what a search has found.
TEST_F(AccessibilitySelectionTest, readsAResultOfASearchAtItsLocation)
{
    ASSERT_EQ(mkdir(folder_.file("A").c_str(), 0700), 0);
    const Paths pictures = {folder_.write("0.jpg", "x"), folder_.write("A/0.jpg", "x")};
    const QString folder = QString::fromStdString(folder_.path());
    const QString name = folder.mid(folder.lastIndexOf('/') + 1);
    const struct {
        const char* manager;
        QString title, upper, lower;
    } rows[] = {{"nemo", "Search in \"" + folder + "\"", folder, folder + "/A"},
                {"thunar", name + " - Thunar", name, name + "/A"}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.manager);
        follow(Kind::table, row.manager, 0, {"0.jpg", "0.jpg"});
        manager_->select({0});
        ASSERT_TRUE(findsPaths({pictures[0]})) << "the folder, before the search";
        manager_->change(kFrame, [&](test::FakeObject& frame) { frame.name = row.title; });
        manager_->change(FakeFileManager::kLocation,
                         [](test::FakeObject& entry) { entry.states = 0; });
        manager_->select({});
        manager_->addCell(0, row.upper);
        manager_->addCell(1, row.lower);
        ASSERT_TRUE(findsPaths({}));
        for (int i = 1; i >= 0; i--) {
            manager_->select({i});
            EXPECT_TRUE(findsPaths({pictures[static_cast<std::size_t>(i)]}));
        }
    }
}

TEST_F(AccessibilitySelectionTest, givesNoPathForAnItemOfTheTrashOrOfAHiddenLocation)
{
    follow(Kind::table, "nemo", 1);
    manager_->select({0});
    ASSERT_TRUE(findsPaths({picture(0)}));
    manager_->change(FakeFileManager::kLocation, [](test::FakeObject& entry) { entry.states = 0; });
    manager_->change(kFrame, [](test::FakeObject& frame) { frame.name = "Trash"; });
    EXPECT_TRUE(waitFor([&] { return source_->selectedPaths().empty(); }));
    manager_->addCell(0, QString::fromStdString(folder_.path()));
    for (int i = 0; i < 8; i++) {
        EXPECT_EQ(source_->selectedPaths(), Paths());
        test::goOnFor(200);
    }
}

TEST_F(AccessibilitySelectionTest, givesNoPathForOneOfTwoNamesakes)
{
    ASSERT_EQ(mkdir(folder_.file("A").c_str(), 0700), 0);
    folder_.write("A/0.jpg", "x");
    follow(Kind::states, "dolphin", 2, {"A", "0.jpg", "0.jpg", "1.jpg"});
    manager_->select({3});
    EXPECT_TRUE(findsPaths({picture(1)}));
    for (const int place : {1, 2}) {
        manager_->select({place});
        EXPECT_TRUE(
            waitFor([&] { return source_->selectedPaths().empty() && !source_->isKnown(); }));
    }
    manager_->select({3});
    EXPECT_TRUE(findsPaths({picture(1)}));
}

// The changes above and below come without an event, so only revalidation can find them.
TEST_F(AccessibilitySelectionTest, noticesThatAnItemWasRenamed)
{
    follow(Kind::selection, "nemo", 2);
    manager_->select({1});
    ASSERT_TRUE(findsPaths({picture(1)}));
    const std::string renamed = folder_.write("renamed.jpg", "x");
    manager_->change(kFirstItem + 1, [](test::FakeObject& item) { item.name = "renamed.jpg"; });
    EXPECT_TRUE(findsPaths({renamed}));
}

TEST_F(AccessibilitySelectionTest, isEmptyIfTheFileIsGone)
{
    follow(Kind::selection, "nemo", 2);
    manager_->select({1});
    ASSERT_TRUE(findsPaths({picture(1)}));
    std::remove(picture(1).c_str());
    EXPECT_EQ(source_->selectedPaths(), Paths());
}

TEST_F(AccessibilitySelectionTest, knowsWhetherNothingIsSelectedOrNothingIsKnown)
{
    follow(Kind::selection, "nemo", 3);
    EXPECT_EQ(source_->selectedPaths(), Paths());
    EXPECT_FALSE(source_->isKnown()) << "it has not even connected";
    EXPECT_TRUE(waitFor([&] { return source_->selectedPaths().empty() && source_->isKnown(); }))
        << "nothing is selected";
    manager_->select({0, 1});
    manager_->change(kFirstItem, [](test::FakeObject& item) { item.name = "elsewhere.jpg"; });
    manager_->emitEvent(FakeFileManager::kView, "SelectionChanged", "", 0);
    test::goOnFor(200);
    EXPECT_TRUE(waitFor([&] { return source_->selectedPaths().empty() && source_->isKnown(); }))
        << "several, one of them without a path";
    manager_->select({0});
    EXPECT_TRUE(waitFor([&] { return source_->selectedPaths().empty() && !source_->isKnown(); }))
        << "one without a path";
    manager_->select({1});
    EXPECT_TRUE(findsPaths({picture(1)}) && source_->isKnown());
    manager_->setReplying(false);
    EXPECT_EQ(source_->selectedPaths(), Paths());
    EXPECT_FALSE(source_->isKnown()) << "it does not reply";
    manager_->setReplying(true);
}
}  // namespace
