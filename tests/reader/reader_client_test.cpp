#include "reader/reader_client.h"

#include "base/descriptor.h"
#include "reader/reader_protocol.h"
#include "reader/reader_socket.h"
#include "tests/reader/reader_fixture.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <string>

#include <fcntl.h>
#include <malloc.h>
#include <sys/wait.h>
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

TEST(ReaderClient, readsPropertiesAndPreviews)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    expectGoodPicture(client, pictures);
    EXPECT_EQ(propertiesOf(client, pictures.secret()).outcome, ReadOutcome::nothing);
    EXPECT_EQ(previewOf(client, pictures.secret()).outcome, ReadOutcome::nothing);
    EXPECT_EQ(propertiesOf(client, pictures.file("empty.jpg", "")).outcome, ReadOutcome::nothing);
}

TEST(ReaderClient, keepsOneReaderForAllPictures)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    expectGoodPicture(client, pictures);
    const pid_t first = client.processID();
    for (int i = 0; i < 50; i++) expectGoodPicture(client, pictures);
    EXPECT_EQ(client.processID(), first);
}

TEST(ReaderClient, readsManyPicturesInBatches)
{
    const Pictures pictures;
    const PictureFile good(pictures.good());
    const PictureFile other(pictures.secret());
    std::vector<int> descriptors;
    for (int i = 0; i < 300; i++) {
        descriptors.push_back(i % 3 == 0 ? other.descriptor() : good.descriptor());
    }
    ReaderClient client(realReader());
    const std::vector<PropertyResult> results = client.readProperties(descriptors);
    ASSERT_EQ(results.size(), 300u);
    for (int i = 0; i < 300; i++) {
        EXPECT_EQ(results[i].outcome, i % 3 == 0 ? ReadOutcome::nothing : ReadOutcome::found);
    }
    EXPECT_TRUE(client.readProperties(std::span<const int>()).empty());
}

TEST(ReaderClient, oneBadPictureOfABatchFailsAlone)
{
    const Pictures pictures;
    const PictureFile good(pictures.good());
    const PictureFile bad(pictures.withFault("crash"));
    ReaderClient client(faultyReader());
    const std::vector<int> descriptors = {good.descriptor(), bad.descriptor(), good.descriptor(),
                                          -1, good.descriptor()};
    const std::vector<PropertyResult> results = client.readProperties(descriptors);
    const ReadOutcome expected[] = {ReadOutcome::found, ReadOutcome::failed, ReadOutcome::found,
                                    ReadOutcome::failed, ReadOutcome::found};
    for (int i = 0; i < 5; i++) EXPECT_EQ(results[i].outcome, expected[i]) << i;
}

TEST(ReaderClient, thePicturesBeforeABadOneAreNotToBlame)
{
    const Pictures pictures;
    const PictureFile good(pictures.good());
    for (const char* fault : {"crash", "loop", "garbage"}) {
        SCOPED_TRACE(fault);
        const PictureFile bad(pictures.withFault(fault));
        std::vector<int> descriptors(64, good.descriptor());
        descriptors[40] = descriptors[50] = bad.descriptor();
        ReaderClient client(faultyReader());
        const std::vector<PropertyResult> results = client.readProperties(descriptors);
        for (std::size_t i = 0; i < results.size(); i++) {
            const bool isBad = i == 40 || i == 50;
            EXPECT_EQ(results[i].outcome, !isBad                         ? ReadOutcome::found
                                          : std::string(fault) == "loop" ? ReadOutcome::stuck
                                                                         : ReadOutcome::failed)
                << i;
        }
        // The next batch goes out together again.
        for (const PropertyResult& result :
             client.readProperties(std::vector<int>(64, good.descriptor()))) {
            EXPECT_EQ(result.outcome, ReadOutcome::found);
        }
    }
}

TEST(ReaderClient, anInterruptedPreviewHasItsTimeOnce)
{
    const Pictures pictures;
    ReaderClient client(
        [] {
            return forkReader([](int socket) {
                (void)sendAll(socket,
                              encodeReplyHeader({ReaderTask::hello, ReplyOutcome::found, 0, 0}));
                std::array<std::uint8_t, kRequestSize> bytes;
                std::vector<DescriptorHolder> descriptors;
                while (receiveRequest(socket, bytes, &descriptors)) {
                    usleep(200'000);
                    const std::uint32_t number = decodeRequest(bytes)->number;
                    (void)sendAll(socket,
                                  encodeReplyHeader({ReaderTask::picturePreview,
                                                     ReplyOutcome::interrupted, number, 0}));
                }
            });
        },
        {.preview = {.processor = 1s, .silence = 1s, .whole = 1s}});
    const auto start = Clock::now();
    EXPECT_EQ(previewOf(client, pictures.good()).outcome, ReadOutcome::stuck);
    EXPECT_LT(Clock::now() - start, 4s);
}

TEST(ReaderClient, aPreviewGivesWayToProperties)
{
    const Pictures pictures;
    ReaderLimits limits = test::shortLimits();
    limits.preview.processor = 2s;
    ReaderClient client(faultyReader(), limits);
    expectGoodPicture(client, pictures);
    const PictureFile loop(pictures.withFault("loop"));
    (void)client.startPreview(loop.descriptor(), PreviewKind::picture, kBox);

    const auto start = Clock::now();
    EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::found);
    EXPECT_LT(Clock::now() - start, 1900ms) << "it waited for the preview to end";
    EXPECT_EQ(client.waitForPreview().outcome, ReadOutcome::stuck);
}

TEST(ReaderClient, thePreviewGoesOnAfterTheProperties)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    const PictureFile good(pictures.good());
    for (int i = 0; i < 20; i++) {
        (void)client.startPreview(good.descriptor(), PreviewKind::picture, kBox);
        EXPECT_EQ(propertiesOf(client, pictures.good()).outcome, ReadOutcome::found);
        EXPECT_EQ(client.waitForPreview().outcome, ReadOutcome::found);
    }
}

TEST(ReaderClient, anEarlierPreviewIsGivenUp)
{
    const Pictures pictures;
    ReaderClient client(faultyReader());
    const PictureFile loop(pictures.withFault("loop"));
    const PictureFile good(pictures.good());
    const std::uint32_t first = client.startPreview(loop.descriptor(), PreviewKind::picture, kBox);
    const std::uint32_t second = client.startPreview(good.descriptor(), PreviewKind::picture, kBox);
    EXPECT_NE(first, second);
    EXPECT_EQ(client.previewTicket(), second);
    EXPECT_EQ(client.waitForPreview().outcome, ReadOutcome::found);
    EXPECT_EQ(client.previewTicket(), 0u);
}

TEST(ReaderClient, worksWithAnEventLoop)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    int changes = 0;
    client.setChangeHandler([&changes] { changes++; });
    client.start();
    EXPECT_GT(changes, 0);
    const PictureFile good(pictures.good());
    (void)client.startPreview(good.descriptor(), PreviewKind::picture, kBox);
    EXPECT_GE(client.millisecondsLeft(), 0);
    const auto end = Clock::now() + 10s;
    while (!client.hasPreview() && Clock::now() < end) {
        usleep(1000);
        client.advance();
    }
    ASSERT_TRUE(client.hasPreview());
    EXPECT_EQ(client.takePreview()->outcome, ReadOutcome::found);
    EXPECT_FALSE(client.takePreview());
    EXPECT_EQ(client.millisecondsLeft(), -1) << "nothing to wake up for";
}

// Four megabytes of pixels, which nobody needs once they have been taken.
TEST(ReaderClient, keepsNoMemoryOfALargePreview)
{
    if (test::kHasSanitizers) GTEST_SKIP() << "memory is counted in another way";
    const auto inUse = [] {
        const struct mallinfo2 info = mallinfo2();
        return info.uordblks + info.hblkhd;
    };
    const Pictures pictures;
    ReaderClient client(realReader());
    expectGoodPicture(client, pictures);
    const PictureFile large(pictures.file("large.jpg", test::jpegOfQuarters(1100, 1100)));
    const std::size_t before = inUse();
    (void)client.startPreview(large.descriptor(), PreviewKind::picture, {1024, 1024});
    {
        const PreviewResult result = client.waitForPreview();
        ASSERT_EQ(result.outcome, ReadOutcome::found);
        EXPECT_EQ(result.reply.image.width, 1024);
        EXPECT_GT(inUse(), before + (std::size_t{3} << 20)) << "while it is there";
    }
    EXPECT_LT(inUse(), before + (std::size_t{1} << 20));
    expectGoodPicture(client, pictures);
}

TEST(ReaderClient, leavesNoProcessAndNoDescriptor)
{
    const auto openDescriptors = [] {
        const std::filesystem::directory_iterator entries("/proc/self/fd");
        return std::distance(begin(entries), end(entries));
    };
    const Pictures pictures;
    const auto before = openDescriptors();
    {
        ReaderClient client(faultyReader());
        const std::string crash = pictures.withFault("crash");
        for (int i = 0; i < 3; i++) {
            expectGoodPicture(client, pictures);
            (void)propertiesOf(client, crash);
        }
    }
    EXPECT_EQ(openDescriptors(), before);
    // One that takes its time to be gone is looked after when the next one ends.
    const auto hasChildren = [] {
        siginfo_t info = {};
        return waitid(P_ALL, 0, &info, WEXITED | WNOHANG | WNOWAIT) == 0;
    };
    for (int i = 0; i < 100 && hasChildren(); i++) {
        ReaderClient next(faultyReader());
        next.start();
    }
    EXPECT_FALSE(hasChildren());
}

TEST(ReaderClient, survivesAFileThatIsCutShortAndOneThatIsHuge)
{
    const Pictures pictures;
    ReaderClient client(realReader());
    const std::string path = pictures.file("cut.jpg", test::jpegOfQuarters(2000, 2000));
    const PictureFile cut(path);
    std::filesystem::resize_file(path, 1000);
    EXPECT_NE(client.readProperties(cut.descriptor()).outcome, ReadOutcome::failed);

    const std::string sparse = pictures.file("sparse.nef", "II*\0");
    std::error_code error;
    std::filesystem::resize_file(sparse, std::uintmax_t{8} << 40, error);
    if (error) std::filesystem::resize_file(sparse, std::uintmax_t{1} << 40);
    const ReadOutcome ofSparse = propertiesOf(client, sparse).outcome;
    EXPECT_TRUE(ofSparse == ReadOutcome::found || ofSparse == ReadOutcome::nothing);
    (void)previewOf(client, sparse);
    expectGoodPicture(client, pictures);
}

TEST(startReaderProgram, handsOnNothingButTheSocket)
{
    const test::ScopedVariable secret("PINORAMA_TEST_SECRET", "treasure");
    const test::TemporaryFolder folder;
    const std::string script = folder.write(
        "reader", "#!/bin/sh\n(env; ls /proc/self/fd) > '" + folder.file("part") + "'\nmv '" +
                      folder.file("part") + "' '" + folder.file("seen") + "'\n");
    std::filesystem::permissions(script, std::filesystem::perms::owner_all);
    const int open = ::open("/dev/null", O_RDONLY);  // deliberately without O_CLOEXEC
    {
        ReaderProcess process = startReaderProgram(script);
        ASSERT_TRUE(process);
        for (int i = 0; i < 3000 && !std::filesystem::exists(folder.file("seen")); i++) {
            usleep(10'000);
        }
    }
    close(open);
    const std::string seen = test::readFile(folder.file("seen"));
    EXPECT_EQ(seen.find("treasure"), std::string::npos);
    EXPECT_NE(seen.find("OMP_NUM_THREADS=1"), std::string::npos);
    // The three streams, the socket, and the folder that is being listed.
    EXPECT_EQ(seen.substr(seen.find("\n0\n")), "\n0\n1\n2\n3\n4\n");
}

TEST(readerProgram, liesBesideTheProgramUnlessToldOtherwise)
{
    EXPECT_EQ(readerProgram(), programFolder() + "/pinorama-reader");
    const test::ScopedVariable variable("PINORAMA_READER", "/elsewhere/reader");
    EXPECT_EQ(readerProgram(), "/elsewhere/reader");
}
}  // namespace
