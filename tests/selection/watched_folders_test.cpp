#include "selection/watched_folders.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <sys/inotify.h>
#include <unistd.h>

#include <filesystem>

using namespace pinorama;

TEST(foldersWatchedBy, findsTheFoldersWithAnInotifyWatch)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directories(folder.file("watched"));
    std::filesystem::create_directories(folder.file("other"));
    const int descriptor = inotify_init1(IN_CLOEXEC);
    ASSERT_GE(descriptor, 0);
    ASSERT_GE(inotify_add_watch(descriptor, folder.file("watched").c_str(), IN_CREATE), 0);
    const auto isWatched = foldersWatchedBy(getpid());
    close(descriptor);
    EXPECT_TRUE(isWatched(factsOfItem(folder.file("watched"))));
    EXPECT_FALSE(isWatched(factsOfItem(folder.file("other"))));
    EXPECT_FALSE(isWatched(factsOfItem(folder.file("missing"))));
}

TEST(foldersWatchedBy, isFalseForEveryFolderIfTheProcessHasEnded)
{
    EXPECT_FALSE(foldersWatchedBy(-1)(factsOfItem("/")));
}
