#include "selection/folder_choice.h"

#include "tests/selection/direct_items.h"
#include "tests/support/environment.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QString>

#include <algorithm>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using testing::ElementsAre;
using testing::IsEmpty;

// A home folder that contains Bilder/Reise/Reise and other/Bilder.
class foldersShown : public testing::Test {
protected:
    foldersShown()
    {
        for (const char* path : {"Bilder/Reise/Reise", "other/Bilder"})
            std::filesystem::create_directories(home_.file(path));
        home_.write("Bilder/a.jpg", "x");
        namedFolders_ = {{QStringLiteral("Home"), home_.path()},
                         {QStringLiteral("Bilder"), home_.file("Bilder")}};
    }

    std::vector<std::string> shown(const FolderHints& hints) const
    {
        return test::directly([&](KnownItems& items) {
            return pinorama::foldersShown(items, hints, namedFolders_, isWatched_);
        });
    }

    // The buttons from the root to `path`, the last one pressed.
    std::vector<RowButton> row(const std::string& path) const
    {
        std::vector<RowButton> buttons = {{QStringLiteral("/")}};
        for (const auto& part : std::filesystem::path(home_.file(path)).relative_path())
            buttons.push_back({QString::fromStdString(part.string())});
        buttons.back().isOn = true;
        return buttons;
    }

    static std::function<bool(const ItemFacts&)> watching(const std::vector<std::string>& folders)
    {
        std::vector<ItemFacts> watched;
        for (const std::string& folder : folders) watched.push_back(factsOfItem(folder));
        return [watched](const ItemFacts& facts) {
            return std::find(watched.begin(), watched.end(), facts) != watched.end();
        };
    }

    test::TemporaryFolder home_;
    std::vector<NamedFolder> namedFolders_;
    std::function<bool(const ItemFacts&)> isWatched_;
};
}  // namespace

TEST_F(foldersShown, isEmptyWithoutHints)
{
    EXPECT_THAT(shown({}), IsEmpty());
}

TEST_F(foldersShown, readsLocationEntries)
{
    const std::string home = home_.path();
    const test::ScopedVariable homeVariable("HOME", home.c_str());
    const struct {
        const char* name;
        std::string text;
        std::vector<std::string> expected;
    } rows[] = {
        {"path", home + "/Bilder", {home + "/Bilder"}},
        {"path with a slash at its end", home + "/Bilder/", {home + "/Bilder"}},
        {"home", "~/Bilder", {home + "/Bilder"}},
        {"home itself", "~", {home}},
        {"URI", "file://" + home + "/Bilder", {home + "/Bilder"}},
        {"root", "/", {"/"}},
        {"half typed", home + "/Bil", {}},
        {"file", home + "/Bilder/a.jpg", {}},
        {"name only", "Bilder", {}},
        {"remote", "sftp://host/Bilder", {}},
        {"empty", "", {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FolderHints hints;
        hints.locations = {QString::fromStdString(row.text)};
        EXPECT_EQ(shown(hints), row.expected);
    }
}

TEST_F(foldersShown, readsAPathBarFromEitherEnd)
{
    for (const bool isReversed : {false, true}) {
        SCOPED_TRACE(isReversed);
        FolderHints hints;
        hints.title = QStringLiteral("Reise");
        hints.rows = {row("Bilder/Reise")};
        if (isReversed) std::reverse(hints.rows[0].begin(), hints.rows[0].end());
        ASSERT_FALSE(shown(hints).empty());
        EXPECT_EQ(shown(hints).front(), home_.file("Bilder/Reise"));
    }
}

TEST_F(foldersShown, aPressedButtonEndsThePath)
{
    FolderHints hints;
    hints.title = QStringLiteral("Bilder");
    hints.rows = {row("Bilder/Reise/Reise")};
    for (RowButton& button : hints.rows[0]) button.isOn = button.name == QLatin1String("Bilder");
    ASSERT_FALSE(shown(hints).empty());
    EXPECT_EQ(shown(hints).front(), home_.file("Bilder"));
}

TEST_F(foldersShown, aPathBarMayBeginWithANamedFolder)
{
    FolderHints hints;
    hints.title = QStringLiteral("Reise");
    hints.rows = {{{QStringLiteral("Bilder")}, {QStringLiteral("Reise")}}};
    ASSERT_FALSE(shown(hints).empty());
    EXPECT_EQ(shown(hints).front(), home_.file("Bilder/Reise"));
}

TEST_F(foldersShown, aFirstButtonOfUnknownNameMayBeAnyNamedFolder)
{
    FolderHints hints;
    hints.title = QStringLiteral("Reise");
    hints.rows = {{{QStringLiteral("Pers\u00f6nlicher Ordner")},
                   {QStringLiteral("Bilder")},
                   {QStringLiteral("Reise")}}};
    EXPECT_THAT(shown(hints), ElementsAre(home_.file("Bilder/Reise")));
}

TEST_F(foldersShown, ignoresRowsOfOtherButtons)
{
    FolderHints hints;
    hints.title = QStringLiteral("Reise");
    hints.rows = {{{QString()}, {QString()}},
                  {{QStringLiteral("Back")}, {QStringLiteral("Forward")}},
                  {{QStringLiteral("Search")}}};
    EXPECT_THAT(shown(hints), IsEmpty());
}

TEST_F(foldersShown, ignoresARowOfMoreThan64Buttons)
{
    FolderHints hints;
    hints.rows = {std::vector<RowButton>(65, {QStringLiteral("tmp")})};
    EXPECT_THAT(shown(hints), IsEmpty());
}

TEST_F(foldersShown, findsFoldersWhoseNamesAreNotUtf8)
{
    std::filesystem::create_directories(home_.file("B\xe4r/Reise"));
    FolderHints hints;
    hints.title = QStringLiteral("Reise");
    hints.rows = {row("Bilder")};
    hints.rows[0].back() = {QStringLiteral("B\ufffdr")};
    hints.rows[0].push_back({QStringLiteral("Reise")});
    ASSERT_FALSE(shown(hints).empty());
    EXPECT_EQ(shown(hints).front(), home_.file("B\xe4r/Reise"));
}

TEST_F(foldersShown, ranksLocationsByTheTitleAndThenByTheWatchedFolder)
{
    FolderHints hints;
    const auto location = [&](const char* name) {
        return QString::fromStdString(home_.file(name));
    };
    hints.locations = {location("other"), location("other/Bilder"), location("Bilder")};
    hints.title = QStringLiteral("Bilder - Thunar");
    EXPECT_THAT(shown(hints),
                ElementsAre(home_.file("other/Bilder"), home_.file("Bilder"), home_.file("other")));
    isWatched_ = watching({home_.file("Bilder")});
    EXPECT_THAT(shown(hints),
                ElementsAre(home_.file("Bilder"), home_.file("other/Bilder"), home_.file("other")));
}

TEST_F(foldersShown, aTitleMayBeThePathOrANamedFolder)
{
    FolderHints hints;
    hints.title = QString::fromStdString(home_.file("other/Bilder"));
    EXPECT_THAT(shown(hints), ElementsAre(home_.file("other/Bilder")));
    hints.title = QStringLiteral("Home - File Manager");
    EXPECT_THAT(shown(hints), ElementsAre(home_.path()));
}

TEST_F(foldersShown, aGuessCountsOnlyIfTheFolderIsWatched)
{
    FolderHints title;
    title.title = QStringLiteral("Home - File Manager");
    FolderHints unknownStart;
    unknownStart.title = QStringLiteral("Reise");
    unknownStart.rows = {
        {{QStringLiteral("?")}, {QStringLiteral("Bilder")}, {QStringLiteral("Reise")}}};
    isWatched_ = watching({});
    EXPECT_THAT(shown(title), IsEmpty());
    EXPECT_THAT(shown(unknownStart), IsEmpty());
    isWatched_ = watching({home_.path(), home_.file("Bilder/Reise")});
    EXPECT_THAT(shown(title), ElementsAre(home_.path()));
    EXPECT_THAT(shown(unknownStart), ElementsAre(home_.file("Bilder/Reise")));
}
