// What is old looks old: texts that belong to an earlier picture.

#include "app/stale_fields.h"

#include "app/caption_colour.h"
#include "tests/app/controller_fixture.h"

#include <QAccessible>
#include <QTest>
#include <QTranslator>

using namespace pinorama;

namespace {
const test::PictureFields kRome = {.lat = 41.9,
                                   .latRef = "N",
                                   .lon = 12.5,
                                   .lonRef = "E",
                                   .altitude = 20.0,
                                   .imgDirection = 90.0,
                                   .city = "Rome",
                                   .state = "Lazio",
                                   .country = "Italy",
                                   .caption = "A fountain"};

class StaleFieldsTest : public test::ControllerTest {
protected:
    std::vector<WrappedField*> placeTexts()
    {
        return {controller.iptcCityField, controller.iptcStateField, controller.iptcCountryField,
                controller.iptcDescriptionField};
    }
    std::vector<WrappedField*> position()
    {
        return {controller.gpsCoordinateField, controller.gpsAltitudeField,
                controller.gpsDirectionField};
    }
    // Expects fields to look as old as `origin`, the name of a picture, or new if that is empty.
    void expectFrom(const std::string& origin, const std::vector<WrappedField*>& fields)
    {
        const QColor text = controller.myWindow->palette().color(QPalette::WindowText);
        const QColor back = controller.myWindow->palette().color(QPalette::Window);
        const std::string words = origin.empty() ? "" : "from " + origin;
        for (WrappedField* field : fields) {
            SCOPED_TRACE(field->objectName().toStdString());
            EXPECT_EQ(field->font().italic(), !origin.empty());
            const QColor shown = field->palette().color(QPalette::Text);
            if (origin.empty()) {
                EXPECT_EQ(shown, controller.myWindow->palette().color(QPalette::Text));
            } else {
                EXPECT_NE(shown, text);
            }
            EXPECT_GE(contrastRatio(shown, back), 4.5);
            QAccessibleInterface* reader = QAccessible::queryAccessibleInterface(field);
            // A direction of this picture has the words of the compass.
            const bool hasCompass = origin.empty() && field == controller.gpsDirectionField;
            EXPECT_EQ(reader->text(QAccessible::Description).toStdString(),
                      hasCompass ? controller.myWindow->compassField->text().toStdString() : words);
            EXPECT_EQ(field->toolTip().contains(QString::fromStdString(words).toHtmlEscaped()),
                      true);
            EXPECT_EQ(field->toolTip().isEmpty(), origin.empty());
        }
    }
};
}  // namespace

TEST_F(StaleFieldsTest, placeTextsOfThePictureBeforeLookOld)
{
    EXPECT_TRUE(showPicture("rome.jpg", kRome));
    expectFrom("", placeTexts());
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_EQ(shown(controller.iptcCityField), "Rome") << "its text stays";
    expectFrom("rome.jpg", placeTexts());
    expectFrom("", position());
    EXPECT_TRUE(showPicture("none too.jpg", {}));
    expectFrom("rome.jpg", placeTexts());
    EXPECT_TRUE(showPicture("again.jpg", kRome));
    expectFrom("", placeTexts());
    expectFrom("", position());
}

TEST_F(StaleFieldsTest, withOneCoordinateOfZeroThePositionLooksOldToo)
{
    EXPECT_TRUE(showPicture("rome.jpg", kRome));
    EXPECT_TRUE(showPicture("equator.jpg", {.lat = 0.0, .latRef = "N", .lon = 9.0, .lonRef = "E"}));
    EXPECT_FALSE(shown(controller.gpsCoordinateField).empty());
    expectFrom("rome.jpg", position());
    expectFrom("rome.jpg", placeTexts());
    EXPECT_TRUE(showPicture("none.jpg", {}));
    expectFrom("", position());
    expectFrom("rome.jpg", placeTexts());
}

TEST_F(StaleFieldsTest, anEmptyFieldDoesNotLookOld)
{
    test::PictureFields onlyCity = kRome;
    onlyCity.state = {};
    EXPECT_TRUE(showPicture("rome.jpg", onlyCity));
    EXPECT_TRUE(showPicture("none.jpg", {}));
    expectFrom("rome.jpg", {controller.iptcCityField});
    expectFrom("", {controller.iptcStateField});
}

TEST_F(StaleFieldsTest, aFileOfAnotherTypeHasNoOldTexts)
{
    EXPECT_TRUE(showPicture("rome.jpg", kRome));
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_FALSE(show(folder.write("notes.txt", "x")));
    expectFrom("", placeTexts());
    EXPECT_TRUE(showPicture("none too.jpg", {}));
    expectFrom("", placeTexts());
}

TEST_F(StaleFieldsTest, followTheColoursOfTheDesktop)
{
    EXPECT_TRUE(showPicture("rome.jpg", kRome));
    EXPECT_TRUE(showPicture("none.jpg", {}));
    controller.showMainWindow();
    for (const auto& [background, text] :
         {std::pair<QColor, QColor>(QColor(0xEF, 0xF0, 0xF1), QColor(0x23, 0x26, 0x29)),
          std::pair<QColor, QColor>(QColor(0x31, 0x36, 0x3B), QColor(0xFC, 0xFC, 0xFC)),
          std::pair<QColor, QColor>(Qt::black, Qt::yellow)}) {
        QPalette palette;
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Text, text);
        // Some themes fade the texts of an inactive window.
        palette.setColor(QPalette::Inactive, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
        controller.myWindow->setPalette(palette);
        expectFrom("rome.jpg", placeTexts());
        for (WrappedField* field : placeTexts()) {
            const QColor shown = field->palette().color(QPalette::Inactive, QPalette::Text);
            EXPECT_GE(contrastRatio(shown, background), 4.5);
        }
    }
    EXPECT_TRUE(showPicture("again.jpg", kRome));
    expectFrom("", placeTexts());
}

TEST_F(StaleFieldsTest, aNameIsShownAsItStands)
{
    EXPECT_TRUE(showPicture("<b>%1 &amp; x.jpg", kRome));
    EXPECT_TRUE(showPicture("none.jpg", {}));
    expectFrom("<b>%1 &amp; x.jpg", placeTexts());
}

TEST_F(StaleFieldsTest, theWordsAreTranslated)
{
    QTranslator translator;
    ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/pinorama_de.qm")));
    QCoreApplication::installTranslator(&translator);
    EXPECT_TRUE(showPicture("rome.jpg", kRome));
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_EQ(controller.iptcCityField->accessibleDescription(), QStringLiteral("aus rome.jpg"));
    QCoreApplication::removeTranslator(&translator);
}

using ReloadTest = test::ControllerTest;

TEST_F(ReloadTest, theKeyReadsTheShownFileAgain)
{
    const std::string path = folder.write("a.jpg", test::pictureWithGps({}));
    EXPECT_TRUE(show(path));
    expectLocationActions(false);
    (void)folder.write("a.jpg", test::pictureWithGps(kRome));
    EXPECT_FALSE(show(path)) << "the same path changes nothing";
    expectLocationActions(false);

    controller.showMainWindow();
    ASSERT_TRUE(test::waitUntil([this] { return controller.myWindow->isActiveWindow(); }));
    QTest::keyClick(controller.myWindow, Qt::Key_F5);
    EXPECT_EQ(shown(controller.iptcCityField), "Rome");
    expectLocationActions(true);
    EXPECT_FALSE(show(path));
}

TEST_F(ReloadTest, doesNothingWhileNoFileIsShown)
{
    controller.reload();
    EXPECT_EQ(controller.lastPath, nullptr);
    EXPECT_EQ(shown(controller.fileNameField), "");
}
