// Files on disks that keep whoever asks them: the client is not kept, and leaves such a disk alone.

#include "tests/opener/opener_fixture.h"

#include "base/child_process.h"

#include <fcntl.h>
#include <unistd.h>

namespace pinorama::tests {
TEST_F(OpenerClient, refersToAFileThatNobodyWaitsForWhoClosesIt)
{
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    client_.request(hanging->file("good.jpg"), OpenTask::reference);
    EXPECT_EQ(client_.wait(kPatience), OpenStage::done);
    PictureFile file = client_.take();
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(fcntl(file.descriptor(), F_GETFL) & O_PATH, O_PATH);
    EXPECT_EQ(file.attributes().size, 4u);
    EXPECT_EQ(file.realPath(), hanging->file("good.jpg"));
    hanging->hang();  // for a quarter of a minute
    const auto start = Clock::now();
    file = PictureFile();
    EXPECT_LT(Clock::now() - start, 8s);
    hanging->recover();
}

TEST_F(OpenerClient, isThereBecauseADiskKeepsWhoeverAsksIt)
{
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    for (const char* name : {"look.jpg", "open.jpg", "read.jpg"}) {
        int ends[2] = {-1, -1};
        ASSERT_EQ(pipe2(ends, O_CLOEXEC), 0);
        const DescriptorHolder near(ends[0]);
        DescriptorHolder far(ends[1]);
        const pid_t process = forkProcess(far.get(), [&](int) {
            const PictureFile file(hanging->file(name));
            char first = 0;
            (void)readAt(file.descriptor(), 0, &first, 1);
        });
        far = DescriptorHolder();
        pollfd state = {near.get(), POLLIN, 0};
        EXPECT_EQ(poll(&state, 1, static_cast<int>(kShort.count())), 0) << name << " answers";
        ended_.push_back(process);
    }
}

TEST_F(OpenerClient, isNotKeptByAFileThatNeverComes)
{
    const std::string home = folder_.write("home.jpg", "home");
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    // The system looks up one name in a folder at a time, so that one comes last.
    for (const char* name : {"read.jpg", "open.jpg", "look.jpg"}) {
        SCOPED_TRACE(name);
        pinorama::OpenerClient client(
            [] { return startOpenerProgram(programFolder() + "/pinorama-opener"); });
        client.request(hanging->file(name));
        const OpenStage stage = client.wait(kShort);
        EXPECT_EQ(stage, std::string(name) == "read.jpg" ? OpenStage::looked : OpenStage::waiting);
        EXPECT_FALSE(client.file().isOpen());
        EXPECT_EQ(client.file().item().has_value(), stage == OpenStage::looked);
        client.request(home);
        EXPECT_EQ(client.wait(kPatience), OpenStage::done);
        EXPECT_EQ(textOf(client.file()), "home");
        EXPECT_EQ(client.countAtWork(), 1u);
    }
}

TEST_F(OpenerClient, handsOverAFileThatNobodyWaitsForWhoCloses)
{
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    const std::string path = hanging->file("good.jpg");
    EXPECT_EQ(after(path), OpenStage::done);
    PictureFile file = client_.take();
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.realPath(), path);
    EXPECT_EQ(textOf(file), "good");
    EXPECT_EQ(textOf(file), "good") << "as often as it is wanted";
    hanging->hang();  // for a quarter of a minute
    const auto start = Clock::now();
    file = PictureFile();
    EXPECT_LT(Clock::now() - start, 8s);
    EXPECT_EQ(after(folder_.write("home.jpg", "home")), OpenStage::done);
    hanging->recover();
}

TEST_F(OpenerClient, leavesAFileSystemAloneThatKeepsTwo)
{
    const std::string home = folder_.write("home.jpg", "home");
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    ASSERT_EQ(symlink("disk/good.jpg", folder_.file("link.jpg").c_str()), 0);
    EXPECT_EQ(after(hanging->file("good.jpg")), OpenStage::done);
    (void)client_.take();

    EXPECT_EQ(after(hanging->file("read.jpg"), kShort), OpenStage::looked);
    EXPECT_EQ(after(hanging->file("good.jpg")), OpenStage::done) << "one file may hang alone";
    EXPECT_EQ(after(hanging->file("open.jpg"), kShort), OpenStage::waiting);
    for (int i = 0; i < 5; i++) {
        EXPECT_EQ(after(hanging->file("good.jpg")), OpenStage::leftAlone);
        EXPECT_EQ(after(folder_.file("link.jpg")), OpenStage::leftAlone) << "through a link";
        EXPECT_EQ(after(hanging->file("read.jpg"), kShort), OpenStage::looked) << "it has that";
        EXPECT_EQ(after(home), OpenStage::done);
        EXPECT_EQ(textOf(client_.file()), "home");
        EXPECT_EQ(client_.countAtWork(), 2u);
    }
}

TEST_F(OpenerClient, noticesASidecarThatLeadsToAFileSystemToLeaveAlone)
{
    const std::string home = folder_.write("home.jpg", "home");
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    ASSERT_EQ(symlink("disk/good.jpg", folder_.file("home.jpg.xmp").c_str()), 0);
    client_.request(hanging->file("read.jpg"));
    EXPECT_TRUE(goesOnUntil([this] { return client_.stage() == OpenStage::looked; }));
    client_.request(hanging->file("open.jpg"));
    // As soon as it is known that both of them are there.
    EXPECT_TRUE(goesOnUntil([&] {
        client_.request(home, OpenTask::sidecar);
        return client_.wait(kPatience) == OpenStage::leftAlone;
    }));
    // Openers pass through the file system of this one on their way to the disk.
    client_.request(home);
    EXPECT_TRUE(goesOnUntil([this] { return client_.stage() == OpenStage::done; }));
    EXPECT_EQ(textOf(client_.file()), "home");
    EXPECT_EQ(client_.countAtWork(), 2u);
}

TEST_F(OpenerClient, doesNotTakeASidecarForItsPicture)
{
    const auto slow = disk("disk");
    if (!slow->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    client_.request(slow->file("late.jpg"));
    EXPECT_TRUE(goesOnUntil([this] { return client_.stage() >= OpenStage::looked; }));
    client_.request(slow->file("late.jpg"), OpenTask::sidecar);
    EXPECT_EQ(client_.wait(kPatience), OpenStage::done);
    EXPECT_FALSE(client_.file().isOpen());
}

TEST_F(OpenerClient, neverHasMoreThanFour)
{
    const std::string home = folder_.write("home.jpg", "home");
    std::vector<std::unique_ptr<SlowDisk>> disks;
    for (const char* name : {"a", "b", "c"}) disks.push_back(disk(name));
    if (!disks[0]->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    for (int again = 0; again < 3; again++) {
        for (const auto& one : disks) {
            (void)after(one->file("open.jpg"), kShort);
            (void)after(one->file("read.jpg"), kShort);
            EXPECT_LE(client_.count(), pinorama::OpenerClient::kMaxOpeners);
        }
        EXPECT_EQ(after(home), OpenStage::leftAlone);
    }
    EXPECT_EQ(client_.countAtWork(), 4u) << "two of the first disk, one of the others";
    // When a disk goes away, what waits goes on.
    client_.request(home);
    disks[0].reset();
    EXPECT_TRUE(goesOnUntil([this] { return client_.stage() == OpenStage::done; }));
    EXPECT_EQ(textOf(client_.file()), "home");
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 2; }));  // the other disks
}

TEST_F(OpenerClient, goesOnWhenTheDiskDoes)
{
    const auto hanging = disk("disk");
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    hanging->hang();
    EXPECT_EQ(after(hanging->file("good.jpg"), kShort), OpenStage::waiting);
    EXPECT_EQ(after(hanging->file("other.jpg"), kShort), OpenStage::waiting);
    EXPECT_EQ(after(hanging->file("late.jpg"), kShort), OpenStage::leftAlone);
    hanging->recover();
    EXPECT_TRUE(goesOnUntil([this] { return client_.stage() == OpenStage::done; }));
    EXPECT_EQ(textOf(client_.file()), "late");
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 0; }));
    EXPECT_EQ(client_.count(), 1u);
}

TEST_F(OpenerClient, isReadableWhenThereIsNews)
{
    const auto slow = disk("disk");
    if (!slow->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    client_.request(slow->file("late.jpg"));
    EXPECT_TRUE(goesOnUntil([&] { return client_.stage() != OpenStage::waiting; }));
    if (client_.stage() == OpenStage::done) GTEST_SKIP() << "the machine stood still";
    EXPECT_EQ(client_.stage(), OpenStage::looked);
    pollfd state = {client_.descriptor(), POLLIN, 0};
    EXPECT_EQ(poll(&state, 1, 30'000), 1);
    client_.advance();
    EXPECT_EQ(client_.stage(), OpenStage::done);
    EXPECT_EQ(poll(&state, 1, 0), 0) << "it has been taken in";
}

}  // namespace pinorama::tests
