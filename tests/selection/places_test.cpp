#include "selection/places.h"

#include "selection/file_manager_kind.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
bool holds(const std::vector<Place>& places, const char* name, const std::string& path)
{
    return std::any_of(places.begin(), places.end(), [&](const Place& place) {
        return place.name == QString::fromUtf8(name) && place.path == path;
    });
}
}  // namespace

TEST(places, holdTheHomeFolderTheWellKnownFoldersAndTheBookmarks)
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
    const auto places = pinorama::places();
    ASSERT_FALSE(places.empty());
    EXPECT_EQ(places.front().path, home.path());
    EXPECT_TRUE(holds(places, "Desktop", home.file("Desktop")));
    EXPECT_TRUE(holds(places, "Archiv", "/srv/Fotos alt"));
    EXPECT_TRUE(holds(places, "Fotos alt", "/srv/Fotos alt"));
    EXPECT_TRUE(holds(places, "neu", "/srv/neu"));
    EXPECT_TRUE(holds(places, "alt", "/srv/alt"));
    EXPECT_TRUE(holds(places, "Wolken", "/srv/kde"));
    EXPECT_FALSE(holds(places, "Trash", ""));
}

TEST(places, damagedBookmarksAreLeftOut)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable variable("HOME", home.path().c_str());
    std::filesystem::create_directories(home.file(".local/share"));
    home.write(".gtk-bookmarks", "\xff\nfile://%\nfile:///a%00b X\n");
    home.write(".local/share/user-places.xbel", "<xbel><bookmark href=\"file:///srv/kde\"><tit");
    for (const Place& place : places()) {
        EXPECT_EQ(place.path.front(), '/');
        EXPECT_EQ(place.path.find('\0'), std::string::npos);
    }
}

TEST(foldersWatchedBy, tellsTheFoldersWithAnInotifyWatch)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.file("watched"));
    std::filesystem::create_directories(folder.file("other"));
    const int descriptor = inotify_init1(IN_CLOEXEC);
    ASSERT_GE(descriptor, 0);
    ASSERT_GE(inotify_add_watch(descriptor, folder.file("watched").c_str(), IN_CREATE), 0);
    const auto isWatched = foldersWatchedBy(getpid());
    close(descriptor);
    EXPECT_TRUE(isWatched(folder.file("watched")));
    EXPECT_FALSE(isWatched(folder.file("other")));
    EXPECT_FALSE(isWatched(folder.file("missing")));
}

TEST(foldersWatchedBy, aProcessThatIsGoneWatchesNothing)
{
    EXPECT_FALSE(foldersWatchedBy(-1)("/"));
}

TEST(fileManagerKind, knowsTheSevenAndNobodyElse)
{
    for (const char* process : {"nautilus", "nemo", "nemo-desktop", "caja", "thunar", "Thunar",
                                "pcmanfm", "pcmanfm-qt", "dolphin"}) {
        SCOPED_TRACE(process);
        EXPECT_NE(fileManagerKind(process), nullptr);
    }
    for (const char* process : {"", "dolphin-emu", "nautil", "pinorama", "thunar "}) {
        SCOPED_TRACE(process);
        EXPECT_EQ(fileManagerKind(process), nullptr);
    }
    EXPECT_EQ(fileManagerKind("Thunar")->manager, FileManager::thunar);
    EXPECT_TRUE(fileManagerKind("nemo-desktop")->isDesktop);
    EXPECT_EQ(fileManagerKindOfProcess(getpid()), nullptr);
    EXPECT_EQ(fileManagerKindOfProcess(-1), nullptr);
}
