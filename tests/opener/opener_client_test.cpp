#include "opener/opener_client.h"

#include "base/child_process.h"
#include "base/descriptor_box.h"
#include "base/resource_folder.h"
#include "tests/support/environment.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <filesystem>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;
using test::SlowDisk;

class OpenerClient : public testing::Test {
protected:
    static constexpr auto kPatience = 30s;  // no measure of speed: a busy machine may stall
    static constexpr auto kShort = 300ms;   // for what does not come

    std::string textOf(const PictureFile& file) const
    {
        char bytes[64] = {};
        const DescriptorHolder unboxed = unboxDescriptor(file.descriptor());
        const auto count = readAt(unboxed.get(), 0, bytes, sizeof bytes);
        return {bytes, static_cast<std::size_t>(std::max<std::int64_t>(count, 0))};
    }

    // Goes on as an event loop does until so many openers are at work.
    bool goesOnUntil(const std::function<bool()>& isTrue)
    {
        const auto end = Clock::now() + kPatience;
        while (!isTrue() && Clock::now() < end) {
            pollfd state = {client_.descriptor(), POLLIN, 0};
            (void)poll(&state, 1, 10);
            client_.advance();
        }
        return isTrue();
    }

    OpenStage after(const std::string& path, std::chrono::milliseconds wait = kPatience)
    {
        client_.request(path);
        return client_.wait(wait);
    }

    // A disk in the folder `name` with a file that is read at once and others that never come.
    std::unique_ptr<SlowDisk> disk(const std::string& name)
    {
        std::filesystem::create_directory(folder_.file(name));
        return std::make_unique<SlowDisk>(
            folder_.file(name),
            std::vector<SlowDisk::File>{{"good.jpg", "good", 0},
                                        {"other.jpg", "other", 0},
                                        {"look.jpg", "l", SlowDisk::kNever, SlowDisk::Step::look},
                                        {"open.jpg", "o", SlowDisk::kNever, SlowDisk::Step::open},
                                        {"read.jpg", "r", SlowDisk::kNever},
                                        {"late.jpg", "late", 700}});
    }

    ~OpenerClient() override
    {
        for (const pid_t process : ended_) {
            kill(process, SIGKILL);
            (void)waitpid(process, nullptr, 0);
        }
    }

    test::TemporaryFolder folder_;
    std::vector<pid_t> ended_;  // to be waited for, after the disks are gone
    pinorama::OpenerClient client_{
        [] { return startOpenerProgram(programFolder() + "/pinorama-opener"); }};
};

TEST_F(OpenerClient, opensAFile)
{
    const std::string path = folder_.write("a.jpg", "twelve bytes");
    EXPECT_EQ(client_.stage(), OpenStage::none);
    EXPECT_EQ(after(path), OpenStage::done);
    EXPECT_EQ(client_.file().item(), attributesOf(path));
    const PictureFile file = client_.take();
    EXPECT_EQ(client_.stage(), OpenStage::none);
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(file.attributes(), attributesOf(path));
    EXPECT_EQ(textOf(file), "twelve bytes");
    EXPECT_EQ(client_.count(), 1u);
    EXPECT_EQ(client_.countAtWork(), 0u);
}

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

TEST_F(OpenerClient, saysWhatIsNoFileAndWhy)
{
    ASSERT_EQ(mkfifo(folder_.file("pipe.jpg").c_str(), 0600), 0);
    const struct {
        std::string path;
        int error;
        bool isThere;
    } rows[] = {{folder_.path(), 0, true},
                {folder_.file("pipe.jpg"), 0, true},
                {"/dev/null", 0, true},
                {folder_.file("none.jpg"), ENOENT, false},
                {std::string("/a\0b", 4), ENOENT, false},
                {"", ENOENT, false},
                {"/" + std::string(kMaxOpenPath, 'a'), ENAMETOOLONG, false},
                {folder_.file(std::string(300, 'a')), ENAMETOOLONG, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path.substr(0, 100));
        EXPECT_EQ(after(row.path), OpenStage::done);
        EXPECT_FALSE(client_.file().isOpen());
        EXPECT_EQ(client_.file().error(), row.error);
        EXPECT_EQ(client_.file().item().has_value(), row.isThere);
    }
}

TEST_F(OpenerClient, opensTheSidecarOfAPicture)
{
    const std::string path = folder_.write("IMG.CR2", "picture");
    const auto sidecar = [&] {
        client_.request(path, OpenTask::sidecar);
        EXPECT_EQ(client_.wait(kPatience), OpenStage::done);
        return client_.take();
    };
    EXPECT_FALSE(sidecar().isOpen());
    EXPECT_EQ(sidecar().error(), ENOENT);
    std::filesystem::create_directory(folder_.file("IMG.xmp"));
    EXPECT_FALSE(sidecar().isOpen()) << "a folder";
    folder_.write("IMG.XMP", "of both");
    EXPECT_EQ(textOf(sidecar()), "of both");
    std::filesystem::create_directory(folder_.file("elsewhere"));
    folder_.write("elsewhere/b.txt", "of the raw picture");
    ASSERT_EQ(symlink("elsewhere/b.txt", folder_.file("IMG.CR2.xmp").c_str()), 0);
    EXPECT_EQ(textOf(sidecar()), "of the raw picture");
    EXPECT_EQ(after(path), OpenStage::done);
    EXPECT_EQ(textOf(client_.take()), "picture");
    EXPECT_EQ(client_.count(), 1u);
}

TEST_F(OpenerClient, forgetsWhatIsGivenUp)
{
    client_.request(folder_.write("a.jpg", "a"));
    client_.giveUp();
    EXPECT_EQ(client_.wait(kShort), OpenStage::none);
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 0; }));
    EXPECT_EQ(client_.stage(), OpenStage::none);
    EXPECT_EQ(after(folder_.write("b.jpg", "b")), OpenStage::done);
    EXPECT_EQ(textOf(client_.file()), "b");
}

TEST_F(OpenerClient, givesTheLastOfManyRequests)
{
    for (int i = 0; i < 100; i++) {
        client_.request(folder_.write(std::to_string(i) + ".jpg", std::to_string(i)));
        EXPECT_LE(client_.count(), pinorama::OpenerClient::kMaxOpeners);
    }
    EXPECT_TRUE(goesOnUntil([this] { return client_.stage() == OpenStage::done; }));
    EXPECT_EQ(textOf(client_.file()), "99");
    EXPECT_TRUE(goesOnUntil([this] { return client_.count() == 1; })) << "one is enough";
}

TEST_F(OpenerClient, replacesAnOpenerThatDied)
{
    const std::string path = folder_.write("a.jpg", "a");
    pid_t process = -1;
    pinorama::OpenerClient client([&process] {
        OpenerProcess opener = startOpenerProgram(programFolder() + "/pinorama-opener");
        process = opener.process;
        return opener;
    });
    for (int i = 0; i < 3; i++) {
        client.request(path);
        EXPECT_EQ(client.wait(kPatience), OpenStage::done);
        EXPECT_TRUE(client.take().isOpen());
        kill(process, SIGKILL);
    }
}

TEST_F(OpenerClient, doesWithoutOneThatCannotStart)
{
    const std::string path = folder_.write("a.jpg", "a");
    const std::string exits = folder_.write("exits", "#!/bin/sh\nexit 1\n");
    std::filesystem::permissions(exits, std::filesystem::perms::owner_all);
    for (const std::string& program : {std::string("/nowhere/pinorama-opener"), exits}) {
        pinorama::OpenerClient client([program] { return startOpenerProgram(program); });
        client.start();
        client.request(path);
        EXPECT_EQ(client.wait(kPatience), OpenStage::noOpener) << program;
        EXPECT_FALSE(client.file().isOpen());
        EXPECT_EQ(client.countAtWork(), 0u);
    }
}

TEST_F(OpenerClient, doesNotBelieveMalformedReplies)
{
    const std::string liar = folder_.write("liar", "#!/bin/sh\necho hello >&3\nexec sleep 60\n");
    std::filesystem::permissions(liar, std::filesystem::perms::owner_all);
    pinorama::OpenerClient client([liar] { return startOpenerProgram(liar); });
    client.request(folder_.write("a.jpg", "a"));
    EXPECT_EQ(client.wait(kPatience), OpenStage::noOpener);
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

TEST(openerProgram, isThatOfTheEnvironmentElseTheOneBesideTheProgram)
{
    EXPECT_EQ(openerProgram(), programFolder() + "/pinorama-opener");
    const test::ScopedVariable set("PINORAMA_OPENER", "/elsewhere/opener");
    EXPECT_EQ(openerProgram(), "/elsewhere/opener");
}

}  // namespace pinorama::tests
