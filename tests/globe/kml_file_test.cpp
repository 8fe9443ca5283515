#include "globe/kml_file.h"

#include "globe/google_earth_connector.h"
#include "lib/files/path_text.h"
#include "tests/globe/places.h"
#include "tests/support/environment.h"
#include "tests/support/other_process.h"
#include "tests/support/permissions.h"
#include "tests/support/small_disk.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <string>
#include <vector>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

const fileInfoRecord kSomewhere = test::place(48.1, 'N', 11.5, 'E');

// What GoogleEarthConnector writes into a new file.
std::string documentNamed(const char* name)
{
    const test::TemporaryFolder folder;
    const test::Text path = test::text(folder.file("out.kml"));
    const test::Text text(name == nullptr ? nullptr : createPathText(name));
    GoogleEarthConnector::exportToKML(path.get(), &kSomewhere, text.get());
    return test::readFile(folder.file("out.kml"));
}

// 0, or the errno with which nothing was saved.
int save(const std::string& path, const char* name = "a.jpg")
{
    const test::Text text(name == nullptr ? nullptr : createPathText(name));
    errno = 0;
    return gpsSaveKML(path, kSomewhere, text.get()) ? 0 : errno;
}

std::vector<std::string> itemsIn(const std::string& folder)
{
    std::vector<std::string> names;
    for (const auto& item : fs::directory_iterator(folder)) names.push_back(item.path().filename());
    std::sort(names.begin(), names.end());
    return names;
}
}  // namespace

TEST(gpsSaveKML, writesWhatTheExportWrites)
{
    const test::TemporaryFolder folder;
    for (const char* name : {"Z\u00fcrich.jpg", "", static_cast<const char*>(nullptr)}) {
        EXPECT_EQ(save(folder.file("out.kml"), name), 0);
        EXPECT_EQ(test::readFile(folder.file("out.kml")), documentNamed(name));
    }
    EXPECT_EQ(itemsIn(folder.path()), std::vector<std::string>{"out.kml"});
}

TEST(gpsMakeKMLInMemory, hasWhatTheExportWrites)
{
    for (const char* name : {"Z\u00fcrich.jpg", "", static_cast<const char*>(nullptr)}) {
        const test::Text text(name == nullptr ? nullptr : createPathText(name));
        const DescriptorHolder file = gpsMakeKMLInMemory(kSomewhere, text.get());
        ASSERT_TRUE(file);
        EXPECT_EQ(test::readFile("/proc/self/fd/" + std::to_string(file.get())),
                  documentNamed(name));
    }
}

TEST(gpsSaveKML, makesNamesSafeForXML)
{
    const test::TemporaryFolder folder;
    const struct {
        const char *name, *written;
    } rows[] = {
        {"Tom & Jerry <Paris>.jpg", "Tom &amp; Jerry &lt;Paris&gt;.jpg"},
        {"a\nb\x01.jpg", "a&#10;b\xef\xbf\xbd.jpg"},
        {"Z\xfcrich.jpg", "Z\xef\xbf\xbdrich.jpg"},
        {"]]>&amp;", "]]&gt;&amp;amp;"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.written);
        EXPECT_EQ(save(folder.file("out.kml"), row.name), 0);
        EXPECT_EQ(test::readFile(folder.file("out.kml")), documentNamed(row.written));
    }
}

TEST(gpsSaveKML, leavesNothingOfALongerFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("out.kml", std::string(5000, 'x'));
    EXPECT_EQ(save(path), 0);
    EXPECT_EQ(test::readFile(path), documentNamed("a.jpg"));
}

TEST(gpsSaveKML, makesAFileThatIsNoProgram)
{
    const test::TemporaryFolder folder;
    const mode_t earlier = umask(0022);
    EXPECT_EQ(save(folder.file("out.kml")), 0);
    umask(earlier);
    struct stat facts = {};
    ASSERT_EQ(stat(folder.file("out.kml").c_str(), &facts), 0);
    EXPECT_EQ(facts.st_mode & 07777, 0644u);
}

TEST(gpsSaveKML, tellsWhyThereIsNone)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder.file("folder.kml"));
    ASSERT_EQ(symlink("missing/out.kml", folder.file("astray.kml").c_str()), 0);
    ASSERT_EQ(mkfifo(folder.file("unread.kml").c_str(), 0600), 0);
    const struct {
        std::string path;
        int error;
    } rows[] = {
        {folder.file("missing/out.kml"), ENOENT},
        {folder.file("folder.kml"), EISDIR},
        {folder.file("astray.kml"), ENOENT},
        {folder.file("unread.kml"), ENXIO},
        {"/dev/full", ENOSPC},
        {"", ENOENT},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(save(row.path), row.error);
    }
    EXPECT_EQ(itemsIn(folder.path()).size(), 3u);
}

TEST(gpsSaveKML, writesThroughALinkAndIntoDevicesAndPipes)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder.file("to"));
    ASSERT_EQ(symlink("to/out.kml", folder.file("link.kml").c_str()), 0);
    for (int i = 0; i < 2; i++) {
        EXPECT_EQ(save(folder.file("link.kml")), 0);
        EXPECT_TRUE(fs::is_symlink(folder.file("link.kml")));
        EXPECT_EQ(test::readFile(folder.file("to/out.kml")), documentNamed("a.jpg"));
    }
    EXPECT_EQ(save("/dev/null"), 0);

    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_EQ(save("/dev/fd/" + std::to_string(ends[1])), 0);
    std::string bytes(5000, '\0');
    const ssize_t count = read(ends[0], bytes.data(), bytes.size());
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    EXPECT_EQ(bytes, documentNamed("a.jpg"));
    close(ends[0]);
    close(ends[1]);
}

TEST(gpsSaveKML, aFullDiskKeepsTheOldFileAndGetsNoPart)
{
    const test::TemporaryFolder folder;
    const int status = test::inChild([&folder] {
        if (!test::mountSmallDisk(folder.path())) return test::kCannotTest;
        (void)folder.write("old.kml", "old");
        test::fillDisk(folder.path());
        EXPECT_EQ(save(folder.file("old.kml")), ENOSPC);
        EXPECT_EQ(save(folder.file("new.kml")), ENOSPC);
        EXPECT_EQ(test::readFile(folder.file("old.kml")), "old");
        EXPECT_EQ(itemsIn(folder.path()), (std::vector<std::string>{"filler", "old.kml"}));
        fs::remove(folder.file("filler"));
        EXPECT_EQ(save(folder.file("old.kml")), 0);
        EXPECT_EQ(test::readFile(folder.file("old.kml")), documentNamed("a.jpg"));
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == test::kCannotTest) GTEST_SKIP() << "cannot mount a small disk here";
    EXPECT_EQ(status, 0);
}

TEST(gpsSaveKML, aLimitOfTheFileSizeKeepsTheOldFile)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("old.kml", "old");
    const int status = test::inChild([&] {
        const rlimit limit = {100, 100};
        if (signal(SIGXFSZ, SIG_IGN) == SIG_ERR || setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return test::kCannotTest;
        EXPECT_EQ(save(path), EFBIG);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    ASSERT_NE(status, test::kCannotTest);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(test::readFile(path), "old");
    EXPECT_EQ(itemsIn(folder.path()), std::vector<std::string>{"old.kml"});
}

TEST(gpsSaveKML, aReadOnlyFolderAndAReadOnlyFileStay)
{
    const test::TemporaryFolder folder;
    fs::create_directory(folder.file("closed"));
    (void)folder.write("closed/old.kml", "old");
    (void)folder.write("old.kml", "old");
    ASSERT_EQ(chmod(folder.file("closed/old.kml").c_str(), 0666), 0);
    ASSERT_EQ(chmod(folder.file("old.kml").c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.file("closed").c_str(), 0555), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0777), 0);
    {
        const test::WithoutPrivileges nobody;
        EXPECT_EQ(save(folder.file("closed/old.kml")), EACCES);
        EXPECT_EQ(save(folder.file("closed/new.kml")), EACCES);
        EXPECT_EQ(save(folder.file("old.kml")), EACCES);
    }
    ASSERT_EQ(chmod(folder.file("closed").c_str(), 0755), 0);
    EXPECT_EQ(test::readFile(folder.file("closed/old.kml")), "old");
    EXPECT_EQ(test::readFile(folder.file("old.kml")), "old");
    EXPECT_FALSE(fs::exists(folder.file("closed/new.kml")));
}
