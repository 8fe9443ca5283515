#include "lib/files/file_reference.h"

#include "base/alloc.h"
#include "base/status.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

// The path that a reference from `path` holds, or "status N".
std::string reference(const std::string& path)
{
    FSRef ref = {"untouched"};
    const std::int32_t status = feMakeFSRefFromPath(test::text(path).get(), &ref);
    if (status == 0) return ref.path;
    EXPECT_EQ(ref.path, "untouched");
    return "status " + std::to_string(status);
}

// Changes the working folder until the end of the scope.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::string& path) : earlier_(fs::current_path())
    {
        fs::current_path(path);
    }
    ~WorkingFolder() { fs::current_path(earlier_); }

private:
    fs::path earlier_;
};

// A folder with items of every kind that a path may end with.
struct Items {
    Items()
    {
        fs::create_directories(folder.file("dir.jpg/sub"));
        folder.write("file", "x");
        fs::create_symlink("file", folder.file("link"));
        fs::create_symlink("dir.jpg", folder.file("dirlink"));
        fs::create_symlink("nowhere", folder.file("dangling"));
        fs::create_symlink("loop", folder.file("loop"));
    }
    test::TemporaryFolder folder;
    std::string root = fs::canonical(folder.path());
};
}  // namespace

TEST(feMakeFSRefFromPath, namesExistingItems)
{
    const Items items;
    const struct {
        const char *name, *path, *expected;
    } rows[] = {
        {"file", "/file", "/file"},
        {"folder", "/dir.jpg", "/dir.jpg"},
        {"folder with a slash", "/dir.jpg/", "/dir.jpg"},
        {"folder with slashes", "/dir.jpg///", "/dir.jpg"},
        {"link to a file", "/link", "/file"},
        {"link to a folder", "/dirlink", "/dir.jpg"},
        {"link to a folder with a slash", "/dirlink/", "/dir.jpg"},
        {"through a link", "/dirlink/sub", "/dirlink/sub"},
        {"dot", "/dir.jpg/.", "/dir.jpg"},
        {"dot within", "/./file", "/file"},
        {"two dots", "/dir.jpg/sub/..", "/dir.jpg"},
        {"two dots within", "/dir.jpg/../file", "/file"},
        {"two slashes", "//file", "/file"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(reference(items.root + row.path), items.root + row.expected);
    }
    EXPECT_EQ(reference("/"), "/");
    EXPECT_EQ(reference("///"), "/");
}

TEST(feMakeFSRefFromPath, reportsWhyThereIsNoItem)
{
    const Items items;
    const struct {
        const char* name;
        std::string path;
        std::int32_t status;
    } rows[] = {
        {"empty", "", kErrNotFound},
        {"missing", items.root + "/missing", kErrNotFound},
        {"missing folder", items.root + "/missing/file", kErrNotFound},
        {"file as folder", items.root + "/file/x", kErrNotAFolder},
        {"file with a slash", items.root + "/file/", kErrNotAFolder},
        {"link to a file with a slash", items.root + "/link/", kErrNotAFolder},
        {"link to nowhere", items.root + "/dangling", kErrNotFound},
        {"link to itself", items.root + "/loop", kErrInputOutput},
        {"long name", items.root + "/" + std::string(256, 'n'), kErrBadName},
        {"long path", std::string(5000, '/') + "x" + std::string(5000, 'y'), kErrBadName},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(reference(row.path), "status " + std::to_string(row.status));
    }
    FSRef ref;
    EXPECT_EQ(feMakeFSRefFromPath(nullptr, &ref), kErrNotFound);
}

TEST(feMakeFSRefFromPath, makesARelativePathAbsolute)
{
    const Items items;
    const WorkingFolder here(items.root + "/dir.jpg");
    EXPECT_EQ(reference("sub"), items.root + "/dir.jpg/sub");
    EXPECT_EQ(reference("../file"), items.root + "/file");
    EXPECT_EQ(reference("../link"), items.root + "/file");
    EXPECT_EQ(reference("."), items.root + "/dir.jpg");
}

TEST(feMakeFSRefFromPath, endsThePathAtAZeroUnit)
{
    const Items items;
    const std::string path = items.root + "/file" + std::string("\0.jpg", 5);
    EXPECT_EQ(reference(path), items.root + "/file");
}

TEST(feMakeFSRefFromPath, acceptsNamesThatAreNotUTF8)
{
    const Items items;
    const std::string name = "caf\xe9.jpg";
    const std::string path = items.folder.write(name, "x");
    FSRef ref = {items.root + "/" + name};
    const test::Text text(feGetPathFromFSRef(&ref, 0));
    ASSERT_TRUE(text);
    ref.path.clear();
    EXPECT_EQ(feMakeFSRefFromPath(text.get(), &ref), 0);
    EXPECT_EQ(ref.path, items.root + "/" + name);
}

TEST(feMakeFSRefFromPath, givesMinus108WhenMemoryRunsOut)
{
    const Items items;
    const test::Text plain = test::text(items.root + "/file");
    const std::u16string damaged = u"/caf\xdce9";
    const test::Text raw(createString(damaged));
    for (const TovStringRef path : {plain.get(), raw.get()}) {
        FSRef ref = {"untouched"};
        baseFailAllocation(1);
        EXPECT_EQ(feMakeFSRefFromPath(path, &ref), kErrNoMemory);
        baseFailAllocation(0);
        EXPECT_EQ(ref.path, "untouched");
    }
}

TEST(feMakeFSRefFromParent, namesAChildOrALink)
{
    const test::TemporaryFolder folder;
    folder.write("file \u00e4", "x");
    fs::create_symlink("nowhere", folder.file("dangling"));
    const FSRef parent = {folder.path()};
    const struct {
        const char *name, *child;
        std::int32_t status;
    } rows[] = {
        {"file", "file \u00e4", 0},
        {"link to nowhere", "dangling", 0},
        {"missing", "missing", kErrNotFound},
        {"empty", "", kErrBadName},
        {"dot", ".", kErrBadName},
        {"two dots", "..", kErrBadName},
        {"slash", "a/b", kErrBadName},
        {"child of a child", "../x", kErrBadName},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FSRef ref = {"untouched"};
        EXPECT_EQ(feMakeFSRefFromParent(&parent, test::text(row.child).get(), &ref), row.status);
        EXPECT_EQ(ref.path, row.status == 0 ? folder.file(row.child) : "untouched");
    }
    FSRef ref = {"untouched"};
    EXPECT_EQ(feMakeFSRefFromParent(&parent, nullptr, &ref), kErrBadName);
    const test::Text withZero = test::text(std::string("file\0", 5));
    EXPECT_EQ(feMakeFSRefFromParent(&parent, withZero.get(), &ref), kErrBadName);

    const FSRef root = {"/"};
    EXPECT_EQ(feMakeFSRefFromParent(&root, test::text("tmp").get(), &ref), 0);
    EXPECT_EQ(ref.path, "/tmp");
}

TEST(feGetFSRefFromCFURL, acceptsFileURLsOnly)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a b%\u00e4", "x");
    const struct {
        const char* name;
        std::string url;
        bool isFound;
    } rows[] = {
        {"escaped", "file://" + folder.path() + "/a%20b%25%C3%A4", true},
        {"small digits", "file://" + folder.path() + "/a%20b%25%c3%a4", true},
        {"raw characters", "file://" + folder.path() + "/a b%25\u00e4", true},
        {"localhost", "file://localhost" + folder.path() + "/a%20b%25%C3%A4", true},
        {"no authority", "file:" + folder.path() + "/a%20b%25%C3%A4", true},
        {"capital scheme", "FILE://" + folder.path() + "/a%20b%25%C3%A4", true},
        {"query and fragment", "file://" + folder.path() + "/a%20b%25%C3%A4?q#f", true},
        {"missing item", "file://" + folder.path() + "/missing", false},
        {"damaged escape", "file://" + folder.path() + "/a%2", false},
        {"no digits", "file://" + folder.path() + "/a%zz", false},
        {"sign for a digit", "file://" + folder.path() + "/a%+1", false},
        {"escaped zero", "file://" + folder.path() + "/a%00", false},
        {"another host", "file://elsewhere" + folder.path(), false},
        {"another scheme", "http://localhost" + folder.path(), false},
        {"plain path", folder.path(), false},
        {"relative", "file:a", false},
        {"empty", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FSRef ref = {"untouched"};
        EXPECT_EQ(feGetFSRefFromCFURL(test::text(row.url).get(), &ref),
                  row.isFound ? 0 : kErrBadArgument);
        EXPECT_EQ(ref.path, row.isFound ? path : "untouched");
    }
    FSRef ref;
    EXPECT_EQ(feGetFSRefFromCFURL(nullptr, &ref), kErrBadArgument);
}

TEST(feGetParentRef, namesTheFolder)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("file", "x")};
    FSRef parent;
    EXPECT_EQ(feGetParentRef(&file, &parent), 0);
    EXPECT_EQ(parent.path, folder.path());

    const FSRef top = {"/tmp"};
    EXPECT_EQ(feGetParentRef(&top, &parent), 0);
    EXPECT_EQ(parent.path, "/");
    EXPECT_EQ(feGetParentRef(&parent, &parent), kErrNotFound) << "the root folder has none";
    EXPECT_EQ(parent.path, "/");

    const FSRef missing = {folder.file("missing")};
    EXPECT_EQ(feGetParentRef(&missing, &parent), kErrNotFound);
}

TEST(feGetPathFromFSRef, givesThePOSIXPathOfAnExistingItem)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("\u00e4.jpg", "x")};
    EXPECT_EQ(test::takeUTF8(feGetPathFromFSRef(&file, 0)), file.path);
    for (const std::int32_t style : {1, 2, -1}) {
        SCOPED_TRACE(style);
        EXPECT_EQ(feGetPathFromFSRef(&file, style), nullptr);
    }
    const FSRef missing = {folder.file("missing")};
    EXPECT_EQ(feGetPathFromFSRef(&missing, 0), nullptr);
    baseFailAllocation(1);
    EXPECT_EQ(feGetPathFromFSRef(&file, 0), nullptr);
    baseFailAllocation(0);
}

TEST(feGetItemNameFromRef, givesTheLastPart)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("a b.jpg", "x")};
    EXPECT_EQ(test::takeUTF8(feGetItemNameFromRef(&file)), "a b.jpg");
    const FSRef root = {"/"};
    EXPECT_EQ(test::takeUTF8(feGetItemNameFromRef(&root)), "/");
    const FSRef missing = {folder.file("missing")};
    EXPECT_EQ(feGetItemNameFromRef(&missing), nullptr);
}

TEST(feItemExists, reportsWhetherTheNameIsTaken)
{
    const test::TemporaryFolder folder;
    folder.write("file", "x");
    fs::create_symlink("nowhere", folder.file("dangling"));
    const FSRef parent = {folder.path()};
    EXPECT_TRUE(feItemExists(&parent, test::text("file").get()));
    EXPECT_TRUE(feItemExists(&parent, test::text("dangling").get()));
    for (const char* name : {"missing", "File", "", ".", "..", "/tmp"}) {
        SCOPED_TRACE(name);
        EXPECT_FALSE(feItemExists(&parent, test::text(name).get()));
    }
    EXPECT_FALSE(feItemExists(&parent, nullptr));
}

TEST(feMakeFSRefFromParent, aReferenceToNothingHasNoChildren)
{
    const FSRef nothing;
    FSRef ref = {"/kept"};
    EXPECT_EQ(feMakeFSRefFromParent(&nothing, test::text("tmp").get(), &ref), kErrNotFound);
    EXPECT_EQ(ref.path, "/kept");
    EXPECT_FALSE(feItemExists(&nothing, test::text("tmp").get()));
}

TEST(feMakeFSRefFromParent, acceptsNamesThatAreNotUTF8)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("caf\xe9 \u00e4.jpg", "x")};
    const test::Text name(feGetItemNameFromRef(&file));
    ASSERT_TRUE(name);
    EXPECT_EQ(unitsOf(name.get()), u"caf\xdce9 \u00e4.jpg");

    const FSRef parent = {folder.path()};
    FSRef ref;
    EXPECT_EQ(feMakeFSRefFromParent(&parent, name.get(), &ref), 0);
    EXPECT_EQ(ref.path, file.path);
    EXPECT_TRUE(feItemExists(&parent, name.get()));
    const test::Text path(feGetPathFromFSRef(&file, 0));
    EXPECT_EQ(feMakeFSRefFromPath(path.get(), &ref), 0);
    EXPECT_EQ(ref.path, file.path);
}

TEST(feGetItemNameFromRef, givesNullWhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("a", "x")};
    baseFailAllocation(1);
    EXPECT_EQ(feGetItemNameFromRef(&file), nullptr);
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}
