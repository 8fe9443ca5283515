#include "selection/frame_list.h"

#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <span>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {

// The parameters that a coroutine may have; see selection/task.h.
static_assert(SafeAcrossSuspension<QString>);
static_assert(SafeAcrossSuspension<int>);
static_assert(SafeAcrossSuspension<std::vector<QDBusMessage>>);
static_assert(SafeAcrossSuspension<std::array<int, 2>>);
static_assert(SafeAcrossSuspension<SharedFrame>);
static_assert(SafeAcrossSuspension<std::weak_ptr<FrameReader>>);
static_assert(SafeAcrossSuspension<DBusQuery&>);
static_assert(SafeAcrossSuspension<FrameReader&>);
static_assert(!SafeAcrossSuspension<const QString&>);
static_assert(!SafeAcrossSuspension<QString&&>);
static_assert(!SafeAcrossSuspension<FrameList&>);
static_assert(!SafeAcrossSuspension<const FrameLayout&>);
static_assert(!SafeAcrossSuspension<FrameReader*>);
static_assert(!SafeAcrossSuspension<const char*>);
static_assert(!SafeAcrossSuspension<std::vector<int>::iterator>);
static_assert(!SafeAcrossSuspension<std::vector<int>::const_iterator>);
static_assert(!SafeAcrossSuspension<std::string_view>);
static_assert(!SafeAcrossSuspension<QStringView>);
static_assert(!SafeAcrossSuspension<QLatin1String>);
static_assert(!SafeAcrossSuspension<std::span<const int>>);
static_assert(!SafeAcrossSuspension<std::reference_wrapper<const QString>>);

// The captures of a lambda die with it, also while the coroutine that it started still waits.
[[maybe_unused]] const auto kHoldsNothing = [] {};
[[maybe_unused]] const auto kHoldsSomething = [number = 1] { (void)number; };
static_assert(SafeAcrossSuspension<decltype(kHoldsNothing)&>);
static_assert(!SafeAcrossSuspension<decltype(kHoldsSomething)&>);

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

TEST_F(FrameListTest, identifyIgnoresAProgramThatHasLeft)
{
    ASSERT_TRUE(list_.add(second_));
    list_.remove(second_);
    EXPECT_FALSE(list_.identify(second_, 8, &kind()));
    EXPECT_FALSE(list_.manager(second_).has_value());
    EXPECT_EQ(list_.managers(), std::vector<QString>{first_});
    EXPECT_TRUE(list_.add(second_)) << "it counts as new when it comes back";
}

TEST_F(FrameListTest, addTakesAProgramOnce)
{
    EXPECT_FALSE(list_.add(first_));
    EXPECT_EQ(list_.manager(first_)->process, 7);
}

TEST_F(FrameListTest, managersAreTheIdentifiedFileManagers)
{
    ASSERT_TRUE(list_.add(second_));
    EXPECT_EQ(list_.managers(), std::vector<QString>{first_});
    EXPECT_TRUE(list_.identify(second_, 8, nullptr));
    EXPECT_EQ(list_.managers(), std::vector<QString>{first_});
    EXPECT_FALSE(list_.manager(second_).has_value());
}

TEST_F(FrameListTest, ignoresTheWindowsOfAProgramThatHasLeft)
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

TEST_F(FrameListTest, keepOnlyKeepsTheListedWindowsAndReturnsTheNewOnes)
{
    const std::vector<Accessible> unknown =
        list_.keepOnly(first_, {object(first_, "/1"), Accessible{}, object(first_, "/2")});
    EXPECT_EQ(unknown, std::vector<Accessible>{object(first_, "/2")});
    EXPECT_EQ(list_.frames(), std::vector<SharedFrame>{frame_});
    EXPECT_EQ(list_.keepOnly(first_, {}), std::vector<Accessible>());
    EXPECT_TRUE(list_.frames().empty());
}

TEST_F(FrameListTest, addFrameTakesAWindowOnce)
{
    list_.addFrame(first_, frame(first_, "/1"));
    EXPECT_EQ(list_.frames(), std::vector<SharedFrame>{frame_});
}

TEST_F(FrameListTest, framesAreWithoutThoseOfAPausedProgram)
{
    EXPECT_TRUE(list_.setPaused(first_, true));
    EXPECT_FALSE(list_.setPaused(first_, true));
    EXPECT_TRUE(list_.frames().empty());
    EXPECT_TRUE(list_.managers().empty());
    EXPECT_EQ(list_.framesOf(first_), std::vector<SharedFrame>{frame_});
    EXPECT_TRUE(list_.setPaused(first_, false));
    EXPECT_EQ(list_.frames(), std::vector<SharedFrame>{frame_});
}

TEST_F(FrameListTest, latestIsTheWindowThatBecameActiveLast)
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

TEST_F(FrameListTest, noteIgnoresAWindowThatHasClosed)
{
    const SharedFrame other = frame(first_, "/2");
    list_.note({{frame_, true}});
    list_.note({{other, true}});
    EXPECT_EQ(list_.latest(nullptr), frame_);
}

TEST_F(FrameListTest, beginWalkRefusesASecondWalkWithin700Ms)
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
