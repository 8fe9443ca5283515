// The window with XMP files beside pictures: it takes from them what a picture does not say, and is
// never kept by them.

#include "app/reading_notice.h"
#include "base/resource_folder.h"
#include "opener/events/picture_opener.h"
#include "tests/app/hostile_window.h"
#include "tests/support/container_builder.h"
#include "tests/support/slow_disk.h"

#include <gtest/gtest.h>

#include <QAction>

#include <filesystem>
#include <memory>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
using test::SlowDisk;
using Step = SlowDisk::Step;

class sidecars : public test::HostileWindowTest {
protected:
    void SetUp() override
    {
        HostileWindowTest::SetUp();
        controller.myWindow->readMoreAction->setChecked(true);
        xmp_ = test::xmpPacket("photoshop:City='Rome' exif:GPSImgDirection='90/1'");
    }
    void TearDown() override
    {
        controller.myWindow->readMoreAction->setChecked(false);
        disk_.reset();
        cuPictureOpener().stop();
        HostileWindowTest::TearDown();
    }

    // Puts good.jpg, and a.jpg with a sidecar that takes its time, onto a disk.
    bool mount(int wait, Step step)
    {
        const std::string bytes = test::readFile(good_);
        fs::create_directories(folder.file("disk"));
        disk_.reset();
        disk_ = std::make_unique<SlowDisk>(
            folder.file("disk"),
            std::vector<SlowDisk::File>{
                {"good.jpg", bytes, 0}, {"a.jpg", bytes, 0}, {"a.jpg.xmp", xmp_, wait, step}});
        cuPictureOpener().stop();  // those that ran before do not see the disk
        return disk_->isUsable();
    }

    bool comesToAnEnd()
    {
        return test::waitUntil([this] { return !controller.reading().isGoingOn(); });
    }

    // What the foot of the window says; empty when it is not there.
    std::string notice() const
    {
        const auto* line = controller.myWindow->findChild<ReadingNotice*>();
        return line == nullptr || line->isHidden() ? "" : line->text().toStdString();
    }

    void expectPlaceOfThePicture()
    {
        EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
        EXPECT_NE(shown(controller.gpsCoordinateField), "");
        expectLocationActions(true);
    }

    std::string xmp_;
    std::unique_ptr<SlowDisk> disk_;
};
}  // namespace

TEST_F(sidecars, sayWhatThePictureDoesNot)
{
    folder.write("good.xmp", xmp_);
    EXPECT_TRUE(show(good_));
    EXPECT_TRUE(comesToAnEnd());
    expectPlaceOfThePicture();
    EXPECT_EQ(shown(controller.iptcCityField), "Rome");
    EXPECT_NE(shown(controller.gpsDirectionField), "");
    EXPECT_EQ(controller.gpsCoordinateField->toolTip(), QLatin1String("From Exif"));
    EXPECT_EQ(controller.iptcCityField->toolTip(), QLatin1String("From the XMP file beside it"));
    EXPECT_EQ(notice(), "");

    EXPECT_TRUE(show(other_));
    EXPECT_TRUE(comesToAnEnd());
    EXPECT_EQ(shown(controller.iptcCityField), "") << "it has no sidecar";
    EXPECT_EQ(controller.iptcCityField->toolTip(), QString());
}

TEST_F(sidecars, giveAPlaceToAPictureWithoutOne)
{
    const std::string path = folder.write("b.jpg", test::jpegPicture({}));
    folder.write("b.XMP", test::xmpPacket("exif:GPSLatitude='10,30N' exif:GPSLongitude='20,15E'"));
    EXPECT_TRUE(show(path));
    EXPECT_TRUE(comesToAnEnd());
    EXPECT_NE(shown(controller.gpsCoordinateField), "");
    expectLocationActions(true);
}

TEST_F(sidecars, areNotLookedForWithoutTheSwitch)
{
    folder.write("good.xmp", xmp_);
    controller.myWindow->readMoreAction->setChecked(false);
    EXPECT_TRUE(show(good_));
    EXPECT_TRUE(comesToAnEnd());
    expectPlaceOfThePicture();
    EXPECT_EQ(shown(controller.iptcCityField), "");
}

TEST_F(sidecars, thatHangKeepNeitherTheWindowNorThePlaceOfTheirPicture)
{
    for (const Step step : {Step::read, Step::open, Step::look}) {
        SCOPED_TRACE(static_cast<int>(step));
        if (!mount(SlowDisk::kNever, step)) GTEST_SKIP() << "no disk may be mounted here";
        EXPECT_TRUE(isQuickOfThree(disk_->file("a.jpg")));
        EXPECT_TRUE(test::waitUntil([this] {
            return shown(controller.gpsAltitudeField) == "520 m" &&
                   !controller.fileIconField->pixmap().isNull();
        }));
        expectPlaceOfThePicture();
        EXPECT_TRUE(test::waitUntil(
            [this] { return notice() == "The XMP file beside a.jpg does not answer."; }));
        expectPlaceOfThePicture();
        EXPECT_TRUE(controller.reading().isGoingOn());
        EXPECT_LE(cuPictureOpener().count(), OpenerClient::kMaxOpeners);
        expectGoodPicture();
        EXPECT_EQ(notice(), "");
    }
}

TEST_F(sidecars, thatAreSlowAddTheirValuesWhenTheyCome)
{
    for (const Step step : {Step::read, Step::open, Step::look}) {
        SCOPED_TRACE(static_cast<int>(step));
        if (!mount(900, step)) GTEST_SKIP() << "no disk may be mounted here";
        EXPECT_TRUE(show(disk_->file("a.jpg")));
        EXPECT_TRUE(test::waitUntil([this] { return shown(controller.iptcCityField) == "Rome"; }));
        EXPECT_TRUE(comesToAnEnd());
        expectPlaceOfThePicture();
        EXPECT_EQ(notice(), "");
        EXPECT_FALSE(controller.fileIconField->pixmap().isNull());
        EXPECT_TRUE(show(other_));
    }
}

TEST_F(sidecars, areDroppedForAnotherFile)
{
    if (!mount(600, Step::open)) GTEST_SKIP() << "no disk may be mounted here";
    EXPECT_TRUE(show(disk_->file("a.jpg")));
    EXPECT_TRUE(show(other_));
    test::goOnFor(1000);
    EXPECT_TRUE(comesToAnEnd());
    EXPECT_EQ(shown(controller.gpsAltitudeField), "7 m");
    EXPECT_EQ(shown(controller.iptcCityField), "");
}

TEST_F(sidecars, thatHarmTheReaderTakeNothingFromTheirPicture)
{
    const test::ScopedVariable faulty("PINORAMA_READER",
                                      (programFolder() + "/faulty-reader").c_str());
    cuPictureReader().stop();
    folder.write("good.jpg.xmp", "FAULT crash\n");
    EXPECT_TRUE(show(good_));
    EXPECT_TRUE(comesToAnEnd());
    expectPlaceOfThePicture();
    EXPECT_FALSE(controller.fileIconField->pixmap().isNull());
    EXPECT_TRUE(show(other_));
    EXPECT_TRUE(comesToAnEnd());
    EXPECT_EQ(shown(controller.gpsAltitudeField), "7 m");
    cuPictureReader().stop();
}
