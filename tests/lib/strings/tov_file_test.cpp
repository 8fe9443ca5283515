#include "lib/strings/tov_file.h"

#include "base/alloc.h"
#include "base/status.h"
#include "lib/strings/string_holder.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

using namespace pinorama;

using test::takeUTF8;
using test::text;
using test::utf8;

namespace {
int openDescriptors()
{
    int count = 0;
    for ([[maybe_unused]] const auto& entry :
         std::filesystem::directory_iterator("/proc/self/fd")) {
        count++;
    }
    return count;
}

std::optional<std::string> readText(const std::string& path)
{
    return takeUTF8(TovStringFromFile(path.c_str()));
}
}  // namespace

TEST(TovStringFromFile, readsTheWholeFile)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(readText(folder.write("ascii", "line\n\nline\r\n")), "line\n\nline\r\n");
    EXPECT_EQ(readText(folder.write("utf8", "caf\u00e9")), "café");
    EXPECT_EQ(readText(folder.write("macroman", "caf\x8e")), "café");
    EXPECT_EQ(readText(folder.write("zeros", std::string_view("a\0b", 3))), std::string("a\0b", 3));
    const std::string large(1000000, 'x');
    EXPECT_EQ(readText(folder.write("large", large)), large);
}

TEST(TovStringFromFile, keepsAByteOrderMark)
{
    const test::TemporaryFolder folder;
    const StringHolder string(TovStringFromFile(folder.write("bom", "\xef\xbb\xbfx").c_str()));
    EXPECT_EQ(unitsOf(string.get()), u"\ufeffx");
}

TEST(TovStringFromFile, givesAnEmptyTextForAnEmptyFile)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(readText(folder.write("empty", "")), "");
}

TEST(TovStringFromFile, isNullWithoutAFile)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(TovStringFromFile(nullptr), nullptr);
    EXPECT_EQ(TovStringFromFile(""), nullptr);
    EXPECT_EQ(readText(folder.file("missing")), std::nullopt);
    EXPECT_EQ(readText(folder.path()), std::nullopt) << "a folder";
}

TEST(TovStringFromFile, takesAPathInRawBytes)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(readText(folder.write("caf\xe9 \xff", "found")), "found");
}

TEST(TovStringFromFile, closesTheFileOnEveryPath)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("file", "content");
    const int before = openDescriptors();
    std::uint64_t nth = 1;
    for (;; nth++) {
        baseFailAllocation(nth);
        const StringHolder string(TovStringFromFile(path.c_str()));
        if (!baseAllocationHasFailed()) break;
        EXPECT_FALSE(string);
    }
    baseFailAllocation(0);
    EXPECT_GE(nth, 3u);
    EXPECT_EQ(openDescriptors(), before);
}

TEST(TovStringWriteToFile, writesUTF8)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("new.kml");
    EXPECT_EQ(TovStringWriteToFile(text("caf\u00e9\n").get(), text(path).get(), kTextFileUTF8), 0);
    EXPECT_EQ(test::readFile(path), "caf\u00e9\n");
}

TEST(TovStringWriteToFile, keepsTheEndOfALongerFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("old", "0123456789");
    EXPECT_EQ(TovStringWriteToFile(text("abc").get(), text(path).get(), kTextFileUTF8), 0);
    EXPECT_EQ(test::readFile(path), "abc3456789");
}

TEST(TovStringWriteToFile, writesNothingInAnotherEncoding)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("new");
    EXPECT_EQ(TovStringWriteToFile(text("abc").get(), text(path).get(), 0), 0);
    EXPECT_TRUE(std::filesystem::exists(path));
    EXPECT_EQ(test::readFile(path), "");
    const std::string old = folder.write("old", "content");
    EXPECT_EQ(TovStringWriteToFile(text("abc").get(), text(old).get(), 11), 0);
    EXPECT_EQ(test::readFile(old), "content");
}

TEST(TovStringWriteToFile, writesTheByteForm)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("file");
    EXPECT_EQ(TovStringWriteToFile(text({"a\0b", 3}).get(), text(path).get(), kTextFileUTF8), 0);
    EXPECT_EQ(test::readFile(path), "a") << "it ends at an embedded null";
    EXPECT_EQ(TovStringWriteToFile(nullptr, text(path).get(), kTextFileUTF8), 0);
    EXPECT_EQ(test::readFile(path), "a") << "and null has none";
}

TEST(TovStringWriteToFile, passesStatusesOn)
{
    const test::TemporaryFolder folder;
    const auto string = text("abc");
    const std::string missing = folder.file("missing/file");
    EXPECT_EQ(TovStringWriteToFile(string.get(), text(missing).get(), kTextFileUTF8), kErrNotFound);
    EXPECT_EQ(TovStringWriteToFile(string.get(), nullptr, kTextFileUTF8), kErrNotFound);
    EXPECT_LT(TovStringWriteToFile(string.get(), text(folder.path()).get(), kTextFileUTF8), 0);
    EXPECT_EQ(TovStringWriteToFile(string.get(), text("/dev/full").get(), kTextFileUTF8),
              kErrDiskFull);
}

TEST(TovStringWriteToFile, reportsThatMemoryRanOut)
{
    const test::TemporaryFolder folder;
    const auto string = text("abc"), path = text(folder.file("file"));
    const int before = openDescriptors();
    std::uint64_t nth = 1;
    for (;; nth++) {
        baseFailAllocation(nth);
        const std::int16_t status = TovStringWriteToFile(string.get(), path.get(), kTextFileUTF8);
        if (!baseAllocationHasFailed()) break;
        EXPECT_EQ(status, kErrNoMemory);
    }
    baseFailAllocation(0);
    EXPECT_GE(nth, 2u);
    EXPECT_EQ(openDescriptors(), before);
    EXPECT_EQ(test::readFile(folder.file("file")), "abc");
}

TEST(TovStringFromFile, isNullAtEveryRequestThatFails)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a text in a file", "a text that takes memory");
    EXPECT_GT(test::failEachRequest([&] { return TovStringFromFile(path.c_str()); }), 2u);
}
