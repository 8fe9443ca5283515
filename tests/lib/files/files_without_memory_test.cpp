// The functions of this room when memory runs out at each of their requests in turn.

#include "base/status.h"
#include "lib/files/file_names.h"
#include "lib/files/file_reference.h"
#include "lib/files/folders.h"
#include "lib/files/fork_io.h"
#include "lib/files/volumes_and_nodes.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace pinorama;

namespace {
// A folder with one file, whose paths and names take memory.
struct Items {
    test::TemporaryFolder folder;
    std::string path = folder.write("a picture of the harbour \xff.jpg", "content");
    test::Text pathText{createString(u"")};
    FSRef file, parent;

    Items()
    {
        EXPECT_EQ(feMakeFSRefFromBytes(path.c_str(), &file), 0);
        EXPECT_EQ(feMakeFSRefFromBytes(folder.path().c_str(), &parent), 0);
        pathText = test::Text(feGetPathFromFSRef(&file, 0));
    }
};

bool isMinus108(std::int32_t status)
{
    if (status != kErrNone) {
        EXPECT_EQ(status, kErrNoMemory);
    }
    return status != kErrNone;
}
}  // namespace

TEST(feMakeFSRefFromPath, givesMinus108AtEveryRequest)
{
    const Items items;
    FSRef ref;
    const auto make = [&] {
        ref.path.clear();
        ref.path.shrink_to_fit();
        return feMakeFSRefFromPath(items.pathText.get(), &ref);
    };
    EXPECT_GT(test::failEachRequest(make, isMinus108), 2u);
    EXPECT_EQ(ref.path, items.file.path);
}

TEST(feMakeFSRefFromParent, givesMinus108AtEveryRequest)
{
    const Items items;
    const test::Text name(feGetItemNameFromRef(&items.file));
    FSRef ref;
    EXPECT_GT(
        test::failEachRequest(
            [&] { return feMakeFSRefFromParent(&items.parent, name.get(), &ref); }, isMinus108),
        1u);
    EXPECT_EQ(ref.path, items.file.path);
    EXPECT_GT(test::failEachRequest([&] { return feItemExists(&items.parent, name.get()); },
                                    [](bool exists) { return !exists; }),
              1u);
}

TEST(feGetFSRefFromCFURL, givesMinus50AtEveryRequest)
{
    const Items items;
    const test::Text address = test::text("file://" + items.folder.path());
    FSRef ref;
    EXPECT_GT(test::failEachRequest([&] { return feGetFSRefFromCFURL(address.get(), &ref); },
                                    [](std::int32_t status) { return status == kErrBadArgument; }),
              1u);
    EXPECT_EQ(ref.path, items.parent.path);
}

TEST(feGetParentRef, givesMinus108AtEveryRequest)
{
    const Items items;
    FSRef ref;
    EXPECT_GT(test::failEachRequest([&] { return feGetParentRef(&items.file, &ref); }, isMinus108),
              0u);
    EXPECT_EQ(ref.path, items.parent.path);
}

TEST(feGetPathFromFSRef, isNullAtEveryRequest)
{
    const Items items;
    EXPECT_GT(test::failEachRequest([&] { return feGetPathFromFSRef(&items.file, 0); }), 1u);
    EXPECT_GT(test::failEachRequest([&] { return feGetItemNameFromRef(&items.file); }), 1u);
}

TEST(feGetUniqueFileName, isNullAtTheRequestsForTheName)
{
    const Items items;
    const test::Text base = test::text("a picture of the harbour"), suffix = test::text(".kml");
    // Whether a name is free is not known without memory; the name is taken for free then.
    std::uint64_t nulls = 0;
    for (std::uint64_t nth = 1;; nth++) {
        baseFailAllocation(nth);
        const test::Text name(feGetUniqueFileName(&items.parent, base.get(), suffix.get()));
        const bool ranOut = baseAllocationHasFailed();
        baseFailAllocation(0);
        nulls += name.get() == nullptr;
        if (name.get() != nullptr) {
            EXPECT_EQ(test::utf8(name.get()), "a picture of the harbour 1.kml");
        }
        if (!ranOut) break;
    }
    EXPECT_GT(nulls, 1u);
}

TEST(feCreateFolder, givesMinus108AtEveryRequest)
{
    const Items items;
    const test::Text name = test::text("a folder with a long name");
    FSRef ref;
    EXPECT_GT(test::failEachRequest([&] { return feCreateFolder(&items.parent, name.get(), &ref); },
                                    isMinus108),
              1u);
    EXPECT_TRUE(std::filesystem::is_directory(ref.path));
}

TEST(feCreateAndOpenDataFileUnicode, givesMinus108AtEveryRequest)
{
    const Items items;
    const test::Text name = test::text("a file with a long name");
    FSRef ref;
    ForkRef fork = 0;
    EXPECT_GT(test::failEachRequest(
                  [&] {
                      return feCreateAndOpenDataFileUnicode(&items.parent, name.get(), 0, 0, &ref,
                                                            &fork);
                  },
                  isMinus108),
              1u);
    EXPECT_EQ(feCloseFork(fork), 0);
}

TEST(feRenameFolder, givesMinus108AtEveryRequest)
{
    const Items items;
    const test::Text name = test::text("another name of the same length.jpg");
    FSRef ref;
    EXPECT_GT(test::failEachRequest([&] { return feRenameFolder(&items.file, name.get(), &ref); },
                                    isMinus108),
              2u);
    EXPECT_TRUE(std::filesystem::exists(ref.path));
}

TEST(feGetFirstFileInFolderWithSuffix, givesMinus1AtTheRequestsThatItNeeds)
{
    const Items items;
    const test::Text suffix = test::text(".jpg");
    FSRef ref = {"untouched"};
    EXPECT_GT(
        test::failEachRequest(
            [&] { return feGetFirstFileInFolderWithSuffix(&items.parent, suffix.get(), &ref); },
            [](std::int32_t status) { return status == kErrNothingUsable; }),
        2u);
    EXPECT_EQ(ref.path, items.file.path);
}

TEST(feGetPathOfSpecialFolder, isNullAtEveryRequest)
{
    EXPECT_GT(test::failEachRequest([] { return feGetPathOfSpecialFolder(13); }), 1u);
}

TEST(feCreateAndOpenTextFile, givesMinus108AtEveryRequest)
{
    const Items items;
    ForkRef fork = 0;
    EXPECT_GT(test::failEachRequest(
                  [&] { return feCreateAndOpenTextFile(items.pathText.get(), &fork); }, isMinus108),
              2u);
    EXPECT_EQ(feCloseFork(fork), 0);
}

TEST(feGetVolRefAndDirIDFromPath, givesMinus108AtEveryRequest)
{
    const Items items;
    std::uint64_t volume = 0, node = 0;
    EXPECT_GT(test::failEachRequest(
                  [&] { return feGetVolRefAndDirIDFromPath(items.pathText.get(), &volume, &node); },
                  isMinus108),
              2u);
    EXPECT_NE(node, 0u);
}
