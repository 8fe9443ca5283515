#include "base/whole_file.h"

#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <cerrno>

#include <sys/stat.h>

using namespace pinorama;

TEST(readWholeFile, givesTheContentUpToTheLimit)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(readWholeFile(folder.write("empty", ""), 10), "");
    EXPECT_EQ(readWholeFile(folder.write("ten", "0123456789"), 10), "0123456789");
    EXPECT_EQ(readWholeFile(folder.write("eleven", "0123456789a"), 10), std::nullopt);
    EXPECT_EQ(errno, EFBIG);
}

TEST(readWholeFile, readsRegularFilesOnly)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(readWholeFile(folder.file("missing"), 10), std::nullopt);
    EXPECT_EQ(errno, ENOENT);
    EXPECT_EQ(readWholeFile(folder.path(), 10), std::nullopt);
    EXPECT_EQ(errno, EISDIR);
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0600), 0);
    EXPECT_EQ(readWholeFile(folder.file("pipe"), 10), std::nullopt) << "without waiting";
    EXPECT_EQ(readWholeFile("/dev/zero", 10), std::nullopt);
}
