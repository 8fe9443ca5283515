// The switch "Read More Kinds of Files" and the line that offers it.

#include "app/more_kinds.h"

#include "app/foot_line.h"
#include "app/notice.h"
#include "lib/prefs/preferences.h"
#include "location/picture_source.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/container_builder.h"
#include "tests/support/event_loop.h"
#include "tests/support/toolkit.h"

#include <QAction>
#include <QEvent>
#include <QLabel>
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
    FootLine* line() { return controller.myWindow->findChild<FootLine*>(); }
    bool isOffered() { return line() != nullptr && line()->says(FootLine::Topic::kind); }
    // The words at the foot of the window; empty if there are none.
    std::string words()
    {
        return line() == nullptr || line()->isHidden() ? "" : line()->words().toStdString();
    }
    QPushButton* button()
    {
        return line()->findChild<QPushButton*>(QStringLiteral("footLineButton"));
    }

    std::string writeHeic(const char* name = "a.heic")
    {
        const std::string tiff =
            test::tiffWithGps({.lat = 48.5, .latRef = "N", .lon = 2.25, .lonRef = "E"});
        return folder.write(name, test::heifFile({.items = {{"Exif", test::heifExif(tiff)}}}));
    }
};

// Counts how often a widget is hidden.
class HiddenCount final : public QObject {
public:
    int count = 0;

    bool eventFilter(QObject* /*watched*/, QEvent* event) override
    {
        if (event->type() == QEvent::Hide) ++count;
        return false;
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
    EXPECT_EQ(button()->text().toStdString(), "Read Them");
    button()->click();
    settle();
    EXPECT_FALSE(isOffered());
    EXPECT_EQ(words(), "");
    EXPECT_TRUE(action()->isChecked());
    EXPECT_NE(shown(controller.gpsCoordinateField), "");
}

TEST_F(MoreKindsTest, areOfferedInOneRowBesideTheButton)
{
    controller.showMainWindow();
    show(writeHeic());
    ASSERT_TRUE(isOffered());
    const auto* label = line()->findChild<QLabel*>(QStringLiteral("footLineWords"));
    ASSERT_TRUE(test::waitUntil([&] { return label->isVisible() && button()->isVisible(); }));
    EXPECT_LE(label->geometry().right(), button()->geometry().left());
    EXPECT_TRUE(label->geometry().top() <= button()->geometry().center().y() &&
                button()->geometry().center().y() <= label->geometry().bottom());
    EXPECT_EQ(controller.myWindow->findChildren<Notice*>().size(), 0);
}

TEST_F(MoreKindsTest, areOfferedInALineThatStaysFromOneSuchFileToTheNext)
{
    controller.showMainWindow();
    show(writeHeic());
    ASSERT_TRUE(isOffered());
    HiddenCount hidden;
    line()->installEventFilter(&hidden);
    show(writeHeic("b.heic"));
    EXPECT_TRUE(isOffered());
    EXPECT_EQ(hidden.count, 0) << "a screen reader would read it out again";
    show(folder.write("a.txt", "text"));
    EXPECT_FALSE(isOffered());
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
    const QStringList files = test::translations();
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

        flip();
        EXPECT_FALSE(show(writeHeic()));
        EXPECT_TRUE(line()->words().contains(QLatin1String("HEIC")));
        EXPECT_FALSE(line()->words().contains(QLatin1String("can be")));
        EXPECT_NE(button()->text(), QLatin1String("Read Them"));
        flip();
        QCoreApplication::removeTranslator(&translator);
        EXPECT_FALSE(show(folder.file("none.txt")));
    }
}
