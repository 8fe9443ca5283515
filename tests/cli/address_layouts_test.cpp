// The processes in which pinorama-info -r reads pictures do not share their layouts of addresses.

#include "tests/cli/running_program.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/small_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <map>
#include <optional>
#include <set>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include <sched.h>
#include <sys/personality.h>
#include <unistd.h>

namespace {
using namespace std::chrono_literals;

constexpr int kMany = 20000;  // pictures, which take a while

// Where a process has its program, and where its stack.
using Layout = std::pair<std::string, std::string>;

std::vector<pid_t> childrenOf(pid_t process)
{
    const std::string id = std::to_string(process);
    std::ifstream list("/proc/" + id + "/task/" + id + "/children");
    std::vector<pid_t> children;
    for (pid_t child = 0; list >> child;) children.push_back(child);
    return children;
}

std::string startOf(const std::string& line)
{
    return line.substr(0, line.find('-'));
}

// Empty texts where this process may not look, or the other one is gone.
Layout layoutOf(pid_t process)
{
    std::ifstream maps("/proc/" + std::to_string(process) + "/maps");
    Layout layout;
    for (std::string line; std::getline(maps, line);) {
        if (layout.first.empty() && line.find("pinorama-info") != line.npos) {
            layout.first = startOf(line);
        }
        if (line.ends_with("[stack]")) layout.second = startOf(line);
    }
    return layout;
}

// A reader is closed to everybody but the superuser of its namespace once it is in its sandbox.
bool isInItsSandbox(pid_t process)
{
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("Seccomp:")) return line.ends_with("2");
    }
    return false;
}

// The children of the children of a program: its workers' readers.
std::set<pid_t> readersOf(pid_t program)
{
    std::set<pid_t> readers;
    for (const pid_t worker : childrenOf(program)) {
        for (const pid_t reader : childrenOf(worker)) {
            if (isInItsSandbox(reader)) readers.insert(reader);
        }
    }
    return readers;
}

bool areRandom()
{
    int setting = 0;
    std::ifstream("/proc/sys/kernel/randomize_va_space") >> setting;
    return setting > 0 && (personality(0xffffffff) & ADDR_NO_RANDOMIZE) == 0;
}

class pinoramaInfoWithWorkers : public testing::Test {
protected:
    void SetUp() override
    {
        if (!areRandom()) GTEST_SKIP() << "the system gives all programs the same layout";
        if (geteuid() != 0 && !test::enterMountNamespace()) {
            GTEST_SKIP() << "nobody may look at a reader here";
        }
        const std::string first = folder_.write("0.jpg", test::pictureWithGps({.lat = 1}));
        for (int i = 1; i < kMany; i++) {
            std::filesystem::create_hard_link(first, folder_.file(std::to_string(i) + ".jpg"));
        }
        program_.emplace(std::vector<std::string>{"-r", "--json", "-q", folder_.path()});
        (void)program_->read(1);
    }

    // The layouts of as many readers as there are workers, none of which is one of `earlier`. The
    // program may go on meanwhile, but not come to its end.
    std::map<pid_t, Layout> layouts(const std::set<pid_t>& earlier = {})
    {
        std::set<pid_t> readers;
        for (int i = 0; i < 1000 && readers.size() < workers(); i++) {
            readers = readersOf(program_->process());
            std::erase_if(readers, [&](pid_t reader) { return earlier.contains(reader); });
            (void)program_->read(program_->out().size() + 1);
            std::this_thread::sleep_for(10ms);
        }
        EXPECT_EQ(readers.size(), workers());
        std::map<pid_t, Layout> layouts;
        for (const pid_t reader : readers) {
            layouts[reader] = layoutOf(reader);
            EXPECT_NE(layouts[reader].first, "");
            EXPECT_NE(layouts[reader].second, "");
        }
        return layouts;
    }

    static std::size_t workers()
    {
        cpu_set_t usable;
        EXPECT_EQ(sched_getaffinity(0, sizeof usable, &usable), 0);
        return static_cast<std::size_t>(CPU_COUNT(&usable));
    }

    static void expectAllDiffer(const std::map<pid_t, Layout>& layouts)
    {
        std::set<std::string> programs;
        std::set<std::string> stacks;
        for (const auto& [reader, layout] : layouts) {
            programs.insert(layout.first);
            stacks.insert(layout.second);
        }
        EXPECT_EQ(programs.size(), layouts.size()) << *programs.begin();
        EXPECT_EQ(stacks.size(), layouts.size()) << *stacks.begin();
    }

    test::TemporaryFolder folder_;
    std::optional<test::RunningProgram> program_;
};
}  // namespace

TEST_F(pinoramaInfoWithWorkers, givesEachReaderALayoutOfItsOwn)
{
    if (workers() < 2) GTEST_SKIP() << "there is one worker on one processor";
    expectAllDiffer(layouts());
}

TEST_F(pinoramaInfoWithWorkers, givesTheNextReaderAnotherLayoutThanOneThatDied)
{
    std::map<pid_t, Layout> all = layouts();
    std::set<pid_t> earlier;
    for (const auto& [reader, layout] : all) {
        earlier.insert(reader);
        ASSERT_EQ(kill(reader, SIGKILL), 0);
    }
    all.merge(layouts(earlier));
    expectAllDiffer(all);
    EXPECT_EQ(program_->finish(), 0) << program_->err();
}
