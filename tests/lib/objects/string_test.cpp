#include "lib/objects/string.h"

#include "base/alloc.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/shared_text.h"
#include "lib/objects/values.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

using Text = ObjectHolder<TovStringRef>;

TEST(createString, copiesTheUnits)
{
    std::u16string source = u"a\u00e9\0b";
    const Text string(createString(source));
    source[0] = u'x';
    EXPECT_EQ(unitsOf(string.get()), std::u16string_view(u"a\u00e9\0b"));
    EXPECT_FALSE(string.get()->isMutable);
}

TEST(createString, emptyTextIsATextAndNullHasNoUnits)
{
    const Text empty(createString(u""));
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty.get()->length, 0);
    EXPECT_TRUE(unitsOf(nullptr).empty());
}

TEST(createString, givesNullWhenMemoryRunsOut)
{
    baseFailAllocation(1);
    EXPECT_EQ(createString(u"a"), nullptr);
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}

TEST(createUnfilledString, refusesImpossibleLengths)
{
    EXPECT_EQ(createUnfilledString(-1), nullptr);
    EXPECT_EQ(createUnfilledString(kMaxStringLength + 1), nullptr);
}

TEST(appendUnits, growsAcrossTheFirstBlock)
{
    const Text string(createString(u"", true));
    std::u16string expected;
    for (char16_t unit = u'0'; unit < u'0' + 100; unit++) {
        ASSERT_TRUE(appendUnits(string.get(), {&unit, 1}));
        expected += unit;
        ASSERT_EQ(unitsOf(string.get()), expected);
    }
}

TEST(appendUnits, takesUnitsOfTheTextItself)
{
    const Text string(createString(u"abc", true));
    for (int i = 0; i < 6; i++) {
        ASSERT_TRUE(appendUnits(string.get(), unitsOf(string.get())));
    }
    EXPECT_EQ(string.get()->length, 3 * 64);
    EXPECT_EQ(unitsOf(string.get()).substr(189), u"abc");
}

TEST(appendUnits, refusesImmutableAndNullTargets)
{
    const Text fixed(createString(u"abc"));
    EXPECT_FALSE(appendUnits(fixed.get(), u"d"));
    EXPECT_EQ(unitsOf(fixed.get()), u"abc");
    EXPECT_FALSE(appendUnits(nullptr, u"d"));
}

TEST(appendUnits, changesNothingWhenMemoryRunsOut)
{
    const Text string(createString(u"abc", true));
    const std::u16string much(1000, u'x');
    baseFailAllocation(1);
    EXPECT_FALSE(appendUnits(string.get(), much));
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
    EXPECT_EQ(unitsOf(string.get()), u"abc");
}

TEST(reserveUnits, keepsTheTextAndMovesNothingLater)
{
    const Text string(createString(u"abc", true));
    ASSERT_TRUE(reserveUnits(string.get(), 500));
    const char16_t* block = string.get()->units;
    ASSERT_TRUE(appendUnits(string.get(), std::u16string(497, u'x')));
    EXPECT_EQ(string.get()->units, block);
    EXPECT_EQ(unitsOf(string.get()).substr(0, 4), u"abcx");
}

TEST(reserveUnits, refusesImpossibleCapacities)
{
    const Text string(createString(u"abc", true));
    EXPECT_FALSE(reserveUnits(string.get(), kMaxStringLength + 1));
    EXPECT_FALSE(reserveUnits(nullptr, 1));
}

TEST(equalUnits, comparesUnitByUnit)
{
    const Text a(createString(u"abc"));
    const Text same(createString(u"abc", true));
    const Text other(createString(u"abC"));
    EXPECT_TRUE(equalUnits(a.get(), same.get()));
    EXPECT_FALSE(equalUnits(a.get(), other.get()));
    EXPECT_FALSE(equalUnits(a.get(), nullptr));
    EXPECT_FALSE(equalUnits(nullptr, a.get()));
    EXPECT_TRUE(equalUnits(nullptr, nullptr));
}

TEST(asString, givesOnlyTexts)
{
    const Text string(createString(u"abc"));
    const ObjectHolder number(TovNumberCreateSInt64(3));
    EXPECT_EQ(asString(string.get()), string.get());
    EXPECT_EQ(asString(number.get()), nullptr);
    EXPECT_EQ(asString(nullptr), nullptr);
}

TEST(sharedText, isATextThatIsNeverFreed)
{
    static constinit TovString key = sharedText(u"key");
    EXPECT_EQ(unitsOf(&key), u"key");
    EXPECT_EQ(TovGetTypeID(&key), TovTypeID::string);
    EXPECT_EQ(uCFGetRetainCount(uCFRetain(&key)), kSharedForever);
    releaseObject(&key);
    EXPECT_FALSE(appendUnits(&key, u"!"));
    EXPECT_EQ(unitsOf(&key), u"key");
}
