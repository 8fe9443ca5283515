#include "selection/named_folders.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
bool contains(const std::vector<NamedFolder>& folders, const char* name, const std::string& path)
{
    return std::any_of(folders.begin(), folders.end(), [&](const NamedFolder& folder) {
        return folder.name == QString::fromUtf8(name) && folder.path == path;
    });
}
}  // namespace

TEST(namedFolders, containTheHomeFolderTheWellKnownFoldersAndTheBookmarks)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable variable("HOME", home.path().c_str());
    std::filesystem::create_directories(home.file(".config/gtk-3.0"));
    std::filesystem::create_directories(home.file(".local/share"));
    home.write(".config/gtk-3.0/bookmarks",
               "file:///srv/Fotos%20alt Archiv\nfile:///srv/neu\nsftp://host/x Fern\n\n");
    home.write(".gtk-bookmarks", "file:///srv/alt\n");
    home.write(".local/share/user-places.xbel",
               "<?xml version=\"1.0\"?><xbel><bookmark href=\"file:///srv/kde\">"
               "<title>Wolken</title></bookmark>"
               "<bookmark href=\"trash:/\"><title>Trash</title></bookmark></xbel>");
    const auto folders = namedFolders();
    ASSERT_FALSE(folders.empty());
    EXPECT_EQ(folders.front().path, home.path());
    EXPECT_TRUE(contains(folders, "Desktop", home.file("Desktop")));
    EXPECT_TRUE(contains(folders, "Archiv", "/srv/Fotos alt"));
    EXPECT_TRUE(contains(folders, "Fotos alt", "/srv/Fotos alt"));
    EXPECT_TRUE(contains(folders, "neu", "/srv/neu"));
    EXPECT_TRUE(contains(folders, "alt", "/srv/alt"));
    EXPECT_TRUE(contains(folders, "Wolken", "/srv/kde"));
    EXPECT_FALSE(contains(folders, "Trash", ""));
}

TEST(namedFolders, skipMalformedBookmarks)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable variable("HOME", home.path().c_str());
    std::filesystem::create_directories(home.file(".local/share"));
    home.write(".gtk-bookmarks", "\xff\nfile://%\nfile:///a%00b X\n");
    home.write(".local/share/user-places.xbel", "<xbel><bookmark href=\"file:///srv/kde\"><tit");
    for (const NamedFolder& folder : namedFolders()) {
        EXPECT_EQ(folder.path.front(), '/');
        EXPECT_EQ(folder.path.find('\0'), std::string::npos);
    }
}
