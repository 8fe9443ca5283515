#include "pictures/picture_file.h"

#include "base/descriptor.h"
#include "pictures/picture_properties.h"
#include "tests/support/environment.h"
#include "tests/support/hostile_items.h"
#include "tests/support/picture_builder.h"
#include "tests/support/restless_file.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>

#include <fcntl.h>
#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

using namespace pinorama;

namespace {
// Whether anybody opens an item, as the kernel tells.
class Watch {
public:
    explicit Watch(const std::string& path) : descriptor_(inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
    {
        EXPECT_GE(inotify_add_watch(descriptor_.get(), path.c_str(), IN_OPEN), 0);
    }
    bool sawAnOpening() const
    {
        alignas(inotify_event) char events[4096];
        return read(descriptor_.get(), events, sizeof events) > 0;
    }

private:
    DescriptorHolder descriptor_;
};
}  // namespace

TEST(PictureFile, opensNothingButFiles)
{
    const test::TemporaryFolder folder;
    const std::string pipe = folder.file("pipe.jpg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const struct {
        const char* name;
        std::string path;
        bool isOpened;
    } rows[] = {
        {"a file", folder.write("file.jpg", "x"), true},
        {"a pipe", pipe, false},
        {"a folder", folder.path(), false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        {
            const Watch watch(row.path);
            EXPECT_EQ(PictureFile(row.path).isOpen(), row.isOpened);
            EXPECT_EQ(watch.sawAnOpening(), row.isOpened);
        }
        const std::string link = row.path + ".link.jpg";
        ASSERT_EQ(symlink(row.path.c_str(), link.c_str()), 0);
        const Watch watch(row.path);
        EXPECT_EQ(PictureFile(link).isOpen(), row.isOpened);
        EXPECT_EQ(watch.sawAnOpening(), row.isOpened) << "through a link";
    }
    (void)unlink((folder.path() + ".link.jpg").c_str());
}

TEST(PictureFile, knowsTheFactsOfTheFileThatItHasOpen)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", "twelve bytes");
    const PictureFile file(path);
    EXPECT_EQ(file.attributes(), attributesOf(path));
    EXPECT_EQ(file.size(), 12u);

    ASSERT_EQ(unlink(path.c_str()), 0);
    folder.write("a.jpg", "another file");
    char first = 0;
    EXPECT_EQ(pread(file.descriptor(), &first, 1, 0), 1);
    EXPECT_EQ(first, 't');

    EXPECT_FALSE(PictureFile().isOpen());
    EXPECT_EQ(PictureFile(folder.file("none.jpg")).attributes(), FileAttributes{});
}

TEST(PictureFile, knowsWhatIsAtThePathEvenIfItIsNotOpened)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", "twelve bytes");
    EXPECT_EQ(PictureFile(path).item(), attributesOf(path));
    EXPECT_EQ(PictureFile(folder.path()).item(), attributesOf(folder.path()));
    EXPECT_EQ(PictureFile(folder.path()).attributes(), FileAttributes{});
    EXPECT_EQ(PictureFile("/dev/null").item()->type, static_cast<std::uint32_t>(S_IFCHR));
    EXPECT_EQ(PictureFile(folder.file("none.jpg")).item(), std::nullopt);
    EXPECT_EQ(PictureFile().item(), std::nullopt);
}

TEST(PictureFile, knowsWhereTheOpenFileReallyIs)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", "twelve bytes");
    ASSERT_EQ(symlink("a.jpg", folder.file("link.jpg").c_str()), 0);
    const std::string real = std::filesystem::canonical(path).string();
    EXPECT_EQ(PictureFile(path).realPath(), real);
    EXPECT_EQ(PictureFile(folder.file("link.jpg")).realPath(), real);
    EXPECT_EQ(PictureFile(folder.path()).realPath(), "");
}

TEST(PictureFile, takesOverWhatAnotherProcessHasOpened)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("a.jpg", "twelve bytes");
    const PictureFile taken(DescriptorHolder(openDescriptor(path.c_str(), O_RDONLY)),
                            attributesOf(path), 0);
    EXPECT_TRUE(taken.isOpen());
    EXPECT_EQ(taken.size(), 12u);
    const PictureFile none(DescriptorHolder(), std::nullopt, ENOENT);
    EXPECT_FALSE(none.isOpen());
    EXPECT_EQ(none.error(), ENOENT);
    EXPECT_EQ(none.attributes(), FileAttributes{});
}

TEST(PictureFile, leavesAPipeToItsReader)
{
    const test::TemporaryFolder folder;
    const std::string pipe = folder.file("pipe.jpg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_FALSE(PictureFile(pipe).isOpen());
    // Nobody has it open, so that a writer that does not wait finds no reader.
    const DescriptorHolder writer(openDescriptor(pipe.c_str(), O_WRONLY));
    EXPECT_FALSE(writer);
    EXPECT_EQ(errno, ENXIO);
}

TEST(PictureFile, saysWhyItIsNotOpen)
{
    const test::TemporaryFolder folder;
    EXPECT_EQ(PictureFile(folder.write("a.jpg", "x")).error(), 0);
    EXPECT_EQ(PictureFile(folder.path()).error(), 0);
    EXPECT_EQ(PictureFile(folder.file("none.jpg")).error(), ENOENT);
    EXPECT_EQ(PictureFile(std::string("a\0b", 3)).error(), ENOENT);
    EXPECT_EQ(PictureFile(folder.file("a.jpg/b.jpg")).error(), ENOTDIR);
    ASSERT_EQ(symlink("circle.jpg", folder.file("circle.jpg").c_str()), 0);
    EXPECT_EQ(PictureFile(folder.file("circle.jpg")).error(), ELOOP);
}

TEST(PictureFile, ofEveryHostileItemIsAFileOrNotOpen)
{
    const test::TemporaryFolder folder;
    for (const test::HostileItem& item : test::hostileItems(folder)) {
        SCOPED_TRACE(item.what);
        EXPECT_EQ(PictureFile(item.path).isOpen(), item.isRegular);
    }
}

TEST(readPictureProperties, ofAFileOf8TiBIsQuick)
{
    const test::TemporaryFolder folder;
    const PictureFile file(test::hugeFile(folder));
    ASSERT_GT(file.size(), std::uint64_t{1} << 40);
    FileByteSource bytes(file.descriptor(), file.size());
    const auto start = std::chrono::steady_clock::now();
    const auto properties = readPictureProperties(bytes);
    EXPECT_TRUE(!properties || !properties->hasGps);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}

TEST(readPictureProperties, ofAFileThatIsBeingChangedHaveItsPositionOrNone)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("restless.jpg");
    const test::RestlessFile other(
        path,
        test::pictureWithGps({.lat = 48.5, .latRef = "N", .caption = std::string(2000, 'c')}));
    int found = 0;
    for (int i = 0; i < 3000; i++) {
        const PictureFile file(path);
        if (!file.isOpen()) continue;
        FileByteSource bytes(file.descriptor(), file.size());
        const auto properties = readPictureProperties(bytes);
        if (properties && properties->latitude == 48.5) found++;
    }
    EXPECT_GT(found, 0);
}
