// What the window does and says when no program takes what it wants to open.

#include "app/saying_opener.h"

#include "app/foot_line.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/toolkit.h"

#include <QAbstractItemView>
#include <QHelpEvent>
#include <QPushButton>
#include <QTest>
#include <QTranslator>

using namespace pinorama;

namespace {
const test::PictureFields kCape = {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "E"};

class SayingOpenerTest : public test::ControllerTest {
protected:
    void SetUp() override
    {
        ControllerTest::SetUp();
        EXPECT_TRUE(showPicture("cape.jpg", kCape));
    }
    std::string words()
    {
        const auto* line = controller.myWindow->findChild<FootLine*>();
        return line == nullptr || line->isHidden() ? "" : line->words().toStdString();
    }
    // The item of a service whose address begins so.
    int itemOpening(const std::string& beginning)
    {
        const std::size_t before = opener.addresses.size();
        for (int i = 1; i < controller.webServicesMenu->count(); ++i) {
            controller.webMenuHit(i);
            if (opener.addresses.size() > before && opener.addresses.back().starts_with(beginning))
                return i;
        }
        return -1;
    }
    // The tool tip of a button as the pointer or the keyboard finds it.
    static std::string toolTipOf(QWidget* button, QEvent::Type type)
    {
        QHelpEvent help(QEvent::ToolTip, QPoint(1, 1), QPoint(1, 1));
        QFocusEvent focus(QEvent::FocusIn, Qt::TabFocusReason);
        QCoreApplication::sendEvent(button, type == QEvent::ToolTip ? static_cast<QEvent*>(&help)
                                                                    : static_cast<QEvent*>(&focus));
        return button->toolTip().toStdString();
    }
};
}  // namespace

TEST_F(SayingOpenerTest, opensWhatAProgramTakesWithoutAWord)
{
    controller.webMenuHit(1);
    controller.searchInSkallion();
    EXPECT_EQ(opener.addresses.size(), 2u);
    EXPECT_EQ(words(), "");
}

TEST_F(SayingOpenerTest, saysWhatIsMissingAndOpensNothing)
{
    const int geo = itemOpening("geo:");
    ASSERT_GT(geo, 0);
    opener.addresses.clear();
    opener.untaken = {"http", "geo:", ".kml", "om:"};

    controller.webMenuHit(1);
    EXPECT_EQ(words(), "No web browser is installed.");
    controller.webMenuHit(geo);
    EXPECT_EQ(words(), "No program opens geo: addresses. Marble and GNOME Maps do.");
    controller.poweredBySkallion();
    EXPECT_EQ(words(), "No web browser is installed.");
    EXPECT_EQ(wordsOfNoProgram("om:1,2").toStdString(),
              "No program opens addresses that begin with om:.");
    EXPECT_EQ(wordsOfNoProgram("file:///run/fly-to.kml").toStdString(),
              "No program opens KML files. Marble and Google Earth do.");
    EXPECT_EQ(opener.addresses, std::vector<std::string>());

    EXPECT_TRUE(showPicture("next.jpg", kCape));
    EXPECT_EQ(words(), "") << "gone with the next picture";
}

TEST_F(SayingOpenerTest, saysThatTheDesktopCouldNotOpenIt)
{
    opener.opens = false;
    SayingOpener saying(*controller.myWindow, opener);
    EXPECT_FALSE(saying.open("https://a.example/"));
    EXPECT_EQ(words(), "https://a.example/ could not be opened. Is xdg-utils installed?");
    opener.opens = true;
    EXPECT_TRUE(saying.open("https://a.example/"));
    EXPECT_EQ(opener.addresses.size(), 2u);
}

TEST_F(SayingOpenerTest, doesNotHandOnAMalformedAddressAndSaysSo)
{
    SayingOpener saying(*controller.myWindow, opener);
    for (const char* url : {"https://a.example/%zz", "a.example/x"}) {
        EXPECT_FALSE(saying.open(url));
        EXPECT_EQ(words(), std::string(url) + " is not a valid address.");
    }
    EXPECT_EQ(opener.addresses, std::vector<std::string>());
}

TEST_F(SayingOpenerTest, aGlobeThatIsNotThere)
{
    const test::ScopedVariable path("PATH", folder.path().c_str());
    const test::ScopedVariable runtime("XDG_RUNTIME_DIR", folder.path().c_str());
    opener.untaken = {".kml"};
    controller.showInGEButton->click();
    EXPECT_TRUE(test::waitUntil([this] {
        return words() == "No program opens KML files. Marble and Google Earth do.";
    })) << words();
    EXPECT_EQ(opener.addresses, std::vector<std::string>());
}

TEST_F(SayingOpenerTest, toolTipsSayWhatButtonsNeed)
{
    const test::ScopedVariable path("PATH", folder.path().c_str());
    for (const QEvent::Type type : {QEvent::ToolTip, QEvent::FocusIn}) {
        opener.untaken = {};
        EXPECT_EQ(toolTipOf(controller.showInGEButton, type),
                  "Flies the globe program to the location");
        EXPECT_EQ(toolTipOf(controller.searchInTovButton, type),
                  "Finds all catalogued pictures taken within 2000 m");
        opener.untaken = {"skallion:", ".kml"};
        EXPECT_EQ(toolTipOf(controller.showInGEButton, type),
                  "Flies the globe program to the location\n"
                  "Needs Marble, Google Earth or another program that opens KML files");
        EXPECT_EQ(toolTipOf(controller.searchInTovButton, type),
                  "Finds all catalogued pictures taken within 2000 m\n"
                  "Without Skallion, pictures nearby are looked for in the folders around "
                  "this one");
    }
}

TEST_F(SayingOpenerTest, aMapProgramIsInTheListOnlyIfThereIsOneAndStandsLast)
{
    PopUpMenu* menu = controller.webServicesMenu;
    const int last = menu->count() - 1;
    EXPECT_EQ(itemOpening("geo:"), last);
    controller.showMainWindow();
    for (const bool isThere : {true, false, true}) {
        opener.untaken = isThere ? std::vector<std::string>() : std::vector<std::string>{"geo:"};
        menu->showPopup();
        for (int i = 0; i < last; ++i) EXPECT_TRUE(menu->isOffered(i)) << i;
        EXPECT_EQ(menu->isOffered(last), isThere);
        menu->hidePopup();
    }
    EXPECT_EQ(menu->count(), last + 1) << "the items stay what they are";
}

TEST_F(SayingOpenerTest, noKeyLeadsToAnItemThatIsNotInTheList)
{
    PopUpMenu* menu = controller.webServicesMenu;
    const int last = menu->count() - 1;
    ASSERT_GT(last, 2);
    EXPECT_TRUE(showPicture("a.jpg", {.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"}));
    controller.showMainWindow();
    for (const bool isThere : {true, false}) {
        opener.untaken = isThere ? std::vector<std::string>() : std::vector<std::string>{"geo:"};
        menu->showPopup();
        QAbstractItemView* list = menu->view();
        QTest::keyClick(list, Qt::Key_End);
        EXPECT_EQ(list->currentIndex().row(), isThere ? last : last - 1);
        QTest::keyClick(list, Qt::Key_Home);
        EXPECT_EQ(list->currentIndex().row(), 1) << "below the title";
        list->keyboardSearch({});  // begins anew
        list->keyboardSearch(menu->itemText(last));
        EXPECT_EQ(list->currentIndex().row() == last, isThere) << "by its first letters";
        menu->hidePopup();
    }
}

TEST_F(SayingOpenerTest, speaksEveryLanguage)
{
    const QStringList files = test::translations();
    ASSERT_GE(files.size(), 9);
    const QList<QByteArray> urls = {"https://a", "skallion:", "geo:1,2", "file:///a.kml", "om:"};
    QStringList english;
    for (const QByteArray& url : urls) english << wordsOfNoProgram(url);
    for (const QString& file : files) {
        SCOPED_TRACE(file.toStdString());
        QTranslator translator;
        ASSERT_TRUE(translator.load(QStringLiteral(":/i18n/") + file));
        QCoreApplication::installTranslator(&translator);
        for (qsizetype i = 0; i < urls.size(); ++i)
            EXPECT_NE(wordsOfNoProgram(urls[i]), english[i]);
        QCoreApplication::removeTranslator(&translator);
    }
}
