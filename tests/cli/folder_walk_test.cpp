#include "cli/folder_walk.h"

#include "tests/support/environment.h"
#include "tests/support/permissions.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
using Texts = std::vector<std::string>;

struct Walked {
    Texts paths{};
    Texts complaints{};
};

Walked walk(const Texts& starts, bool recursive = true)
{
    Walked walked;
    FolderWalk folders(starts, recursive, [&](const std::string& path, const std::string& why) {
        walked.complaints.push_back(path + ": " + why);
    });
    while (auto path = folders.next()) walked.paths.push_back(*path);
    EXPECT_EQ(folders.next(), std::nullopt) << "the end stays the end";
    return walked;
}

class FolderWalkTest : public testing::Test {
protected:
    void makeFolder(const std::string& name) const
    {
        ASSERT_EQ(mkdir(folder_.file(name).c_str(), 0700), 0);
    }
    // The names as paths in the folder.
    Texts paths(const Texts& names) const
    {
        Texts result;
        for (const std::string& name : names) result.push_back(folder_.file(name));
        return result;
    }

    test::TemporaryFolder folder_;
};
}  // namespace

TEST_F(FolderWalkTest, goesInTheOrderOfBytesAndDownWhereAFolderStands)
{
    makeFolder("b");
    makeFolder("b/z");
    makeFolder("empty");
    for (const char* name : {"c.jpg", "B.jpg", "a.jpg", "b/2.nef", "b/10.nef", "b/z/1.jpg",
                             "b/\xc3\xa4.jpg", "b/z.jpg", "\xff.jpg", "b.jpg", "b-.jpg"}) {
        (void)folder_.write(name, "x");
    }
    const Walked walked = walk({folder_.path()});
    EXPECT_EQ(walked.paths, paths({"B.jpg", "a.jpg", "b/10.nef", "b/2.nef", "b/z/1.jpg", "b/z.jpg",
                                   "b/\xc3\xa4.jpg", "b-.jpg", "b.jpg", "c.jpg", "\xff.jpg"}));
    EXPECT_EQ(walked.complaints, Texts());
}

TEST_F(FolderWalkTest, givesPathsAsTheStartWasGiven)
{
    makeFolder("a");
    const std::string file = folder_.write("a/x.jpg", "");
    EXPECT_EQ(walk({folder_.file("a")}).paths, Texts{file});
    EXPECT_EQ(walk({folder_.file("a/")}).paths, Texts{file});
    EXPECT_EQ(walk({folder_.file("a/.")}).paths, Texts{folder_.file("a/./x.jpg")});
    EXPECT_EQ(walk({folder_.file("a"), folder_.file("a")}).paths, (Texts{file, file}));
}

TEST_F(FolderWalkTest, takesPicturesByTheirTypeOnly)
{
    for (const char* name : {"a.JPG", "b.Cr2", "c.txt", "d", ".jpg", "e.jpg.bak", "f.tiff",
                             ".g.jpg", "h.jpg~", "i.raw", "j.jpg "}) {
        (void)folder_.write(name, "");
    }
    EXPECT_EQ(walk({folder_.path()}).paths, paths({".g.jpg", "a.JPG", "b.Cr2", "i.raw"}));
}

TEST_F(FolderWalkTest, givesAStartThatIsNoFolderAsItIs)
{
    const std::string notes = folder_.write("notes.txt", "");
    const std::string missing = folder_.file("missing");
    EXPECT_EQ(walk({notes, missing}).paths, (Texts{notes, missing}));
}

TEST_F(FolderWalkTest, goesIntoNoFolderUnlessItShall)
{
    (void)folder_.write("a.jpg", "");
    EXPECT_EQ(walk({folder_.path()}, false).paths, Texts{folder_.path()});
}

TEST_F(FolderWalkTest, followsLinksToFilesAndNeverToFolders)
{
    makeFolder("a");
    (void)folder_.write("a/x.jpg", "");
    (void)folder_.write("notes", "");
    const std::pair<const char*, const char*> links[] = {{"a/x.jpg", "link.jpg"},
                                                         {"notes", "notes.jpg"},
                                                         {"nowhere", "dangling.jpg"},
                                                         {"a", "folder.jpg"},
                                                         {"a", "folder"},
                                                         {"..", "a/up"},
                                                         {".", "a/here"},
                                                         {"circle.jpg", "circle.jpg"}};
    for (const auto& [target, name] : links) {
        ASSERT_EQ(symlink(target, folder_.file(name).c_str()), 0);
    }
    const Walked walked = walk({folder_.path()});
    EXPECT_EQ(walked.paths,
              paths({"a/x.jpg", "circle.jpg", "dangling.jpg", "link.jpg", "notes.jpg"}))
        << "what leads nowhere is told when it is read";
    EXPECT_EQ(walked.complaints, Texts());
    EXPECT_EQ(walk({folder_.file("folder")}).paths, paths({"folder/x.jpg"}))
        << "a start may be a link";
}

TEST_F(FolderWalkTest, passesOverWhatIsNoFile)
{
    ASSERT_EQ(mkfifo(folder_.file("pipe.jpg").c_str(), 0600), 0);
    makeFolder("folder.jpg");
    (void)folder_.write("folder.jpg/a.jpg", "");
    EXPECT_EQ(walk({folder_.path()}).paths, paths({"folder.jpg/a.jpg"}));
}

TEST_F(FolderWalkTest, namesAFolderThatCannotBeReadAndGoesOn)
{
    makeFolder("a");
    makeFolder("b");
    (void)folder_.write("a/x.jpg", "");
    (void)folder_.write("b/x.jpg", "");
    ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(folder_.file("b").c_str(), 0755), 0);
    ASSERT_EQ(chmod(folder_.file("a").c_str(), 0), 0);
    const Walked walked = [this] {
        const test::WithoutPrivileges nobody;
        return walk({folder_.path()});
    }();
    ASSERT_EQ(chmod(folder_.file("a").c_str(), 0700), 0);
    EXPECT_EQ(walked.paths, paths({"b/x.jpg"}));
    EXPECT_EQ(walked.complaints, Texts{folder_.file("a") + ": Permission denied"});
}

TEST_F(FolderWalkTest, goesDownFarAndComesBack)
{
    std::string name = "0";
    for (int depth = 0; depth < 200; depth++) {
        makeFolder(name);
        (void)folder_.write(name + "/z.jpg", "");
        name += "/0";
    }
    const Walked walked = walk({folder_.path()});
    ASSERT_EQ(walked.paths.size(), 200u);
    EXPECT_EQ(walked.paths.back(), folder_.file("0/z.jpg"));
    EXPECT_EQ(walked.complaints, Texts());
}

TEST(AcceptedNames, knowsTypesAsTheWindowDoes)
{
    AcceptedNames names;
    const struct {
        const char* path;
        bool isAccepted;
    } rows[] = {
        {"a.jpg", true},   {"a.JPEG", true},    {"/x/y.Nef", true}, {"a.jpg/", true},
        {"a.jpg//", true}, {"a.tar.jpg", true}, {"a.txt", false},   {"jpg", false},
        {".jpg", false},   {"/x.jpg/y", false}, {"", false},        {"/", false},
        {"a.", false},     {"a.jpg.", false},   {"a.\xff", false},  {"..jpg", true},
    };
    for (int round = 0; round < 2; round++) {
        for (const auto& row : rows) EXPECT_EQ(names.accepts(row.path), row.isAccepted) << row.path;
        // So many extensions that the first ones are forgotten.
        for (int i = 0; i < 100; i++) EXPECT_FALSE(names.accepts("a.x" + std::to_string(i)));
    }
}
