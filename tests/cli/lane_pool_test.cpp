#include "cli/lane_pool.h"

#include <gtest/gtest.h>
#include <signal.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

using namespace pinorama;

namespace {
using Texts = std::vector<std::string>;
using namespace std::chrono_literals;

// A line for each path. Some paths are not to a lane's liking.
BatchResult echo(std::span<const std::string> paths)
{
    BatchResult result;
    for (const std::string& path : paths) {
        if (path.starts_with("crash")) abort();
        if (path.starts_with("exit")) _exit(0);
        if (path.starts_with("slow")) std::this_thread::sleep_for(20ms);
        result.output += path + '\n';
        result.placemarks += '<' + path + '>';
        result.complaints += path.starts_with("bad") ? path + '!' : "";
        result.located += path.starts_with("located") ? 1 : 0;
        result.failed += path.starts_with("bad") ? 1 : 0;
        result.files++;
    }
    return result;
}

// What comes of the batches, taken as it comes.
BatchResult run(LanePool* lanes, const std::vector<Texts>& batches)
{
    BatchResult all;
    std::size_t next = 0;
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    while (next < batches.size() || !lanes->isEmpty()) {
        while (next < batches.size() && lanes->hasRoom()) lanes->add(batches[next++]);
        while (auto result = lanes->take()) all.add(*std::move(result));
        if (!lanes->isEmpty()) lanes->wait(-1, 1000);
        if (std::chrono::steady_clock::now() > deadline) {
            ADD_FAILURE() << "the lanes take too long";
            break;
        }
    }
    return all;
}

std::string linesOf(const std::vector<Texts>& batches)
{
    std::string lines;
    for (const Texts& batch : batches) {
        for (const std::string& path : batch) lines += path + '\n';
    }
    return lines;
}

// No core files of lanes that are meant to crash.
class LanePoolTest : public testing::Test {
protected:
    LanePoolTest()
    {
        getrlimit(RLIMIT_CORE, &earlier_);
        const rlimit none = {0, earlier_.rlim_max};
        setrlimit(RLIMIT_CORE, &none);
    }
    ~LanePoolTest() override { setrlimit(RLIMIT_CORE, &earlier_); }

private:
    rlimit earlier_{};
};
}  // namespace

TEST_F(LanePoolTest, keepsTheOrderWhicheverLaneIsFaster)
{
    std::vector<Texts> batches;
    for (int i = 0; i < 200; i++) {
        const std::string number = std::to_string(i);
        batches.push_back({(i % 7 == 0 ? "slow" : "quick") + number, "b" + number});
        if (i % 3 == 0) batches.back().emplace_back("located");
        if (i % 50 == 0) batches.back().emplace_back("bad" + number);
    }
    LanePool lanes(3, echo);
    const BatchResult result = run(&lanes, batches);
    EXPECT_EQ(result.output, linesOf(batches));
    EXPECT_EQ(result.complaints, "bad0!bad50!bad100!bad150!");
    EXPECT_EQ(result.files, 200u * 2 + 67 + 4);
    EXPECT_EQ(result.located, 67u);
    EXPECT_EQ(result.failed, 4u);
    EXPECT_TRUE(result.placemarks.starts_with("<slow0><b0><located><bad0><quick1>"));
}

TEST_F(LanePoolTest, worksInSeveralProcessesAtOnce)
{
    LanePool lanes(2, [](std::span<const std::string> paths) {
        std::this_thread::sleep_for(50ms);
        BatchResult result;
        result.output = std::to_string(getpid()) + '\n';
        result.files = paths.size();
        return result;
    });
    EXPECT_EQ(lanes.processes().size(), 0u) << "nothing to do yet";
    const std::string out = run(&lanes, std::vector<Texts>(8, Texts{"a"})).output;
    const std::vector<pid_t> processes = lanes.processes();
    ASSERT_EQ(processes.size(), 2u);
    for (const pid_t process : processes) {
        EXPECT_NE(out.find(std::to_string(process) + '\n'), std::string::npos) << out;
    }
    EXPECT_EQ(out.find(std::to_string(getpid()) + '\n'), std::string::npos);
}

TEST_F(LanePoolTest, hasRoomForAFewBatchesOnly)
{
    LanePool lanes(2, echo);
    int count = 0;
    while (lanes.hasRoom() && count < 1000) {
        lanes.add({"slow"});
        count++;
    }
    EXPECT_GE(count, 4);
    EXPECT_LE(count, 16);
}

TEST_F(LanePoolTest, losesOnlyTheFileThatALaneDiesOf)
{
    const std::vector<Texts> batches = {{"a", "b", "crash1", "c"}, {"d", "e"},          {"exit2"},
                                        {"crash3", "f", "crash4"}, {"g", "h", "exit5"}, {"i"}};
    for (const int count : {1, 2, 4}) {
        SCOPED_TRACE(count);
        LanePool lanes(count, echo);
        const BatchResult result = run(&lanes, batches);
        EXPECT_EQ(result.output, "a\nb\nc\nd\ne\nf\ng\nh\ni\n");
        EXPECT_EQ(result.files, 14u);
        EXPECT_EQ(result.failed, 5u);
        std::string expected;
        for (const char* path : {"crash1", "exit2", "crash3", "crash4", "exit5"}) {
            expected += "pinorama-info: " + std::string(path) +
                        ": the process that read it ended unexpectedly\n";
        }
        EXPECT_EQ(result.complaints, expected);
    }
}

TEST_F(LanePoolTest, survivesThatSomebodyKillsItsLanes)
{
    LanePool lanes(2, echo);
    std::vector<Texts> batches;
    for (int i = 0; i < 8; i++) batches.push_back({"slow" + std::to_string(i), "b"});
    for (const Texts& batch : batches) lanes.add(batch);
    for (const pid_t process : lanes.processes()) kill(process, SIGKILL);
    const BatchResult result = run(&lanes, {});
    EXPECT_EQ(result.output, linesOf(batches)) << "the pictures were not to blame";
    EXPECT_EQ(result.failed, 0u);
}

TEST_F(LanePoolTest, carriesLargeBatchesAndResults)
{
    std::vector<Texts> batches;
    for (int i = 0; i < 12; i++) {
        batches.push_back(Texts(64, std::string(4000, static_cast<char>('a' + i))));
    }
    LanePool lanes(2, echo);
    EXPECT_EQ(run(&lanes, batches).output, linesOf(batches));
}

TEST_F(LanePoolTest, takesPathsWithAnyBytes)
{
    const std::vector<Texts> batches = {{"a\nb", "", "\xff\xfe", "a b"}};
    LanePool lanes(1, echo);
    EXPECT_EQ(run(&lanes, batches).output, linesOf(batches));
}

TEST_F(LanePoolTest, endsItsLanesWithItself)
{
    std::vector<pid_t> processes;
    {
        LanePool lanes(2, [](std::span<const std::string>) -> BatchResult {
            while (true) pause();
        });
        lanes.add({"a"});
        lanes.add({"b"});
        processes = lanes.processes();
        EXPECT_EQ(processes.size(), 2u);
    }
    for (const pid_t process : processes) EXPECT_NE(kill(process, 0), 0);
}

TEST_F(LanePoolTest, wakesUpForTheAlarm)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    LanePool lanes(1, [](std::span<const std::string>) -> BatchResult {
        while (true) pause();
    });
    lanes.add({"a"});
    ASSERT_EQ(write(ends[1], "x", 1), 1);
    const auto start = std::chrono::steady_clock::now();
    lanes.wait(ends[0], 30'000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
    close(ends[0]);
    close(ends[1]);
}
