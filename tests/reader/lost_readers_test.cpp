// Readers that get stuck, take no requests, report without end, die or never start: they are given
// up in time, and another one takes their place.

#include "reader/reader_client.h"

#include "base/descriptor.h"
#include "reader/reader_protocol.h"
#include "reader/reader_service.h"
#include "reader/reader_socket.h"
#include "reader/sandboxed_properties.h"
#include "tests/reader/reader_fixture.h"
#include "tests/support/reader_signal.h"

#include <gtest/gtest.h>

#include <array>
#include <chrono>
#include <csignal>
#include <string>
#include <vector>

#include <sys/ioctl.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::expectGoodPicture;
using test::faultyReader;
using test::previewOf;
using test::propertiesOf;
using test::realReader;
using Clock = std::chrono::steady_clock;
using Pictures = test::ReaderPictures;

TEST(ReaderClient, givesUpAReaderThatIsInALoop)
{
    const Pictures pictures;
    ReaderClient client(faultyReader(), test::shortLimits());
    expectGoodPicture(client, pictures);
    const std::string loop = pictures.withFault("loop");

    // On a busy machine a reader needs more time for its share of the processor.
    const auto timeOf = [](const auto& read) {
        const auto start = Clock::now();
        EXPECT_EQ(read(), ReadOutcome::stuck);
        return Clock::now() - start;
    };
    const auto properties = timeOf([&] { return propertiesOf(client, loop).outcome; });
    EXPECT_GE(properties, 490ms);
    EXPECT_LT(properties, 50s) << "nothing but the end of all patience helped";
    const auto preview = timeOf([&] { return previewOf(client, loop).outcome; });
    EXPECT_GE(preview, 590ms);
    EXPECT_LT(preview, 50s);
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient, aSlowPictureHasTheTimeThatOthersWasteBeforeIt)
{
    // Two of a batch take 1.2 seconds each: neither is stuck, although both together would be.
    const Pictures pictures;
    const PictureFile slow(pictures.withFault("late 1200"));
    ReaderClient client(faultyReader(),
                        {.properties = {.processor = 2s, .silence = 2s, .whole = 2s}});
    const std::vector<int> descriptors = {slow.descriptor(), slow.descriptor()};
    for (const PropertyResult& result : client.readProperties(descriptors)) {
        EXPECT_EQ(result.outcome, ReadOutcome::found);
    }
}

TEST(ReaderClient, theTimeOfAPictureBeginsWhenTheReaderIsReady)
{
    const Pictures pictures;
    ReaderClient client(
        [] {
            return forkReader([](int socket) {
                usleep(1'200'000);
                serveReader(socket, {readPictureProperties, {}});
            });
        },
        {.properties = {.processor = 1s, .silence = 1s, .whole = 1s}});
    EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::found);
}

TEST(ReaderClient, aPictureThatWasSentToAReaderThatNeverGotReadyIsSentToTheNextOne)
{
    const Pictures pictures;
    int starts = 0;
    ReaderClient client([&starts] {
        const bool getsReady = ++starts == 2;
        return forkReader([getsReady](int socket) {
            usleep(20'000);  // until the request is there
            if (getsReady) serveReader(socket, {readPictureProperties, {}});
        });
    });
    EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::found);
    EXPECT_EQ(starts, 2);
}

// Replies to each request as it comes in, but leaves it in the socket, which fills up.
void replyWithoutReading(int socket)
{
    (void)sendAll(socket, encodeReplyHeader({ReaderTask::hello, ReplyOutcome::found, 0, 0}));
    for (std::uint32_t number = 1;; number++) {
        int queued = 0;
        while (ioctl(socket, FIONREAD, &queued) == 0 &&
               static_cast<std::size_t>(queued) < number * kRequestSize) {
            usleep(100);
        }
        const auto reply =
            encodeReplyHeader({ReaderTask::properties, ReplyOutcome::nothing, number, 0});
        if (!sendAll(socket, reply)) return;
    }
}

TEST(ReaderClient, losesAReaderThatTakesNoRequests)
{
    const Pictures pictures;
    int starts = 0;
    ReaderClient client(
        [&starts] {
            return forkReader([isFirst = ++starts == 1](int socket) {
                if (isFirst) replyWithoutReading(socket);
                serveReader(socket, {readPictureProperties, {}});
            });
        },
        {.properties = {.processor = 1s, .silence = 500ms, .whole = 5s}});
    const auto start = Clock::now();
    ReadOutcome outcome = ReadOutcome::nothing;
    for (int i = 0; i < 10000 && outcome == ReadOutcome::nothing; i++) {
        outcome = propertiesOf(client, pictures.good()).outcome;
    }
    EXPECT_EQ(outcome, ReadOutcome::found) << "of the second reader";
    EXPECT_EQ(starts, 2);
    EXPECT_LT(Clock::now() - start, 10s);
}

TEST(ReaderClient, losesAReaderThatReportsWithoutEnd)
{
    const Pictures pictures;
    ReaderClient client([] {
        return forkReader([](int socket) {
            (void)sendAll(socket,
                          encodeReplyHeader({ReaderTask::hello, ReplyOutcome::found, 0, 0}));
            std::array<std::uint8_t, kRequestSize> bytes;
            std::vector<DescriptorHolder> descriptors;
            if (!receiveRequest(socket, bytes, &descriptors)) return;
            const auto header = encodeReplyHeader({ReaderTask::properties, ReplyOutcome::atWork,
                                                   decodeRequest(bytes)->number, kReportSize});
            std::vector<std::uint8_t> flood;
            for (int i = 0; i < 1000; i++) {
                const auto report = encodeReport(std::chrono::nanoseconds(i));
                flood.insert(flood.end(), header.begin(), header.end());
                flood.insert(flood.end(), report.begin(), report.end());
            }
            while (sendAll(socket, flood)) {
            }
        });
    });
    const auto start = Clock::now();
    EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::failed);
    EXPECT_LT(Clock::now() - start, 10s);
}

TEST(ReaderClient, aReaderThatWasKilledIsReplaced)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    for (int i = 0; i < 12; i++) {
        expectGoodPicture(client, pictures);
        const pid_t killed = client.processID();
        test::signalReader(client, SIGKILL);
        expectGoodPicture(client, pictures);
        EXPECT_NE(client.processID(), killed);
    }
}

TEST(ReaderClient, aReaderThatKeepsDyingIsStartedAfterAPause)
{
    const Pictures pictures;
    int starts = 0;
    ReaderClient client([&starts] {
        starts++;
        return faultyReader({"--alone"})();
    });
    const std::string crash = pictures.withFault("crash");
    const auto start = Clock::now();
    for (int i = 0; i < 8; i++) {
        EXPECT_EQ(propertiesOf(client, crash).outcome, ReadOutcome::failed);
    }
    EXPECT_GE(Clock::now() - start, 1s);
    EXPECT_LE(starts, 8 * 2 + 1);
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient, reportsAMissingReader)
{
    const Pictures pictures;
    int starts = 0;
    const ReaderLauncher launchers[] = {
        [] { return startReaderProgram("/nowhere/pinorama-reader"); },
        [] { return startReaderProgram("/dev/null"); },
        faultyReader({"--exit-at-once"}),
        faultyReader({"--never-ready"}),
    };
    for (const ReaderLauncher& launcher : launchers) {
        for (const std::chrono::milliseconds whenMissing : {1h, 0h}) {
            starts = 0;
            ReaderClient client(
                [&] {
                    starts++;
                    return launcher();
                },
                {.start = {.processor = 200ms, .silence = 200ms, .whole = 200ms},
                 .whenMissing = whenMissing});
            EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::noReader);
            const int tries = starts;
            EXPECT_LE(tries, 2);
            EXPECT_EQ(previewOf(client, pictures.good()).outcome, ReadOutcome::noReader);
            if (whenMissing > 0ms) {
                EXPECT_EQ(starts, tries) << "tried again at once";
            } else {
                EXPECT_GT(starts, tries) << "never tried again";
            }
        }
    }
}
}  // namespace
