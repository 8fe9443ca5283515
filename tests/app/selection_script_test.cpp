#include "app/selection_script.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(appMakeSelectionScript, hasItsBlanksAndTabs)
{
    EXPECT_EQ(
        test::takeUTF8(appMakeSelectionScript()),
        "tell application \"Finder\" \r set ms to selection \r set mR to {} \r repeat with i "
        "from 1 to number of ms \r\tset mR to mR & (POSIX path of (item i of ms as alias)) \r "
        "end repeat \r\tend tell");
}
