// Readers that do harm, each in its own way: none of them gets anywhere, and none outlives it.

#include "tests/reader/reader_fixture.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <string>
#include <vector>

#include <sys/wait.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::expectGoodPicture;
using test::faultyReader;
using test::kHasSanitizers;
using test::previewOf;
using test::propertiesOf;
using Clock = std::chrono::steady_clock;
using Pictures = test::ReaderPictures;

// Each fault, what a sandboxed reader makes of it, and whether it succeeds in one that is
// not.
const struct {
    const char* fault;
    bool succeedsOutside;
} kFaults[] = {
    {"open-file", true},
    {"write-file", true},
    {"open-socket", true},
    {"start-program", true},
    {"allocate", !kHasSanitizers},
    {"make-executable", true},
    {"kill-other", true},
    {"loop", false},
    {"crash", false},
    {"exit", false},
    {"garbage", false},
    {"too-much", false},
    {"twice", false},
    {"large-preview", false},
    {"short-preview", false},
    {"long-preview", false},
    {"flat-preview", false},
    {"nan", false},
    {"die-afterwards", false},
    {"half", false},
};

// A fault with what it needs: a file to read or to make, a process to signal, a time to waste.
std::string lineFor(const std::string& fault, const Pictures& pictures, pid_t victim)
{
    if (fault == "open-file") return fault + " " + pictures.secret();
    if (fault == "write-file" || fault == "start-program") return fault + " " + pictures.harm();
    if (fault == "kill-other") return fault + " " + std::to_string(victim);
    return fault;
}

// A process to be signalled by a fault.
class Victim {
public:
    Victim() : process_(fork())
    {
        if (process_ == 0) {
            (void)alarm(60);
            for (;;) pause();
        }
    }
    ~Victim()
    {
        kill(process_, SIGKILL);
        (void)waitpid(process_, nullptr, 0);
    }
    Victim(const Victim&) = delete;
    Victim& operator=(const Victim&) = delete;

    pid_t process() const { return process_; }

private:
    pid_t process_;
};

void expectNoHarm(const std::vector<std::string>& arguments)
{
    for (const auto& row : kFaults) {
        SCOPED_TRACE(row.fault);
        const Victim victim;
        const Pictures pictures;
        ReaderClient client(faultyReader(arguments), test::shortLimits());
        expectGoodPicture(client, pictures);
        const std::string fault =
            pictures.withFault(lineFor(row.fault, pictures, victim.process()));

        const auto start = Clock::now();
        const PropertyResult properties = propertiesOf(client, fault);
        EXPECT_NE(properties.outcome, ReadOutcome::found);
        EXPECT_FALSE(properties.properties.caption.has_value());
        expectGoodPicture(client, pictures);
        const PreviewResult preview = previewOf(client, fault);
        EXPECT_NE(preview.outcome, ReadOutcome::found);
        expectGoodPicture(client, pictures);
        EXPECT_LT(Clock::now() - start, 40s) << "something waited without a limit";

        EXPECT_FALSE(std::filesystem::exists(pictures.harm()));
        EXPECT_EQ(waitpid(victim.process(), nullptr, WNOHANG), 0) << "the other process is gone";
    }
}

TEST(ReaderClient, noFaultOfAPictureDoesHarmOrOutlivesIt)
{
    expectNoHarm({});
}

TEST(ReaderClient, noFaultOfTheReaderDoesHarmOrOutlivesIt)
{
    expectNoHarm({"--alone"});
}

TEST(ReaderClient, theFaultsSucceedWithoutTheSandbox)
{
    for (const auto& row : kFaults) {
        if (!row.succeedsOutside) continue;
        SCOPED_TRACE(row.fault);
        const Victim victim;
        const Pictures pictures;
        ReaderClient client(faultyReader({"--without-sandbox"}));
        const PropertyResult properties = propertiesOf(
            client, pictures.withFault(lineFor(row.fault, pictures, victim.process())));
        EXPECT_EQ(properties.outcome, ReadOutcome::found);
        EXPECT_TRUE(properties.properties.caption.has_value());
    }
}
}  // namespace
