#include "lib/files/trash_layout.h"

#include "base/status.h"
#include "tests/support/environment.h"
#include "tests/support/other_volume.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

// A home folder whose Trash is on the volume of the items that are removed.
struct Home {
    std::string trash(const std::string& name) const { return folder.file("share/Trash/" + name); }
    std::string information(const std::string& name) const
    {
        return test::readFile(trash("info/" + name + ".trashinfo"));
    }
    test::TemporaryFolder folder;
    test::ScopedVariable data{"XDG_DATA_HOME", folder.file("share").c_str()};
};
}  // namespace

TEST(moveToTrash, writesTheRecordOfTheSpecification)
{
    const Home home;
    const test::ScopedVariable zone("TZ", "Asia/Tokyo");  // the date is local
    const std::string path = home.folder.write("50% \u00e4&b.jpg", "x");
    const std::time_t before = std::time(nullptr);
    EXPECT_EQ(moveToTrash(path, "50% \u00e4&b.jpg", TrashName::any).status, 0);
    const std::time_t after = std::time(nullptr);

    const std::string start =
        "[Trash Info]\nPath=" + home.folder.path() + "/50%25%20%C3%A4%26b.jpg\nDeletionDate=";
    const std::string text = home.information("50% \u00e4&b.jpg");
    ASSERT_THAT(text, testing::StartsWith(start));
    std::tm read = {};
    ASSERT_NE(strptime(text.c_str() + start.size(), "%Y-%m-%dT%H:%M:%S\n", &read), nullptr);
    read.tm_isdst = -1;
    const std::time_t date = std::mktime(&read);
    EXPECT_GE(date, before);
    EXPECT_LE(date, after);
    EXPECT_EQ(text.size(), start.size() + 20);
}

TEST(moveToTrash, keepsTheTrashToTheUser)
{
    const Home home;
    EXPECT_EQ(moveToTrash(home.folder.write("a", ""), "a", TrashName::any).status, 0);
    for (const char* name : {"", "files", "info"}) {
        SCOPED_TRACE(name);
        struct stat facts = {};
        ASSERT_EQ(stat(home.trash(name).c_str(), &facts), 0);
        EXPECT_EQ(facts.st_mode & 0777, 0700u);
    }
}

TEST(moveToTrash, numbersTheStemOfATakenName)
{
    const struct {
        const char *name, *second;
    } rows[] = {
        {"a.jpg", "a 2.jpg"},     {"no extension", "no extension 2"},
        {".hidden", ".hidden 2"}, {"a.tar.gz", "a.tar 2.gz"},
        {"ends.", "ends 2."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Home home;
        for (int i = 0; i < 2; i++) {
            const std::string path = home.folder.write(row.name, "");
            EXPECT_EQ(moveToTrash(path, row.name, TrashName::any).status, 0);
        }
        EXPECT_TRUE(fs::exists(home.trash(std::string("files/") + row.name)));
        EXPECT_TRUE(fs::exists(home.trash(std::string("files/") + row.second)));
        EXPECT_NE(home.information(row.second), "");
    }
}

TEST(moveToTrash, namesThatAreTakenOnOneSideOnlyAreTaken)
{
    const Home home;
    EXPECT_EQ(moveToTrash(home.folder.write("first", ""), "first", TrashName::any).status, 0);
    std::ofstream(home.trash("info/a.trashinfo")) << "a record without an item";
    std::ofstream(home.trash("files/b")) << "an item without a record";
    for (const char* name : {"a", "b"}) {
        SCOPED_TRACE(name);
        const std::string path = home.folder.write(name, "new");
        const auto refused = moveToTrash(path, name, TrashName::wantedOnly);
        EXPECT_EQ(refused.status, kErrExists);
        EXPECT_TRUE(refused.hasTrash);
        EXPECT_EQ(test::readFile(path), "new") << "still there";
        EXPECT_EQ(moveToTrash(path, name, TrashName::any).status, 0);
        EXPECT_EQ(test::readFile(home.trash(std::string("files/") + name + " 2")), "new");
    }
    EXPECT_EQ(test::readFile(home.trash("files/b")), "an item without a record");
    EXPECT_FALSE(fs::exists(home.trash("info/b.trashinfo"))) << "no record is left behind";
}

TEST(moveToTrash, shortensANameThatLeavesNoRoomForTheRecordsSuffix)
{
    const Home home;
    const std::string name = std::string(120, 'x') + std::string("\u00e4") + std::string(120, 'y');
    std::string umlauts;
    for (int i = 0; i < 125; i++) umlauts += "\u00e4";
    for (const std::string& full : {name + "zzz.jpg", umlauts + ".jpg", umlauts, umlauts + "x"}) {
        SCOPED_TRACE(full);
        for (int i = 0; i < 2; i++) {
            const std::string path = home.folder.write(full, "x");
            EXPECT_EQ(moveToTrash(path, full, TrashName::any).status, 0);
        }
    }
    int count = 0;
    for (const auto& item : fs::directory_iterator(home.trash("files"))) {
        const std::string kept = item.path().filename();
        EXPECT_LE(kept.size() + std::string(".trashinfo").size(), 255u);
        // No character is cut in two.
        std::string rest = kept;
        while (rest.find("\u00e4") != rest.npos) rest.erase(rest.find("\u00e4"), 2);
        EXPECT_TRUE(std::all_of(rest.begin(), rest.end(), [](char c) { return (c & 0x80) == 0; }));
        count++;
    }
    EXPECT_EQ(count, 8);
}

TEST(moveToTrash, movesAFolderWithEverythingInIt)
{
    const Home home;
    fs::create_directories(home.folder.file("folder/sub"));
    home.folder.write("folder/sub/item", "x");
    EXPECT_EQ(moveToTrash(home.folder.file("folder"), "folder", TrashName::wantedOnly).status, 0);
    EXPECT_EQ(test::readFile(home.trash("files/folder/sub/item")), "x");
}

TEST(moveToTrash, folderThatHoldsTheTrashStays)
{
    const Home home;
    const auto result = moveToTrash(home.folder.path(), "home", TrashName::any);
    EXPECT_NE(result.status, 0);
    EXPECT_TRUE(fs::exists(home.folder.path()));
    EXPECT_EQ(home.information("home"), "");
}

TEST(moveToTrash, escapesEveryByteOfANameThatIsNoUTF8)
{
    const Home home;
    const std::string path = home.folder.write("caf\xe9", "x");
    EXPECT_EQ(moveToTrash(path, "caf\xe9", TrashName::any).status, 0);
    EXPECT_THAT(home.information("caf\xe9"), testing::HasSubstr("/caf%E9\n"));
}

TEST(moveToTrash, missingItemGivesItsStatus)
{
    const Home home;
    EXPECT_EQ(moveToTrash(home.folder.file("missing"), "missing", TrashName::any).status,
              kErrNotFound);
    EXPECT_FALSE(fs::exists(home.folder.file("share"))) << "and no Trash is made for it";
}

TEST(moveToTrash, usesTheTrashOfTheItemsVolume)
{
    const Home home;
    const test::OtherVolume volume;
    if (!volume.isUsable()) GTEST_SKIP() << "there is no second volume to try it on";
    (void)volume.write("a b.jpg", "picture");
    EXPECT_EQ(moveToTrash(volume.folder() + "/a b.jpg", "a b.jpg", TrashName::any).status, 0);
    EXPECT_EQ(test::readFile(volume.ownTrash() + "/files/a b.jpg"), "picture");
    EXPECT_THAT(test::readFile(volume.ownTrash() + "/info/a b.jpg.trashinfo"),
                testing::StartsWith("[Trash Info]\nPath=pinorama-test-" + std::to_string(getpid()) +
                                    "/a%20b.jpg\n"))
        << "relative to the top folder";
    struct stat facts = {};
    ASSERT_EQ(stat(volume.ownTrash().c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 0777, 0700u);
}

TEST(moveToTrash, trustsTheAdministratorsTrashOnlyWithTheStickyBit)
{
    const Home home;
    const test::OtherVolume volume;
    if (!volume.isUsable()) GTEST_SKIP() << "there is no second volume to try it on";
    const std::string inShared = volume.sharedTrash() + "/" + std::to_string(geteuid());

    fs::create_directory(volume.sharedTrash());
    ASSERT_EQ(chmod(volume.sharedTrash().c_str(), 0777), 0);
    (void)volume.write("a b.jpg", "picture");
    EXPECT_EQ(moveToTrash(volume.folder() + "/a b.jpg", "1", TrashName::any).status, 0);
    EXPECT_FALSE(fs::exists(inShared));
    EXPECT_TRUE(fs::exists(volume.ownTrash() + "/files/1"));

    ASSERT_EQ(chmod(volume.sharedTrash().c_str(), 01777), 0);
    (void)volume.write("a b.jpg", "picture");
    EXPECT_EQ(moveToTrash(volume.folder() + "/a b.jpg", "2", TrashName::any).status, 0);
    EXPECT_TRUE(fs::exists(inShared + "/files/2"));
    EXPECT_TRUE(fs::exists(inShared + "/info/2.trashinfo"));

    // A link may lead anywhere.
    fs::rename(volume.sharedTrash(), volume.folder() + "/elsewhere");
    fs::create_directory_symlink(volume.folder() + "/elsewhere", volume.sharedTrash());
    (void)volume.write("a b.jpg", "picture");
    EXPECT_EQ(moveToTrash(volume.folder() + "/a b.jpg", "3", TrashName::any).status, 0);
    EXPECT_TRUE(fs::exists(volume.ownTrash() + "/files/3"));
}

TEST(moveToTrash, doesNotUseAFolderThatIsALinkOrAFile)
{
    const Home home;
    const test::OtherVolume volume;
    if (!volume.isUsable()) GTEST_SKIP() << "there is no second volume to try it on";
    (void)volume.write("a b.jpg", "picture");
    fs::create_directory(volume.folder() + "/elsewhere");
    fs::create_directory_symlink(volume.folder() + "/elsewhere", volume.ownTrash());
    auto result = moveToTrash(volume.folder() + "/a b.jpg", "a", TrashName::any);
    EXPECT_NE(result.status, 0);
    EXPECT_FALSE(result.hasTrash);
    EXPECT_TRUE(fs::exists(volume.folder() + "/a b.jpg"));

    fs::remove(volume.ownTrash());
    std::ofstream(volume.ownTrash()) << "a file";
    result = moveToTrash(volume.folder() + "/a b.jpg", "a", TrashName::any);
    EXPECT_FALSE(result.hasTrash);
}
