#include "selection/item_name.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <QString>

#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

using namespace pinorama;

TEST(nameOfShownItem, findsTheEntryThatIsShownLikeThis)
{
    const struct {
        const char* name;
        std::vector<std::string> entries;
        const char* shown;
        const char* expected;  // null for nothing
    } rows[] = {
        {"the same bytes", {"a.jpg", "b.jpg"}, "b.jpg", "b.jpg"},
        {"no such entry", {"a.jpg"}, "b.jpg", nullptr},
        {"empty folder", {}, "a.jpg", nullptr},
        {"a per cent sign is not an escape", {"a%20b.jpg", "a b.jpg"}, "a%20b.jpg", "a%20b.jpg"},
        {"decomposed, shown composed", {"u\u0308.jpg"}, "\u00fc.jpg", "u\u0308.jpg"},
        {"composed, shown decomposed", {"\u00fc.jpg"}, "u\u0308.jpg", "\u00fc.jpg"},
        {"both exist", {"u\u0308.jpg", "\u00fc.jpg"}, "\u00fc.jpg", "\u00fc.jpg"},
        {"not UTF-8", {"inv\xe4lid.jpg"}, "inv\ufffdlid.jpg", "inv\xe4lid.jpg"},
        {"not UTF-8, with a remark",
         {"inv\xe4lid.jpg"},
         "inv\ufffdlid.jpg (ung\u00fcltige Kodierung)",
         "inv\xe4lid.jpg"},
        {"two bytes shown as one", {"i\xe4\xf6.jpg"}, "i\ufffd.jpg", "i\xe4\xf6.jpg"},
        {"two that are shown alike", {"a\xe4.jpg", "a\xf6.jpg"}, "a\ufffd.jpg", nullptr},
        {"a remark after a valid name", {"a.jpg"}, "a.jpg (copy)", nullptr},
        {"line feed shown as blank", {"line\nfeed.jpg"}, "line feed.jpg", "line\nfeed.jpg"},
        {"line feed shown as arrow", {"line\nfeed.jpg"}, "line\u21b5feed.jpg", "line\nfeed.jpg"},
        {"line feed left out", {"line\nfeed.jpg"}, "linefeed.jpg", "line\nfeed.jpg"},
        {"an exact name wins over a line feed",
         {"line\nfeed.jpg", "line feed.jpg"},
         "line feed.jpg",
         "line feed.jpg"},
        {"hidden extension", {"a.jpg", "b.jpg"}, "a", "a.jpg"},
        {"hidden extension of two", {"a.jpg", "a.nef"}, "a", nullptr},
        {"an exact name wins over a hidden extension", {"a.jpg", "a"}, "a", "a"},
        {"only the last extension is hidden", {"a.tar.gz"}, "a", nullptr},
        {"a dot at the start hides nothing", {".jpg"}, "", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto found = nameOfShownItem(row.entries, QString::fromUtf8(row.shown));
        if (row.expected == nullptr) {
            EXPECT_FALSE(found.has_value());
        } else {
            EXPECT_EQ(found.value_or("nothing"), row.expected);
        }
    }
}

TEST(pathOfShownItem, isTheAbsolutePathWithASlashForAFolder)
{
    const test::TemporaryFolder folder;
    folder.write("a b.jpg", "x");
    folder.write("inv\xe4lid.jpg", "x");
    mkdir(folder.file("Reise").c_str(), 0700);
    EXPECT_EQ(symlink("Reise", folder.file("Link").c_str()), 0);
    EXPECT_EQ(symlink("nowhere", folder.file("loose.jpg").c_str()), 0);

    const auto pathOf = [&](const char* shown) {
        return pathOfShownItem(folder.path(), QString::fromUtf8(shown)).value_or("nothing");
    };
    EXPECT_EQ(pathOf("a b.jpg"), folder.file("a b.jpg"));
    EXPECT_EQ(pathOf("inv\ufffdlid.jpg"), folder.file("inv\xe4lid.jpg"));
    EXPECT_EQ(pathOf("Reise"), folder.file("Reise/"));
    EXPECT_EQ(pathOf("Link"), folder.file("Link/"));
    EXPECT_EQ(pathOf("loose.jpg"), folder.file("loose.jpg"));
    EXPECT_EQ(pathOf("missing.jpg"), "nothing");
    EXPECT_EQ(pathOf(""), "nothing");
    EXPECT_EQ(pathOf("."), "nothing");
    EXPECT_EQ(pathOf(".."), "nothing");
    EXPECT_EQ(pathOf("../a b.jpg"), "nothing");
    EXPECT_EQ(pathOf("Reise/../a b.jpg"), "nothing");
}

TEST(pathOfShownItem, isNothingIfTheFolderCannotBeRead)
{
    EXPECT_FALSE(pathOfShownItem("", QStringLiteral("a.jpg")));
    EXPECT_FALSE(pathOfShownItem("/nonexistent/folder", QStringLiteral("a.jpg")));
}

TEST(pathOfShownItem, findsAnItemOfTheRoot)
{
    EXPECT_EQ(pathOfShownItem("/", QStringLiteral("proc")), "/proc/");
}

TEST(existingItem, ignoresSlashesAtTheEnd)
{
    const test::TemporaryFolder folder;
    folder.write("a.jpg", "x");
    EXPECT_EQ(existingItem(folder.path() + "//"), folder.path() + "/");
    EXPECT_EQ(existingItem("/"), "/");
    EXPECT_FALSE(existingItem(folder.file("b.jpg")));
    EXPECT_FALSE(existingItem(""));
}

TEST(itemCounts, countsWithoutAndWithHiddenItems)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(itemCounts(folder.path()), (std::pair<std::size_t, std::size_t>(0, 0)));
    for (const char* name : {"a.jpg", "b.jpg", ".c.jpg"}) folder.write(name, "x");
    EXPECT_EQ(itemCounts(folder.path()), (std::pair<std::size_t, std::size_t>(2, 3)));
    EXPECT_EQ(itemCounts(folder.file("none")), (std::pair<std::size_t, std::size_t>(0, 0)));
}
