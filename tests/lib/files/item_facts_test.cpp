#include "lib/files/item_facts.h"

#include "base/status.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

namespace {
void setModified(const std::string& path, time_t seconds, long nanoseconds)
{
    const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}
}  // namespace

TEST(feGetFileModificationDate, countsWholeSecondsSince1904InUTC)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("f", "")};
    const struct {
        const char* name;
        time_t seconds;
        long nanoseconds;
        std::uint32_t expected;
    } rows[] = {
        {"1970", 0, 0, 2082844800u},
        {"2000", 946684800, 0, 3029529600u},
        {"fraction is dropped", 946684800, 999999999, 3029529600u},
        {"last second that fits", 2212122495, 0, 4294967295u},
        {"low 32 bits after it", 2212122496, 0, 0u},
        {"half a second before 1970", -1, 500000000, 2082844799u},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        for (const char* zone : {"UTC", "Europe/Berlin"}) {
            const test::ScopedVariable timeZone("TZ", zone);
            setModified(ref.path, row.seconds, row.nanoseconds);
            EXPECT_EQ(feGetFileModificationDate(&ref), row.expected);
        }
    }
    const FSRef missing = {folder.file("missing")};
    EXPECT_EQ(feGetFileModificationDate(&missing), 0u);
}

TEST(feGetFileTypeAndCreator, areZero)
{
    const test::TemporaryFolder folder;
    const FSRef ref = {folder.write("f", "")};
    const FSRef missing = {folder.file("missing")};
    std::uint32_t type = 1, creator = 2;
    EXPECT_EQ(feGetFileTypeAndCreator(&ref, &type, &creator), 0);
    EXPECT_EQ(type, 0u);
    EXPECT_EQ(creator, 0u);
    type = creator = 3;
    EXPECT_EQ(feGetFileTypeAndCreator(&missing, &type, &creator), kErrNotFound);
    EXPECT_EQ(type, 0u);
    EXPECT_EQ(creator, 0u);
}

TEST(feGetFileDataSize, countsTheBytesOfAFile)
{
    const test::TemporaryFolder folder;
    const FSRef file = {folder.write("f", std::string(1000, 'x'))};
    const FSRef empty = {folder.write("e", "")};
    const FSRef self = {folder.path()};
    const FSRef missing = {folder.file("missing")};
    const FSRef link = {folder.file("link")};
    std::filesystem::create_symlink("f", link.path);
    EXPECT_EQ(feGetFileDataSize(&file), 1000);
    EXPECT_EQ(feGetFileDataSize(&link), 1000);
    EXPECT_EQ(feGetFileDataSize(&empty), 0);
    EXPECT_EQ(feGetFileDataSize(&self), 0);
    EXPECT_EQ(feGetFileDataSize(&missing), 0);
    std::filesystem::resize_file(file.path, (std::uint64_t{1} << 32) + 1);
    EXPECT_EQ(feGetFileDataSize(&file), (std::int64_t{1} << 32) + 1);
}

TEST(feIsFolder, distinguishesFoldersFromFiles)
{
    const test::TemporaryFolder folder;
    const FSRef self = {folder.path()};
    const FSRef file = {folder.write("dir.jpg", "")};
    const FSRef missing = {folder.file("missing")};
    const FSRef link = {folder.file("link")};
    std::filesystem::create_directory_symlink(folder.path(), link.path);
    EXPECT_TRUE(feIsFolder(&self));
    EXPECT_TRUE(feIsFolder(&link));
    EXPECT_FALSE(feIsFolder(&file));
    EXPECT_FALSE(feIsFolder(&missing));
}

TEST(feHasCustomIcon, isFalse)
{
    const test::TemporaryFolder folder;
    const FSRef self = {folder.path()};
    EXPECT_FALSE(feHasCustomIcon(&self));
}
