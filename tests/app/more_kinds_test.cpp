// The switch "Read More Kinds of Files" and the line that offers it.

#include "app/more_kinds.h"

#include "lib/prefs/preferences.h"
#include "location/picture_source.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/container_builder.h"
#include "tests/support/event_loop.h"

#include <QAction>
#include <QDir>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QTranslator>

#include <set>

using namespace pinorama;

namespace {
std::string stored()
{
    TovStringRef value = nullptr;
    prefLoadString(test::text("readMoreKinds").take(), &value);
    return test::takeUTF8(value).value_or("none");
}

class MoreKindsTest : public test::ControllerTest {
protected:
    void TearDown() override
    {
        setReadsMoreKinds(false);
        prefStoreString(test::text("readMoreKinds").take(), nullptr);
    }

    // Shows a file and waits for all that comes of it, however busy the machine is.
    bool show(const std::string& path)
    {
        const bool isAccepted = ControllerTest::show(path);
        settle();
        return isAccepted;
    }
    void settle()
    {
        EXPECT_TRUE(test::waitUntil([this] { return !controller.reading().isGoingOn(); }));
    }
    void flip()
    {
        action()->trigger();
        settle();
    }

    QAction* action() { return controller.myWindow->readMoreAction; }
    MoreKindsNotice* notice() { return controller.myWindow->findChild<MoreKindsNotice*>(); }
    bool isOffered() { return notice() != nullptr && !notice()->isHidden(); }
    std::string words()
    {
        const auto* label = notice()->findChild<QLabel*>(QStringLiteral("moreKindsNoticeWords"));
        return label->text().toStdString();
    }
    void press(const char* name)
    {
        notice()->findChild<QPushButton*>(QLatin1String(name))->click();
        settle();
    }

    std::string writeHeic(const char* name = "a.heic")
    {
        const std::string tiff =
            test::tiffWithGps({.lat = 48.5, .latRef = "N", .lon = 2.25, .lonRef = "E"});
        return folder.write(name, test::heifFile({.items = {{"Exif", test::heifExif(tiff)}}}));
    }
};
}  // namespace

TEST_F(MoreKindsTest, areOffAtFirstAndThenNothingIsDifferent)
{
    EXPECT_TRUE(action()->isCheckable());
    EXPECT_FALSE(action()->isChecked());
    EXPECT_FALSE(readsMoreKinds());
    EXPECT_EQ(stored(), "none") << "it has no default that is stored";
    EXPECT_FALSE(controller.acceptPath(test::text("a.heic").get()));
    EXPECT_FALSE(show(writeHeic()));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");

    // XMP is read in no picture, and no sidecar is looked for.
    const std::string xmp = test::xmpPacket("exif:GPSLatitude='10,30N' exif:GPSLongitude='20,15W'");
    folder.write("b.xmp", xmp);
    EXPECT_TRUE(show(folder.write("b.jpg", test::jpegPicture({test::xmpSegment(xmp)}))));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    EXPECT_EQ(controller.gpsCoordinateField->toolTip().toStdString(), "");
}

TEST_F(MoreKindsTest, areReadOnceTheyAreSwitchedOn)
{
    EXPECT_FALSE(show(writeHeic()));
    flip();
    // What is shown is read at once.
    EXPECT_NE(shown(controller.gpsCoordinateField), "");
    EXPECT_EQ(stored(), "1");
    EXPECT_TRUE(show(writeHeic("b.heic")));
    EXPECT_FALSE(controller.acceptPath(test::text("a.heic").get())) << "the list stays";

    flip();
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    EXPECT_EQ(stored(), "0");
    EXPECT_FALSE(show(writeHeic("c.heic")));
}

TEST_F(MoreKindsTest, stayOnInTheNextRun)
{
    appStoreReadMoreKinds(true);
    AppController next;
    ASSERT_TRUE(next.init());
    next.applicationWillFinishLaunching();
    EXPECT_TRUE(next.myWindow->readMoreAction->isChecked());
    EXPECT_TRUE(readsMoreKinds());
}

TEST_F(MoreKindsTest, areOfferedWhenSuchAFileIsShown)
{
    show(folder.write("a.jpg", test::jpegPicture({})));
    EXPECT_FALSE(isOffered());
    show(writeHeic());
    ASSERT_TRUE(isOffered());
    EXPECT_EQ(words(), "HEIC pictures can be read, too.");
    show(folder.write("a.mp4", ""));
    EXPECT_EQ(words(), "MP4 videos can be read, too.");
    show(folder.write("a.txt", ""));
    EXPECT_FALSE(isOffered());

    show(writeHeic("b.heic"));
    press("readMoreKindsButton");
    EXPECT_FALSE(isOffered());
    EXPECT_TRUE(action()->isChecked());
    EXPECT_NE(shown(controller.gpsCoordinateField), "");
}

TEST_F(MoreKindsTest, areNotOfferedAgainAfterThatWasDismissed)
{
    show(writeHeic());
    press("moreKindsNoticeDismissButton");
    EXPECT_FALSE(isOffered());
    show(writeHeic("b.heic"));
    EXPECT_FALSE(isOffered());
    EXPECT_FALSE(action()->isChecked());
    EXPECT_EQ(stored(), "none");
}

TEST_F(MoreKindsTest, sayWhereValuesComeFrom)
{
    flip();
    const std::string path =
        folder.write("a.jpg", test::pictureWithGps({.lat = 1.5, .latRef = "N", .lon = 2.5}));
    folder.write("a.jpg.xmp", test::xmpPacket("photoshop:City='Rome' exif:GPSAltitude='12/1'"));
    EXPECT_TRUE(show(path));
    EXPECT_EQ(shown(controller.iptcCityField), "Rome");
    EXPECT_EQ(controller.gpsCoordinateField->toolTip().toStdString(), "From Exif");
    EXPECT_EQ(controller.gpsAltitudeField->toolTip().toStdString(), "From the XMP file beside it");
    EXPECT_EQ(controller.iptcCityField->toolTip().toStdString(), "From the XMP file beside it");
    EXPECT_EQ(controller.iptcStateField->toolTip().toStdString(), "");
    EXPECT_TRUE(show(folder.write("b.jpg", test::jpegPicture({}))));
    EXPECT_EQ(controller.gpsCoordinateField->toolTip().toStdString(), "");
}

TEST_F(MoreKindsTest, aHeicNamedAsAJpegIsReadByItsBytes)
{
    flip();
    EXPECT_TRUE(show(writeHeic("a.jpg")));
    EXPECT_NE(shown(controller.gpsCoordinateField), "");
}

TEST_F(MoreKindsTest, areSpokenOfInEveryLanguage)
{
    flip();
    const std::string picture =
        test::pictureWithGps({.lat = 1.5, .latRef = "N", .lon = 2.5, .altitude = 7.0});
    folder.write("a.xmp", test::xmpPacket("photoshop:City='Rome'"));
    const QStringList files = QDir(QStringLiteral(":/i18n")).entryList({QStringLiteral("*.qm")});
    ASSERT_GE(files.size(), 9);
    const std::set<QString> english = {QStringLiteral("From Exif"),
                                       QStringLiteral("From the XMP file beside it"), QString()};
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        QCoreApplication::installTranslator(&translator);
        EXPECT_TRUE(show(folder.write("a.jpg", picture)));
        EXPECT_FALSE(english.contains(controller.gpsCoordinateField->toolTip()));
        EXPECT_FALSE(english.contains(controller.gpsAltitudeField->toolTip()));
        EXPECT_FALSE(english.contains(controller.iptcCityField->toolTip()));

        MoreKindsNotice offer;
        offer.offer(test::text("/a.heic").get());
        EXPECT_TRUE(offer.accessibleName().contains(QLatin1String("HEIC")));
        EXPECT_FALSE(offer.accessibleName().contains(QLatin1String("can be")));
        const auto* button = offer.findChild<QPushButton*>(QStringLiteral("readMoreKindsButton"));
        EXPECT_NE(button->text(), QLatin1String("Read Them"));
        QCoreApplication::removeTranslator(&translator);
        EXPECT_FALSE(show(folder.file("none.txt")));
    }
}
