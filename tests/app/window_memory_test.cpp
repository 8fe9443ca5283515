// Where the window was and how large, from one start to the next.

#include "app/window_memory.h"

#include "tests/app/controller_fixture.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWindow>

#include <filesystem>
#include <memory>

using namespace pinorama;

namespace {
// Large enough for the views in every font.
constexpr QSize kLarge(1900, 1400);
constexpr QSize kOther(1800, 1300);

class WindowMemoryTest : public testing::Test {
protected:
    void store(const std::string& text)
    {
        std::filesystem::create_directory(state.file("pinorama"));
        (void)state.write("pinorama/window", text);
    }

    test::TemporaryFolder state;
    test::ScopedVariable variable{"XDG_STATE_HOME", state.path().c_str()};
};
}  // namespace

TEST(windowOfText, undoesTextOfWindow)
{
    for (const RememberedWindow& window : {RememberedWindow{{640, 500}, QPoint(100, 80), false},
                                           RememberedWindow{{64, 16384}, QPoint(-1200, -5), true},
                                           RememberedWindow{{380, 900}, std::nullopt, true}}) {
        EXPECT_EQ(windowOfText(textOfWindow(window)), window) << textOfWindow(window);
    }
    EXPECT_EQ(textOfWindow({{640, 500}, QPoint(100, 80), true}), "640 500 100 80 1\n");
    EXPECT_EQ(textOfWindow({{640, 500}, std::nullopt, false}), "640 500 - - 0\n");
}

TEST(windowOfText, hasNothingForWhatNoProgramWrote)
{
    for (const std::string text : {"",
                                   "\n",
                                   "640",
                                   "640 500\n",
                                   "640 500 1 2\n",
                                   "640 500 1 2 3\n",
                                   "640 500 - 2 1\n",
                                   "10 500 1 2 0\n",
                                   "640 99999 1 2 0\n",
                                   "-640 500 1 2 0\n",
                                   "640 500 1 2 0",
                                   "640 500 1 2 0\nmore",
                                   "99999999999999999999 500 1 2 0\n",
                                   "a b c d e\n",
                                   " 640 500 1 2 0\n",
                                   "640\n500 1 2 0\n",
                                   "640 +500 1 2 0\n",
                                   "0640 500 1 2 0\n",
                                   "640 500 1 2 -1\n",
                                   "640 500 9999999 2 0\n"})
        EXPECT_FALSE(windowOfText(text)) << text;
    EXPECT_FALSE(windowOfText(std::string("640 500 1 2 0\0\n", 15)));
}

TEST(onScreens, leavesWhatIsOnThem)
{
    const std::vector<QRect> screens{{0, 0, 1920, 1080}, {1920, 0, 1280, 1080}};
    for (const RememberedWindow& window :
         {RememberedWindow{{640, 500}, QPoint(0, 0), true},
          RememberedWindow{{640, 500}, QPoint(1280, 580), false},
          RememberedWindow{{800, 500}, QPoint(1600, 100), false},  // on both
          RememberedWindow{{640, 500}, std::nullopt, false}})
        EXPECT_EQ(onScreens(window, screens), window) << textOfWindow(window);
}

TEST(onScreens, movesAWindowOntoTheScreenThatHasMostOfIt)
{
    const std::vector<QRect> screens{{0, 30, 1920, 1050}, {1920, 0, 1280, 800}};
    for (const QPoint& place : {QPoint(-300, 100), QPoint(1700, 700), QPoint(3000, -100),
                                QPoint(10, -400), QPoint(500, 1000)}) {
        const RememberedWindow window{{640, 500}, place, true};
        const RememberedWindow moved = onScreens(window, screens);
        SCOPED_TRACE(textOfWindow(window) + textOfWindow(moved));
        EXPECT_EQ(moved.size, window.size);
        EXPECT_TRUE(moved.isAbove);
        ASSERT_TRUE(moved.place);
        const QRect now(*moved.place, moved.size);
        EXPECT_TRUE(screens[0].contains(now) || screens[1].contains(now));
    }
    EXPECT_EQ(onScreens({{640, 500}, QPoint(3000, 100)}, screens).place, QPoint(2560, 100));
}

TEST(onScreens, hasNoPlaceForAWindowWhoseScreenIsGone)
{
    const std::vector<QRect> screens{{0, 0, 1280, 800}};
    for (const QPoint& place :
         {QPoint(1280, 100), QPoint(90000, 80), QPoint(-999999, 0), QPoint(100, -500)}) {
        const RememberedWindow window{{640, 500}, place, true};
        EXPECT_EQ(onScreens(window, screens), (RememberedWindow{{640, 500}, std::nullopt, true}))
            << textOfWindow(window);
    }
    EXPECT_FALSE(onScreens({{640, 500}, QPoint(10, 10)}, {}).place);
}

TEST(onScreens, makesAWindowSmallEnough)
{
    const std::vector<QRect> screens{{0, 0, 1280, 800}, {1280, 0, 3840, 2160}};
    const RememberedWindow huge = onScreens({{16384, 16384}, QPoint(1300, 10)}, screens);
    EXPECT_TRUE(screens[1].contains(QRect(*huge.place, huge.size)));
    const RememberedWindow placeless = onScreens({{3000, 700}, std::nullopt}, screens);
    EXPECT_EQ(placeless.size, QSize(1280, 700)) << "the main screen's width";
}

TEST_F(WindowMemoryTest, remembersSizePlaceAndWhetherItIsAbove)
{
    EXPECT_FALSE(loadWindow());
    AppController controller;
    MainWindow& window = *controller.myWindow;
    const WindowMemory memory(window);
    controller.showMainWindow();
    window.resize(500, 600);
    window.move(40, 30);
    window.keepAboveAction->setChecked(true);
    EXPECT_TRUE(test::waitUntil([&] { return window.pos() == QPoint(40, 30); }));
    window.close();
    const std::string text = test::readFile(state.file("pinorama/window"));
    EXPECT_EQ(text, textOfWindow({window.size(), QPoint(40, 30), true}));
    const auto remembered = loadWindow();
    ASSERT_TRUE(remembered) << text;
    EXPECT_TRUE(remembered->isAbove);
}

TEST_F(WindowMemoryTest, remembersAMomentAfterAChangeToo)
{
    AppController controller;
    const WindowMemory memory(*controller.myWindow);
    controller.showMainWindow();
    controller.myWindow->resize(kLarge);
    EXPECT_TRUE(test::waitUntil([this] {
        return test::readFile(state.file("pinorama/window")).starts_with("1900 1400 ");
    }));
}

TEST_F(WindowMemoryTest, remembersTheLastChangeOfAProgramThatEnds)
{
    AppController controller;
    {
        const WindowMemory memory(*controller.myWindow);
        controller.showMainWindow();
        controller.myWindow->resize(kLarge);
    }
    EXPECT_TRUE(test::readFile(state.file("pinorama/window")).starts_with("1900 1400 "));
}

TEST_F(WindowMemoryTest, remembersAMaximizedWindowAsItWasBefore)
{
    AppController controller;
    const RememberedWindow earlier{kLarge, QPoint(3, 4), false};
    const WindowMemory memory(*controller.myWindow, earlier);
    controller.myWindow->showMaximized();
    controller.myWindow->keepAboveAction->setChecked(true);
    controller.myWindow->close();
    EXPECT_EQ(test::readFile(state.file("pinorama/window")), "1900 1400 3 4 1\n");
}

TEST_F(WindowMemoryTest, readsNothingOfABrokenFile)
{
    store("640 500 10 80 1\n");
    EXPECT_TRUE(loadWindow());
    for (const std::string& text :
         {std::string(), std::string("640 500"), std::string(5000, '1')}) {
        store(text);
        EXPECT_FALSE(loadWindow()) << text;
    }
    std::filesystem::remove(state.file("pinorama/window"));
    std::filesystem::create_directory(state.file("pinorama/window"));
    EXPECT_FALSE(loadWindow());
}

TEST_F(WindowMemoryTest, loadsAWindowThatIsOnAScreen)
{
    for (const char* text : {"400 300 90000 80 1\n", "400 300 -100 -80 1\n", "9000 9000 0 0 0\n"}) {
        SCOPED_TRACE(text);
        store(text);
        const auto window = loadWindow();
        ASSERT_TRUE(window);
        const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
        EXPECT_TRUE(screen.contains(QRect(window->place.value_or(screen.topLeft()), window->size)));
    }
}

TEST_F(WindowMemoryTest, doesWithoutAFolder)
{
    const test::ScopedVariable nowhere("XDG_STATE_HOME", "/proc/nowhere");
    AppController controller;
    const WindowMemory memory(*controller.myWindow);
    controller.showMainWindow();
    controller.myWindow->close();
    EXPECT_FALSE(loadWindow());
}

TEST(restore, givesAWindowThatIsShownAheadSizePlaceAndLayer)
{
    const RememberedWindow earlier{kLarge, QPoint(20, 10), true};
    const std::unique_ptr<MainWindow> window = MainWindow::showAhead(earlier);
    EXPECT_EQ(window->size(), kLarge);
    window->furnish();
    EXPECT_EQ(window->size(), kLarge);
    EXPECT_EQ(window->pos(), QPoint(20, 10));
    EXPECT_TRUE(window->keepAboveAction->isChecked());
    EXPECT_TRUE(window->windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
}

// As the desktop starts the program: the window comes later.
TEST(restore, givesTheSameToAWindowThatIsHidden)
{
    AppController controller;
    MainWindow& window = *controller.myWindow;
    window.restore({kOther, QPoint(20, 10), true});
    EXPECT_FALSE(window.isVisible());
    controller.showMainWindow();
    EXPECT_EQ(window.size(), kOther);
    EXPECT_EQ(window.pos(), QPoint(20, 10));
    EXPECT_TRUE(window.keepAboveAction->isChecked());
    EXPECT_TRUE(window.windowHandle()->flags().testFlag(Qt::WindowStaysOnTopHint));
}

TEST(restore, cutsNothingInASmallWindow)
{
    const std::unique_ptr<MainWindow> window =
        MainWindow::showAhead(RememberedWindow{{64, 64}, std::nullopt, false});
    window->furnish();
    EXPECT_TRUE(test::waitUntil([&] {
        return window->width() >= window->minimumSizeHint().width() &&
               window->height() >= window->minimumSizeHint().height();
    }));
}
