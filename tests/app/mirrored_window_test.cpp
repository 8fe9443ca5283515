// The window as in Arabic and Hebrew: everything is on the other side, and what is read from left
// to right stays so.

#include "app/about_box.h"
#include "app/accessibility_notice.h"
#include "app/compass_field.h"
#include "app/copy_menu.h"
#include "app/export_notice.h"
#include "app/foot_line.h"
#include "app/map_view.h"
#include "app/picture_words.h"
#include "app/reading_notice.h"
#include "app/stale_fields.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/mirrored.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialog>
#include <QImage>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QTextBlock>
#include <QTranslator>

#include <algorithm>
#include <cerrno>

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);
constexpr int kWide = 1600;  // points, wide enough for every font

const test::PictureFields kEverything = {.lat = 54.8019,
                                         .latRef = "S",
                                         .lon = 68.303,
                                         .lonRef = "W",
                                         .altitude = 52.0,
                                         .imgDirection = 90.0,
                                         .taken = "2026:05:03 14:03:22",
                                         .city = "Ushuaia",
                                         .state = "TdF",
                                         .country = "AR",
                                         .caption = "A boat."};

class mirroredWindow : private test::Mirrored, public test::ControllerTest {
protected:
    // Waits until the window shows the picture and has settled.
    void showWindow(std::string_view name = "one.jpg")
    {
        EXPECT_TRUE(showPicture(name, kEverything));
        controller.showMainWindow();
        window.resize(kWide, 900);
        EXPECT_TRUE(test::waitUntil([&] { return window.contentView->width() == kWide; }));
        for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    }
    std::string footWords() { return footLine(window).words().toStdString(); }

    MainWindow& window = *controller.myWindow;
};

// Where something is drawn in a part of a view; empty if nothing is.
QRect inkOf(QWidget* widget, const QRect& part = QRect(0, 0, -1, -1))
{
    const QImage image = widget->grab(part).toImage().convertToFormat(QImage::Format_RGB32);
    const QRgb ground = image.pixel(image.width() / 2, image.height() - 1);
    QRect ink;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != ground) ink |= QRect(x, y, 1, 1);
    }
    return ink;
}

void expectAtTheRightEdge(QWidget* widget)
{
    const QRect ink = inkOf(widget);
    ASSERT_FALSE(ink.isEmpty());
    const int right = widget->width() - 1 - ink.right();
    EXPECT_LT(right, 2 * widget->fontMetrics().averageCharWidth());
    EXPECT_GT(ink.left(), right);
}

void press(QWidget* widget, int key)
{
    QKeyEvent down(QEvent::KeyPress, key, Qt::ControlModifier);
    QCoreApplication::sendEvent(widget, &down);
}

bool holdsEveryView(const MainWindow& window)
{
    const auto views = window.contentView->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
    return std::all_of(views.begin(), views.end(), [&window](const QWidget* view) {
        const auto* label = qobject_cast<const QLabel*>(view);
        const auto* button = qobject_cast<const QAbstractButton*>(view);
        const bool hasText = (label != nullptr && label->buddy() != nullptr) ||
                             (button != nullptr && !button->text().isEmpty());
        return !view->isVisible() || (window.contentView->rect().contains(view->geometry()) &&
                                      (!hasText || view->width() >= view->sizeHint().width()));
    });
}

std::string textOf(const QLabel* label)
{
    return label == nullptr ? "" : label->text().toStdString();
}
}  // namespace

TEST_F(mirroredWindow, hasItsPanelsAndButtonsOnTheOtherSide)
{
    showWindow();
    EXPECT_GT(window.fileIconField->x(), window.fileNameField->geometry().right());
    EXPECT_GT(window.placeMap->x(), window.fileNameField->geometry().right());
    EXPECT_GT(window.webServicesMenu->x(), window.showInGEButton->x());
    EXPECT_GT(window.showInGEButton->x(), window.exportKMLButton->x());
}

TEST_F(mirroredWindow, hasEveryValueBesideItsCaption)
{
    showWindow();
    int captions = 0;
    for (const auto& labels = window.findChildren<QLabel*>(); QLabel * caption : labels) {
        QWidget* field = caption->buddy();
        if (field == nullptr) continue;
        SCOPED_TRACE(field->objectName().toStdString());
        ++captions;
        EXPECT_GT(caption->x(), field->geometry().right());
        // One is as wide as its text.
        if (field == window.gpsDirectionField) {
            EXPECT_LT(caption->x() - field->geometry().right(),
                      window.factsLayout->horizontalSpacing() + 2);
        } else {
            expectAtTheRightEdge(field);
        }
    }
    EXPECT_EQ(captions, 12);
    expectAtTheRightEdge(window.placeField);
}

// Dashes take the direction of what is around them; the ending of a name stays on its right.
TEST_F(mirroredWindow, keepsTheOrderOfANameThatIsTooLong)
{
    showWindow(std::string(150, '-') + "MMMM.jpg");
    window.resize(window.minimumSizeHint().width(), 900);
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    const QRect name = inkOf(window.fileNameField);
    const auto heightOf = [&](int left) {
        return inkOf(window.fileNameField,
                     QRect(left, 0, name.width() / 8, window.fileNameField->height()))
            .height();
    };
    EXPECT_GT(heightOf(name.right() - name.width() / 8), heightOf(name.left()));
}

TEST_F(mirroredWindow, hasAllTextsInOneLine)
{
    showWindow();
    const QString text = QStringLiteral("HHH");
    window.fileNameField->setFont(window.iptcCityField->font());
    window.fileNameField->setText(text);
    window.iptcCityField->setText(text);
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    EXPECT_NEAR(inkOf(window.fileNameField).right(), inkOf(window.iptcCityField).right(), 1);
}

// Where its first letter is, and its last one.
TEST_F(mirroredWindow, keepsTheOrderWithinAValue)
{
    showWindow();
    for (WrappedField* field :
         {window.gpsCoordinateField, window.gpsAltitudeField, window.takenField}) {
        SCOPED_TRACE(field->objectName().toStdString());
        const QTextLine line = field->document()->firstBlock().layout()->lineAt(0);
        EXPECT_LT(line.cursorToX(0), line.cursorToX(line.textLength()));
    }
}

TEST_F(mirroredWindow, isolatesTheTownInTheHeadlineAndNotInWhatIsCopied)
{
    showWindow();
    EXPECT_EQ(shown(window.placeField), "Near Ushuaia, Argentina");
    EXPECT_EQ(window.placeField->toPlainText().toStdString(),
              "Near \u2068Ushuaia\u2069, Argentina");
    EXPECT_EQ(window.placeMap->accessibleName(), window.placeField->toPlainText());
    window.placeField->selectAll();
    press(window.placeField, Qt::Key_C);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "Near Ushuaia, Argentina");
    QTextCursor town(window.placeField->document());
    town.setPosition(5);
    town.setPosition(14, QTextCursor::KeepAnchor);
    window.placeField->setTextCursor(town);
    press(window.placeField, Qt::Key_C);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "Ushuaia");
}

TEST_F(mirroredWindow, copiesNoIsolation)
{
    showWindow();
    window.copyCoordinateAction->trigger();
    const std::string coordinate = QGuiApplication::clipboard()->text().toStdString();
    EXPECT_EQ(coordinate, shown(window.gpsCoordinateField));
    EXPECT_EQ(coordinate.find("\u2068"), std::string::npos);
    auto* menu = window.findChild<CopyMenu*>();
    ASSERT_NE(menu, nullptr);
    menu->action(CopyMenu::Form::words)->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "Near Ushuaia, Argentina");
    Q_EMIT menu->aboutToShow();
    const QString link = menu->action(CopyMenu::Form::mapLink)->text();
    EXPECT_TRUE(link.startsWith(QStringLiteral("Link to \u2068"))) << link.toStdString();
    EXPECT_TRUE(link.endsWith(QChar(0x2069))) << link.toStdString();
}

TEST_F(mirroredWindow, isolatesNamesInWhatTheFootSays)
{
    showWindow();
    EXPECT_TRUE(show(folder.file("gone.jpg")));
    EXPECT_EQ(footWords(), "There is no file \u2068gone.jpg\u2069.");
    const QString name = QStringLiteral("a.jpg");
    // The names of files come isolated (shownName); the system's reason is not the window's either.
    EXPECT_TRUE(wordsOfOpenError(EIO, name).contains(QStringLiteral(": \u2068")));
    showExportResult(window, opener, QStringLiteral("/a/b.kml"), 0);
    EXPECT_EQ(footWords(), "\u2068b.kml\u2069 was saved in \u2066/\u2068a\u2069\u2069.");
    showExportResult(window, opener, QStringLiteral("/a/b.kml"), EIO);
    EXPECT_TRUE(footWords().starts_with("\u2068b.kml\u2069 could not be written: \u2068"))
        << footWords();
    EXPECT_FALSE(show(folder.write("one.heic", "x")));
    EXPECT_EQ(footWords(), "\u2068HEIC\u2069 pictures can be read, too.");
    const AccessibilityNotice notice(QStringLiteral("Dolphin"), &window);
    EXPECT_NE(textOf(notice.findChild<QLabel*>()).find("in \u2068Dolphin\u2069 once"),
              std::string::npos);
}

TEST_F(mirroredWindow, isolatesNamesInToolTipsAndDescriptions)
{
    showWindow("old.jpg");
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_EQ(window.iptcCityField->accessibleDescription().toStdString(),
              "from \u2068old.jpg\u2069");
    EXPECT_TRUE(
        window.iptcCityField->toolTip().contains(QStringLiteral("from \u2068old.jpg\u2069")));
}

TEST_F(mirroredWindow, isolatesTheNameThatIsBeingRead)
{
    ReadingNotice notice;
    notice.sayStillReading(QStringLiteral("a\u202e.jpg"));
    EXPECT_EQ(notice.accessibleName().toStdString(), "Still reading \u2068a\ufffd.jpg\u2069...");
    EXPECT_EQ(notice.toolTip(), notice.accessibleName());
    EXPECT_EQ(notice.displayText(), notice.accessibleName());
    EXPECT_EQ(notice.text().toStdString(), "Still reading a\ufffd.jpg...");
    notice.selectAll();
    press(&notice, Qt::Key_C);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), notice.text());
    notice.setSelection(0, 16);
    press(&notice, Qt::Key_C);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "Still reading a");
}

TEST_F(mirroredWindow, saysASentenceThatBeginsWithANameFromTheRight)
{
    QWidget parent;
    parent.resize(800, 100);
    FootLine line(&parent);
    line.resize(parent.size());
    line.say(FootLine::Topic::action,
             QStringLiteral("\u2068a.jpg\u2069 \u05e0\u05e9\u05de\u05e8."));
    line.show();
    parent.show();
    QCoreApplication::processEvents();
    expectAtTheRightEdge(line.findChild<QLabel*>(QStringLiteral("footLineWords")));
}

TEST_F(mirroredWindow, hasTheNameInTheAboutBoxWhereItsLinesBegin)
{
    appShowAboutBox(&window);
    auto* box = window.findChild<QDialog*>(QStringLiteral("aboutBox"));
    ASSERT_NE(box, nullptr);
    expectAtTheRightEdge(box->findChild<QLabel*>(QStringLiteral("qt_msgbox_label")));
    box->close();
}

// In whichever font: nothing is cut, and nothing stands beyond an edge.
TEST_F(mirroredWindow, holdsEveryTextWholeInArabicAndHebrew)
{
    for (const char* language : {"ar", "he"}) {
        SCOPED_TRACE(language);
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/pinorama_") + language));
        QCoreApplication::installTranslator(&translator);
        AppController translated;
        ASSERT_TRUE(translated.init());
        MainWindow& its = *translated.myWindow;
        const test::Text path = test::text(folder.write("a.jpg", pictureWithGps(kEverything)));
        EXPECT_TRUE(translated.updateValuesForNewPath(path.get()));
        translated.showMainWindow();
        for (const int width : {0, 640, kWide}) {
            its.resize(std::max(width, its.minimumSizeHint().width()), 900);
            EXPECT_TRUE(test::waitUntil([&its] { return holdsEveryView(its); })) << width;
        }
        its.close();
        QCoreApplication::removeTranslator(&translator);
    }
}

TEST_F(mirroredWindow, copiesWhatTheFootSaysWithoutIsolation)
{
    FootLine line;
    line.say(FootLine::Topic::action, QStringLiteral("\u2068a.jpg\u2069 was saved."));
    auto* words = line.findChild<QLabel*>(QStringLiteral("footLineWords"));
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(words->text(), QStringLiteral("\u200f") + line.words());
    words->setSelection(0, static_cast<int>(words->text().size()));
    press(words, Qt::Key_C);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "a.jpg was saved.");

    QGuiApplication::clipboard()->clear();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, QPoint(5, 5), QPoint(5, 5));
    QCoreApplication::sendEvent(words, &event);
    auto* menu = words->findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 3);
    menu->actions().constFirst()->trigger();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), "a.jpg was saved.");
    menu->close();
}
