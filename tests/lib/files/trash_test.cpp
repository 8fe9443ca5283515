#include "lib/files/trash.h"

#include "base/status.h"
#include "lib/files/file_reference.h"
#include "tests/support/environment.h"
#include "tests/support/other_volume.h"
#include "tests/support/texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <vector>

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

// A home folder with a Trash of its own, and a folder beside it to remove things from. Both are on
// one volume, so the home Trash is the right one.
struct Home {
    std::vector<std::string> trashed() const
    {
        std::vector<std::string> names;
        if (!fs::exists(folder.file("share/Trash/files"))) return names;
        for (const auto& item : fs::directory_iterator(folder.file("share/Trash/files"))) {
            names.push_back(item.path().filename());
        }
        std::sort(names.begin(), names.end());
        return names;
    }
    std::string information(const std::string& name) const
    {
        return test::readFile(folder.file("share/Trash/info/" + name + ".trashinfo"));
    }

    test::TemporaryFolder folder;
    test::ScopedVariable data{"XDG_DATA_HOME", folder.file("share").c_str()};
};
}  // namespace

TEST(feDeleteFileAtPath, deletesFilesLinksAndEmptyFolders)
{
    const test::TemporaryFolder folder;
    folder.write("target", "x");
    fs::create_symlink("target", folder.file("link"));
    fs::create_directory(folder.file("empty"));
    for (const char* name : {"link", "empty"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(feDeleteFileAtPath(folder.file(name).c_str()), 0);
        EXPECT_FALSE(fs::exists(fs::symlink_status(folder.file(name))));
    }
    EXPECT_TRUE(fs::exists(folder.file("target"))) << "the link went, not what it led to";
    EXPECT_EQ(feDeleteFileAtPath(folder.file("target").c_str()), 0);
    EXPECT_FALSE(fs::exists(folder.file("target")));
}

TEST(feDeleteFileAtPath, tellsOnlyThePathsOwnError)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder.file("full"));
    folder.write("full/item", "x");
    EXPECT_EQ(feDeleteFileAtPath(folder.file("full").c_str()), 0) << "though it could not be";
    EXPECT_TRUE(fs::exists(folder.file("full/item")));
    EXPECT_EQ(feDeleteFileAtPath(folder.file("missing").c_str()), kErrNotFound);
    EXPECT_EQ(feDeleteFileAtPath(folder.file("full/item/x").c_str()), kErrNotAFolder);
    EXPECT_EQ(feDeleteFileAtPath(""), kErrNotFound);
    EXPECT_EQ(feDeleteFileAtPath(nullptr), kErrNotFound);
}

TEST(feMoveFileToTrash, keepsTheFileAndWhereItCameFrom)
{
    const Home home;
    const FSRef ref = {home.folder.write("photo 1.jpg", "picture")};
    EXPECT_EQ(feMoveFileToTrash(&ref), 0);
    EXPECT_FALSE(fs::exists(ref.path));
    EXPECT_THAT(home.trashed(), testing::ElementsAre("photo 1.jpg"));
    EXPECT_EQ(test::readFile(home.folder.file("share/Trash/files/photo 1.jpg")), "picture");
    EXPECT_THAT(home.information("photo 1.jpg"),
                testing::StartsWith("[Trash Info]\nPath=" + home.folder.path() +
                                    "/photo%201.jpg\nDeletionDate="));
}

TEST(feMoveFileToTrash, nameClashIsNoFailure)
{
    const Home home;
    for (int i = 0; i < 3; i++) {
        const FSRef ref = {home.folder.write("a.jpg", std::to_string(i))};
        EXPECT_EQ(feMoveFileToTrash(&ref), 0);
    }
    EXPECT_THAT(home.trashed(), testing::ElementsAre("a 2.jpg", "a 3.jpg", "a.jpg"));
    EXPECT_EQ(test::readFile(home.folder.file("share/Trash/files/a 3.jpg")), "2");
    EXPECT_THAT(home.information("a 3.jpg"), testing::HasSubstr("/a.jpg\n"));
}

TEST(feMoveFileToTrash, movesALinkItself)
{
    const Home home;
    home.folder.write("target", "x");
    fs::create_symlink("target", home.folder.file("link"));
    const FSRef parent = {home.folder.path()};
    FSRef ref;
    ASSERT_EQ(feMakeFSRefFromParent(&parent, test::text("link").get(), &ref), 0);
    EXPECT_EQ(feMoveFileToTrash(&ref), 0);
    EXPECT_TRUE(fs::exists(home.folder.file("target")));
    EXPECT_THAT(home.trashed(), testing::ElementsAre("link"));
}

TEST(feMoveFileToTrash, missingItemGivesItsStatus)
{
    const Home home;
    const FSRef ref = {home.folder.file("missing")};
    EXPECT_EQ(feMoveFileToTrash(&ref), kErrNotFound);
    EXPECT_EQ(feMoveFolderToTrash(&ref), kErrNotFound);
    EXPECT_TRUE(home.trashed().empty());
}

TEST(feMoveFolderToTrash, keepsTheNameWhenItIsFree)
{
    const Home home;
    fs::create_directory(home.folder.file("folder"));
    home.folder.write("folder/item", "x");
    const FSRef ref = {home.folder.file("folder")};
    EXPECT_EQ(feMoveFolderToTrash(&ref), 0);
    EXPECT_THAT(home.trashed(), testing::ElementsAre("folder"));
    EXPECT_EQ(test::readFile(home.folder.file("share/Trash/files/folder/item")), "x");
}

TEST(feMoveFolderToTrash, clashGivesTheTicksAndARandomNumber)
{
    const Home home;
    for (int i = 0; i < 3; i++) {
        fs::create_directory(home.folder.file("folder"));
        const FSRef ref = {home.folder.file("folder")};
        EXPECT_EQ(feMoveFolderToTrash(&ref), 0);
        EXPECT_FALSE(fs::exists(ref.path));
    }
    const auto clashName = testing::MatchesRegex("Skallion Folder -?[0-9]+ -?[0-9]+");
    EXPECT_THAT(home.trashed(), testing::ElementsAre(clashName, clashName, "folder"));
    EXPECT_THAT(home.information(home.trashed().front()),
                testing::HasSubstr("Path=" + home.folder.path() + "/folder\n"));
}

TEST(feMoveFileToTrash, deletesForGoodWhereNoTrashCanBeMade)
{
    const Home home;
    const test::OtherVolume volume;
    if (!volume.isUsable()) GTEST_SKIP() << "there is no second volume to try it on";
    std::ofstream(volume.ownTrash()) << "a file in the place of the Trash";
    const FSRef file = {volume.write("file", "x")};
    EXPECT_EQ(feMoveFileToTrash(&file), 0);
    EXPECT_FALSE(fs::exists(file.path));

    const FSRef empty = {volume.folder() + "/empty"};
    fs::create_directory(empty.path);
    EXPECT_EQ(feMoveFolderToTrash(&empty), 0);
    EXPECT_FALSE(fs::exists(empty.path));

    const FSRef full = {volume.folder()};
    const std::string kept = volume.write("kept", "x");
    EXPECT_EQ(feMoveFolderToTrash(&full), kErrBusy) << "a full folder is not deleted";
    EXPECT_TRUE(fs::exists(kept));
}

TEST(feMoveFileToTrash, deletesNothingThatOnlyCouldNotBeMoved)
{
    const Home home;
    const FSRef ref = {home.folder.write("a.jpg", "picture")};
    const pid_t child = fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        // No file may grow, as on a full disk, so the record of where the item came from is not
        // made.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit none = {0, 0};
        if (setrlimit(RLIMIT_FSIZE, &none) != 0) _exit(2);
        _exit(feMoveFileToTrash(&ref) == kErrInputOutput ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(test::readFile(ref.path), "picture");
    EXPECT_TRUE(fs::is_empty(home.folder.file("share/Trash/info")));
}
