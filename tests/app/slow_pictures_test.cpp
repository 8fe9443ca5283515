// The window with pictures on a disk that takes its time, and with a reader that starts slowly.

#include "app/foot_line.h"
#include "app/reading_notice.h"
#include "base/resource_folder.h"
#include "opener/events/picture_opener.h"
#include "tests/app/hostile_window.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <QTimer>

#include <algorithm>
#include <filesystem>
#include <memory>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
using namespace std::chrono_literals;

// Ticks in the event loop and remembers the longest time between two ticks.
class Ticker {
public:
    Ticker()
    {
        timer_.callOnTimeout([this] {
            const auto now = Clock::now();
            longest = std::max(longest, now - last_);
            last_ = now;
        });
        timer_.start(5);
    }

    using Clock = std::chrono::steady_clock;
    Clock::duration longest{};

private:
    QTimer timer_;
    Clock::time_point last_ = Clock::now();
};

class slowPictures : public test::HostileWindowTest {
protected:
    void SetUp() override
    {
        HostileWindowTest::SetUp();
        useReader({});
    }
    void TearDown() override
    {
        HostileWindowTest::TearDown();
        variable_.reset();
    }

    // Starts over with the reader that sleeps over the pictures that want it.
    void useReader(const std::string& arguments)
    {
        const std::string path = folder.write("reader", "#!/bin/sh\nexec '" + programFolder() +
                                                            "/faulty-reader' " + arguments + "\n");
        fs::permissions(path, fs::perms::owner_all);
        variable_.reset();
        variable_ = std::make_unique<test::ScopedVariable>("PINORAMA_READER", path.c_str());
        cuPictureReader().stop();
    }

    std::string slow(const std::string& name, int milliseconds, double altitude = 33) const
    {
        return folder.write(
            name,
            test::pictureWithGps(
                {.lat = 1.0, .latRef = "N", .lon = 2.0, .lonRef = "E", .altitude = altitude}) +
                "SLOW " + std::to_string(milliseconds));
    }

    static ReaderLimits shortSilence()
    {
        ReaderLimits limits;
        limits.properties.silence = limits.preview.silence = 1500ms;
        return limits;
    }

    // What the foot of the window says; empty when it is not there.
    std::string notice() const
    {
        const auto* line = controller.myWindow->findChild<ReadingNotice*>();
        return line == nullptr || line->isHidden() ? "" : line->text().toStdString();
    }

    bool hasCome()
    {
        return test::waitUntil([this] { return !controller.reading().isGoingOn(); });
    }

private:
    std::unique_ptr<test::ScopedVariable> variable_;
};
}  // namespace

TEST_F(slowPictures, showTheirPlaceWhenItComes)
{
    expectGoodPicture();
    EXPECT_EQ(notice(), "");
    EXPECT_TRUE(show(slow("slow.jpg", 700)));
    EXPECT_EQ(notice(), "Still reading slow.jpg...");
    EXPECT_EQ(shown(controller.fileNameField), "slow.jpg");
    EXPECT_NE(shown(controller.fileSizeField), "n.a.");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "");
    expectLocationActions(false);
    EXPECT_TRUE(controller.reading().isGoingOn());

    ASSERT_TRUE(test::waitUntil([this] { return shown(controller.gpsAltitudeField) == "33 m"; }));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "N 1\xC2\xB0 0' 0.0\"   E 2\xC2\xB0 0' 0.0\"");
    expectLocationActions(true);
    EXPECT_EQ(controller.info.latti, 1.0);
    EXPECT_EQ(controller.info.city, nullptr);
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(notice(), "");
    EXPECT_FALSE(controller.fileIconField->pixmap().isNull());
    EXPECT_FALSE(show(folder.file("slow.jpg"))) << "the same path again";
}

// The preview comes first if the desktop has a thumbnail.
TEST_F(slowPictures, areSaidToHaveNoPlaceOnlyWhenThatIsKnown)
{
    expectGoodPicture();
    const auto saysNoPlace = [this] {
        return footLine(*controller.myWindow).says(FootLine::Topic::picture);
    };
    EXPECT_TRUE(show(slow("slow.jpg", 700)));
    controller.reading().takePreview(folder.file("slow.jpg"), QPixmap(8, 8));
    EXPECT_TRUE(controller.reading().isGoingOn());
    EXPECT_FALSE(saysNoPlace());
    ASSERT_TRUE(hasCome());
    EXPECT_FALSE(saysNoPlace());

    EXPECT_TRUE(show(folder.write("bare.jpg", test::pictureWithGps({}) + "SLOW 700")));
    controller.reading().takePreview(folder.file("bare.jpg"), QPixmap(8, 8));
    EXPECT_FALSE(saysNoPlace());
    ASSERT_TRUE(hasCome());
    EXPECT_TRUE(saysNoPlace());
}

TEST_F(slowPictures, needNoWordsIfTheyComeSoon)
{
    expectGoodPicture();
    controller.reading().setPatience(PictureReading::kPatience);
    EXPECT_TRUE(show(slow("slow.jpg", 150)));
    EXPECT_EQ(notice(), "");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "");
    EXPECT_TRUE(controller.reading().isGoingOn());
    ASSERT_TRUE(test::waitUntil([this] { return shown(controller.gpsAltitudeField) == "33 m"; }));

    EXPECT_TRUE(show(slow("slower.jpg", 3000)));
    EXPECT_EQ(notice(), "");
    ASSERT_TRUE(test::waitUntil([this] { return notice() == "Still reading slower.jpg..."; }));
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(notice(), "");
}

TEST_F(slowPictures, withoutAPlaceKeepThePlaceTextsOfTheOneBefore)
{
    test::PictureFields rome = {.lat = 41.9, .latRef = "N", .lon = 12.5, .lonRef = "E"};
    rome.city = "Rome";
    EXPECT_TRUE(showPicture("rome.jpg", rome));
    EXPECT_TRUE(hasCome());
    EXPECT_EQ(shown(controller.iptcCityField), "Rome");
    EXPECT_TRUE(show(folder.write("none.jpg", test::pictureWithGps({}) + "SLOW 700")));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    EXPECT_EQ(shown(controller.iptcCityField), "Rome");
    expectLocationActions(false);
    EXPECT_EQ(notice(), "");
}

TEST_F(slowPictures, ofAReaderThatStartsSlowlyShowTheirPlaceWhenItComes)
{
    useReader("--slow-start 2600");
    cuReadPicturesElsewhere();
    EXPECT_TRUE(show(good_));
    EXPECT_EQ(notice(), "Still reading good.jpg...");
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_EQ(notice(), "");
    expectLocationActions(true);
}

TEST_F(slowPictures, dropAnswersForAnotherPath)
{
    expectGoodPicture();
    EXPECT_TRUE(show(slow("slow.jpg", 900)));
    EXPECT_EQ(notice(), "Still reading slow.jpg...");
    EXPECT_FALSE(show(folder.write("notes.txt", "text")));
    EXPECT_EQ(notice(), "");
    test::goOnFor(1200);
    EXPECT_EQ(shown(controller.fileNameField), "notes.txt");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "");
    expectLocationActions(false);

    // The same for an answer that comes nevertheless.
    PropertyResult late{ReadOutcome::found, {}};
    late.properties.hasGps = true;
    late.properties.latitude = late.properties.longitude = 5.0;
    controller.reading().takePlace(0, late);
    controller.reading().takePlace(4711, late);
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    controller.reading().takeReaderStuck(good_);
    EXPECT_EQ(notice(), "");
}

TEST_F(slowPictures, areNoHindranceForTheNextOne)
{
    expectGoodPicture();
    for (int i = 0; i < 3; i++) {
        EXPECT_TRUE(show(slow("never.jpg", 3'600'000)));
        EXPECT_EQ(notice(), "Still reading never.jpg...");
        expectGoodPicture();
        EXPECT_EQ(notice(), "");
    }
}

TEST_F(slowPictures, tenInARowEndWithThePlaceOfTheLast)
{
    expectGoodPicture();
    const Ticker ticker;
    for (int i = 1; i <= 10; i++) {
        EXPECT_TRUE(show(slow("slow" + std::to_string(i) + ".jpg", 900, 100 + i)));
        EXPECT_EQ(notice(), "Still reading slow" + std::to_string(i) + ".jpg...");
        QCoreApplication::processEvents();
    }
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(shown(controller.fileNameField), "slow10.jpg");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "110 m");
    EXPECT_EQ(notice(), "");
    EXPECT_LT(ticker.longest, 2500ms) << "the window stood still for a whole picture";
}

TEST_F(slowPictures, leaveTheEventLoopRunning)
{
    expectGoodPicture();
    controller.reading().setPatience(PictureReading::kPatience);
    // The machine may stand still for a while, and so the best of three counts.
    auto longest = Ticker::Clock::duration::max();
    for (int i = 0; i < 3 && longest > 100ms; i++) {
        const std::string path = slow("slow" + std::to_string(i) + ".jpg", 3000);
        const Ticker ticker;
        QTimer::singleShot(0, &controller, [this, path] { (void)show(path); });
        EXPECT_TRUE(test::waitUntil([this] { return controller.reading().isGoingOn(); }));
        EXPECT_TRUE(hasCome());
        EXPECT_EQ(shown(controller.gpsAltitudeField), "33 m");
        longest = std::min(longest, ticker.longest);
    }
    EXPECT_LT(longest, 400ms);
    EXPECT_GT(longest, 30ms) << "it does not wait at all";
}

TEST_F(slowPictures, thatNeverComeAreGivenUpAndToldOf)
{
    expectGoodPicture();
    cuPictureReader().setLimits(shortSilence());
    EXPECT_TRUE(show(slow("never.jpg", 3'600'000)));
    EXPECT_EQ(notice(), "Still reading never.jpg...");
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(notice(), "never.jpg could not be read.");
    EXPECT_FALSE(controller.fileIconField->pixmap().isNull()) << "there is no icon";
    expectLocationActions(false);
    test::goOnFor(300);
    EXPECT_EQ(notice(), "never.jpg could not be read.") << "it stays";
    expectGoodPicture();
    EXPECT_EQ(notice(), "");
}

TEST_F(slowPictures, whoseReaderIsInALoopAreToldOf)
{
    EXPECT_TRUE(show(folder.write("loop.jpg", "FAULT loop\n")));
    EXPECT_EQ(notice(), "Still reading loop.jpg...");
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(notice(), "loop.jpg could not be read.");
    expectGoodPicture();
}

TEST_F(slowPictures, thatAreOnlyPreviewedAreToldOfAsWell)
{
    expectGoodPicture();
    const std::string path = slow("slow.png", 3000);
    EXPECT_FALSE(show(path));
    EXPECT_EQ(notice(), "");
    EXPECT_TRUE(test::waitUntil([this] { return !notice().empty(); }));
    EXPECT_EQ(notice(), "Still reading slow.png...");
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(notice(), "");

    cuPictureReader().setLimits(shortSilence());
    EXPECT_FALSE(show(slow("never.png", 3'600'000)));
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(notice(), "never.png could not be read.");
}

TEST_F(slowPictures, onADiskThatIsReallySlowShowTheirPlace)
{
    fs::create_directory(folder.file("disk"));
    const std::string bytes = test::readFile(good_);
    const test::SlowDisk disk(folder.file("disk"), {{"slow.jpg", bytes, 900},
                                                    {"slower.jpg", test::readFile(other_), 1500},
                                                    {"dead.jpg", bytes, test::SlowDisk::kNever}});
    if (!disk.isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    const test::ScopedVariable real("PINORAMA_READER",
                                    (programFolder() + "/pinorama-reader").c_str());
    cuPictureReader().stop();
    cuPictureOpener().stop();  // those that ran before do not see the disk
    expectGoodPicture();
    EXPECT_TRUE(show(disk.file("slow.jpg")));
    EXPECT_EQ(notice(), "Still reading slow.jpg...");
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_EQ(notice(), "");

    // From one that never comes to one that does, past a reader that cannot be killed.
    EXPECT_TRUE(show(disk.file("dead.jpg")));
    EXPECT_EQ(notice(), "Still reading dead.jpg...");
    EXPECT_TRUE(show(disk.file("slower.jpg")));
    ASSERT_TRUE(hasCome());
    EXPECT_EQ(shown(controller.fileNameField), "slower.jpg");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "7 m");
}
