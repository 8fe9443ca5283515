#include "base/replacing_file.h"

#include "tests/support/environment.h"
#include "tests/support/permissions.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <string>
#include <thread>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
std::size_t countOfItems(const std::string& folder)
{
    const std::filesystem::directory_iterator items(folder);
    return static_cast<std::size_t>(std::distance(begin(items), end(items)));
}

bool replace(const std::string& path, const std::string& content,
             const ReplacingFileOptions& options = {})
{
    ReplacingFile file(options);
    return file.begin(path) && file.write(content) && file.finish();
}
}  // namespace

TEST(ReplacingFile, makesAFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("a.kml");
    EXPECT_TRUE(replace(path, "content"));
    EXPECT_EQ(test::readFile(path), "content");
    EXPECT_EQ(countOfItems(folder.path()), 1u);
}

TEST(ReplacingFile, keepsTheOldContentUntilTheNewOneIsWhole)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.kml", "a longer old content");
    {
        ReplacingFile file;
        ASSERT_TRUE(file.begin(path));
        ASSERT_TRUE(file.write(std::string(200'000, 'x')));
        EXPECT_EQ(test::readFile(path), "a longer old content");
        ASSERT_TRUE(file.write("y"));
        ASSERT_TRUE(file.finish());
    }
    EXPECT_EQ(test::readFile(path), std::string(200'000, 'x') + "y");
    EXPECT_EQ(countOfItems(folder.path()), 1u);
}

TEST(ReplacingFile, leavesNothingWhenItIsAbandoned)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.kml", "old");
    {
        ReplacingFile file;
        ASSERT_TRUE(file.begin(path));
        ASSERT_TRUE(file.write(std::string(200'000, 'x')));
        EXPECT_EQ(countOfItems(folder.path()), 2u);
    }
    EXPECT_EQ(test::readFile(path), "old");
    EXPECT_EQ(countOfItems(folder.path()), 1u);
}

TEST(ReplacingFile, replacesWhatALinkLeadsToAndKeepsPermissions)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.kml", "old");
    ASSERT_EQ(chmod(path.c_str(), 0640), 0);
    ASSERT_EQ(symlink("a.kml", folder.file("link.kml").c_str()), 0);
    EXPECT_TRUE(replace(folder.file("link.kml"), "new"));
    EXPECT_EQ(test::readFile(path), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("link.kml")));
    struct stat status;
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST(ReplacingFile, makesAFileThatIsNoProgramAndFollowsTheUmask)
{
    const test::TemporaryFolder folder;
    const struct {
        mode_t umask, mode;
    } rows[] = {{0022, 0644}, {0077, 0600}, {0002, 0664}};
    for (const auto& row : rows) {
        const std::string path = folder.file(std::to_string(row.umask));
        const mode_t earlier = umask(row.umask);
        EXPECT_TRUE(replace(path, "new"));
        umask(earlier);
        struct stat status = {};
        ASSERT_EQ(stat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, row.mode);
    }
}

TEST(ReplacingFile, makesTheFileThatALinkLeadsTo)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("to"));
    ASSERT_EQ(symlink("second", folder.file("first").c_str()), 0);
    ASSERT_EQ(symlink("to/a.kml", folder.file("second").c_str()), 0);
    EXPECT_TRUE(replace(folder.file("first"), "new"));
    EXPECT_EQ(test::readFile(folder.file("to/a.kml")), "new");
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("first")));
    EXPECT_TRUE(std::filesystem::is_symlink(folder.file("second")));
    EXPECT_EQ(countOfItems(folder.path()), 3u);
}

TEST(ReplacingFile, takesTheLongestNameThereIs)
{
    const test::TemporaryFolder folder;
    const std::string name = "x" + std::string(125, '.') + std::string(250 / 2 + 4, 'y');
    ASSERT_EQ(name.size(), 255u);
    EXPECT_TRUE(replace(folder.file(name), "new"));
    EXPECT_EQ(test::readFile(folder.file(name)), "new");
    std::string umlauts = "x";
    for (int i = 0; i < 127; i++) umlauts += "\xc3\xa4";
    ReplacingFile file;
    ASSERT_TRUE(file.begin(folder.file(umlauts)));
    const std::string unfinished = std::filesystem::path(file.unfinishedPath()).filename();
    EXPECT_LE(unfinished.size(), 255u);
    EXPECT_NE(unfinished.find("\xc3\xa4."), unfinished.npos) << "no letter is cut in two";
    EXPECT_TRUE(file.finish());
}

TEST(ReplacingFile, takesAnotherNameWhenOneIsTaken)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("a.kml");
    const std::string taken = folder.write("a.kml." + std::to_string(getpid()) + ".new", "mine");
    EXPECT_TRUE(replace(path, "new"));
    EXPECT_EQ(test::readFile(path), "new");
    EXPECT_EQ(test::readFile(taken), "mine");
}

TEST(ReplacingFile, ofTheProgramsOwnReplacesWhateverHasItsPath)
{
    const test::TemporaryFolder folder;
    const std::string other = folder.write("other", "kept");
    ASSERT_EQ(symlink(other.c_str(), folder.file("link").c_str()), 0);
    ASSERT_EQ(symlink("missing/x", folder.file("astray").c_str()), 0);
    ASSERT_EQ(mkfifo(folder.file("pipe").c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.write("read-only", "old").c_str(), 0444), 0);
    for (const char* name : {"new", "link", "astray", "pipe", "read-only"}) {
        SCOPED_TRACE(name);
        const std::string path = folder.file(name);
        EXPECT_TRUE(replace(path, "new", {.durability = Durability::none, .ownMode = 0600}));
        struct stat status = {};
        ASSERT_EQ(lstat(path.c_str(), &status), 0);
        EXPECT_EQ(status.st_mode, mode_t{S_IFREG | 0600});
        EXPECT_EQ(test::readFile(path), "new");
    }
    EXPECT_EQ(test::readFile(other), "kept");
    EXPECT_EQ(countOfItems(folder.path()), 6u);
}

TEST(ReplacingFile, removesWhatAKilledProgramLeftWhereWritersTakeTurns)
{
    const test::TemporaryFolder folder;
    const std::string other = folder.write("other", "kept");
    ASSERT_EQ(symlink(other.c_str(), folder.file("a.json.new").c_str()), 0);
    EXPECT_TRUE(replace(folder.file("a.json"), "new",
                        {.durability = Durability::contentAndName, .takesTurns = true}));
    EXPECT_EQ(test::readFile(folder.file("a.json")), "new");
    EXPECT_EQ(test::readFile(other), "kept");
    EXPECT_EQ(countOfItems(folder.path()), 2u);
}

TEST(ReplacingFile, removesWhatAKilledProgramLeftLongAgo)
{
    constexpr const char* kNobody = "2147483646";  // more than a process number can be
    const test::TemporaryFolder folder;
    const timespec longAgo[2] = {{1000000000, 0}, {1000000000, 0}};
    const auto leave = [&](const std::string& name, bool isOld) {
        const std::string path = folder.write(name, "part");
        if (isOld) {
            EXPECT_EQ(utimensat(AT_FDCWD, path.c_str(), longAgo, 0), 0);
        }
        return path;
    };
    const std::string nobody = std::string(".") + kNobody;
    const std::string abandoned = leave("a.kml" + nobody + ".new", true);
    const std::string fresh = leave("a.kml.2147483645.new", false);
    const std::vector<std::string> kept = {
        leave("a.kml." + std::to_string(getppid()) + ".new", true),
        leave("b.kml" + nobody + ".new", true),
        leave("a.kml" + nobody + ".new.txt", true),
        leave("a.kml.x" + nobody + ".new", true),
        leave("a.kml..new", true),
        leave("a.kml.new", true),
        fresh,
    };
    EXPECT_TRUE(replace(folder.file("a.kml"), "new"));
    EXPECT_FALSE(std::filesystem::exists(abandoned));
    for (const std::string& path : kept) EXPECT_TRUE(std::filesystem::exists(path)) << path;
}

TEST(ReplacingFile, writesToADeviceDirectly)
{
    EXPECT_TRUE(replace("/dev/null", "new"));
    EXPECT_TRUE(std::filesystem::is_character_file("/dev/null"));
}

TEST(ReplacingFile, appendsToAnOpenFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("all.txt", "before\n");
    const int open = ::open(path.c_str(), O_WRONLY);
    ASSERT_GE(open, 0);
    const std::string number = std::to_string(open);
    EXPECT_TRUE(replace("/dev/fd/" + number, "new\n"));
    ASSERT_EQ(symlink(("/proc/self/fd/" + number).c_str(), folder.file("link").c_str()), 0);
    EXPECT_TRUE(replace(folder.file("link"), "newer\n"));
    close(open);
    EXPECT_EQ(test::readFile(path), "before\nnew\nnewer\n");
    EXPECT_EQ(countOfItems(folder.path()), 2u);
}

TEST(ReplacingFile, waitsForTheReaderOfAFullPipeIfItMay)
{
    const test::TemporaryFolder folder;
    const std::string pipe = folder.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string much(300'000, 'x');
    {
        ReplacingFile impatient;
        const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
        ASSERT_TRUE(impatient.begin(pipe));
        errno = 0;
        EXPECT_FALSE(impatient.write(much));
        EXPECT_EQ(errno, EAGAIN);
        close(reader);
    }
    std::string seen;
    const int reader = open(pipe.c_str(), O_RDONLY | O_NONBLOCK);
    ReplacingFile patient({.fullPipe = FullPipe::waits});
    ASSERT_TRUE(patient.begin(pipe));
    ASSERT_EQ(fcntl(reader, F_SETFL, 0), 0);
    std::thread slow([&] {
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
        char bytes[4096];
        while (seen.size() < much.size()) {
            const ssize_t count = read(reader, bytes, sizeof bytes);
            if (count <= 0) break;
            seen.append(bytes, static_cast<std::size_t>(count));
        }
    });
    EXPECT_TRUE(patient.write(much));
    EXPECT_TRUE(patient.finish());
    slow.join();
    close(reader);
    EXPECT_TRUE(seen == much);
}

TEST(ReplacingFile, knowsItsContentWhoeverWroteIt)
{
    const test::TemporaryFolder folder;
    ReplacingFile file;
    ASSERT_TRUE(file.begin(folder.file("a.kml")));
    EXPECT_TRUE(file.contentIs(""));
    ASSERT_EQ(std::filesystem::path(file.unfinishedPath()).parent_path(), folder.path());
    (void)folder.write(std::filesystem::path(file.unfinishedPath()).filename().string(), "text");
    EXPECT_TRUE(file.contentIs("text"));
    for (const char* other : {"", "tex", "test", "texts"}) EXPECT_FALSE(file.contentIs(other));
    EXPECT_TRUE(file.finish());
    EXPECT_EQ(test::readFile(folder.file("a.kml")), "text");

    ReplacingFile device;
    ASSERT_TRUE(device.begin("/dev/null"));
    EXPECT_EQ(device.unfinishedPath(), "");
    EXPECT_FALSE(device.contentIs(""));
}

TEST(ReplacingFile, aFileThatMayNotBeWrittenStays)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    const std::string path = folder.write("a.kml", "old");
    ASSERT_EQ(chmod(path.c_str(), 0444), 0);
    const test::WithoutPrivileges nobody;
    ReplacingFile file;
    errno = 0;
    EXPECT_FALSE(file.begin(path));
    EXPECT_EQ(errno, EACCES);
    EXPECT_EQ(test::readFile(path), "old");
}

TEST(ReplacingFile, reportsWhyItCannotBegin)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(symlink("round", folder.file("round").c_str()), 0);
    ASSERT_EQ(symlink("missing/a.kml", folder.file("astray").c_str()), 0);
    ASSERT_EQ(mkfifo(folder.file("unread").c_str(), 0600), 0);
    const struct {
        std::string path;
        int error;
    } rows[] = {
        {folder.file("missing/a.kml"), ENOENT},
        {folder.file("astray"), ENOENT},
        {folder.file("round"), ELOOP},
        {folder.file("unread"), ENXIO},
        {folder.file("new/"), EISDIR},
        {folder.file(std::string(256, 'x')), ENAMETOOLONG},
        {folder.path(), EISDIR},
        {folder.write("file", "") + "/a.kml", ENOTDIR},
        {"", ENOENT},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        ReplacingFile file;
        errno = 0;
        EXPECT_FALSE(file.begin(row.path));
        EXPECT_EQ(errno, row.error);
    }
}

TEST(ReplacingFile, reportsAFullDisk)
{
    ReplacingFile file;
    ASSERT_TRUE(file.begin("/dev/full"));
    EXPECT_TRUE(file.write("a"));
    errno = 0;
    EXPECT_FALSE(file.finish());
    EXPECT_EQ(errno, ENOSPC);
}
