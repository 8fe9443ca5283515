// Searches whose processes a disk keeps, and those that only look like them.

#include "app/nearby/kept_searches.h"

#include "app/column/place_look_up.h"
#include "app/nearby/nearby_search.h"
#include "tests/app/nearby/search_program.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"
#include "tests/support/picture_builder.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;
using namespace std::chrono_literals;

namespace {
constexpr int kMany = 8;  // searches, of which a disk keeps as many as it can
constexpr int kMost = static_cast<int>(KeptSearches::kMax);

std::vector<pid_t> childrenOf(pid_t process)
{
    const std::string id = std::to_string(process);
    std::ifstream list("/proc/" + id + "/task/" + id + "/children");
    std::vector<pid_t> children;
    for (pid_t child = 0; list >> child;) children.push_back(child);
    return children;
}

// Whether a process sleeps in a call that no signal ends.
bool isKept(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("State:")) return line.find('D') != line.npos;
    }
    return false;
}

int keptBelow(pid_t process)
{
    int kept = 0;
    for (const pid_t child : childrenOf(process))
        kept += keptBelow(child) + (isKept(child) ? 1 : 0);
    return kept;
}

class keptSearches : public testing::Test {
protected:
    // What is left to nobody else is adopted by this process, and found there.
    keptSearches() { prctl(PR_SET_CHILD_SUBREAPER, 1); }
    ~keptSearches() override
    {
        prctl(PR_SET_CHILD_SUBREAPER, 0);
        while (waitpid(-1, nullptr, WNOHANG) > 0) {
        }
    }

    // Whether there are no processes but those of other tests.
    bool areGone() const
    {
        return std::ranges::all_of(childrenOf(getpid()), [this](pid_t child) {
            return std::ranges::find(others_, child) != others_.end();
        });
    }

    static std::string dead(int number) { return "dead" + std::to_string(number) + ".jpg"; }

    bool hangs()
    {
        const std::string bytes = test::pictureWithGps({.lat = 10, .lon = 10});
        std::filesystem::create_directory(folder_.file("disk"));
        // Of those that read one file only the first is kept, and all that open one.
        std::vector<test::SlowDisk::File> files = {
            {"shut.jpg", bytes, test::SlowDisk::kNever, test::SlowDisk::Step::open}};
        for (int i = 0; i < kMany; i++) files.push_back({dead(i), bytes, test::SlowDisk::kNever});
        disk_ = std::make_unique<test::SlowDisk>(folder_.file("disk"), files);
        return disk_->isUsable();
    }

    // A program that says that it is done and ends once it may go.
    const std::string kDone =
        "FOLDER=\"$FOLDER\" exec python3 -c '\n"
        "import os, signal, time\n"
        "signal.signal(signal.SIGTERM, signal.SIG_IGN)\n"
        "os.closerange(3, 1024)\n"
        "while not os.path.exists(os.environ[\"FOLDER\"] + \"/go\"): time.sleep(0.05)\n'\n";

    const std::vector<pid_t> others_ = childrenOf(getpid());
    test::TemporaryFolder folder_;
    std::unique_ptr<test::SlowDisk> disk_;
};
}  // namespace

TEST_F(keptSearches, ofTheColumnAreFewOnADiskThatHangs)
{
    if (!hangs()) GTEST_SKIP() << "no disk may be mounted here";
    PlaceLookUp lookUp(300ms);
    int endings = 0;
    QObject::connect(&lookUp, &PlaceLookUp::finished, &lookUp, [&] { endings++; });
    for (int i = 0; i < kMany && lookUp.isIdle(); i++) {
        lookUp.begin({disk_->file(dead(i))});
        ASSERT_TRUE(test::waitUntil([&] { return endings == i + 1; }));
        const bool isLast = i + 1 >= kMost;
        ASSERT_TRUE(test::waitUntil([&] { return lookUp.isIdle() || isLast; }));
    }
    EXPECT_TRUE(test::waitUntil([] { return keptBelow(getpid()) == kMost; }))
        << keptBelow(getpid());
    test::goOnFor(1500);  // by then the last one has been killed, or left to wait
    EXPECT_EQ(endings, kMost);
    EXPECT_FALSE(lookUp.isIdle()) << "there is room for another one";
    disk_.reset();
    EXPECT_TRUE(test::waitUntil([&] { return lookUp.isIdle(); }));
    EXPECT_TRUE(test::waitUntil([this] { return areGone(); }));
}

TEST_F(keptSearches, forPicturesNearbyAreFewOnADiskThatHangs)
{
    if (!hangs()) GTEST_SKIP() << "no disk may be mounted here";
    NearbySearch search;
    int endings = 0;
    QObject::connect(&search, &NearbySearch::finished, &search, [&] { endings++; });
    // One that is ended before its reader has come to the disk leaves nothing behind.
    for (int i = 0; i < 10 * kMany && keptBelow(getpid()) < kMost; i++) {
        search.begin({10, 10}, {folder_.file("disk")});
        test::goOnFor(500);
        search.end();
        test::goOnFor(500);
    }
    ASSERT_EQ(keptBelow(getpid()), kMost);
    for (int i = 0; i < kMany; i++) {
        search.begin({10, 10}, {folder_.file("disk")});
        test::goOnFor(100);
        EXPECT_EQ(search.processID(), 0) << "it does not wait for room";
    }
    EXPECT_EQ(keptBelow(getpid()), kMost);
    EXPECT_TRUE(search.isRunning());
    EXPECT_EQ(endings, 0);
    disk_.reset();
    EXPECT_TRUE(test::waitUntil([&] { return endings == 1; })) << "it never began";
    EXPECT_TRUE(test::waitUntil([this] { return areGone(); }));
}

TEST_F(keptSearches, haveGivenWhatTheyFound)
{
    const test::SearchProgram program(test::foundLine("/b", "2") + kDone);
    NearbySearch search;
    std::string found;
    std::vector<NearbySearch::Outcome> outcomes;
    QObject::connect(&search, &NearbySearch::found, &search, [&](const auto& pictures) {
        for (const NearbyPicture& picture : pictures) found += picture.path;
    });
    QObject::connect(&search, &NearbySearch::finished, &search,
                     [&](NearbySearch::Outcome outcome) { outcomes.push_back(outcome); });
    search.begin({1, 2}, {"/a"});
    ASSERT_TRUE(test::waitUntil([&] { return !outcomes.empty(); }));
    EXPECT_EQ(outcomes.front(), NearbySearch::Outcome::complete);
    EXPECT_EQ(found, "/b");
    EXPECT_FALSE(search.isRunning());
    EXPECT_FALSE(areGone()) << "it was killed";
    (void)program.folder().write("go", "");
    EXPECT_TRUE(test::waitUntil([this] { return areGone(); }));
}

TEST_F(keptSearches, areNotKilledWhenTheyAreDone)
{
    const test::SearchProgram program(kDone);
    PlaceLookUp lookUp(1000ms);
    lookUp.begin({"/a"});
    ASSERT_TRUE(test::waitUntil([&] { return lookUp.isIdle(); }));
    test::goOnFor(1500);
    EXPECT_FALSE(areGone()) << "it was killed";
    (void)program.folder().write("go", "");
    EXPECT_TRUE(test::waitUntil([this] { return areGone(); }));
}
