// Every picture has a process of its own: what it does to that is of no use against the next one.

#include "reader/reader_zygote.h"

#include "tests/reader/reader_fixture.h"
#include "tests/support/other_process.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::childrenOf;
using test::expectGoodPicture;
using test::faultyReader;
using test::kBox;
using test::kHasSanitizers;
using test::propertiesOf;
using test::realReader;
using test::statusLine;
using test::waitUntil;
using Pictures = test::ReaderPictures;

// What a fault tells as a caption.
std::u16string lootOf(ReaderClient& client, const std::string& path)
{
    return propertiesOf(client, path).properties.caption.value_or(u"");
}

// Processor time that a process has had, in the kernel's ticks.
long ticksOf(pid_t process)
{
    const std::string line = test::readFile("/proc/" + std::to_string(process) + "/stat");
    std::istringstream fields(line.substr(line.rfind(')') + 2));
    std::string skipped;
    for (int i = 0; i < 11; i++) fields >> skipped;
    long user = 0;
    long system = 0;
    fields >> user >> system;
    return user + system;
}

// The processes of a reader that use the processor.
std::vector<pid_t> busyChildrenOf(pid_t reader)
{
    std::vector<std::pair<pid_t, long>> before;
    for (const pid_t child : childrenOf(reader)) before.emplace_back(child, ticksOf(child));
    usleep(300'000);
    std::vector<pid_t> busy;
    for (const pid_t child : childrenOf(reader)) {
        for (const auto& [process, ticks] : before) {
            if (process == child && ticksOf(child) > ticks) busy.push_back(child);
        }
    }
    return busy;
}

TEST(pinoramaReader, readsEachPictureInAProcessOfItsOwn)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    const std::string names = pictures.withFault("name-itself");
    std::vector<std::u16string> processes;
    for (int i = 0; i < 5; i++) processes.push_back(lootOf(client, names));
    // In one request together.
    const PictureFile file(names);
    for (const PropertyResult& result :
         client.readProperties(std::vector<int>(5, file.descriptor()))) {
        processes.push_back(result.properties.caption.value_or(u""));
    }
    EXPECT_EQ(std::count(processes.begin(), processes.end(), u""), 0);
    std::sort(processes.begin(), processes.end());
    EXPECT_EQ(std::unique(processes.begin(), processes.end()), processes.end());

    ReaderClient single(faultyReader({"--alone"}));
    EXPECT_EQ(lootOf(single, names), lootOf(single, names)) << "the fault tells something else";
}

TEST(pinoramaReader, aPictureThatTakesItsProcessOverRepliesForNoOther)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(lootOf(client, pictures.withFault("poison")), u"poison") << "for itself it may";
        expectGoodPicture(client, pictures);
    }
    // Of many that are requested together it changes none.
    const PictureFile poison(pictures.withFault("poison"));
    const PictureFile good(pictures.good());
    std::vector<int> descriptors(20, good.descriptor());
    descriptors[3] = poison.descriptor();
    const std::vector<PropertyResult> results = client.readProperties(descriptors);
    for (std::size_t i = 0; i < results.size(); i++) {
        EXPECT_EQ(results[i].outcome, ReadOutcome::found);
        EXPECT_EQ(results[i].properties.latitude.has_value(), i != 3) << i;
    }

    ReaderClient single(faultyReader({"--alone"}));
    EXPECT_EQ(lootOf(single, pictures.withFault("poison")), u"poison");
    EXPECT_EQ(lootOf(single, pictures.good()), u"poison") << "the fault is none";
}

TEST(pinoramaReader, aProcessThatHasRepliedIsGone)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    expectGoodPicture(client, pictures);
    for (int i = 0; i < 3; i++) {
        EXPECT_NE(lootOf(client, pictures.withFault("burn-afterwards")), u"");
        EXPECT_TRUE(waitUntil([&] { return busyChildrenOf(client.processID()).empty(); }));
    }
    EXPECT_TRUE(waitUntil([&] { return childrenOf(client.processID()).size() <= 1; }))
        << "only the one for the next picture may be there";
}

TEST(pinoramaReader, livesOnWhenAPictureCrashesItsProcess)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    for (const char* fault : {"crash", "exit", "garbage", "too-much", "open-socket"}) {
        SCOPED_TRACE(fault);
        EXPECT_EQ(propertiesOf(client, pictures.withFault(fault)).outcome, ReadOutcome::failed);
        expectGoodPicture(client, pictures);
    }
    EXPECT_EQ(client.processID(), reader);
}

TEST(pinoramaReader, livesOnWhenAPictureIsStuck)
{
    const Pictures pictures;
    ReaderLimits limits = test::shortLimits();
    limits.properties.silence = limits.properties.whole = 1h;  // its processor time has to do
    ReaderClient client(faultyReader(), limits);
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    EXPECT_EQ(propertiesOf(client, pictures.withFault("loop")).outcome, ReadOutcome::stuck);
    EXPECT_EQ(propertiesOf(client, pictures.withFault("half")).outcome, ReadOutcome::stuck);
    expectGoodPicture(client, pictures);
    EXPECT_EQ(client.processID(), reader);
    EXPECT_TRUE(waitUntil([&] { return busyChildrenOf(reader).empty(); }));
}

TEST(pinoramaReader, endsTheProcessOfWhatIsGivenUp)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    const PictureFile loop(pictures.withFault("loop"));
    for (const bool isPreview : {false, true}) {
        if (isPreview) {
            (void)client.startPreview(loop.descriptor(), PreviewKind::picture, kBox);
        } else {
            (void)client.startProperties(loop.descriptor());
        }
        EXPECT_TRUE(waitUntil([&] { return !busyChildrenOf(reader).empty(); }));
        client.giveUpPreview();
        client.giveUpProperties();
        client.advance();
        EXPECT_TRUE(waitUntil([&] { return busyChildrenOf(reader).empty(); }));
        client.advance();
        EXPECT_EQ(client.millisecondsLeft(), -1) << "something is still waited for";
    }
    expectGoodPicture(client, pictures);
    EXPECT_EQ(client.processID(), reader);
}

TEST(pinoramaReader, isReplacedAfterSomeCrashes)
{
    // So that nobody learns by trying where things lie in its memory.
    const Pictures pictures;
    ReaderClient client(faultyReader());
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    const std::string crash = pictures.withFault("crash");
    for (int i = 0; i < 7; i++) (void)propertiesOf(client, crash);
    EXPECT_EQ(client.processID(), reader);
    (void)propertiesOf(client, crash);
    EXPECT_NE(client.processID(), reader);
    EXPECT_GT(client.processID(), 0);
    expectGoodPicture(client, pictures);
}

TEST(pinoramaReader, itsProcessesMayTakeLittleOfTheMachine)
{
    const Pictures pictures;
    ReaderClient client(faultyReader(), test::shortLimits());
    expectGoodPicture(client, pictures);
    const PictureFile slow(pictures.slow(1h));
    (void)client.startProperties(slow.descriptor());
    // The one that reads, and the one that waits for the next picture.
    ASSERT_TRUE(waitUntil([&] { return childrenOf(client.processID()).size() == 2; }));
    const auto isLimited = [](pid_t process) {
        return test::hardLimitOf(process, "Max cpu time") == "5";
    };
    const std::vector<pid_t> children = childrenOf(client.processID());
    EXPECT_TRUE(waitUntil([&] { return std::ranges::count_if(children, isLimited) == 1; }));
    for (const pid_t child : children) {
        EXPECT_TRUE(waitUntil([&] {
            return statusLine(child, "Seccomp_filters") == "2" ||
                   statusLine(child, "Seccomp_filters").empty();  // an old kernel does not say
        }));
        EXPECT_EQ(statusLine(child, "NoNewPrivs"), "1");
        EXPECT_EQ(statusLine(child, "Threads"), "1");
        EXPECT_EQ(test::hardLimitOf(child, "Max core file size"), "0");
        EXPECT_EQ(test::hardLimitOf(child, "Max open files"), kHasSanitizers ? "14" : "6");
        if (!kHasSanitizers) {
            EXPECT_EQ(test::hardLimitOf(child, "Max file size"), "0");
            EXPECT_NE(test::hardLimitOf(child, "Max address space"), "unlimited");
        }
    }
}

TEST(pinoramaReader, itsProcessesAreClosedToOtherProgramsOfTheUser)
{
    const Pictures pictures;
    const PictureFile good(pictures.good());  // before the rights to it are gone
    const int status = test::inChild([&] {
        if (!test::becomeNobody()) return test::kCannotTest;
        EXPECT_EQ(prctl(PR_SET_DUMPABLE, 1, 0, 0, 0), 0);
        ReaderClient client(realReader());
        EXPECT_EQ(client.readProperties(good.descriptor()).outcome, ReadOutcome::found);
        std::vector<pid_t> processes;
        EXPECT_TRUE(waitUntil([&] {
            processes = childrenOf(client.processID());
            return !processes.empty();
        }));
        processes.push_back(client.processID());
        for (const pid_t process : processes) {
            const std::string secret = "/proc/" + std::to_string(process) + "/environ";
            const DescriptorHolder opened(openDescriptor(secret.c_str(), O_RDONLY));
            EXPECT_FALSE(opened);
            EXPECT_EQ(errno, EACCES);
        }
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == test::kCannotTest) GTEST_SKIP() << "everything here runs as root";
    EXPECT_EQ(status, 0);
}

TEST(pinoramaReader, takesItsProcessesAlong)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    const PictureFile loop(pictures.withFault("loop"));
    (void)client.startPreview(loop.descriptor(), PreviewKind::picture, kBox);
    ASSERT_TRUE(waitUntil([&] { return childrenOf(client.processID()).size() == 2; }));
    const std::vector<pid_t> children = childrenOf(client.processID());
    client.stop();
    for (const pid_t child : children) {
        EXPECT_TRUE(waitUntil([child] {
            return kill(child, 0) != 0 || statusLine(child, "State").starts_with("Z");
        }));
    }
}

// Pictures that take their process over and good ones by turns, for as long as one likes.
TEST(pinoramaReader, endurance)
{
    const char* set = std::getenv("PINORAMA_ENDURANCE_PICTURES");
    const int count = set == nullptr ? 40 : std::atoi(set);
    const Pictures pictures;
    ReaderClient client(faultyReader());
    const std::vector<std::string> faults = {"open-file " + pictures.secret(),
                                             "write-file " + pictures.harm(),
                                             "open-socket",
                                             "start-program " + pictures.harm(),
                                             "make-executable",
                                             "allocate",
                                             "crash",
                                             "exit",
                                             "garbage",
                                             "too-much",
                                             "twice",
                                             "nan",
                                             "poison",
                                             "burn-afterwards",
                                             "die-afterwards"};
    expectGoodPicture(client, pictures);
    for (int i = 0; i < count; i++) {
        const std::string& fault = faults[static_cast<std::size_t>(i) % faults.size()];
        SCOPED_TRACE(fault);
        (void)propertiesOf(client, pictures.withFault(fault));
        expectGoodPicture(client, pictures);
        ASSERT_LE(childrenOf(client.processID()).size(), kMaxChildren);
        ASSERT_FALSE(testing::Test::HasFailure()) << "after " << i << " pictures";
    }
    EXPECT_FALSE(std::filesystem::exists(pictures.harm()));
    EXPECT_TRUE(waitUntil([&] { return busyChildrenOf(client.processID()).empty(); }));
    std::printf("%d pictures that did harm, %d processes lost\n", count, client.failureCount());
}
}  // namespace
