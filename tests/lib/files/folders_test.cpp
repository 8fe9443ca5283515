#include "lib/files/folders.h"

#include "base/alloc.h"
#include "base/status.h"
#include "lib/files/fork_io.h"
#include "tests/support/environment.h"
#include "tests/support/permissions.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <sys/stat.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
}

TEST(feCreateFolder, makesAFolder)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    FSRef made;
    EXPECT_EQ(feCreateFolder(&parent, test::text("new \u00e4").get(), &made), 0);
    EXPECT_EQ(made.path, folder.file("new \u00e4"));
    EXPECT_TRUE(fs::is_directory(made.path));
    EXPECT_EQ(feCreateFolder(&parent, test::text("no reference").get(), nullptr), 0);
}

TEST(feCreateFolder, reportsWhyItCannotBeMade)
{
    const test::TemporaryFolder folder;
    folder.write("file", "");
    const FSRef parent = {folder.path()};
    const struct {
        const char* name;
        FSRef parent;
        std::string child;
        std::int32_t status;
    } rows[] = {
        {"exists", parent, "file", kErrExists},
        {"no such parent", {folder.file("missing")}, "x", kErrNotFound},
        {"parent names nothing", {}, "tmp", kErrNotFound},
        {"parent is a file", {folder.file("file")}, "x", kErrNotAFolder},
        {"empty name", parent, "", kErrBadName},
        {"slash", parent, "a/b", kErrBadName},
        {"parent itself", parent, ".", kErrBadName},
        {"too long", parent, std::string(256, 'x'), kErrBadName},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FSRef made = {"untouched"};
        EXPECT_EQ(feCreateFolder(&row.parent, test::text(row.child).get(), &made), row.status);
        EXPECT_EQ(made.path, "untouched");
    }
}

TEST(feCreateAndOpenDataFileUnicode, makesAndOpensANewFile)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    const test::Text name = test::text("new.dat");
    FSRef made;
    ForkRef fork = 0;
    ASSERT_EQ(feCreateAndOpenDataFileUnicode(&parent, name.get(), 1, 2, &made, &fork), 0);
    EXPECT_EQ(made.path, folder.file("new.dat"));
    EXPECT_GT(fork, 2);
    EXPECT_EQ(feWriteToFile(fork, 0, 4, "text"), 0);
    EXPECT_EQ(feCloseFork(fork), 0);
    EXPECT_EQ(test::readFile(made.path), "text");
    EXPECT_EQ(fs::status(made.path).permissions() & fs::perms::owner_exec, fs::perms::none);

    made.path = "untouched";
    EXPECT_EQ(feCreateAndOpenDataFileUnicode(&parent, name.get(), 1, 2, &made, &fork), kErrExists);
    EXPECT_EQ(fork, 0);
    EXPECT_EQ(made.path, "untouched");
    EXPECT_EQ(feCreateAndOpenDataFileUnicode(&parent, nullptr, 1, 2, &made, &fork), kErrBadName);
    EXPECT_EQ(feCreateAndOpenDataFileUnicode(&parent, test::text("2").get(), 0, 0, nullptr, &fork),
              0);
    EXPECT_EQ(feCloseFork(fork), 0);
}

TEST(feRenameFolder, renamesAFolder)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder.file("old"));
    folder.write("old/inside", "x");
    const FSRef ref = {folder.file("old")};
    FSRef renamed;
    EXPECT_EQ(feRenameFolder(&ref, test::text("new \u00e4").get(), &renamed), 0);
    EXPECT_EQ(renamed.path, folder.file("new \u00e4"));
    EXPECT_EQ(test::readFile(folder.file("new \u00e4/inside")), "x");
    EXPECT_FALSE(fs::exists(ref.path));
    EXPECT_EQ(feRenameFolder(&renamed, test::text("newer").get(), &renamed), 0);
    EXPECT_EQ(renamed.path, folder.file("newer"));
    EXPECT_EQ(feRenameFolder(&renamed, test::text("newer").get(), nullptr), 0) << "its own name";
    EXPECT_EQ(feRenameFolder(&ref, test::text("x").get(), &renamed), kErrNotFound);
}

TEST(feRenameFolder, neverReplacesAnExistingItem)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("file", "file")};
    const FSRef emptyFolder = {folder.file("folder")};
    fs::create_directory(emptyFolder.path);
    fs::create_directory(folder.file("taken folder"));
    folder.write("taken file", "other");
    fs::create_symlink("nowhere", folder.file("taken link"));
    for (const FSRef& ref : {file, emptyFolder}) {
        for (const char* name : {"taken file", "taken folder", "taken link"}) {
            SCOPED_TRACE(ref.path + " as " + name);
            FSRef renamed = {"untouched"};
            EXPECT_EQ(feRenameFolder(&ref, test::text(name).get(), &renamed), kErrExists);
            EXPECT_EQ(renamed.path, "untouched");
            EXPECT_TRUE(fs::exists(ref.path));
        }
    }
    EXPECT_EQ(test::readFile(folder.file("taken file")), "other");
}

TEST(feRenameFolder, refusesNamesThatLeadElsewhere)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("file", "")};
    for (const char* name : {"", ".", "..", "../x", "/tmp/x"}) {
        SCOPED_TRACE(name);
        EXPECT_EQ(feRenameFolder(&ref, test::text(name).get(), nullptr), kErrBadName);
    }
    const FSRef root = {"/"};
    EXPECT_EQ(feRenameFolder(&root, test::text("x").get(), nullptr), kErrBusy);
}

TEST(feRenameFolder, renamesALinkItself)
{
    const test::TemporaryFolder folder;
    folder.write("target", "x");
    fs::create_symlink("target", folder.file("link"));
    const FSRef ref = {folder.file("link")};
    EXPECT_EQ(feRenameFolder(&ref, test::text("renamed").get(), nullptr), 0);
    EXPECT_TRUE(fs::is_symlink(folder.file("renamed")));
    EXPECT_TRUE(fs::exists(folder.file("target")));
}

TEST(feRenameFolder, reportsMissingPermission)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("file", "")};
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    {
        const test::WithoutPrivileges nobody;
        EXPECT_EQ(feRenameFolder(&ref, test::text("x").get(), nullptr), kErrNoPermission);
    }
    ASSERT_EQ(chmod(folder.path().c_str(), 0700), 0);
}

TEST(feGetFirstFileInFolderWithSuffix, findsTheFirstName)
{
    const test::TemporaryFolder folder;
    for (const char* name : {"c.jpg", "b.JPG", "a.txt", "d.jpg", ".hidden.kml"}) {
        folder.write(name, "");
    }
    fs::create_directory(folder.file("folder.dir"));
    const FSRef parent = {folder.path()};
    const struct {
        const char *suffix, *expected;
    } rows[] = {
        {".jpg", "b.JPG"},  // whatever the case
        {".txt", "a.txt"},  {".dir", "folder.dir"}, {".kml", ".hidden.kml"},
        {"c.jpg", "c.jpg"}, {".png", nullptr},      {".", nullptr},  // not the folder itself
        {"", nullptr},  // nothing ends with an empty text
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.suffix);
        FSRef found = {"untouched"};
        EXPECT_EQ(feGetFirstFileInFolderWithSuffix(&parent, test::text(row.suffix).get(), &found),
                  row.expected == nullptr ? -1 : 0);
        EXPECT_EQ(found.path, row.expected == nullptr ? "untouched" : folder.file(row.expected));
    }
}

TEST(feGetFirstFileInFolderWithSuffix, looksAtTheFirstOccurrenceOnly)
{
    const test::TemporaryFolder folder;
    folder.write("a.jpg.jpg", "");
    const FSRef parent = {folder.path()};
    FSRef found;
    EXPECT_EQ(feGetFirstFileInFolderWithSuffix(&parent, test::text(".jpg").get(), &found), -1);
}

TEST(feGetFirstFileInFolderWithSuffix, findsNothingInAFile)
{
    const test::TemporaryFolder folder;
    FSRef found;
    for (const FSRef& parent : {FSRef{folder.write("f.jpg", "")}, FSRef{folder.file("missing")}}) {
        EXPECT_EQ(feGetFirstFileInFolderWithSuffix(&parent, test::text(".jpg").get(), &found), -1);
    }
    const FSRef parent = {folder.path()};
    EXPECT_EQ(feGetFirstFileInFolderWithSuffix(&parent, nullptr, &found), -1);
}

TEST(feGetFolderSize, sumsTheDirectItems)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    EXPECT_EQ(feGetFolderSize(&parent), 0u);
    folder.write("a", std::string(1000, 'x'));
    folder.write(".b", std::string(23, 'x'));
    fs::create_directory(folder.file("sub"));
    folder.write("sub/c", std::string(500, 'x'));
    EXPECT_EQ(feGetFolderSize(&parent), 1023u) << "folders add nothing";
    fs::create_symlink("sub/c", folder.file("l"));
    EXPECT_EQ(feGetFolderSize(&parent), 1028u) << "a link adds its own five bytes";
    fs::resize_file(folder.file("a"), std::uint64_t{5} << 30);
    EXPECT_EQ(feGetFolderSize(&parent), (std::uint64_t{5} << 30) + 28);

    const FSRef missing = {folder.file("missing")};
    EXPECT_EQ(feGetFolderSize(&missing), 0u);
}

TEST(feGetPathOfSpecialFolder, knowsOnlyTheDesktop)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable variable("HOME", home.path().c_str());
    EXPECT_EQ(test::takeUTF8(feGetPathOfSpecialFolder(13)), home.file("Desktop"));
    EXPECT_TRUE(fs::is_directory(home.file("Desktop"))) << "made when missing";
    EXPECT_EQ(test::takeUTF8(feGetPathOfSpecialFolder(13)), home.file("Desktop"));
    for (const std::int32_t number : {0, 1, 12, 14, -13}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(feGetPathOfSpecialFolder(number), nullptr);
    }
}

TEST(feGetPathOfSpecialFolder, followsTheUsersSettings)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable variable("HOME", home.path().c_str());
    const test::ScopedVariable config("XDG_CONFIG_HOME", home.path().c_str());
    home.write("user-dirs.dirs", "XDG_DESKTOP_DIR=\"$HOME/Arbeit/Schreib\\\"tisch\"\n");
    EXPECT_EQ(test::takeUTF8(feGetPathOfSpecialFolder(13)), home.file("Arbeit/Schreib\"tisch"));
    EXPECT_TRUE(fs::is_directory(home.file("Arbeit/Schreib\"tisch")));
}

TEST(feGetPathOfSpecialFolder, givesNullWhenTheFolderCannotBeMade)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable variable("HOME", home.path().c_str());
    home.write("Desktop", "a file in its place");
    EXPECT_EQ(feGetPathOfSpecialFolder(13), nullptr);
}

TEST(feCreateFolder, acceptsNamesThatAreNotUTF8)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    const test::Text name(createString(u"caf\xdce9.dir"));
    FSRef made;
    EXPECT_EQ(feCreateFolder(&parent, name.get(), &made), 0);
    EXPECT_EQ(made.path, folder.file("caf\xe9.dir"));
    EXPECT_TRUE(fs::is_directory(folder.file("caf\xe9.dir")));
    FSRef found;
    EXPECT_EQ(feGetFirstFileInFolderWithSuffix(&parent, test::text(".dir").get(), &found), 0);
    EXPECT_EQ(found.path, made.path);
    EXPECT_EQ(feRenameFolder(&made, test::Text(createString(u"\xdcff")).get(), &made), 0);
    EXPECT_EQ(made.path, folder.file("\xff"));
}

TEST(feGetPathOfSpecialFolder, givesNullWhenMemoryRunsOut)
{
    const test::TemporaryFolder home;
    const test::ScopedVariable variable("HOME", home.path().c_str());
    baseFailAllocation(1);
    EXPECT_EQ(feGetPathOfSpecialFolder(13), nullptr);
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}
