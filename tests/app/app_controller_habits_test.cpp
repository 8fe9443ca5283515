// What one expects of any window: the coordinate can be copied, the preview dragged, the manual
// opened, and the window leaves its place to the window manager.

#include "app/caption_colour.h"
#include "base/resource_folder.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "tests/app/controller_fixture.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMimeData>
#include <QTest>

#include <filesystem>
#include <map>

using namespace pinorama;

namespace {
class AppControllerHabits : public test::ControllerTest {
protected:
    void showActiveWindow()
    {
        controller.showMainWindow();
        ASSERT_TRUE(test::waitUntil([this] { return controller.myWindow->isActiveWindow(); }));
    }
};

const test::PictureFields kCape = {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "E"};

std::string copied()
{
    return QGuiApplication::clipboard()->text().toStdString();
}

// The context menu that a field opens; null when none comes.
QMenu* contextMenuOf(QWidget* field)
{
    const QPoint middle = field->rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, field->mapToGlobal(middle));
    QCoreApplication::sendEvent(field, &event);
    return qobject_cast<QMenu*>(QApplication::activePopupWidget());
}

QAction* itemWithText(const QMenu* menu, const QString& text)
{
    for (QAction* action : menu->actions()) {
        if (action->text().remove(QLatin1Char('&')) == text) return action;
    }
    return nullptr;
}
}  // namespace

TEST_F(AppControllerHabits, theCopyKeyCopiesTheCoordinateAsShown)
{
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    showActiveWindow();
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    QTest::keyClick(controller.myWindow, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(copied(), shown(controller.gpsCoordinateField));
    EXPECT_FALSE(copied().empty());
}

TEST_F(AppControllerHabits, theCopyKeyCopiesASelectedTextFirst)
{
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    showActiveWindow();
    for (QWidget* field : {static_cast<QWidget*>(controller.fileNameField),
                           static_cast<QWidget*>(controller.fileSizeField)}) {
        SCOPED_TRACE(field->objectName().toStdString());
        field->setFocus(Qt::TabFocusReason);  // selects the text
        QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(copied(), field->property("text").toString().toStdString());

        QTest::keyClick(field, Qt::Key_Home);  // selects nothing any more
        QTest::keyClick(field, Qt::Key_C, Qt::ControlModifier);
        EXPECT_EQ(copied(), shown(controller.gpsCoordinateField));
    }
}

TEST_F(AppControllerHabits, theCoordinateFieldOffersBothForms)
{
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    controller.showMainWindow();
    QMenu* menu = contextMenuOf(controller.gpsCoordinateField);
    ASSERT_NE(menu, nullptr);
    QAction* asShown = itemWithText(menu, QStringLiteral("Copy Coordinate"));
    QAction* decimal = itemWithText(menu, QStringLiteral("Copy as Decimal Degrees"));
    ASSERT_NE(asShown, nullptr);
    ASSERT_NE(decimal, nullptr);
    decimal->trigger();
    EXPECT_EQ(copied(), "-33.900000, 18.400000");
    asShown->trigger();
    EXPECT_EQ(copied(), shown(controller.gpsCoordinateField));
    menu->close();

    QMenu* other = contextMenuOf(controller.gpsAltitudeField);
    ASSERT_NE(other, nullptr);
    EXPECT_EQ(itemWithText(other, QStringLiteral("Copy Coordinate")), nullptr);
    other->close();
}

TEST_F(AppControllerHabits, withoutACoordinateThereIsNothingToCopy)
{
    const MainWindow* window = controller.myWindow;
    EXPECT_FALSE(window->copyCoordinateAction->isEnabled());
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    EXPECT_TRUE(window->copyCoordinateAction->isEnabled());
    EXPECT_TRUE(window->copyDecimalAction->isEnabled());
    EXPECT_FALSE(show("/nowhere/notes.txt"));
    EXPECT_FALSE(window->copyCoordinateAction->isEnabled());
    EXPECT_FALSE(window->copyDecimalAction->isEnabled());
}

TEST_F(AppControllerHabits, theCopyKeysCopyThisPicturesPlaceWhereTheFieldKeepsTheLastOne)
{
    // On the equator the location fields keep their texts, and the actions are there.
    const test::PictureFields equator = {.lat = 0.0, .latRef = "N", .lon = 30.5, .lonRef = "E"};
    const MainWindow* window = controller.myWindow;
    EXPECT_TRUE(showPicture("first.jpg", equator));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    EXPECT_TRUE(window->copyCoordinateAction->isEnabled());
    EXPECT_TRUE(window->copyDecimalAction->isEnabled());
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    EXPECT_TRUE(showPicture("equator.jpg", equator));
    ASSERT_NE(shown(controller.gpsCoordinateField), "");
    window->copyCoordinateAction->trigger();
    EXPECT_EQ(copied(), "N 0° 0' 0.0\"   E 30° 30' 0.0\"");
    window->copyDecimalAction->trigger();
    EXPECT_EQ(copied(), "0.000000, 30.500000");
}

TEST_F(AppControllerHabits, theHelpKeyOpensTheManual)
{
    showActiveWindow();
    QTest::keyClick(controller.myWindow, Qt::Key_F1);
    ASSERT_EQ(opener.addresses.size(), 1u);
    const std::string manual = documentFolder() + "/manual.md";
    if (std::filesystem::exists(manual)) {
        EXPECT_TRUE(opener.addresses[0].starts_with("file:///")) << opener.addresses[0];
        EXPECT_TRUE(opener.addresses[0].ends_with("/docs/manual.md")) << opener.addresses[0];
    } else {
        EXPECT_EQ(opener.addresses[0], PINORAMA_HOME_URL);
    }
}

TEST_F(AppControllerHabits, aDragOfThePreviewCarriesTheFile)
{
    EXPECT_EQ(controller.fileIconField->dragData(), nullptr) << "nothing is shown yet";

    // A name that is no UTF-8, with a blank.
    const std::string path = folder.write("a \xFC.jpg", test::pictureWithGps(kCape));
    const StringHolder text(createPathText(path));
    EXPECT_TRUE(controller.updateValuesForNewPath(text.get()));
    const auto data = controller.fileIconField->dragData();
    ASSERT_NE(data, nullptr);
    EXPECT_EQ(data->formats(), QStringList(QStringLiteral("text/uri-list")));
    EXPECT_EQ(data->data(QStringLiteral("text/uri-list")).toStdString(),
              "file://" + folder.path() + "/a%20%FC.jpg\r\n");

    EXPECT_TRUE(show("/nowhere/at all.jpg"));
    EXPECT_EQ(controller.fileIconField->dragData(), nullptr);
    EXPECT_TRUE(show("relative.jpg"));
    EXPECT_EQ(controller.fileIconField->dragData(), nullptr);
}

TEST_F(AppControllerHabits, theWindowManagerPlacesAndStacksTheWindow)
{
    controller.showMainWindow();
    EXPECT_FALSE(controller.myWindow->testAttribute(Qt::WA_Moved)) << "no place of its own";
    EXPECT_FALSE(controller.myWindow->windowFlags().testFlag(Qt::WindowStaysOnTopHint));
    controller.myWindow->resize(900, 700);
    controller.myWindow->close();
    AppController next;
    EXPECT_NE(next.myWindow->size(), QSize(900, 700)) << "nor is a size remembered";
}

TEST_F(AppControllerHabits, captionsCanBeReadInEveryPalette)
{
    for (const auto& [background, text] :
         {std::pair<QColor, QColor>(QColor(0xEF, 0xF0, 0xF1), QColor(0x23, 0x26, 0x29)),
          std::pair<QColor, QColor>(QColor(0x31, 0x36, 0x3B), QColor(0xFC, 0xFC, 0xFC)),
          std::pair<QColor, QColor>(Qt::black, Qt::yellow)}) {
        QPalette palette;
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::WindowText, text);
        controller.myWindow->setPalette(palette);
        int captions = 0;
        for (const QLabel* label : controller.myWindow->findChildren<QLabel*>()) {
            if (label->buddy() == nullptr) continue;
            ++captions;
            for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
                EXPECT_GE(
                    contrastRatio(label->palette().color(group, QPalette::WindowText), background),
                    4.5)
                    << label->objectName().toStdString();
            }
        }
        EXPECT_EQ(captions, 12);
    }
}

TEST_F(AppControllerHabits, captionsOfAnInactiveWindowCanBeReadInAThemeThatFadesItsTexts)
{
    controller.showMainWindow();
    const QColor background(0xFA, 0xF9, 0xF8);
    QPalette palette;
    palette.setColor(QPalette::Window, background);
    palette.setColor(QPalette::WindowText, QColor(0x2E, 0x34, 0x36));
    palette.setColor(QPalette::Inactive, QPalette::WindowText, QColor(0x92, 0x95, 0x95));
    controller.myWindow->setPalette(palette);
    for (const QLabel* label : controller.myWindow->findChildren<QLabel*>()) {
        if (label->buddy() == nullptr) continue;
        const QColor caption = label->palette().color(QPalette::Inactive, QPalette::WindowText);
        EXPECT_GE(contrastRatio(caption, background), 4.5) << label->objectName().toStdString();
    }
}

TEST_F(AppControllerHabits, everyTextFollowsTheFontOfTheSystem)
{
    EXPECT_TRUE(showPicture("cape.jpg", kCape));
    controller.showMainWindow();
    const QFont earlier = QApplication::font();
    std::map<QWidget*, int> heights;
    for (QWidget* widget :
         controller.myWindow->centralWidget()->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (widget != controller.fileIconField && widget != controller.myWindow->placeMap)
            heights[widget] = widget->sizeHint().height();
    }
    EXPECT_GE(heights.size(), 27u);

    QFont large = earlier;
    large.setPointSizeF(earlier.pointSizeF() * 2);
    QApplication::setFont(large);
    QCoreApplication::processEvents();
    AppController next;
    EXPECT_GT(next.myWindow->width(), 600) << "a new window has room for the texts";
    next.gpsCoordinateField->setText(QStringLiteral("S 33° 53' 59.9\"   W 118° 23' 59.9\""));
    next.myWindow->show();
    EXPECT_TRUE(test::waitUntil([&] { return next.gpsCoordinateField->width() > 200; }));
    EXPECT_EQ(next.gpsCoordinateField->height(), next.gpsAltitudeField->height()) << "one line";
    // What is around a text does not grow with it, and the least height of a control may be more
    // than a small text needs.
    const int growth = QFontMetrics(large).height() - QFontMetrics(earlier).height();
    EXPECT_GT(growth, 5);
    for (const auto& [widget, height] : heights)
        EXPECT_GE(widget->sizeHint().height(), height + growth / 2)
            << widget->objectName().toStdString();
    EXPECT_EQ(controller.fileNameField->font().pointSizeF(), large.pointSizeF());
    EXPECT_TRUE(controller.fileNameField->font().bold());
    QApplication::setFont(earlier);
    QCoreApplication::processEvents();
}
