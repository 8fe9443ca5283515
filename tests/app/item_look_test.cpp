// Looking at items from the event loop, also on a disk that does not answer.

#include "opener/events/item_look.h"

#include "app/export_dialog.h"
#include "opener/events/picture_opener.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <QDeadlineTimer>
#include <QWidget>

#include <cerrno>
#include <filesystem>
#include <memory>
#include <string>
#include <vector>

// The suite is named after what it tests, which it hides here.
namespace pinorama::tests {
namespace {
class cuLookAtItems : public testing::Test {
protected:
    ~cuLookAtItems() override { cuPictureOpener().stop(); }

    void look(const std::vector<std::string>& paths)
    {
        pinorama::cuLookAtItems(paths, owner_.get(),
                                [this](const std::vector<ItemFacts>& items, int error) {
                                    calls_++;
                                    items_ = items;
                                    error_ = error;
                                });
    }

    bool isAnswered()
    {
        return test::waitUntil([this] { return calls_ > 0; });
    }

    // A disk that stands still for a quarter of a minute; null where none can be mounted.
    std::unique_ptr<test::SlowDisk> hangingDisk()
    {
        std::filesystem::create_directory(folder_.file("disk"));
        auto disk = std::make_unique<test::SlowDisk>(
            folder_.file("disk"), std::vector<test::SlowDisk::File>{{"a.jpg", "x", 0}});
        if (!disk->isUsable()) return nullptr;
        cuPictureOpener().stop();  // openers that ran before do not see the disk
        disk->hang();
        return disk;
    }

    test::TemporaryFolder folder_;
    std::unique_ptr<QObject> owner_ = std::make_unique<QObject>();
    std::vector<ItemFacts> items_;
    int calls_ = 0;
    int error_ = -1;
};

using saveAsChosen = cuLookAtItems;
}  // namespace

TEST_F(cuLookAtItems, saysWhatIsAtEachPath)
{
    look({folder_.write("a.jpg", "x"), folder_.path(), folder_.file("none")});
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(error_, 0);
    ASSERT_EQ(items_.size(), 3u);
    EXPECT_TRUE(items_[0].isThere && !items_[0].isFolder);
    EXPECT_TRUE(items_[1].isThere && items_[1].isFolder);
    EXPECT_FALSE(items_[2].isThere);
}

TEST_F(cuLookAtItems, refusesAPathThatIsTooLong)
{
    look({folder_.path(), '/' + std::string(5000, 'a')});
    EXPECT_EQ(calls_, 1);
    EXPECT_EQ(error_, ENAMETOOLONG);
    EXPECT_TRUE(items_.empty());
}

TEST_F(cuLookAtItems, saysWhenNobodyCanLook)
{
    cuPictureOpener().stop();
    const test::ScopedVariable none("PINORAMA_OPENER", "/nowhere/pinorama-opener");
    look({folder_.path()});
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(error_, EIO);
}

TEST_F(cuLookAtItems, isNotKeptByADiskThatHangs)
{
    const auto disk = hangingDisk();
    if (!disk) GTEST_SKIP() << "no disk may be mounted here";
    const QDeadlineTimer limit(8000);  // a busy machine may stand still for a few seconds
    look({disk->file("new.kml"), folder_.path()});
    EXPECT_FALSE(limit.hasExpired());
    EXPECT_EQ(calls_, 0);
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(error_, ETIMEDOUT);
    disk->recover();
    test::goOnFor(100);
    EXPECT_EQ(calls_, 1) << "once is enough";
}

TEST_F(cuLookAtItems, saysWhatIsThereWhenTheDiskAnswersAgain)
{
    const auto disk = hangingDisk();
    if (!disk) GTEST_SKIP() << "no disk may be mounted here";
    look({disk->file("a.jpg")});
    disk->recover();
    ASSERT_TRUE(isAnswered());
    EXPECT_EQ(error_, 0);
    ASSERT_EQ(items_.size(), 1u);
    EXPECT_TRUE(items_.front().isThere);
}

TEST_F(cuLookAtItems, saysNothingWhenItsOwnerIsGone)
{
    const auto disk = hangingDisk();
    if (!disk) GTEST_SKIP() << "no disk may be mounted here";
    look({disk->file("a.jpg")});
    owner_.reset();
    disk->recover();
    EXPECT_TRUE(test::waitUntil([] { return cuPictureOpener().countAtWork() == 0; }));
    test::goOnFor(100);
    EXPECT_EQ(calls_, 0);
}

TEST_F(saveAsChosen, savesNothingWhileNobodyKnowsWhatWouldBeReplaced)
{
    const auto disk = hangingDisk();
    if (!disk) GTEST_SKIP() << "no disk may be mounted here";
    std::string failed;
    int error = 0;
    int saved = 0;
    QWidget window;
    const QDeadlineTimer limit(8000);
    pinorama::saveAsChosen(disk->file("place"), &window,
                           {[&](const std::string&) { saved++; },
                            [&](const std::string& path, int why) {
                                failed = path;
                                error = why;
                            }});
    EXPECT_FALSE(limit.hasExpired());
    ASSERT_TRUE(test::waitUntil([&] { return error != 0; }));
    EXPECT_EQ(error, ETIMEDOUT);
    EXPECT_EQ(failed, disk->file("place.kml"));
    disk->recover();
    test::goOnFor(100);
    EXPECT_EQ(saved, 0);
}

}  // namespace pinorama::tests
