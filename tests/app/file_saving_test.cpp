#include "app/file_saving.h"

#include "opener/events/picture_opener.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>

#include <sys/mman.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <utility>
#include <vector>

// The suite is named after what it tests, which it hides here.
namespace pinorama::tests {
namespace {
using Result = std::pair<std::string, int>;

class FileSaving : public testing::Test {
protected:
    FileSaving()
    {
        QObject::connect(
            saving_.get(), &pinorama::FileSaving::saved, saving_.get(),
            [this](const std::string& path, int error) { results_.emplace_back(path, error); });
    }
    ~FileSaving() override { cuPictureOpener().stop(); }

    void save(const std::string& path, const std::string& bytes)
    {
        DescriptorHolder content(memfd_create("test", MFD_CLOEXEC));
        ASSERT_EQ(write(content.get(), bytes.data(), bytes.size()),
                  static_cast<ssize_t>(bytes.size()));
        saving_->save(path, std::move(content));
    }

    bool comesTo(std::size_t count)
    {
        return test::waitUntil([&] { return results_.size() >= count; });
    }

    test::TemporaryFolder folder_;
    std::unique_ptr<pinorama::FileSaving> saving_ = std::make_unique<pinorama::FileSaving>();
    std::vector<Result> results_;
};
}  // namespace

TEST_F(FileSaving, saysWhatBecameOfEachFile)
{
    const std::string file = folder_.file("a.kml");
    save(file, "document");
    save(folder_.file("none/b.kml"), "document");
    EXPECT_TRUE(comesTo(2));
    EXPECT_FALSE(saving_->isUnderWay());
    EXPECT_EQ(test::readFile(file), "document");
    EXPECT_EQ(results_.front(), Result(file, 0));
    EXPECT_EQ(results_.back().second, ENOENT);
}

TEST_F(FileSaving, endsWhenTheFileIsSaved)
{
    save(folder_.file("a.kml"), std::string(100'000, 'a'));
    saving_.reset();
    EXPECT_EQ(test::readFile(folder_.file("a.kml")).size(), 100'000u);
}

TEST_F(FileSaving, isNotKeptByADiskThatHangs)
{
    std::filesystem::create_directory(folder_.file("disk"));
    const test::SlowDisk disk(folder_.file("disk"), {{"a.jpg", "x", 0}});
    if (!disk.isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    cuPictureOpener().stop();  // openers that ran before do not see the disk
    disk.hang();
    // It stands still for 15 seconds, and a busy machine for a few.
    const QDeadlineTimer limit(8000);
    save(disk.file("a.kml"), "document");
    EXPECT_FALSE(limit.hasExpired());
    EXPECT_TRUE(saving_->isUnderWay());
    EXPECT_TRUE(comesTo(1));
    EXPECT_EQ(results_.front().second, ETIMEDOUT) << "the user is told";
    save(folder_.file("b.kml"), "other");
    EXPECT_TRUE(comesTo(2));
    EXPECT_EQ(results_.back().second, 0) << "other disks answer";
    disk.recover();
    EXPECT_TRUE(comesTo(3));
    EXPECT_NE(results_.back().second, 0) << "nothing can be written there";
    EXPECT_FALSE(saving_->isUnderWay());
}

TEST_F(FileSaving, saysWhenNobodyCanSave)
{
    cuPictureOpener().stop();
    const test::ScopedVariable none("PINORAMA_OPENER", "/nowhere/pinorama-opener");
    save(folder_.file("a.kml"), "document");
    ASSERT_TRUE(comesTo(1));
    EXPECT_EQ(results_.front().second, EIO);
}

}  // namespace pinorama::tests
