#include "location/file_name.h"

#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(gpsCopyFileName, isTheLastComponentWithoutSlashesAtTheEnd)
{
    const struct {
        const char *path, *expected;
    } rows[] = {
        {"/pictures/photo.jpg", "photo.jpg"},
        {"photo.jpg", "photo.jpg"},
        {"/photo.jpg", "photo.jpg"},
        {"/x/dir.jpg/", "dir.jpg"},
        {"/x/dir//", "dir"},
        {"a/b c/d e", "d e"},
        {"/", "/"},
        {"///", "/"},
        {"", ""},
        {"a/", "a"},
        {"..", ".."},
        {"/a/.", "."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.path);
        EXPECT_EQ(test::takeUTF8(gpsCopyFileName(test::text(row.path).get())), row.expected);
    }
    EXPECT_EQ(gpsCopyFileName(nullptr), nullptr);
}
