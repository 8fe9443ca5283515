// Previews that are under way: given up, overtaken by others, waited for, or never there.

#include "previews/preview_loader.h"

#include "previews/picture_reader.h"
#include "tests/previews/preview_loader_fixture.h"

#include <chrono>
#include <string>
#include <vector>

namespace pinorama::tests {
TEST_F(PreviewLoader, givesUpAPreviewThatIsUnderWay)
{
    const std::string last = picture("b.jpg");
    {
        const HeldReader held;
        request(picture("a.jpg"));
        const std::uint32_t ticket = untilItIsUnderWay();
        request(last);
        EXPECT_EQ(cuPictureReader().previewTicket(), 0u);
        untilItIsUnderWay(ticket);
    }
    wait();
    settle();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, last);
}

TEST_F(PreviewLoader, startsAgainWhenAPreviewThatIsWaitedForTookThePlace)
{
    const std::string path = picture("a.jpg");
    {
        const HeldReader held;
        request(path);
        untilItIsUnderWay();
    }
    EXPECT_EQ(test::pictureOf(picture("b.jpg")).size(), QSize(128, 85));
    EXPECT_TRUE(arrivals_.empty());
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, path);
}

TEST_F(PreviewLoader, startsAgainWhenAnotherOneTookThePlaceAndCancels)
{
    const std::string path = picture("a.jpg");
    const std::string otherPath = picture("b.jpg");
    {
        const HeldReader held;
        request(path);
        const std::uint32_t ticket = untilItIsUnderWay();
        pinorama::PreviewLoader other;
        other.request(otherPath, PictureFile(otherPath), kSize, 1);
        untilItIsUnderWay(ticket);
    }
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].path, path);
}

TEST_F(PreviewLoader, reportsAMissingReaderAndDeliversNothing)
{
    std::vector<std::string> reported;
    QObject::connect(&loader_, &pinorama::PreviewLoader::readerMissing,
                     [&](const std::string& path) { reported.push_back(path); });
    const std::string path = picture();
    {
        const test::ScopedVariable reader("PINORAMA_READER", "/nowhere/pinorama-reader");
        cuPictureReader().stop();
        request(path);
        EXPECT_TRUE(test::waitUntil([&] { return !reported.empty(); }));
        settle();
    }
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0], path);
    EXPECT_TRUE(arrivals_.empty());

    cuPictureReader().stop();
    request(path);
    wait();
    EXPECT_EQ(arrivals_.size(), 1u) << "there is one again";
}

TEST_F(PreviewLoader, comesHoweverLongTheDiskTakes)
{
    const std::string path = picture();
    {
        const HeldReader held;
        request(path);
        test::goOnFor(4000);
        EXPECT_TRUE(loader_.isLoading());
        EXPECT_TRUE(arrivals_.empty());
    }
    wait();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_TRUE(test::areNear(quartersOf(arrivals_[0].picture), kCorners));
    EXPECT_FALSE(loader_.isLoading());
}

TEST_F(PreviewLoader, reportsAStuckReaderAndDeliversTheIcon)
{
    std::vector<std::string> reported;
    QObject::connect(&loader_, &pinorama::PreviewLoader::readerStuck, [&](const std::string& path) {
        reported.push_back(path);
        EXPECT_TRUE(arrivals_.empty());
    });
    ReaderLimits limits;
    limits.preview.silence = std::chrono::seconds(1);
    cuPictureReader().setLimits(limits);
    const std::string path = picture();
    {
        request(picture("b.jpg"));
        wait();  // the reader has started
        arrivals_.clear();
        const HeldReader held;
        request(path);
        wait();
    }
    cuPictureReader().setLimits({});
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(128, 128));
    ASSERT_EQ(reported.size(), 1u);
    EXPECT_EQ(reported[0], path);
}

TEST_F(PreviewLoader, settlesForTheIcon)
{
    loader_.settleForIcon();
    EXPECT_TRUE(arrivals_.empty()) << "nothing was asked for";
    const HeldReader held;
    request(picture());
    untilItIsUnderWay();
    loader_.settleForIcon();
    ASSERT_EQ(arrivals_.size(), 1u);
    EXPECT_EQ(arrivals_[0].picture.size(), QSize(128, 128));
    EXPECT_FALSE(loader_.isLoading());
    EXPECT_EQ(cuPictureReader().previewTicket(), 0u);
}

}  // namespace pinorama::tests
