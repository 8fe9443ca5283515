// How the reader of a program ends, and what is given up with it.

#include "tests/reader/reader_fixture.h"
#include "tests/support/reader_signal.h"

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <string>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::expectGoodPicture;
using test::faultyReader;
using test::kBox;
using test::propertiesOf;
using test::realReader;
using Pictures = test::ReaderPictures;

TEST(ReaderClient_stop, endsTheReaderAndLeavesNothingToWaitFor)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    client.stop();
    EXPECT_EQ(client.processID(), -1) << "there was none";
    expectGoodPicture(client, pictures);
    const pid_t reader = client.processID();
    int changes = 0;
    client.setChangeHandler([&changes] { changes++; });
    client.stop();
    EXPECT_EQ(changes, 1);
    EXPECT_EQ(client.processID(), -1);
    EXPECT_EQ(client.socket(), -1);
    EXPECT_EQ(client.millisecondsLeft(), -1);
    EXPECT_EQ(kill(reader, 0), -1) << "it is still there";
}

TEST(ReaderClient_stop, theNextRequestStartsAnotherReader)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    for (int i = 0; i < 3; i++) {
        expectGoodPicture(client, pictures);
        client.stop();
    }
}

TEST(ReaderClient_stop, forgetsThePreviewThatIsUnderWay)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    const PictureFile loop(pictures.withFault("loop"));
    (void)client.startPreview(loop.descriptor(), PreviewKind::picture, kBox);
    EXPECT_NE(client.previewTicket(), 0u);
    client.stop();
    EXPECT_EQ(client.previewTicket(), 0u);
    EXPECT_FALSE(client.hasPreview());
    EXPECT_EQ(client.waitForPreview().outcome, ReadOutcome::failed) << "nothing to wait for";
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient_stop, aReaderThatWasMissingIsTriedAgainAtOnce)
{
    const Pictures pictures;
    bool isMissing = true;
    ReaderClient client(
        [&isMissing] {
            return isMissing ? startReaderProgram("/nowhere/pinorama-reader") : realReader()();
        },
        {.whenMissing = 1h});
    EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::noReader);
    isMissing = false;
    EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::noReader);
    client.stop();
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient_stop, endsThePauseAfterManyDeaths)
{
    const Pictures pictures;
    ReaderClient client(faultyReader({"--alone"}));
    const std::string crash = pictures.withFault("crash");
    for (int i = 0; i < 4; i++) (void)propertiesOf(client, crash);
    client.start();
    ASSERT_EQ(client.processID(), -1) << "there is no pause";
    client.stop();
    client.start();
    EXPECT_NE(client.processID(), -1);
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient_giveUpPreview, leavesNoTicketAndNoResult)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    const PictureFile good(pictures.good());
    (void)client.startPreview(good.descriptor(), PreviewKind::picture, kBox);
    client.giveUpPreview();
    EXPECT_EQ(client.previewTicket(), 0u);
    EXPECT_EQ(client.waitForPreview().outcome, ReadOutcome::failed) << "nothing to wait for";
    // The same for one that has come and was not taken.
    (void)client.startPreview(good.descriptor(), PreviewKind::picture, kBox);
    while (!client.hasPreview()) client.advance();
    client.giveUpPreview();
    EXPECT_EQ(client.previewTicket(), 0u);
    EXPECT_FALSE(client.hasPreview());
}

TEST(ReaderClient, mayEndWithTheProgram)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");  // nothing of this process is there yet
    const auto loseAReader = [] {
        static ReaderClient client(realReader());
        client.start();
        test::signalReader(client, SIGKILL);
        const Pictures pictures;
        expectGoodPicture(client, pictures);
    };
    EXPECT_EXIT(
        {
            loseAReader();
            // This process has a home of its own, which main() does not live to remove.
            std::filesystem::remove_all(std::getenv("HOME"));
            std::exit(0);
        },
        testing::ExitedWithCode(0), "");
}
}  // namespace
