#include "lib/ui/cocoa_utils.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>

using namespace pinorama;

// This program is no toolkit application until the function under test makes it one.
TEST(cocoaUtilsLaunch, startsTheToolkitInAHostWithoutIt)
{
    ASSERT_EQ(QCoreApplication::instance(), nullptr);
    const test::ScopedVariable noDisplay("DISPLAY", nullptr);
    const test::ScopedVariable noWayland("WAYLAND_DISPLAY", nullptr);
    const test::ScopedVariable noPlatform("QT_QPA_PLATFORM", nullptr);

    void* const pool = cocoaUtilsLaunch();
    ASSERT_NE(pool, nullptr);
    const auto* application = qobject_cast<QApplication*>(QCoreApplication::instance());
    ASSERT_NE(application, nullptr);
    EXPECT_EQ(QGuiApplication::platformName(), QLatin1String("offscreen"));
    EXPECT_FALSE(QGuiApplication::quitOnLastWindowClosed());
    EXPECT_EQ(cocoaUtilsLaunch(), pool);
    EXPECT_EQ(QCoreApplication::instance(), application);
    EXPECT_FALSE(QLabel(QStringLiteral("drawn")).grab().isNull());

    cocoaUtilsQuit();
    EXPECT_EQ(QCoreApplication::instance(), nullptr);
    // It can be had again.
    EXPECT_NE(cocoaUtilsLaunch(), nullptr);
    EXPECT_NE(QCoreApplication::instance(), nullptr);
    cocoaUtilsQuit();
}
