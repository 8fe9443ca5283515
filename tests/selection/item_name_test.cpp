#include "selection/item_name.h"

#include "tests/selection/direct_items.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <QString>

#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
std::optional<std::string> pathOf(const std::string& folder, const QString& shown)
{
    return test::directly([&](KnownItems& items) { return pathOfShownItem(items, folder, shown); });
}

std::optional<std::string> existing(const std::string& path)
{
    return test::directly([&](KnownItems& items) { return existingItem(items, path); });
}
}  // namespace

TEST(pathOfShownItem, isTheAbsolutePathWithASlashForAFolder)
{
    const test::TemporaryFolder folder;
    folder.write("a b.jpg", "x");
    folder.write("inv\xe4lid.jpg", "x");
    mkdir(folder.file("Reise").c_str(), 0700);
    EXPECT_EQ(symlink("Reise", folder.file("Link").c_str()), 0);
    EXPECT_EQ(symlink("nowhere", folder.file("loose.jpg").c_str()), 0);

    const auto shownPath = [&](const char* shown) {
        return pathOf(folder.path(), QString::fromUtf8(shown)).value_or("nothing");
    };
    EXPECT_EQ(shownPath("a b.jpg"), folder.file("a b.jpg"));
    EXPECT_EQ(shownPath("inv\ufffdlid.jpg"), folder.file("inv\xe4lid.jpg"));
    EXPECT_EQ(shownPath("Reise"), folder.file("Reise/"));
    EXPECT_EQ(shownPath("Link"), folder.file("Link/"));
    EXPECT_EQ(shownPath("loose.jpg"), folder.file("loose.jpg"));
    EXPECT_EQ(shownPath("missing.jpg"), "nothing");
    EXPECT_EQ(shownPath(""), "nothing");
    EXPECT_EQ(shownPath("."), "nothing");
    EXPECT_EQ(shownPath(".."), "nothing");
    EXPECT_EQ(shownPath("../a b.jpg"), "nothing");
    EXPECT_EQ(shownPath("Reise/../a b.jpg"), "nothing");
}

TEST(pathOfShownItem, isNothingIfTheFolderCannotBeRead)
{
    EXPECT_FALSE(pathOf("", QStringLiteral("a.jpg")));
    EXPECT_FALSE(pathOf("/nonexistent/folder", QStringLiteral("a.jpg")));
}

TEST(pathOfShownItem, findsAnItemOfTheRoot)
{
    EXPECT_EQ(pathOf("/", QStringLiteral("proc")), "/proc/");
}

TEST(existingItem, ignoresSlashesAtTheEnd)
{
    const test::TemporaryFolder folder;
    folder.write("a.jpg", "x");
    EXPECT_EQ(existing(folder.path() + "//"), folder.path() + "/");
    EXPECT_EQ(existing("/"), "/");
    EXPECT_FALSE(existing(folder.file("b.jpg")));
    EXPECT_FALSE(existing(""));
}
