#include "lib/ui/cocoa_utils.h"
#include "tests/support/toolkit.h"

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);
}  // namespace

TEST(cocoaUtilsLaunch, startsNothingInAToolkitApplication)
{
    const QCoreApplication* const own = QCoreApplication::instance();
    void* const pool = cocoaUtilsLaunch();
    EXPECT_NE(pool, nullptr);
    EXPECT_EQ(cocoaUtilsLaunch(), pool);
    EXPECT_EQ(QCoreApplication::instance(), own);
    cocoaUtilsQuit();
    EXPECT_EQ(QCoreApplication::instance(), own);
    cocoaUtilsQuit();  // a second time is harmless
}
