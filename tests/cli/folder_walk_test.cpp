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
    Texts errors{};
};

Walked walk(const Texts& starts, bool recursive = true)
{
    Walked walked;
    FolderWalk folders(starts, recursive, [&](const std::string& path, const std::string& why) {
        walked.errors.push_back(path + ": " + why);
    });
    while (auto path = folders.next()) walked.paths.push_back(*path);
    EXPECT_EQ(folders.next(), std::nullopt) << "it stays at the end";
    return walked;
}

class Tree {
public:
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
    std::string path() const { return folder_.path(); }
    std::string file(const std::string& name) const { return folder_.file(name); }
    std::string write(const std::string& name) const { return folder_.write(name, "x"); }

private:
    test::TemporaryFolder folder_;
};
}  // namespace

TEST(FolderWalk, sortsNamesByTheirBytesAndEntersFoldersInPlace)
{
    const Tree tree;
    tree.makeFolder("b");
    tree.makeFolder("b/z");
    tree.makeFolder("empty");
    for (const char* name : {"c.jpg", "B.jpg", "a.jpg", "b/2.nef", "b/10.nef", "b/z/1.jpg",
                             "b/\xc3\xa4.jpg", "b/z.jpg", "\xff.jpg", "b.jpg", "b-.jpg"}) {
        (void)tree.write(name);
    }
    const Walked walked = walk({tree.path()});
    EXPECT_EQ(walked.paths,
              tree.paths({"B.jpg", "a.jpg", "b/10.nef", "b/2.nef", "b/z/1.jpg", "b/z.jpg",
                          "b/\xc3\xa4.jpg", "b-.jpg", "b.jpg", "c.jpg", "\xff.jpg"}));
    EXPECT_EQ(walked.errors, Texts());
}

TEST(FolderWalk, returnsPathsThatBeginWithTheStartAsGiven)
{
    const Tree tree;
    tree.makeFolder("a");
    const std::string file = tree.write("a/x.jpg");
    EXPECT_EQ(walk({tree.file("a")}).paths, Texts{file});
    EXPECT_EQ(walk({tree.file("a/")}).paths, Texts{file});
    EXPECT_EQ(walk({tree.file("a/.")}).paths, Texts{tree.file("a/./x.jpg")});
    EXPECT_EQ(walk({tree.file("a"), tree.file("a")}).paths, (Texts{file, file}));
}

TEST(FolderWalk, takesOnlyPicturesByTheirType)
{
    const Tree tree;
    for (const char* name : {"a.JPG", "b.Cr2", "c.txt", "d", ".jpg", "e.jpg.bak", "f.tiff",
                             ".g.jpg", "h.jpg~", "i.raw", "j.jpg "}) {
        (void)tree.write(name);
    }
    EXPECT_EQ(walk({tree.path()}).paths, tree.paths({".g.jpg", "a.JPG", "b.Cr2", "i.raw"}));
}

TEST(FolderWalk, returnsAStartThatIsNotAFolderAsItIs)
{
    const Tree tree;
    const std::string notes = tree.write("notes.txt");
    const std::string missing = tree.file("missing");
    EXPECT_EQ(walk({notes, missing}).paths, (Texts{notes, missing}));
}

TEST(FolderWalk, entersNoFolderUnlessRecursive)
{
    const Tree tree;
    (void)tree.write("a.jpg");
    EXPECT_EQ(walk({tree.path()}, false).paths, Texts{tree.path()});
}

TEST(FolderWalk, followsLinksToFilesButNotToFolders)
{
    const Tree tree;
    tree.makeFolder("a");
    (void)tree.write("a/x.jpg");
    (void)tree.write("notes");
    const std::pair<const char*, const char*> links[] = {{"a/x.jpg", "link.jpg"},
                                                         {"notes", "notes.jpg"},
                                                         {"nowhere", "dangling.jpg"},
                                                         {"a", "folder.jpg"},
                                                         {"a", "folder"},
                                                         {"..", "a/up"},
                                                         {".", "a/here"},
                                                         {"circle.jpg", "circle.jpg"}};
    for (const auto& [target, name] : links) {
        ASSERT_EQ(symlink(target, tree.file(name).c_str()), 0);
    }
    const Walked walked = walk({tree.path()});
    EXPECT_EQ(walked.paths,
              tree.paths({"a/x.jpg", "circle.jpg", "dangling.jpg", "link.jpg", "notes.jpg"}))
        << "a dangling link is reported when it is read";
    EXPECT_EQ(walked.errors, Texts());
    EXPECT_EQ(walk({tree.file("folder")}).paths, tree.paths({"folder/x.jpg"}))
        << "a start may be a link";
}

TEST(FolderWalk, skipsWhatIsNotAFile)
{
    const Tree tree;
    ASSERT_EQ(mkfifo(tree.file("pipe.jpg").c_str(), 0600), 0);
    tree.makeFolder("folder.jpg");
    (void)tree.write("folder.jpg/a.jpg");
    EXPECT_EQ(walk({tree.path()}).paths, tree.paths({"folder.jpg/a.jpg"}));
}

TEST(FolderWalk, reportsAFolderThatCannotBeReadAndContinues)
{
    const Tree tree;
    tree.makeFolder("a");
    tree.makeFolder("b");
    (void)tree.write("a/x.jpg");
    (void)tree.write("b/x.jpg");
    ASSERT_EQ(chmod(tree.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(tree.file("b").c_str(), 0755), 0);
    ASSERT_EQ(chmod(tree.file("a").c_str(), 0), 0);
    const Walked walked = [&tree] {
        const test::WithoutPrivileges nobody;
        return walk({tree.path()});
    }();
    ASSERT_EQ(chmod(tree.file("a").c_str(), 0700), 0);
    EXPECT_EQ(walked.paths, tree.paths({"b/x.jpg"}));
    EXPECT_EQ(walked.errors, Texts{tree.file("a") + ": Permission denied"});
}

TEST(FolderWalk, walksThroughDeepTrees)
{
    const Tree tree;
    std::string name = "0";
    for (int depth = 0; depth < 200; depth++) {
        tree.makeFolder(name);
        (void)tree.write(name + "/z.jpg");
        name += "/0";
    }
    const Walked walked = walk({tree.path()});
    ASSERT_EQ(walked.paths.size(), 200u);
    EXPECT_EQ(walked.paths.back(), tree.file("0/z.jpg"));
    EXPECT_EQ(walked.errors, Texts());
}

TEST(AcceptedNames, acceptsTheTypesThatTheWindowAccepts)
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
        // Enough extensions to forget the first ones.
        for (int i = 0; i < 100; i++) EXPECT_FALSE(names.accepts("a.x" + std::to_string(i)));
    }
}
