#include "previews/thumbnail_cache.h"

#include "tests/previews/preview_fixture.h"

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
using cuThumbnailPlaces = test::PreviewTest;

TEST_F(cuThumbnailPlaces, nameTheSizesFromTheOneAskedForOn)
{
    const std::string uri = "file:///a/b.jpg";
    const auto pathsOf = [](const std::vector<ThumbnailPlace>& places) {
        std::vector<std::string> paths;
        for (const ThumbnailPlace& place : places) paths.push_back(place.path);
        return paths;
    };
    EXPECT_EQ(pathsOf(pinorama::cuThumbnailPlaces("/a/b.jpg", 5, 129)),
              (std::vector<std::string>{cachePath("large", uri), cachePath("x-large", uri),
                                        cachePath("xx-large", uri)}));
    EXPECT_TRUE(pinorama::cuThumbnailPlaces("/a/b.jpg", 5, 1025).empty());
    EXPECT_TRUE(pinorama::cuThumbnailPlaces("b.jpg", 5, 128).empty());
    EXPECT_TRUE(pinorama::cuThumbnailPlaces("", 5, 128).empty());
    // Known from the standard's own example.
    EXPECT_EQ(QCryptographicHash::hash("file:///home/jens/photos/me.png", QCryptographicHash::Md5)
                  .toHex(),
              "c6ee772d9e49320e97ec29a7eb5b1697");
}

TEST_F(cuThumbnailPlaces, lookUnderBothWaysToEscapeASemicolon)
{
    const std::vector<ThumbnailPlace> places = pinorama::cuThumbnailPlaces("/a;b [1].jpg", 5, 1024);
    ASSERT_EQ(places.size(), 2u);
    EXPECT_EQ(places[0].label.uri, "file:///a%3Bb%20%5B1%5D.jpg");
    EXPECT_EQ(places[1].label.uri, "file:///a;b%20%5B1%5D.jpg");
}

TEST(ThumbnailLabel, matchesTheSameFileOnly)
{
    const ThumbnailLabel label = {"file:///a.jpg", 1234567890};
    EXPECT_TRUE(label.matches("file:///a.jpg", "1234567890"));
    EXPECT_FALSE(label.matches("file:///b.jpg", "1234567890"));
    EXPECT_FALSE(label.matches("file:///a.jpg", "1234567891"));
    EXPECT_FALSE(label.matches("file:///a.jpg", "1234567890.5"));
    EXPECT_FALSE(label.matches("file:///a.jpg", ""));
    EXPECT_FALSE(label.matches("", ""));
}

}  // namespace pinorama::tests
