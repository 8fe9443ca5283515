#include "previews/late_properties.h"

#include "pictures/picture_file.h"
#include "previews/picture_reader.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/reader_signal.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <csignal>
#include <vector>

// The suites are named after what they test, which they hide here.
namespace pinorama::tests {
using namespace std::chrono_literals;
using Clock = std::chrono::steady_clock;

class LateProperties : public testing::Test {
protected:
    struct Arrival {
        std::uint32_t ticket;
        PropertyResult result;
    };

    LateProperties()
    {
        QObject::connect(&late(), &pinorama::LateProperties::arrived, &context_,
                         [this](std::uint32_t ticket, const PropertyResult& result) {
                             arrivals_.push_back({ticket, result});
                         });
        cuPictureReader().stop();
        // The reader serves one request before anything is measured.
        (void)cuPictureReader().readProperties(first_.descriptor());
    }
    ~LateProperties() override
    {
        late().giveUp();
        cuPictureReader().stop();
        cuPictureReader().setLimits({});
    }

    static pinorama::LateProperties& late() { return *pinorama::LateProperties::instance(); }

    // Holds the reader up, as a slow disk does.
    static void hold() { test::signalReader(cuPictureReader(), SIGSTOP); }
    static void letGo() { test::signalReader(cuPictureReader(), SIGCONT); }

    bool hasArrived(std::size_t count)
    {
        return test::waitUntil([&] { return arrivals_.size() >= count; });
    }

    std::string picture(const std::string& name, double latitude) const
    {
        return folder_.write(
            name,
            test::pictureWithGps({.lat = latitude, .latRef = "N", .lon = 11.25, .lonRef = "E"}));
    }

    test::TemporaryFolder folder_;
    PictureFile first_{picture("a.jpg", 48.5)};
    PictureFile second_{picture("b.jpg", 10.25)};
    QObject context_;
    std::vector<Arrival> arrivals_;
};

TEST_F(LateProperties, areThoseOfTheApplication)
{
    EXPECT_EQ(&late(), pinorama::LateProperties::instance());
    EXPECT_EQ(late().parent(), QCoreApplication::instance());
}

TEST_F(LateProperties, areNoneWhenTheyComeAtOnce)
{
    const auto properties = late().read(first_.descriptor());
    ASSERT_TRUE(properties);
    EXPECT_EQ(properties->latitude, 48.5);
    EXPECT_EQ(late().ticket(), 0u);
    test::goOnFor(100);
    EXPECT_TRUE(arrivals_.empty());
}

TEST_F(LateProperties, arriveThroughTheEventLoop)
{
    hold();
    const auto start = Clock::now();
    EXPECT_FALSE(late().read(first_.descriptor()));
    EXPECT_GE(Clock::now() - start, 490ms);
    const std::uint32_t ticket = late().ticket();
    EXPECT_NE(ticket, 0u);
    test::goOnFor(300);
    EXPECT_TRUE(arrivals_.empty());
    letGo();
    ASSERT_TRUE(hasArrived(1));
    EXPECT_EQ(arrivals_[0].ticket, ticket);
    EXPECT_EQ(arrivals_[0].result.outcome, ReadOutcome::found);
    EXPECT_EQ(arrivals_[0].result.properties.latitude, 48.5);
    EXPECT_EQ(late().ticket(), 0u);
}

TEST_F(LateProperties, doNotNeedTheFileOfWhoAsked)
{
    hold();
    {
        const PictureFile file(folder_.file("a.jpg"));
        EXPECT_FALSE(late().read(file.descriptor()));
    }
    // The next reader is asked for the same picture.
    test::signalReader(cuPictureReader(), SIGKILL);
    ASSERT_TRUE(hasArrived(1));
    EXPECT_EQ(arrivals_[0].result.properties.latitude, 48.5);
}

TEST_F(LateProperties, thatWereGivenUpDoNotArrive)
{
    hold();
    EXPECT_FALSE(late().read(first_.descriptor()));
    late().giveUp();
    EXPECT_EQ(late().ticket(), 0u);
    letGo();
    test::goOnFor(300);
    EXPECT_TRUE(arrivals_.empty());
}

TEST_F(LateProperties, giveWayToThoseOfTheNextPicture)
{
    hold();
    EXPECT_FALSE(late().read(first_.descriptor()));
    // Another reader takes the place of the one that is held up.
    const auto properties = late().read(second_.descriptor());
    ASSERT_TRUE(properties || hasArrived(1)) << "it may take longer to start";
    test::goOnFor(300);
    EXPECT_EQ(arrivals_.size(), properties ? 0u : 1u);
    EXPECT_EQ((properties ? *properties : arrivals_[0].result.properties).latitude, 10.25);
}

TEST_F(LateProperties, reportAStuckReader)
{
    ReaderLimits limits;
    limits.properties.silence = 1s;
    cuPictureReader().setLimits(limits);
    hold();
    EXPECT_FALSE(late().read(first_.descriptor()));
    ASSERT_TRUE(hasArrived(1));
    EXPECT_EQ(arrivals_[0].result.outcome, ReadOutcome::stuck);
    EXPECT_EQ(late().ticket(), 0u);
}

TEST_F(LateProperties, failWhenTheReaderIsStopped)
{
    hold();
    EXPECT_FALSE(late().read(first_.descriptor()));
    cuPictureReader().stop();
    cuPictureReader().start();
    ASSERT_TRUE(hasArrived(1));
    EXPECT_EQ(arrivals_[0].result.outcome, ReadOutcome::failed);
}

}  // namespace pinorama::tests
