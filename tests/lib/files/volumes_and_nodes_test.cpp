#include "lib/files/volumes_and_nodes.h"

#include "base/alloc.h"
#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/files/fork_io.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cstring>
#include <filesystem>
#include <string>

#include <sys/stat.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

struct PascalName {
    explicit PascalName(const std::string& text)
    {
        bytes[0] = static_cast<std::uint8_t>(text.size());
        std::memcpy(bytes + 1, text.data(), text.size());
    }
    std::uint8_t bytes[256] = {};
};

std::string nameIn(const FSSpec& spec)
{
    return std::string(reinterpret_cast<const char*>(spec.name + 1), spec.name[0]);
}

// A folder whose volume and node are known.
struct KnownFolder {
    KnownFolder()
    {
        EXPECT_EQ(feGetVolRefAndDirIDFromPath(test::text(folder.path()).get(), &volume, &node), 0);
    }
    FSSpec spec(const std::string& name) const
    {
        FSSpec made = {};
        feMakeFastFSSpec(volume, node, PascalName(name).bytes, &made);
        return made;
    }
    test::TemporaryFolder folder;
    std::uint64_t volume = 0;
    std::uint64_t node = 0;
};
}  // namespace

TEST(feMakeFastFSSpec, fillsWithoutAsking)
{
    const struct {
        const char* name;
        std::string given, expected;
    } rows[] = {
        {"short", "a.jpg", "a.jpg"},
        {"empty", "", ""},
        {"63", std::string(63, 'x'), std::string(63, 'x')},
        {"64", std::string(64, 'x'), std::string(63, 'x')},
        {"255", std::string(255, 'x'), std::string(63, 'x')},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FSSpec spec = {};
        feMakeFastFSSpec(7, 8, PascalName(row.given).bytes, &spec);
        EXPECT_EQ(spec.volume, 7u);
        EXPECT_EQ(spec.parentNode, 8u);
        EXPECT_EQ(nameIn(spec), row.expected);
    }
    FSSpec spec = {1, 2, {3}};
    feMakeFastFSSpec(7, 8, nullptr, &spec);
    EXPECT_EQ(spec.name[0], 0);
}

TEST(feMakeFSSpec, fillsAndChecks)
{
    const KnownFolder known;
    known.folder.write("there", "x");
    const struct {
        const char* name;
        std::uint64_t volume, node;
        const char* child;
        std::int32_t status;
    } rows[] = {
        {"there", known.volume, known.node, "there", 0},
        {"the folder itself", known.volume, known.node, "", 0},
        {"missing", known.volume, known.node, "missing", kErrNotFound},
        {"slash", known.volume, known.node, "a/b", kErrBadName},
        {"unknown node", known.volume, ~std::uint64_t{0}, "there", kErrNotFound},
        {"unknown volume", ~std::uint64_t{0}, known.node, "there", kErrNotFound},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        FSSpec spec = {};
        EXPECT_EQ(feMakeFSSpec(row.volume, row.node, PascalName(row.child).bytes, &spec),
                  row.status);
        EXPECT_EQ(spec.volume, row.volume) << "filled in any case";
        EXPECT_EQ(nameIn(spec), row.child);
    }
}

TEST(feMakeFSSpecFromFSRef, namesTheFolderByItsNode)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("\u00e4.jpg", "x")};
    struct stat facts = {};
    ASSERT_EQ(stat(folder.path().c_str(), &facts), 0);
    FSSpec spec = {};
    EXPECT_EQ(feMakeFSSpecFromFSRef(&ref, &spec), 0);
    EXPECT_EQ(spec.volume, facts.st_dev);
    EXPECT_EQ(spec.parentNode, facts.st_ino);
    EXPECT_EQ(nameIn(spec), "\x8a.jpg") << "in MacRoman";

    ForkRef fork = 0;
    EXPECT_EQ(feOpenExistingFile(&spec, &fork, 0, 1), 0) << "and back";
    EXPECT_EQ(feCloseFork(fork), 0);
}

TEST(feMakeFSSpecFromFSRef, refusesNamesThatDoNotFit)
{
    const test::TemporaryFolder folder;
    const struct {
        const char* name;
        std::string file;
        std::int32_t status;
    } rows[] = {
        {"63 bytes", std::string(63, 'x'), 0},
        {"64 bytes", std::string(64, 'x'), kErrBadName},
        {"63 characters of two bytes", std::string("\u00e4") + std::string(62, 'x'), 0},
        {"not in MacRoman", "\u0416", kErrBadName},
        {"decomposed", "a\u0308", kErrBadName},
        {"no UTF-8", "\xff", kErrBadName},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const FSRef ref = {folder.write(row.file, "")};
        FSSpec spec = {1, 2, {}};
        EXPECT_EQ(feMakeFSSpecFromFSRef(&ref, &spec), row.status);
        if (row.status != 0) {
            EXPECT_EQ(spec.volume, 1u) << "untouched";
        }
    }
    const FSRef missing = {folder.file("missing")};
    FSSpec spec = {};
    EXPECT_EQ(feMakeFSSpecFromFSRef(&missing, &spec), kErrNotFound);
}

TEST(feMakeFSSpecFromFSRef, namesTheRootFolderByItself)
{
    const FSRef root = {"/"};
    FSSpec spec = {};
    std::uint64_t node = 0;
    EXPECT_EQ(feMakeFSSpecFromFSRef(&root, &spec), 0);
    EXPECT_EQ(nameIn(spec), "");
    EXPECT_EQ(feGetDirID(&spec, &node), 0);
    EXPECT_EQ(node, spec.parentNode);
}

TEST(feMakeFSRefFromNodeID, findsNodesThatWereMet)
{
    const KnownFolder known;
    FSRef ref;
    EXPECT_EQ(feMakeFSRefFromNodeID(known.volume, known.node, &ref), 0);
    EXPECT_EQ(ref.path, known.folder.path());
    ref.path = "untouched";
    EXPECT_EQ(feMakeFSRefFromNodeID(known.volume, ~std::uint64_t{0}, &ref), kErrNotFound);
    EXPECT_EQ(ref.path, "untouched");
}

TEST(feMakeFSRefFromNodeID, noticesThatANodeIsGone)
{
    const KnownFolder known;
    const std::string path = known.folder.file("sub");
    fs::create_directory(path);
    std::uint64_t volume = 0, node = 0;
    ASSERT_EQ(feGetVolRefAndDirIDFromPath(test::text(path).get(), &volume, &node), 0);
    fs::rename(path, known.folder.file("moved"));
    fs::create_directory(path);  // another node at the path that is remembered
    FSRef ref;
    const std::int32_t status = feMakeFSRefFromNodeID(volume, node, &ref);
    if (status == 0) {
        EXPECT_EQ(ref.path, known.folder.file("moved")) << "never the other folder";
    } else {
        EXPECT_EQ(status, kErrNotFound);
    }
}

TEST(feMakeFSRefFromNodeID, findsFoldersNearTheWellKnownPlaces)
{
    const test::TemporaryFolder folder;
    const test::ScopedVariable home("HOME", folder.path().c_str());
    fs::create_directories(folder.file("Pictures/2024"));
    struct stat facts = {};
    ASSERT_EQ(stat(folder.file("Pictures/2024").c_str(), &facts), 0);
    FSRef ref;
    EXPECT_EQ(feMakeFSRefFromNodeID(facts.st_dev, facts.st_ino, &ref), 0);
    EXPECT_TRUE(fs::equivalent(ref.path, folder.file("Pictures/2024")));
}

TEST(feMakeFSRefFromNodeID, findsTheRootsOfVolumes)
{
    struct stat facts = {};
    ASSERT_EQ(stat("/proc", &facts), 0);
    FSRef ref;
    EXPECT_EQ(feMakeFSRefFromNodeID(facts.st_dev, facts.st_ino, &ref), 0);
    EXPECT_TRUE(fs::equivalent(ref.path, "/proc"));
}

TEST(feGetDirID, givesTheNodeOfAFolder)
{
    const KnownFolder known;
    fs::create_directory(known.folder.file("sub"));
    known.folder.write("file", "");
    struct stat facts = {};
    ASSERT_EQ(stat(known.folder.file("sub").c_str(), &facts), 0);
    const struct {
        const char* child;
        std::int32_t status;
        std::uint64_t node;
    } rows[] = {
        {"sub", 0, facts.st_ino},
        {"", 0, known.node},
        {"file", kErrNotAFolder, 77},
        {"missing", kErrNotFound, 77},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.child);
        const FSSpec spec = known.spec(row.child);
        std::uint64_t node = 77;
        EXPECT_EQ(feGetDirID(&spec, &node), row.status);
        EXPECT_EQ(node, row.node);
    }
}

TEST(feGetVolumeRefFromFSRef, givesTheDevice)
{
    const test::TemporaryFolder folder;
    struct stat facts = {};
    ASSERT_EQ(stat(folder.path().c_str(), &facts), 0);
    const FSRef ref = {folder.path()};
    EXPECT_EQ(feGetVolumeRefFromFSRef(&ref), facts.st_dev);
    const FSRef missing = {folder.file("missing")};
    EXPECT_EQ(feGetVolumeRefFromFSRef(&missing), 0u);
}

TEST(feGetVolRefAndDirIDFromPath, givesTheNodeOfAnyItem)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("file", "");
    struct stat facts = {};
    ASSERT_EQ(stat(path.c_str(), &facts), 0);
    std::uint64_t volume = 0, node = 0;
    EXPECT_EQ(feGetVolRefAndDirIDFromPath(test::text(path).get(), &volume, &node), 0);
    EXPECT_EQ(volume, facts.st_dev);
    EXPECT_EQ(node, facts.st_ino);
    const test::Text missing = test::text(folder.file("missing"));
    EXPECT_EQ(feGetVolRefAndDirIDFromPath(missing.get(), &volume, &node), kErrNotFound);
    EXPECT_EQ(feGetVolRefAndDirIDFromPath(nullptr, &volume, &node), kErrNotFound);
    EXPECT_EQ(node, facts.st_ino) << "untouched";
}

TEST(feGetPathCFString, givesThePathOfAFolder)
{
    const KnownFolder known;
    EXPECT_EQ(test::takeUTF8(feGetPathCFString(known.volume, known.node)), known.folder.path());
    EXPECT_EQ(feGetPathCFString(known.volume, ~std::uint64_t{0}), nullptr);
    std::uint64_t volume = 0, node = 0;
    const test::Text file = test::text(known.folder.write("file", ""));
    ASSERT_EQ(feGetVolRefAndDirIDFromPath(file.get(), &volume, &node), 0);
    EXPECT_EQ(feGetPathCFString(volume, node), nullptr) << "a file is no folder";
}

TEST(feNumberOfVolumesOnDisk, countsAtLeastTheItemsOwn)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.path()};
    std::uint32_t count = 0;
    EXPECT_EQ(feNumberOfVolumesOnDisk(&ref, &count), 0);
    EXPECT_GE(count, 1u);
    const FSRef inMemory = {"/proc"};
    EXPECT_EQ(feNumberOfVolumesOnDisk(&inMemory, &count), 0);
    EXPECT_EQ(count, 1u) << "on no disk";
    const FSRef missing = {folder.file("missing")};
    EXPECT_EQ(feNumberOfVolumesOnDisk(&missing, &count), kErrNotFound);
    EXPECT_EQ(count, 0u);
}

TEST(feOpenExistingFile, opensBySpecification)
{
    const KnownFolder known;
    known.folder.write("file", "content");
    const FSSpec spec = known.spec("file");
    ForkRef fork = 0;
    ASSERT_EQ(feOpenExistingFile(&spec, &fork, 1, 1), 0);
    EXPECT_EQ(feWriteToFile(fork, 0, 1, "C"), 0);
    EXPECT_EQ(feCloseFork(fork), 0);
    EXPECT_EQ(test::readFile(known.folder.file("file")), "Content");
    EXPECT_EQ(feOpenExistingFile(&spec, &fork, 1, 0), -1) << "no resource fork";
    EXPECT_EQ(fork, 0);
    const FSSpec missing = known.spec("missing");
    EXPECT_EQ(feOpenExistingFile(&missing, &fork, 1, 1), kErrNotFound);
}

TEST(feCreateNewFile, createsAFileOrKeepsAnExistingOne)
{
    const KnownFolder known;
    const FSSpec spec = known.spec("new");
    ForkRef fork = 77;
    EXPECT_EQ(feCreateNewFile(&spec, 1, 2, 0, 1, &fork), 0);
    EXPECT_EQ(fork, 0) << "not asked to open it";
    EXPECT_TRUE(fs::exists(known.folder.file("new")));

    known.folder.write("new", "kept");
    ASSERT_EQ(feCreateNewFile(&spec, 1, 2, 1, 0, &fork), 0);
    EXPECT_EQ(feAppendToFile(fork, 1, "!"), 0);
    EXPECT_EQ(feCloseFork(fork), 0);
    EXPECT_EQ(test::readFile(known.folder.file("new")), "kept!");

    fs::create_directory(known.folder.file("folder"));
    const FSSpec folder = known.spec("folder");
    EXPECT_EQ(feCreateNewFile(&folder, 1, 2, 1, 0, &fork), kErrInputOutput);
    const FSSpec bad = known.spec("a/b");
    EXPECT_EQ(feCreateNewFile(&bad, 1, 2, 1, 0, &fork), kErrBadName);
    EXPECT_EQ(fork, 0);
}

TEST(feAddVersRessource, hasNoEffect)
{
    const KnownFolder known;
    known.folder.write("file", "content");
    const FSSpec spec = known.spec("file");
    EXPECT_EQ(feAddVersRessource(&spec), 0);
    EXPECT_EQ(test::readFile(known.folder.file("file")), "content");
    const FSSpec missing = known.spec("missing");
    EXPECT_EQ(feAddVersRessource(&missing), kErrNotFound);
}

TEST(feDeleteFile, movesToTheTrash)
{
    const KnownFolder known;
    const test::ScopedVariable data("XDG_DATA_HOME", known.folder.file("share").c_str());
    known.folder.write("file", "content");
    const FSSpec spec = known.spec("file");
    EXPECT_EQ(feDeleteFile(&spec), 0);
    EXPECT_FALSE(fs::exists(known.folder.file("file")));
    EXPECT_EQ(test::readFile(known.folder.file("share/Trash/files/file")), "content");
    EXPECT_EQ(feDeleteFile(&spec), kErrNotFound);
}

TEST(feMakeFSSpecFromFSRef, givesMinus108WhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("a", "")};
    FSSpec spec = {1, 2, {}};
    baseFailAllocation(1);
    EXPECT_EQ(feMakeFSSpecFromFSRef(&ref, &spec), kErrNoMemory);
    baseFailAllocation(0);
    EXPECT_EQ(spec.volume, 1u) << "untouched";
}

TEST(feMakeFSSpec, givesMinus108WhenMemoryRunsOut)
{
    const KnownFolder known;
    FSSpec spec = {};
    baseFailAllocation(1);
    EXPECT_EQ(feMakeFSSpec(known.volume, known.node, PascalName("a").bytes, &spec), kErrNoMemory);
    baseFailAllocation(0);
    EXPECT_EQ(nameIn(spec), "a") << "filled in any case";
}

TEST(feGetVolRefAndDirIDFromPath, givesMinus108WhenMemoryRunsOut)
{
    const test::Text path = test::text("/");
    std::uint64_t volume = 1, node = 2;
    baseFailAllocation(1);
    EXPECT_EQ(feGetVolRefAndDirIDFromPath(path.get(), &volume, &node), kErrNoMemory);
    baseFailAllocation(0);
    EXPECT_EQ(volume, 1u);
    EXPECT_EQ(node, 2u);
}
