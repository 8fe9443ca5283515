// Files that an opener keeps open until nobody else has them, and who gives them up last.

#include "opener/kept_files.h"

#include "base/child_process.h"
#include "base/descriptor_box.h"
#include "opener/opener_client.h"
#include "opener/opener_service.h"
#include "tests/opener/opener_turns.h"
#include "tests/support/environment.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
namespace {
namespace fs = std::filesystem;
using namespace std::chrono_literals;

// The mounts of now, which all keep whoever gives a file up last, as those of a server do.
MountList keepingMounts()
{
    std::string mounts = test::readFile("/proc/self/mountinfo");
    std::string text;
    for (std::size_t begin = 0; begin < mounts.size();) {
        const std::size_t end = std::min(mounts.find('\n', begin), mounts.size());
        const std::string line = mounts.substr(begin, end - begin);
        text += line.substr(0, line.find(" - ")) + " - nfs server:/ rw\n";
        begin = end + 1;
    }
    return MountList(text);
}

OpenerProcess startOpenerOfAServer()
{
    int ends[2];
    if (socketpair(AF_UNIX, SOCK_SEQPACKET | SOCK_CLOEXEC, 0, ends) != 0) return {};
    DescriptorHolder near(ends[0]);
    const DescriptorHolder far(ends[1]);
    const pid_t process =
        forkProcess(far.get(), [](int socket) { serveOpener(socket, keepingMounts); });
    if (process < 0) return {};
    return {process, std::move(near)};
}

// Whether a process has the file open.
bool hasOpen(pid_t process, const std::string& path)
{
    std::error_code error;
    for (const auto& entry :
         fs::directory_iterator("/proc/" + std::to_string(process) + "/fd", error)) {
        if (fs::read_symlink(entry.path(), error) == path) return true;
    }
    return false;
}

class KeptFiles : public testing::Test {
protected:
    KeptFiles()
    {
        int ends[2] = {-1, -1};
        EXPECT_EQ(socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
        socket_ = DescriptorHolder(ends[0]);
        far_ = DescriptorHolder(ends[1]);
    }

    // Keeps a new file. Returns its box.
    DescriptorHolder keep(const std::string& name, std::uint64_t device)
    {
        PictureFile file(folder_.write(name, "a"));
        DescriptorHolder otherEnd;
        DescriptorHolder box = boxDescriptor(file.descriptor(), "", &otherEnd);
        kept_.add(std::move(file), std::move(otherEnd), device);
        return box;
    }

    bool isOpen(const std::string& name) { return hasOpen(getpid(), folder_.file(name)); }

    test::TemporaryFolder folder_;
    DescriptorHolder socket_;
    DescriptorHolder far_;
    pinorama::KeptFiles kept_;
};

class OpenerOfAServer : public testing::Test {
protected:
    bool goesOnUntil(const std::function<bool()>& isTrue)
    {
        return test::goesOnUntil(&client_, isTrue);
    }

    PictureFile opened(const std::string& path)
    {
        client_.request(path);
        EXPECT_TRUE(goesOnUntil([this] { return client_.stage() == OpenStage::done; }));
        return client_.take();
    }

    bool isOpenInAnOpener(const std::string& path) const
    {
        return std::ranges::any_of(processes_,
                                   [&](pid_t process) { return hasOpen(process, path); });
    }

    std::unique_ptr<test::SlowDisk> disk()
    {
        fs::create_directory(folder_.file("disk"));
        return std::make_unique<test::SlowDisk>(
            folder_.file("disk"),
            std::vector<test::SlowDisk::File>{
                {"good.jpg", "good", 0}, {"other.jpg", "other", 0}, {"another.jpg", "another", 0}});
    }

    test::TemporaryFolder folder_;
    std::vector<pid_t> processes_;
    pinorama::OpenerClient client_{[this] {
        OpenerProcess opener = startOpenerOfAServer();
        processes_.push_back(opener.process);
        return opener;
    }};
};
}  // namespace

TEST_F(KeptFiles, areReleasedOnceWhenNobodyElseHasTheirBox)
{
    DescriptorHolder first = keep("a", 1);
    DescriptorHolder second = keep("b", 2);
    ASSERT_EQ(write(far_.get(), "x", 1), 1);
    EXPECT_TRUE(kept_.waitFor(socket_.get()).empty()) << "only the socket is readable";
    second = DescriptorHolder();
    EXPECT_EQ(kept_.waitFor(socket_.get()), (std::vector<std::uint64_t>{2}));
    EXPECT_TRUE(kept_.waitFor(socket_.get()).empty()) << "once";
    first = DescriptorHolder();
    EXPECT_EQ(kept_.waitFor(socket_.get()), (std::vector<std::uint64_t>{1}));
}

TEST_F(KeptFiles, areClosedInTheOrderInWhichTheyWereReleased)
{
    DescriptorHolder first = keep("a", 1);
    DescriptorHolder second = keep("b", 2);
    EXPECT_FALSE(kept_.closeOldest()) << "none is released";
    second = DescriptorHolder();
    (void)kept_.waitFor(socket_.get());
    first = DescriptorHolder();
    (void)kept_.waitFor(socket_.get());
    EXPECT_TRUE(isOpen("a"));
    EXPECT_TRUE(isOpen("b"));
    EXPECT_TRUE(kept_.closeOldest());
    EXPECT_TRUE(isOpen("a"));
    EXPECT_FALSE(isOpen("b"));
    EXPECT_TRUE(kept_.closeOldest());
    EXPECT_FALSE(isOpen("a"));
    EXPECT_FALSE(kept_.closeOldest());
}

TEST_F(KeptFiles, areOfALimitedNumber)
{
    std::vector<DescriptorHolder> boxes;
    for (std::size_t i = 0; i < pinorama::KeptFiles::kMax; i++) {
        EXPECT_FALSE(kept_.isFull());
        boxes.push_back(keep("a", 1));
    }
    EXPECT_TRUE(kept_.isFull());
    boxes.clear();
    (void)kept_.waitFor(socket_.get());
    EXPECT_TRUE(kept_.isFull()) << "those that are to be closed count";
    EXPECT_TRUE(kept_.closeOldest());
    EXPECT_FALSE(kept_.isFull());
}

TEST_F(OpenerOfAServer, givesAFileUpAfterEverybodyElse)
{
    const std::string path = folder_.write("a.jpg", "a");
    PictureFile file = opened(path);
    ASSERT_TRUE(file.isOpen());
    DescriptorHolder copy(fcntl(file.descriptor(), F_DUPFD_CLOEXEC, STDERR_FILENO + 1));
    EXPECT_TRUE(isOpenInAnOpener(path));
    file = PictureFile();
    for (int i = 0; i < 5; i++) (void)opened(folder_.write("b.jpg", "b"));
    EXPECT_TRUE(isOpenInAnOpener(path)) << "there is a copy of its box";
    copy = DescriptorHolder();
    EXPECT_TRUE(goesOnUntil([&] { return !isOpenInAnOpener(path); }));
    EXPECT_TRUE(goesOnUntil([&] { return client_.countAtWork() == 0; }));
    EXPECT_LE(client_.count(), pinorama::OpenerClient::kMaxOpeners);
}

TEST_F(OpenerOfAServer, closesWhatNobodyHasWaitedFor)
{
    const std::string path = folder_.write("a.jpg", "a");
    client_.request(path);
    client_.giveUp();
    EXPECT_TRUE(goesOnUntil([&] { return client_.countAtWork() == 0; }));
    EXPECT_TRUE(goesOnUntil([&] { return !isOpenInAnOpener(path); }));
}

TEST_F(OpenerOfAServer, isAtWorkWhileTheServerDoesNotAnswer)
{
    const auto hanging = disk();
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    PictureFile file = opened(hanging->file("good.jpg"));
    ASSERT_TRUE(file.isOpen());
    hanging->hang();  // for a quarter of a minute
    file = PictureFile();
    // It asks to close the file, and is kept by that.
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 1; }));
    EXPECT_TRUE(opened(folder_.write("home.jpg", "home")).isOpen()) << "by another one";
    hanging->recover();
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 0; }));
}

TEST_F(OpenerOfAServer, closesAFileWhenTheServerAnswersAgain)
{
    const auto hanging = disk();
    if (!hanging->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    const std::string path = hanging->file("good.jpg");
    PictureFile file = opened(path);
    ASSERT_TRUE(file.isOpen());
    EXPECT_TRUE(isOpenInAnOpener(path));
    hanging->hang();  // for a quarter of a minute
    for (const char* name : {"other.jpg", "another.jpg", "third.jpg"}) {
        client_.request(hanging->file(name));
        (void)client_.wait(300ms);
    }
    file = PictureFile();
    client_.giveUp();
    EXPECT_LE(client_.countAtWork(), 2u);
    hanging->recover();
    EXPECT_TRUE(goesOnUntil([&] { return !isOpenInAnOpener(path); }));
    EXPECT_TRUE(goesOnUntil([this] { return client_.countAtWork() == 0; }));
}

}  // namespace pinorama::tests
