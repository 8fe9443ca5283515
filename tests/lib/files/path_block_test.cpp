#include "lib/files/path_block.h"

#include "base/alloc.h"
#include "lib/files/path_text.h"
#include "tests/support/failing_memory.h"
#include "tests/support/random_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(PathBlock, holdsTheBytesOfThePathAndATerminator)
{
    test::forRandomTexts(
        [](const std::u16string& text) {
            const test::Text path(createString(text));
            const PathBlock block(path.get());
            ASSERT_TRUE(block);
            const std::string expected = pathBytes(path.get());
            ASSERT_EQ(std::string(block.bytes(), expected.size() + 1), expected + '\0');
        },
        3);
}

TEST(PathBlock, isAnEmptyPathForNull)
{
    const PathBlock block(nullptr);
    ASSERT_TRUE(block);
    EXPECT_STREQ(block.bytes(), "");
}

TEST(PathBlock, isFalseWhenMemoryRunsOut)
{
    const test::Text path(createPathText("/home/user/" + std::string(40, '\xff')));
    EXPECT_GT(test::failEachRequest([&] { return static_cast<bool>(PathBlock(path.get())); },
                                    [](bool isWhole) { return !isWhole; }),
              1u);
}
