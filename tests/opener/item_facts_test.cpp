#include "opener/item_facts.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <filesystem>
#include <set>

using namespace pinorama;

TEST(factsOfItem, tellsFoldersAndWhatIsMissing)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("sub"));
    folder.write("a.jpg", "x");
    ASSERT_EQ(symlink("sub", folder.file("link").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", folder.file("broken").c_str()), 0);
    const struct {
        const char* name;
        bool isThere;
        bool isFolder;
    } rows[] = {
        {"sub", true, true},    {"sub/", true, true},    {"link", true, true},
        {"a.jpg", true, false}, {"a.jpg/", true, false}, {"broken", true, false},
        {"none", false, false}, {"", true, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const ItemFacts facts = factsOfItem(folder.file(row.name));
        EXPECT_TRUE(facts.isKnown);
        EXPECT_EQ(facts.isThere, row.isThere);
        EXPECT_EQ(facts.isFolder, row.isFolder);
    }
    struct stat sub = {};
    ASSERT_EQ(stat(folder.file("sub").c_str(), &sub), 0);
    EXPECT_EQ(factsOfItem(folder.file("link")).inode, sub.st_ino);
    EXPECT_EQ(factsOfItem(folder.file("sub")).device,
              std::uint64_t{major(sub.st_dev)} << 20 | minor(sub.st_dev));
    EXPECT_EQ(factsOfItem(folder.file("broken")).inode, 0u);
    EXPECT_TRUE(factsOfItem("/").isFolder);
}

TEST(eachNameIn, givesAllNamesUntilNoMoreIsWanted)
{
    const test::TemporaryFolder folder;
    for (const char* name : {"a", ".b", "c\xE4"}) folder.write(name, "x");
    std::set<std::string> names;
    eachNameIn(folder.path(), [&](std::string_view name) { return names.emplace(name).second; });
    EXPECT_EQ(names, (std::set<std::string>{"a", ".b", "c\xE4"}));
    int count = 0;
    eachNameIn(folder.path(), [&](std::string_view) { return ++count < 2; });
    EXPECT_EQ(count, 2);
    eachNameIn(folder.file("none"), [&](std::string_view) { return ++count < 100; });
    EXPECT_EQ(count, 2);
}

TEST(countItemsIn, countsHiddenOnesApart)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(countItemsIn(folder.path()), (FolderCount{0, 0}));
    for (const char* name : {"a", "b", ".c"}) folder.write(name, "x");
    EXPECT_EQ(countItemsIn(folder.path()), (FolderCount{2, 3}));
    EXPECT_EQ(countItemsIn(folder.file("none")), (FolderCount{0, 0}));
}

TEST(mayBeShownAs, isPreciseForPlainNamesOnly)
{
    const struct {
        const char* name;
        const char* shown;
        bool expected;
    } rows[] = {
        {"a.jpg", "a.jpg", true},      {"a.jpg", "a", true},
        {"a.tar.gz", "a.tar", true},   {"a.tar.gz", "a", false},
        {"b.jpg", "a.jpg", false},     {".jpg", "", false},
        {"a.jpg", "", false},          {"u\u0308.jpg", "\u00fc.jpg", true},
        {"inv\xe4lid.jpg", "x", true}, {"line\nfeed.jpg", "line feed.jpg", true},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(mayBeShownAs(row.name, row.shown), row.expected) << row.name << row.shown;
    }
}
