#include "cli/worker_pool.h"

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

// Prints a line for each path. Some paths crash, end or delay the worker.
BatchResult echo(std::span<const std::string> paths)
{
    BatchResult result;
    for (const std::string& path : paths) {
        if (path.starts_with("crash")) abort();
        if (path.starts_with("exit")) _exit(0);
        if (path.starts_with("slow")) std::this_thread::sleep_for(20ms);
        result.output += path + '\n';
        result.placemarks += '<' + path + '>';
        result.diagnostics += path.starts_with("bad") ? path + '!' : "";
        result.located += path.starts_with("located") ? 1 : 0;
        result.failed += path.starts_with("bad") ? 1 : 0;
        result.files++;
    }
    return result;
}

// The results of the batches together.
BatchResult run(WorkerPool* workers, const std::vector<Texts>& batches)
{
    BatchResult all;
    std::size_t next = 0;
    const auto deadline = std::chrono::steady_clock::now() + 60s;
    while (next < batches.size() || !workers->isEmpty()) {
        while (next < batches.size() && workers->hasRoom()) workers->add(batches[next++]);
        while (auto result = workers->take()) all.add(*std::move(result));
        if (!workers->isEmpty()) workers->wait(-1, 1000);
        if (std::chrono::steady_clock::now() > deadline) {
            ADD_FAILURE() << "the workers take too long";
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

// While it lives, workers that are meant to crash leave no core files.
class NoCoreFiles {
public:
    NoCoreFiles()
    {
        getrlimit(RLIMIT_CORE, &earlier_);
        const rlimit none = {0, earlier_.rlim_max};
        setrlimit(RLIMIT_CORE, &none);
    }
    ~NoCoreFiles() { setrlimit(RLIMIT_CORE, &earlier_); }
    NoCoreFiles(const NoCoreFiles&) = delete;
    NoCoreFiles& operator=(const NoCoreFiles&) = delete;

private:
    rlimit earlier_{};
};
}  // namespace

TEST(WorkerPool, keepsTheOrderOfTheBatches)
{
    std::vector<Texts> batches;
    for (int i = 0; i < 200; i++) {
        const std::string number = std::to_string(i);
        batches.push_back({(i % 7 == 0 ? "slow" : "quick") + number, "b" + number});
        if (i % 3 == 0) batches.back().emplace_back("located");
        if (i % 50 == 0) batches.back().emplace_back("bad" + number);
    }
    WorkerPool workers(3, echo);
    const BatchResult result = run(&workers, batches);
    EXPECT_EQ(result.output, linesOf(batches));
    EXPECT_EQ(result.diagnostics, "bad0!bad50!bad100!bad150!");
    EXPECT_EQ(result.files, 200u * 2 + 67 + 4);
    EXPECT_EQ(result.located, 67u);
    EXPECT_EQ(result.failed, 4u);
    EXPECT_TRUE(result.placemarks.starts_with("<slow0><b0><located><bad0><quick1>"));
}

TEST(WorkerPool, worksInSeveralProcessesAtOnce)
{
    WorkerPool workers(2, [](std::span<const std::string> paths) {
        std::this_thread::sleep_for(50ms);
        BatchResult result;
        result.output = std::to_string(getpid()) + '\n';
        result.files = paths.size();
        return result;
    });
    EXPECT_EQ(workers.processes().size(), 0u) << "nothing to do yet";
    const std::string out = run(&workers, std::vector<Texts>(8, Texts{"a"})).output;
    const std::vector<pid_t> processes = workers.processes();
    ASSERT_EQ(processes.size(), 2u);
    for (const pid_t process : processes) {
        EXPECT_NE(out.find(std::to_string(process) + '\n'), std::string::npos) << out;
    }
    EXPECT_EQ(out.find(std::to_string(getpid()) + '\n'), std::string::npos);
}

TEST(WorkerPool, hasRoomForAFewBatchesOnly)
{
    WorkerPool workers(2, echo);
    int count = 0;
    while (workers.hasRoom() && count < 1000) {
        workers.add({"slow"});
        count++;
    }
    EXPECT_GE(count, 4);
    EXPECT_LE(count, 16);
}

TEST(WorkerPool, losesOnlyTheFileThatCrashesAWorker)
{
    const NoCoreFiles noCoreFiles;
    const std::vector<Texts> batches = {{"a", "b", "crash1", "c"}, {"d", "e"},          {"exit2"},
                                        {"crash3", "f", "crash4"}, {"g", "h", "exit5"}, {"i"}};
    for (const int count : {1, 2, 4}) {
        SCOPED_TRACE(count);
        WorkerPool workers(count, echo);
        const BatchResult result = run(&workers, batches);
        EXPECT_EQ(result.output, "a\nb\nc\nd\ne\nf\ng\nh\ni\n");
        EXPECT_EQ(result.files, 14u);
        EXPECT_EQ(result.failed, 5u);
        std::string expected;
        for (const char* path : {"crash1", "exit2", "crash3", "crash4", "exit5"}) {
            expected += "pinorama-info: " + std::string(path) +
                        ": the process that read it ended unexpectedly\n";
        }
        EXPECT_EQ(result.diagnostics, expected);
    }
}

TEST(WorkerPool, replacesWorkersThatSomebodyKills)
{
    WorkerPool workers(2, echo);
    std::vector<Texts> batches;
    for (int i = 0; i < 8; i++) batches.push_back({"slow" + std::to_string(i), "b"});
    for (const Texts& batch : batches) workers.add(batch);
    for (const pid_t process : workers.processes()) kill(process, SIGKILL);
    const BatchResult result = run(&workers, {});
    EXPECT_EQ(result.output, linesOf(batches)) << "the pictures were not to blame";
    EXPECT_EQ(result.failed, 0u);
}

TEST(WorkerPool, carriesLargeBatchesAndResults)
{
    std::vector<Texts> batches;
    for (int i = 0; i < 12; i++) {
        batches.push_back(Texts(64, std::string(4000, static_cast<char>('a' + i))));
    }
    WorkerPool workers(2, echo);
    EXPECT_EQ(run(&workers, batches).output, linesOf(batches));
}

TEST(WorkerPool, takesPathsWithAnyBytes)
{
    const std::vector<Texts> batches = {{"a\nb", "", "\xff\xfe", "a b"}};
    WorkerPool workers(1, echo);
    EXPECT_EQ(run(&workers, batches).output, linesOf(batches));
}

TEST(WorkerPool, killsItsWorkersInItsDestructor)
{
    std::vector<pid_t> processes;
    {
        WorkerPool workers(2, [](std::span<const std::string>) -> BatchResult {
            while (true) pause();
        });
        workers.add({"a"});
        workers.add({"b"});
        processes = workers.processes();
        EXPECT_EQ(processes.size(), 2u);
    }
    for (const pid_t process : processes) EXPECT_NE(kill(process, 0), 0);
}

TEST(WorkerPool, stopsWaitingForTheAlarm)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    WorkerPool workers(1, [](std::span<const std::string>) -> BatchResult {
        while (true) pause();
    });
    workers.add({"a"});
    ASSERT_EQ(write(ends[1], "x", 1), 1);
    const auto start = std::chrono::steady_clock::now();
    workers.wait(ends[0], 30'000);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 20s);
    close(ends[0]);
    close(ends[1]);
}
