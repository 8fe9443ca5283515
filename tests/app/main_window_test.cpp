// The window as a whole: what a screen reader finds in it, the keys, languages, sizes.

#include "app/caption_colour.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include <QAccessible>
#include <QAction>
#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QTranslator>
#include <QWindow>

#include <set>

using namespace pinorama;

namespace {
using MainWindowTest = test::ControllerTest;

const char* const kTextFields[] = {"fileNameField",
                                   "takenField",
                                   "gpsCoordinateField",
                                   "gpsAltitudeField",
                                   "gpsDirectionField",
                                   "iptcCityField",
                                   "iptcStateField",
                                   "iptcCountryField",
                                   "iptcDescriptionField",
                                   "fileSizeField",
                                   "fileModificationDateField",
                                   "fileCreationDateField"};

const test::PictureFields kEverything = {.lat = 48.1,
                                         .latRef = "N",
                                         .lon = 11.5,
                                         .lonRef = "E",
                                         .altitude = 520.0,
                                         .imgDirection = 271.26,
                                         .taken = "2026:05:03 14:03:22",
                                         .city = "Munich",
                                         .state = "Bavaria",
                                         .country = "Germany",
                                         .caption =
                                             "A long caption, long enough to wrap in every "
                                             "window that is not as wide as a wall."};

// Every widget that can have the focus, in the order of the Tab key.
std::vector<std::string> tabOrder(QWidget* window)
{
    std::vector<std::string> names;
    for (QWidget* widget = window->nextInFocusChain(); widget != window;
         widget = widget->nextInFocusChain()) {
        if ((widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisibleTo(window) &&
            widget->isEnabled())
            names.push_back(widget->objectName().toStdString());
    }
    return names;
}

// What stands after the '&' of a text; 0 for none.
char16_t mnemonicOf(const QString& text)
{
    const qsizetype at = text.indexOf(QLatin1Char('&'));
    return at < 0 ? u'\0' : text.at(at + 1).toLower().unicode();
}

// The window in another language, until the end of the scope.
class InLanguage {
public:
    explicit InLanguage(const QString& language)
    {
        EXPECT_TRUE(translator_.load(QLatin1String(":/i18n/pinorama_") + language));
        QCoreApplication::installTranslator(&translator_);
    }
    ~InLanguage() { QCoreApplication::removeTranslator(&translator_); }

private:
    QTranslator translator_;
};

bool holdsEveryView(const QWidget* content)
{
    for (const QWidget* view : content->findChildren<QWidget*>(Qt::FindDirectChildrenOnly)) {
        if (view->isVisible() && !content->rect().contains(view->geometry())) return false;
    }
    return true;
}

void expectMnemonicsToDiffer(MainWindow* window)
{
    std::set<char16_t> used;
    for (const QAction* menu : window->menuBar()->actions()) {
        EXPECT_TRUE(used.insert(mnemonicOf(menu->text())).second) << menu->text().toStdString();
        std::set<char16_t> inMenu;
        for (const QAction* action : menu->menu()->actions()) {
            if (action->isSeparator()) continue;
            EXPECT_TRUE(inMenu.insert(mnemonicOf(action->text())).second)
                << action->text().toStdString();
        }
        EXPECT_FALSE(inMenu.contains(0));
    }
    for (const QAbstractButton* button : window->findChildren<QAbstractButton*>()) {
        if (button->objectName().startsWith(QLatin1String("qt_")) || button->text().isEmpty())
            continue;
        EXPECT_TRUE(used.insert(mnemonicOf(button->text())).second) << button->text().toStdString();
    }
    EXPECT_FALSE(used.contains(0));
}
}  // namespace

TEST_F(MainWindowTest, aScreenReaderFindsCaptionAndTextOfEveryField)
{
    EXPECT_TRUE(showPicture("picture.jpg", kEverything));
    controller.showMainWindow();
    for (const char* name : kTextFields) {
        SCOPED_TRACE(name);
        auto* field = controller.myWindow->findChild<QWidget*>(QString::fromLatin1(name));
        ASSERT_NE(field, nullptr);
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(field);
        ASSERT_NE(interface, nullptr);
        EXPECT_EQ(interface->role(), QAccessible::EditableText);
        EXPECT_TRUE(interface->state().readOnly);
        EXPECT_TRUE(interface->state().focusable);

        QAccessibleTextInterface* text = interface->textInterface();
        ASSERT_NE(text, nullptr);
        const QString shownText = text->text(0, text->characterCount());
        EXPECT_EQ(shownText, field->property("text").toString());
        EXPECT_FALSE(shownText.isEmpty());

        const auto relations = interface->relations(QAccessible::Label);
        ASSERT_EQ(relations.size(), 1);
        const auto* caption = qobject_cast<QLabel*>(relations[0].first->object());
        ASSERT_NE(caption, nullptr);
        EXPECT_EQ(interface->text(QAccessible::Name) + QLatin1Char(':'), caption->text());
    }
}

TEST_F(MainWindowTest, picturesHaveAName)
{
    EXPECT_TRUE(showPicture("picture.jpg", kEverything));
    for (QWidget* picture : {static_cast<QWidget*>(controller.fileIconField),
                             static_cast<QWidget*>(controller.geoTagField)}) {
        QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(picture);
        EXPECT_FALSE(interface->text(QAccessible::Name).isEmpty());
    }
    EXPECT_FALSE(controller.geoTagField->pixmap().isNull());
}

TEST_F(MainWindowTest, theTabKeyGoesFromTopToBottom)
{
    EXPECT_TRUE(showPicture("picture.jpg", kEverything));
    controller.showMainWindow();
    std::vector<std::string> expected(std::begin(kTextFields), std::end(kTextFields));
    expected.insert(expected.begin() + 1, "placeField");
    for (const char* control : {"placeMap", "webServicesMenu", "showInGEButton",
                                "searchInTovButton", "exportKMLButton", "syncCheckbox"})
        expected.emplace_back(control);
    EXPECT_EQ(tabOrder(controller.myWindow), expected);
}

TEST_F(MainWindowTest, noFieldHasTheFocusAtFirst)
{
    controller.showMainWindow();
    QWidget* focus = controller.myWindow->focusWidget();
    EXPECT_TRUE(focus == nullptr || focus == controller.myWindow);
}

TEST_F(MainWindowTest, everyCommandHasAMnemonicOfItsOwn)
{
    expectMnemonicsToDiffer(controller.myWindow);
    const QStringList files = test::translations();
    ASSERT_TRUE(files.contains(QLatin1String("pinorama_de.qm")));
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        const InLanguage language(QString(file).remove(QLatin1String("pinorama_")));
        const AppController translated;
        EXPECT_NE(translated.myWindow->showInGEButton->text(), QLatin1String("Show in &Globe"));
        expectMnemonicsToDiffer(translated.myWindow);
    }
}

TEST_F(MainWindowTest, theLocationCommandsHaveShortcutsAndToolTips)
{
    const MainWindow* window = controller.myWindow;
    EXPECT_EQ(window->webServicesAction->shortcut(), QKeySequence(QStringLiteral("Ctrl+M")));
    EXPECT_EQ(window->showInGEAction->shortcut(), QKeySequence(QStringLiteral("Ctrl+G")));
    EXPECT_EQ(window->searchInTovAction->shortcut(), QKeySequence(QStringLiteral("Ctrl+F")));
    EXPECT_EQ(window->exportKMLAction->shortcut(), QKeySequence(QStringLiteral("Ctrl+E")));
    std::set<QString> shortcuts;
    for (const QAction* action :
         {window->openAction, window->webServicesAction, window->showInGEAction,
          window->searchInTovAction, window->exportKMLAction, window->copyCoordinateAction,
          window->copyDecimalAction, window->closeAction, window->quitAction,
          window->manualAction}) {
        EXPECT_FALSE(action->shortcut().isEmpty()) << action->objectName().toStdString();
        EXPECT_TRUE(shortcuts.insert(action->shortcut().toString()).second);
    }
    for (const QWidget* control : {static_cast<const QWidget*>(window->webServicesMenu),
                                   static_cast<const QWidget*>(window->showInGEButton),
                                   static_cast<const QWidget*>(window->searchInTovButton),
                                   static_cast<const QWidget*>(window->exportKMLButton)})
        EXPECT_FALSE(control->toolTip().isEmpty());
}

TEST_F(MainWindowTest, nothingMovesWhenTheMarkerComes)
{
    EXPECT_TRUE(showPicture("none.jpg", {}));
    controller.showMainWindow();
    // Its foot says then that there is no place.
    ASSERT_TRUE(test::waitUntil([this] { return !controller.reading().isGoingOn(); }));
    QCoreApplication::processEvents();
    const QPoint button = controller.showInGEButton->pos();
    const QPoint preview = controller.fileIconField->pos();
    EXPECT_TRUE(showPicture("located.jpg", {.lat = 1.0, .latRef = "N", .lon = 1.0, .lonRef = "E"}));
    QCoreApplication::processEvents();
    EXPECT_TRUE(controller.geoTagField->isVisible());
    EXPECT_EQ(controller.showInGEButton->pos(), button);
    EXPECT_EQ(controller.fileIconField->pos(), preview);
}

TEST_F(MainWindowTest, holdsEveryTextWholeInBothLanguages)
{
    const InLanguage german(QStringLiteral("de"));
    test::PictureFields fields = kEverything;
    fields.city = std::string(64, 'W');
    AppController inGerman;
    ASSERT_TRUE(inGerman.init());
    for (AppController* one : {&controller, &inGerman}) {
        const test::Text path = test::text(folder.write("one.jpg", test::pictureWithGps(fields)));
        EXPECT_TRUE(one->updateValuesForNewPath(path.get()));
        one->showMainWindow();
        one->myWindow->resize(one->myWindow->minimumSize());
        // A narrow window grows until every text is in it.
        EXPECT_TRUE(
            test::waitUntil([&] { return holdsEveryView(one->myWindow->centralWidget()); }));
        for (const QLabel* caption : one->myWindow->findChildren<QLabel*>()) {
            if (caption->buddy() != nullptr) {
                EXPECT_GE(caption->width(), caption->sizeHint().width());
            }
        }
        for (const QAbstractButton* button : one->myWindow->findChildren<QAbstractButton*>()) {
            if (button->isVisible() && !button->text().isEmpty()) {
                EXPECT_GE(button->width(), button->minimumSizeHint().width());
            }
        }
        one->myWindow->close();
    }
}

TEST_F(MainWindowTest, captionsAreQuietInLightAndDark)
{
    const auto* caption = controller.myWindow->fileSizeCaption;
    controller.fileSizeField->setText(QStringLiteral("8 KB"));
    for (const auto& [background, text] :
         {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QPalette palette;
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::WindowText, text);
        controller.myWindow->setPalette(palette);
        const int level = caption->palette().color(QPalette::WindowText).lightness();
        const int full = QColor(text).lightness();
        EXPECT_NE(level, full);
        EXPECT_LT(std::abs(level - full), 90) << "still easy to read";
    }
}

TEST_F(MainWindowTest, captionsOfEmptyRowsAreQuieterAndCanBeRead)
{
    const auto* caption = controller.myWindow->iptcCityCaption;
    const auto colour = [caption] { return caption->palette().color(QPalette::WindowText); };
    for (const auto& [background, text] :
         {std::pair(Qt::white, Qt::black), std::pair(Qt::black, Qt::white)}) {
        QPalette palette;
        palette.setColor(QPalette::Window, background);
        palette.setColor(QPalette::WindowText, text);
        controller.myWindow->setPalette(palette);
        const double empty = contrastRatio(background, colour());
        EXPECT_GE(empty, kReadableContrast);
        controller.iptcCityField->setText(QStringLiteral("Rome"));
        EXPECT_GT(contrastRatio(background, colour()), empty + 2);
        controller.iptcCityField->setText({});
        EXPECT_EQ(contrastRatio(background, colour()), empty);
    }
}

TEST_F(MainWindowTest, closingIsNotQuittingAndQuitIsInTheMenu)
{
    controller.showMainWindow();
    controller.myWindow->closeAction->trigger();
    EXPECT_FALSE(controller.myWindow->isVisible());
    EXPECT_EQ(controller.myWindow->quitAction->shortcut(), QKeySequence(QStringLiteral("Ctrl+Q")));
    EXPECT_TRUE(
        controller.myWindow->pictureMenu->actions().contains(controller.myWindow->quitAction));
}

// As one and the same window: another in its place would flicker, and might take the focus.
TEST_F(MainWindowTest, staysAboveOthersOnRequestWithoutLeavingTheScreen)
{
    controller.showMainWindow();
    MainWindow* window = controller.myWindow;
    const WId onScreen = window->winId();
    EXPECT_TRUE(window->keepAboveAction->isCheckable());
    EXPECT_FALSE(window->keepAboveAction->isChecked());
    for (const bool isAbove : {true, false}) {
        SCOPED_TRACE(isAbove);
        window->keepAboveAction->trigger();
        EXPECT_EQ(window->windowFlags().testFlag(Qt::WindowStaysOnTopHint), isAbove);
        EXPECT_EQ(window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint), isAbove);
        EXPECT_TRUE(window->isVisible());
        EXPECT_EQ(window->winId(), onScreen);
    }
    window->keepAboveAction->trigger();
    window->close();
    controller.showMainWindow();
    EXPECT_TRUE(window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint)) << "still";
}

TEST(programsPlaceWindows, isTrueOfAllPlatformsButWayland)
{
    for (const char* platform : {"xcb", "offscreen", "eglfs", "vnc"})
        EXPECT_TRUE(programsPlaceWindows(QLatin1String(platform))) << platform;
    for (const char* platform : {"wayland", "wayland-egl"})
        EXPECT_FALSE(programsPlaceWindows(QLatin1String(platform))) << platform;
}

TEST_F(MainWindowTest, theAboutBoxTellsVersionLicenceLibrariesAndSourcesOfPlaces)
{
    controller.showMainWindow();
    controller.myWindow->aboutAction->trigger();
    auto* box = controller.myWindow->findChild<QDialog*>(QStringLiteral("aboutBox"));
    ASSERT_NE(box, nullptr);
    QString words;
    for (const QLabel* label : box->findChildren<QLabel*>()) words += label->text();
    EXPECT_TRUE(words.contains(QLatin1String("Pinorama " PINORAMA_VERSION)));
    EXPECT_TRUE(words.contains(QLatin1String("General Public License")));
    for (const char* library : {"Qt ", "ICU", "GeographicLib", "LibRaw", "libjpeg-turbo", "libpng",
                                "SQLite", "nlohmann-json", "libseccomp"})
        EXPECT_TRUE(words.contains(QLatin1String(library))) << library;
    for (const char* source : {"GeoNames (CC BY 4.0)", "country-coder (ISC)", "Natural Earth"})
        EXPECT_TRUE(words.contains(QLatin1String(source))) << source;
    box->close();
}
