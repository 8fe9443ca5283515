#include "app/menu_bar.h"

#include "app/main_window.h"
#include "previews/png_writer.h"
#include "tests/support/environment.h"
#include "tests/support/mirrored.h"
#include "tests/support/toolkit.h"

#include <QApplication>
#include <QImage>
#include <QStyle>
#include <QToolButton>

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

QToolButton* hidingPlaceOf(const QMenuBar& bar)
{
    return bar.findChild<QToolButton*>(QStringLiteral("qt_menubar_ext_button"));
}

bool hasPicturePlugins()
{
    return test::readFile("/proc/self/maps").find("/imageformats/") != std::string::npos;
}
}  // namespace

TEST(MenuBar, theWindowAndItsThumbnailsNeedNoPicturePlugins)
{
    ASSERT_FALSE(hasPicturePlugins());
    const std::unique_ptr<MainWindow> window = MainWindow::showAhead();
    window->furnish();
    for (int turn = 0; turn < 10; ++turn) QCoreApplication::processEvents();
    EXPECT_FALSE(cuMakePNG(QImage(128, 128, QImage::Format_RGB32), {}).isEmpty());
    EXPECT_FALSE(hasPicturePlugins());
    const QMenuBar usual;
    EXPECT_TRUE(hasPicturePlugins()) << "nothing needs to be avoided any more";
}

TEST(MenuBar, hasTheStyleOfTheDesktop)
{
    QWidget window;
    const MenuBar bar(&window);
    EXPECT_EQ(bar.parentWidget(), &window);
    EXPECT_EQ(bar.style(), QApplication::style());
    for (const QWidget* part : bar.findChildren<QWidget*>())
        EXPECT_EQ(part->style(), QApplication::style()) << part->objectName().toStdString();
    EXPECT_TRUE(bar.styleSheet().isEmpty());
    const QMenuBar usual(&window);
    EXPECT_EQ(bar.hasMouseTracking(), usual.hasMouseTracking());
    EXPECT_EQ(bar.sizePolicy(), usual.sizePolicy());
}

TEST(MenuBar, showsAnArrowWhereMenusDoNotFit)
{
    QMainWindow window;
    auto* bar = new MenuBar(&window);
    window.setMenuBar(bar);
    for (int number = 0; number < 8; ++number)
        bar->addMenu(QStringLiteral("A menu with a long name"))->addAction(QStringLiteral("one"));
    window.resize(200, 100);
    window.show();
    QCoreApplication::processEvents();
    const QToolButton* button = hidingPlaceOf(*bar);
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(button->isVisible());
    EXPECT_EQ(button->arrowType(), Qt::RightArrow);
}

TEST(MenuBar, hasItsArrowPointToTheMenusThatAreHidden)
{
    const test::Mirrored mirrored;
    QMainWindow window;
    const auto* bar = new MenuBar(&window);  // the window's child
    EXPECT_EQ(hidingPlaceOf(*bar)->arrowType(), Qt::LeftArrow);
}
