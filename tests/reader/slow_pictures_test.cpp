// Pictures on disks that take their time: they are waited for, and stand in nobody's way.

#include "reader/reader_zygote.h"
#include "reader/sandboxed_properties.h"
#include "tests/reader/reader_fixture.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>
#include <string>
#include <vector>

#include <poll.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::expectGoodPicture;
using test::faultyReader;
using test::kBox;
using test::previewOf;
using test::propertiesOf;
using test::realReader;
using Clock = std::chrono::steady_clock;
using Pictures = test::ReaderPictures;

std::string anHourLong(const Pictures& pictures)
{
    return pictures.slow(1h);
}

// The result of startProperties, by way of an event loop.
PropertyResult awaitedProperties(ReaderClient& client)
{
    const auto end = Clock::now() + 30s;
    while (!client.hasProperties() && Clock::now() < end) {
        pollfd state = {client.socket(), POLLIN, 0};
        (void)poll(&state, 1, client.millisecondsLeft());
        client.advance();
    }
    return client.takeProperties().value_or(PropertyResult{});
}

TEST(ReaderClient, waitsForASlowPicture)
{
    const Pictures pictures;
    ReaderClient client(faultyReader(), test::shortLimits());
    EXPECT_EQ(propertiesOf(client, pictures.slow(700ms)).outcome, ReadOutcome::found);
    EXPECT_EQ(previewOf(client, pictures.slow(700ms)).outcome, ReadOutcome::found);
}

TEST(ReaderClient, deliversASlowPictureLaterToACallerThatDoesNotWait)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    client.start();
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    const PictureFile slow(pictures.slow(700ms));
    const std::uint32_t ticket = client.startProperties(slow.descriptor());
    EXPECT_NE(ticket, 0u);
    EXPECT_FALSE(client.waitForProperties(100ms));
    EXPECT_EQ(client.propertiesTicket(), ticket);
    const PropertyResult result = awaitedProperties(client);
    EXPECT_EQ(result.outcome, ReadOutcome::found);
    EXPECT_EQ(result.properties.latitude, 48.5);
    EXPECT_EQ(client.propertiesTicket(), 0u);
    EXPECT_EQ(client.processID(), reader) << "a slow disk was taken for a reader that is stuck";
}

TEST(ReaderClient, waitsForAReaderThatStartsSlowly)
{
    const Pictures pictures;
    ReaderClient client(faultyReader({"--slow-start", "2600"}));
    const PictureFile good(pictures.good());
    client.startProperties(good.descriptor());
    EXPECT_FALSE(client.waitForProperties(100ms));
    EXPECT_EQ(awaitedProperties(client).outcome, ReadOutcome::found);
}

TEST(ReaderClient, givesUpAPictureThatNeverComes)
{
    const Pictures pictures;
    ReaderClient client(faultyReader(), test::shortLimits());
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    const auto start = Clock::now();
    EXPECT_EQ(propertiesOf(client, anHourLong(pictures)).outcome, ReadOutcome::stuck);
    EXPECT_GE(Clock::now() - start, 1490ms);
    expectGoodPicture(client, pictures);
    EXPECT_EQ(previewOf(client, anHourLong(pictures)).outcome, ReadOutcome::stuck);
    expectGoodPicture(client, pictures);
    EXPECT_EQ(client.processID(), reader) << "the reader went with its picture";
}

TEST(ReaderClient, givesUpAReaderThatNeverReplies)
{
    const Pictures pictures;
    ReaderClient client(faultyReader({"--alone"}), test::shortLimits());
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    EXPECT_EQ(propertiesOf(client, anHourLong(pictures)).outcome, ReadOutcome::stuck);
    EXPECT_NE(client.processID(), reader);
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient, aSlowPictureDelaysNoOther)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    expectGoodPicture(client, pictures);
    const PictureFile slow(anHourLong(pictures));
    const PictureFile good(pictures.good());
    for (int i = 0; i < 10; i++) {
        client.startProperties(slow.descriptor());
        EXPECT_FALSE(client.waitForProperties(200ms));
        const std::uint32_t ticket = client.startProperties(good.descriptor());
        EXPECT_EQ(client.propertiesTicket(), ticket);
        const PropertyResult result = awaitedProperties(client);
        EXPECT_EQ(result.outcome, ReadOutcome::found);
        EXPECT_EQ(result.properties.latitude, 48.5);
    }
}

TEST(ReaderClient, aSlowPictureThatWasGivenUpDeliversNothing)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    expectGoodPicture(client, pictures);
    const PictureFile slow(pictures.slow(300ms));
    client.startProperties(slow.descriptor());
    client.giveUpProperties();
    EXPECT_EQ(client.propertiesTicket(), 0u);
    EXPECT_FALSE(client.waitForProperties(600ms)) << "nothing to wait for";
    const auto end = Clock::now() + 600ms;
    while (Clock::now() < end) client.advance();
    EXPECT_FALSE(client.hasProperties());
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient, aSlowPictureOfABatchCostsOnlyItself)
{
    const Pictures pictures;
    const PictureFile good(pictures.good());
    const PictureFile slow(pictures.slow(700ms));
    const PictureFile dead(
        pictures.file("dead.jpg", test::readFile(pictures.good()) + "SLOW 3600000"));
    std::vector<int> descriptors(20, good.descriptor());
    descriptors[5] = slow.descriptor();
    descriptors[12] = dead.descriptor();
    ReaderClient client(faultyReader(), test::shortLimits());
    const std::vector<PropertyResult> results = client.readProperties(descriptors);
    for (std::size_t i = 0; i < results.size(); i++) {
        EXPECT_EQ(results[i].outcome, i == 12 ? ReadOutcome::stuck : ReadOutcome::found) << i;
    }
}

TEST(ReaderClient, theAlarmEndsTheWaitForASlowPicture)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    expectGoodPicture(client, pictures);
    const PictureFile slow(anHourLong(pictures));
    const PictureFile good(pictures.good());
    int alarm[2];
    ASSERT_EQ(pipe(alarm), 0);
    ASSERT_EQ(write(alarm[1], "!", 1), 1);
    const int descriptors[] = {good.descriptor(), slow.descriptor(), good.descriptor()};
    const auto start = Clock::now();
    const auto results = client.readProperties(descriptors, alarm[0]);
    EXPECT_LT(Clock::now() - start, 10s);
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[1].outcome, ReadOutcome::failed);
    close(alarm[0]);
    close(alarm[1]);
    // It may be asked again, and what was left behind does no harm.
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient, startsNoReaderWhileTooManyLinger)
{
    const Pictures pictures;
    ReaderLimits limits = test::shortLimits();
    limits.maxLingering = 0;
    limits.start.whole = 300ms;
    int starts = 0;
    ReaderClient client(
        [&starts] {
            starts++;
            return faultyReader()();
        },
        limits);
    EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::stuck);
    EXPECT_EQ(starts, 0);
    client.setLimits(test::shortLimits());
    expectGoodPicture(client, pictures);
}

TEST(ReaderProcess_processorTime, isThatOfTheProcess)
{
    EXPECT_EQ(ReaderProcess().processorTime(), 0ns);
    const auto waitFor = [](const ReaderProcess& process, std::chrono::nanoseconds time) {
        const auto end = Clock::now() + 30s;
        while (process.processorTime() < time && Clock::now() < end) usleep(1000);
        return process.processorTime() >= time;
    };
    const ReaderProcess busy = forkReader([](int) {
        for (volatile bool goesOn = true; goesOn;) {
        }
    });
    EXPECT_TRUE(waitFor(busy, 50ms));
    const ReaderProcess idle = forkReader([](int) {
        for (;;) pause();
    });
    usleep(200'000);
    const auto before = idle.processorTime();
    usleep(200'000);
    EXPECT_EQ(idle.processorTime(), before);
}

// The same with a disk that really takes its time.
class ReaderClient_slowDisk : public testing::Test {
protected:
    void SetUp() override
    {
        const std::string bytes = test::readFile(pictures_.good());
        std::vector<test::SlowDisk::File> files = {{"slow.jpg", bytes, 700}};
        for (int i = 0; i < kDeadPictures; i++) {
            files.push_back({deadPicture(i), bytes, test::SlowDisk::kNever});
        }
        disk_ = std::make_unique<test::SlowDisk>(folder_.path(), std::move(files));
        if (!disk_->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    }

    // Each is asked for once: who waits for the same bytes as another one may be killed.
    static constexpr int kDeadPictures = 8;
    static std::string deadPicture(int number) { return "dead" + std::to_string(number) + ".jpg"; }

    const Pictures pictures_;
    const test::TemporaryFolder folder_;
    std::unique_ptr<test::SlowDisk> disk_;
};

TEST_F(ReaderClient_slowDisk, isWaitedFor)
{
    ReaderClient client(realReader(), test::shortLimits());
    expectGoodPicture(client, pictures_);
    const pid_t reader = client.processID();
    const PictureFile slow(disk_->file("slow.jpg"));
    const auto start = Clock::now();
    client.startProperties(slow.descriptor());
    EXPECT_FALSE(client.waitForProperties(100ms));
    EXPECT_EQ(awaitedProperties(client).properties.latitude, 48.5);
    EXPECT_GE(Clock::now() - start, 690ms) << "the disk is not slow";
    EXPECT_EQ(client.processID(), reader);
}

TEST_F(ReaderClient_slowDisk, thatNeverRespondsKeepsAFewProcessesAndNoMore)
{
    int starts = 0;
    ReaderClient client(
        [&starts] {
            starts++;
            return realReader()();
        },
        test::shortLimits());
    expectGoodPicture(client, pictures_);
    for (int i = 0; i < kDeadPictures; i++) {
        const PictureFile dead(disk_->file(deadPicture(i)));
        EXPECT_EQ(client.readProperties(dead.descriptor()).outcome, ReadOutcome::stuck);
        EXPECT_LE(test::childrenOf(client.processID()).size(), kMaxChildren);
    }
    EXPECT_EQ(test::childrenOf(client.processID()).size(), kMaxChildren)
        << "the disk keeps none of them";
    EXPECT_EQ(starts, 1);
    disk_.reset();
    expectGoodPicture(client, pictures_);
}

// The same with readers that read pictures themselves.
TEST_F(ReaderClient_slowDisk, thatNeverRespondsKeepsAFewReadersAndNoMore)
{
    ReaderLimits limits = test::shortLimits();
    limits.maxLingering = 3;
    limits.start.whole = 500ms;
    int starts = 0;
    ReaderClient client(
        [&starts] {
            starts++;
            return forkPropertyReader();
        },
        limits);
    for (int i = 0; i < kDeadPictures; i++) {
        const PictureFile dead(disk_->file(deadPicture(i)));
        EXPECT_EQ(client.readProperties(dead.descriptor()).outcome, ReadOutcome::stuck);
    }
    EXPECT_EQ(lingeringReaders(), 3u);
    EXPECT_EQ(starts, 3);
    disk_.reset();
    const auto end = Clock::now() + 30s;
    while (lingeringReaders() > 0 && Clock::now() < end) usleep(10'000);
    EXPECT_EQ(lingeringReaders(), 0u);
    EXPECT_EQ(propertiesOf(client, pictures_.good()).outcome, ReadOutcome::found);
}
}  // namespace
