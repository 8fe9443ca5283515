#include "selection/frame_list.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {

// What a function that waits may be handed is told by the compiler.
static_assert(HeldAcrossWaiting<QString>);
static_assert(HeldAcrossWaiting<int>);
static_assert(HeldAcrossWaiting<std::vector<QDBusMessage>>);
static_assert(HeldAcrossWaiting<std::array<int, 2>>);
static_assert(HeldAcrossWaiting<SharedFrame>);
static_assert(HeldAcrossWaiting<std::weak_ptr<FrameReader>>);
static_assert(HeldAcrossWaiting<Inquiry&>);
static_assert(HeldAcrossWaiting<FrameReader&>);
static_assert(!HeldAcrossWaiting<const QString&>);
static_assert(!HeldAcrossWaiting<QString&&>);
static_assert(!HeldAcrossWaiting<FrameList&>);
static_assert(!HeldAcrossWaiting<const FrameLayout&>);
static_assert(!HeldAcrossWaiting<FrameReader*>);
static_assert(!HeldAcrossWaiting<const char*>);
static_assert(!HeldAcrossWaiting<std::vector<int>::iterator>);
static_assert(!HeldAcrossWaiting<std::vector<int>::const_iterator>);
static_assert(!HeldAcrossWaiting<std::string_view>);
static_assert(!HeldAcrossWaiting<QStringView>);
static_assert(!HeldAcrossWaiting<QLatin1String>);
static_assert(!HeldAcrossWaiting<std::span<const int>>);
static_assert(!HeldAcrossWaiting<std::reference_wrapper<const QString>>);

// A closure's captures die with it, although the function that it started still waits.
const auto kHoldsNothing = [] {};
const auto kHoldsSomething = [number = 1] { (void)number; };
static_assert(HeldAcrossWaiting<decltype(kHoldsNothing)&>);
static_assert(!HeldAcrossWaiting<decltype(kHoldsSomething)&>);

const FileManagerKind& kind()
{
    return *fileManagerKind("nemo");
}

Accessible object(const QString& service, const char* path)
{
    return {service, QString::fromLatin1(path)};
}

SharedFrame frame(const QString& service, const char* path)
{
    return std::make_shared<FrameReader>(object(service, path), kind(), 1, false);
}

class FrameListTest : public testing::Test {
protected:
    void SetUp() override
    {
        ASSERT_TRUE(list_.add(first_));
        ASSERT_TRUE(list_.identify(first_, 7, &kind()));
        list_.addFrame(first_, frame_);
    }

    const QString first_ = QStringLiteral(":1.1");
    const QString second_ = QStringLiteral(":1.2");
    const SharedFrame frame_ = frame(first_, "/1");
    FrameList list_;
};

TEST_F(FrameListTest, identifiesNobodyWhoHasLeftMeanwhile)
{
    ASSERT_TRUE(list_.add(second_));
    list_.remove(second_);
    EXPECT_FALSE(list_.identify(second_, 8, &kind()));
    EXPECT_FALSE(list_.manager(second_).has_value());
    EXPECT_EQ(list_.managers(), std::vector<QString>{first_});
    EXPECT_TRUE(list_.add(second_)) << "it counts as new when it comes back";
}

TEST_F(FrameListTest, addsAProgramOnce)
{
    EXPECT_FALSE(list_.add(first_));
    EXPECT_EQ(list_.manager(first_)->process, 7);
}

TEST_F(FrameListTest, hasOnlyFileManagersAmongTheManagers)
{
    ASSERT_TRUE(list_.add(second_));
    EXPECT_EQ(list_.managers(), std::vector<QString>{first_});
    EXPECT_TRUE(list_.identify(second_, 8, nullptr));
    EXPECT_EQ(list_.managers(), std::vector<QString>{first_});
    EXPECT_FALSE(list_.manager(second_).has_value());
}

TEST_F(FrameListTest, takesNoWindowOfAProgramThatHasLeft)
{
    list_.remove(first_);
    list_.addFrame(first_, frame_);
    EXPECT_TRUE(list_.frames().empty());
    EXPECT_TRUE(list_.framesOf(first_).empty());
    EXPECT_TRUE(list_.keepOnly(first_, {object(first_, "/1")}).empty());
    EXPECT_EQ(list_.latest(frame_), nullptr);
    EXPECT_FALSE(list_.beginWalk(frame_, Clock::now()));
    EXPECT_FALSE(list_.setPaused(first_, true));
}

TEST_F(FrameListTest, keepsTheWindowsThatAreListedAndTellsTheNewOnes)
{
    const std::vector<Accessible> unknown =
        list_.keepOnly(first_, {object(first_, "/1"), Accessible{}, object(first_, "/2")});
    EXPECT_EQ(unknown, std::vector<Accessible>{object(first_, "/2")});
    EXPECT_EQ(list_.frames(), std::vector<SharedFrame>{frame_});
    EXPECT_EQ(list_.keepOnly(first_, {}), std::vector<Accessible>());
    EXPECT_TRUE(list_.frames().empty());
}

TEST_F(FrameListTest, takesAWindowOnceThatIsListedTwice)
{
    list_.addFrame(first_, frame(first_, "/1"));
    EXPECT_EQ(list_.frames(), std::vector<SharedFrame>{frame_});
}

TEST_F(FrameListTest, leavesTheWindowsOfAPausedProgramOut)
{
    EXPECT_TRUE(list_.setPaused(first_, true));
    EXPECT_FALSE(list_.setPaused(first_, true));
    EXPECT_TRUE(list_.frames().empty());
    EXPECT_TRUE(list_.managers().empty());
    EXPECT_EQ(list_.framesOf(first_), std::vector<SharedFrame>{frame_});
    EXPECT_TRUE(list_.setPaused(first_, false));
    EXPECT_EQ(list_.frames(), std::vector<SharedFrame>{frame_});
}

TEST_F(FrameListTest, hasTheWindowAsTheLatestThatBecameActiveLast)
{
    const SharedFrame other = frame(first_, "/2");
    list_.addFrame(first_, other);
    list_.note({{frame_, true}, {other, false}});
    EXPECT_EQ(list_.latest(nullptr), frame_);
    list_.note({{frame_, false}, {other, true}});
    EXPECT_EQ(list_.latest(frame_), other);
    list_.note({{frame_, false}, {other, false}});
    EXPECT_EQ(list_.latest(other), other);
    list_.note({{frame_, true}, {other, false}});
    EXPECT_EQ(list_.latest(other), frame_);
}

TEST_F(FrameListTest, notesNothingOfAWindowThatHasGoneMeanwhile)
{
    const SharedFrame other = frame(first_, "/2");
    list_.note({{frame_, true}});
    list_.note({{other, true}});
    EXPECT_EQ(list_.latest(nullptr), frame_);
}

TEST_F(FrameListTest, walksAWindowWithoutAViewAgainAfterAWhileOnly)
{
    using namespace std::chrono_literals;
    const auto now = Clock::now();
    EXPECT_TRUE(list_.beginWalk(frame_, now));
    EXPECT_FALSE(list_.beginWalk(frame_, now + 699ms));
    EXPECT_TRUE(list_.beginWalk(frame_, now + 700ms));
    EXPECT_EQ(list_.latest(nullptr), nullptr) << "it shows no folder and is not active";
    EXPECT_EQ(list_.latest(frame_), frame_);
}
}  // namespace
