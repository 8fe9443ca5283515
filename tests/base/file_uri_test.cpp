#include "base/file_uri.h"

#include <gtest/gtest.h>

#include <array>

#include <unistd.h>

using namespace pinorama;

TEST(pathOfFileURI, namesLocalFilesOnly)
{
    const struct {
        const char *name, *uri, *expected;
    } rows[] = {
        {"plain", "file:///a/b.jpg", "/a/b.jpg"},
        {"one slash", "file:/a/b.jpg", "/a/b.jpg"},
        {"localhost", "file://localhost/a.jpg", "/a.jpg"},
        {"scheme and host in upper case", "FILE://LOCALHOST/A.JPG", "/A.JPG"},
        {"blank", "file:///My%20Photo.jpg", "/My Photo.jpg"},
        {"unescaped blank", "file:///My Photo.jpg", "/My Photo.jpg"},
        {"hash and percent", "file:///a%23b%25c.jpg", "/a#b%c.jpg"},
        {"digits in lower case", "file:///%c3%a4.jpg", "/\xC3\xA4.jpg"},
        {"no UTF-8", "file:///%FF.jpg", "/\xFF.jpg"},
        {"query and fragment", "file:///a.jpg?x=/y#z", "/a.jpg"},
        {"plus stays", "file:///a+b.jpg", "/a+b.jpg"},
        {"folder", "file:///a/", "/a/"},
        {"other host", "file://example.org/a.jpg", nullptr},
        {"no path", "file://localhost", nullptr},
        {"relative", "file:a.jpg", nullptr},
        {"other scheme", "https:///a.jpg", nullptr},
        {"no scheme", "/a.jpg", nullptr},
        {"escaped NUL", "file:///a%00.jpg", nullptr},
        {"cut escape", "file:///a%2", nullptr},
        {"wrong escape", "file:///a%zz", nullptr},
        {"empty", "", nullptr},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const auto path = pathOfFileURI(row.uri);
        ASSERT_EQ(path.has_value(), row.expected != nullptr);
        if (row.expected != nullptr) {
            EXPECT_EQ(*path, row.expected);
        }
    }
}

TEST(pathOfFileURI, thisMachinesNameIsLocal)
{
    std::array<char, 256> name{};
    ASSERT_EQ(gethostname(name.data(), name.size() - 1), 0);
    EXPECT_EQ(pathOfFileURI(std::string("file://") + name.data() + "/a.jpg"), "/a.jpg");
}

TEST(pathOfFileURI, rawNULAndTooLongPathsAreRefused)
{
    EXPECT_FALSE(pathOfFileURI(std::string_view("file:///a\0b", 11)));
    EXPECT_TRUE(pathOfFileURI("file:///" + std::string(4095, 'x')));
    EXPECT_FALSE(pathOfFileURI("file:///" + std::string(4096, 'x')));
    EXPECT_FALSE(pathOfFileURI("file:///" + std::string(1000000, 'x')));
}

TEST(fileURIOfPath, survivesTheWayThereAndBack)
{
    std::string everyByte = "/";
    for (int byte = 1; byte < 256; ++byte) everyByte += static_cast<char>(byte);
    EXPECT_EQ(pathOfFileURI(fileURIOfPath(everyByte)), everyByte);
    EXPECT_EQ(fileURIOfPath("/My Photo#1%.jpg"), "file:///My%20Photo%231%25.jpg");
}

TEST(pathsOfURIList, readsLinesAndSkipsTheRest)
{
    EXPECT_EQ(pathsOfURIList("# comment\r\nfile:///a.jpg\r\nhttps://example.org/x\r\n\r\n"
                             "file:///b%20c.jpg\nfile:///d.jpg"),
              (std::vector<std::string>{"/a.jpg", "/b c.jpg", "/d.jpg"}));
    EXPECT_TRUE(pathsOfURIList("").empty());
}
