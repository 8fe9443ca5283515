#include "previews/picture_reader.h"

#include "location/picture_source.h"
#include "pictures/picture_file.h"
#include "tests/support/environment.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"
#include "tests/support/reader_signal.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <csignal>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {

constexpr PixelSize kBox = {64, 64};

// A picture with a position, and no reader before and after the test.
class PictureReaderTest : public testing::Test {
protected:
    PictureReaderTest()
    {
        (void)ReaderEvents::instance();
        cuPictureReader().stop();
    }
    ~PictureReaderTest() override
    {
        installPropertySource({});
        cuPictureReader().stop();
        cuPictureReader().setLimits({});
    }

    bool hasProperties() const { return propertiesOf(file_).has_value(); }

    std::uint32_t startPreview() const
    {
        return cuPictureReader().startPreview(file_.descriptor(), PreviewKind::picture, kBox);
    }

    // Lets the event loop run until the preview is there. What has become of it.
    static ReadOutcome previewFromTheEventLoop()
    {
        EXPECT_TRUE(test::waitUntil([] { return cuPictureReader().hasPreview(); }));
        return cuPictureReader().takePreview().value_or(PreviewResult{}).outcome;
    }

    test::TemporaryFolder folder_;
    std::string path_ = folder_.write(
        "a.jpg",
        test::jpegOfQuarters(200, 100,
                             {.exif = test::tiffWithGps(
                                  {.lat = 48.5, .latRef = "N", .lon = 11.25, .lonRef = "E"})}));
    PictureFile file_{path_};
};

using cuReadPicturesElsewhere = PictureReaderTest;
using ReaderEventsTest = PictureReaderTest;

TEST_F(cuReadPicturesElsewhere, startsTheReader)
{
    EXPECT_EQ(cuPictureReader().processID(), -1);
    pinorama::cuReadPicturesElsewhere();
    EXPECT_NE(cuPictureReader().processID(), -1);
}

TEST_F(cuReadPicturesElsewhere, replacesAReaderWithoutTheDecodersThatAreNeededNow)
{
    cuPictureReader().start();
    const pid_t first = cuPictureReader().processID();
    ASSERT_GT(first, 0);
    EXPECT_EQ(cuPictureReader().processID(), first);

    setReadsMoreKinds(true);
    EXPECT_LT(cuPictureReader().processID(), 0) << "it is started by the next request";
    (void)startPreview();
    EXPECT_EQ(previewFromTheEventLoop(), ReadOutcome::found);
    const pid_t second = cuPictureReader().processID();
    EXPECT_GT(second, 0);
    EXPECT_NE(second, first);

    setReadsMoreKinds(false);
    EXPECT_EQ(cuPictureReader().processID(), second) << "it has all that is needed";
    setReadsMoreKinds(true);
    EXPECT_EQ(cuPictureReader().processID(), second);
    setReadsMoreKinds(false);
}

TEST_F(cuReadPicturesElsewhere, leavesPropertiesToTheReader)
{
    const test::ScopedVariable none("PINORAMA_READER", "/nowhere/pinorama-reader");
    EXPECT_TRUE(hasProperties()) << "before, this process reads them";
    pinorama::cuReadPicturesElsewhere();
    EXPECT_FALSE(hasProperties()) << "without a reader nobody does";
}

TEST_F(cuReadPicturesElsewhere, showsWhatTheReaderFinds)
{
    pinorama::cuReadPicturesElsewhere();
    EXPECT_TRUE(hasProperties());
    file_ = PictureFile(folder_.write("b.jpg", "no picture"));
    EXPECT_FALSE(hasProperties());
}

TEST_F(ReaderEventsTest, areThoseOfTheApplication)
{
    EXPECT_EQ(ReaderEvents::instance(), ReaderEvents::instance());
    EXPECT_EQ(ReaderEvents::instance()->parent(), QCoreApplication::instance());
}

TEST_F(ReaderEventsTest, receiveAPreviewAndReportIt)
{
    int reported = 0;
    QObject context;
    QObject::connect(ReaderEvents::instance(), &ReaderEvents::advanced, &context, [&reported] {
        if (cuPictureReader().hasPreview()) reported++;
    });
    startPreview();
    EXPECT_EQ(previewFromTheEventLoop(), ReadOutcome::found);
    EXPECT_GT(reported, 0);
}

TEST_F(ReaderEventsTest, reportAPreviewThatCameWhileSomebodyWaitedForSomethingElse)
{
    bool isTold = false;
    QObject context;
    QObject::connect(ReaderEvents::instance(), &ReaderEvents::advanced, &context,
                     [&isTold] { isTold = true; });
    startPreview();
    for (int i = 0; i < 1000 && !cuPictureReader().hasPreview(); i++) {
        (void)cuPictureReader().readProperties(file_.descriptor());
    }
    ASSERT_TRUE(cuPictureReader().hasPreview());
    EXPECT_FALSE(isTold) << "outside of the event loop";
    EXPECT_TRUE(test::waitUntil([&isTold] { return isTold; }));
}

TEST_F(ReaderEventsTest, noticeAReaderThatDiesAndListenToTheNextOne)
{
    for (int i = 0; i < 3; i++) {
        startPreview();
        EXPECT_EQ(previewFromTheEventLoop(), ReadOutcome::found);
        test::signalReader(cuPictureReader(), SIGKILL);
        EXPECT_TRUE(test::waitUntil([] { return cuPictureReader().processID() == -1; }));
    }
}

TEST_F(ReaderEventsTest, giveUpAReaderThatGivesNoSignOfLife)
{
    ReaderLimits limits;
    limits.preview.silence = std::chrono::seconds(1);
    cuPictureReader().setLimits(limits);
    startPreview();
    EXPECT_EQ(previewFromTheEventLoop(), ReadOutcome::found);
    const pid_t reader = cuPictureReader().processID();
    test::signalReader(cuPictureReader(), SIGSTOP);
    startPreview();
    EXPECT_EQ(previewFromTheEventLoop(), ReadOutcome::stuck);
    EXPECT_NE(cuPictureReader().processID(), reader);
}

}  // namespace pinorama::tests
