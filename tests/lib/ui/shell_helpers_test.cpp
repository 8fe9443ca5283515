#include "lib/ui/shell_helpers.h"

#include "tests/support/texts.h"

#include <gtest/gtest.h>

TEST(cuMakeFinderCommentScript, joinsItsLinesWithBlanksAroundCarriageReturns)
{
    EXPECT_EQ(test::takeUTF8(cuMakeFinderCommentScript(test::text("/a/b.jpg").get(),
                                                       test::text("nice").get())),
              "tell application \"Finder\" \r set myFile to POSIX file \"/a/b.jpg\" as alias \r "
              "set current_com to comment of myfile \r if current_com is \"\" then \r set comment "
              "of myfile to \"nice\" \r else \r set comment of myfile to (current_com & return & "
              "\"nice\") as string \r end if \r  end tell");
}

TEST(cuMakeFinderCommentScript, insertsQuotesAndBackslashesRaw)
{
    const auto script = test::takeUTF8(
        cuMakeFinderCommentScript(test::text("/a\"b\\c").get(), test::text("\"%@\\").get()));
    ASSERT_TRUE(script);
    EXPECT_NE(script->find("POSIX file \"/a\"b\\c\" as"), std::string::npos);
    EXPECT_NE(script->find("myfile to \"\"%@\\\" \r else"), std::string::npos);
    EXPECT_NE(script->find("return & \"\"%@\\\") as"), std::string::npos);
}

TEST(cuMakeFinderCommentScript, nullStandsAsAWord)
{
    const auto script = test::takeUTF8(cuMakeFinderCommentScript(nullptr, nullptr));
    ASSERT_TRUE(script);
    EXPECT_NE(script->find("POSIX file \"(null)\" as"), std::string::npos);
}
