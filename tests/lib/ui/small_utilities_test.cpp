#include "lib/ui/small_utilities.h"

#include "base/alloc.h"
#include "lib/objects/values.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace pinorama;

TEST(radians, multipliesByPiBeforeItDivides)
{
    const struct {
        double degrees, expected;
    } rows[] = {
        {180, 3.141592653589793},     {-90, -1.5707963267948966}, {0, 0}, {360, 6.283185307179586},
        {1, 3.141592653589793 / 180}, {3, 0.05235987755982988},  // dividing first would give
                                                                 // 0.05235987755982989
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.degrees);
        EXPECT_EQ(radians(row.degrees), row.expected);
    }
}

TEST(uCFRelease, givesOneReferenceBack)
{
    const test::Text text = test::text("kept");
    uCFRetain(text.get());
    uCFRelease(text.get());
    EXPECT_EQ(uCFGetRetainCount(text.get()), 1);
}

TEST(uCFRelease, ofNullDoesNothing)
{
    uCFRelease(nullptr);
}

TEST(uCFRelease, takesObjectsOfEveryKind)
{
    uCFRelease(TovNumberCreateSInt64(1));
    uCFRelease(TovBooleanCreate(true));
    uCFRelease(TovDateCreate(0));
}

TEST(uAltPressed, isAlwaysFalse)
{
    EXPECT_FALSE(uAltPressed());
}

TEST(utMakeHFSStringFromCFString, copiesUpTo255Units)
{
    const std::u16string cutPair = std::u16string(254, u'a') + u"\U0001f4f7";
    const struct {
        const char* name;
        std::u16string text;
        std::u16string expected;
    } rows[] = {
        {"empty", u"", u""},
        {"short", u"a:b", u"a:b"},
        {"254", std::u16string(254, u'x'), std::u16string(254, u'x')},
        {"255", std::u16string(255, u'x'), std::u16string(255, u'x')},
        {"256", std::u16string(255, u'x') + u"y", std::u16string(255, u'x')},
        {"300", std::u16string(300, u'x'), std::u16string(255, u'x')},
        {"embedded zero", std::u16string(u"a\0b", 3), std::u16string(u"a\0b", 3)},
        {"pair at the end is cut in two", cutPair, cutPair.substr(0, 255)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const test::Text text(createString(row.text));
        HFSUniStr255 name = {};
        utMakeHFSStringFromCFString(text.get(), &name);
        EXPECT_EQ(std::u16string(name.unicode, name.length), row.expected);
    }
}

TEST(utMakeHFSStringFromCFString, nullGivesLengthZero)
{
    HFSUniStr255 name = {};
    name.length = 7;
    utMakeHFSStringFromCFString(nullptr, &name);
    EXPECT_EQ(name.length, 0);
}

TEST(utMakeHFSStringFromCFString, leavesTheUnitsAfterTheLengthAlone)
{
    HFSUniStr255 name = {};
    name.unicode[2] = u'z';
    utMakeHFSStringFromCFString(test::text("ab").get(), &name);
    EXPECT_EQ(name.length, 2);
    EXPECT_EQ(name.unicode[2], u'z');
}

TEST(utMakeCFStringFromHFSString, storesAndReturnsOneReference)
{
    const HFSUniStr255 name = {3, {u'a', u'\xe4', u'b', u'?'}};
    TovStringRef stored = nullptr;
    const TovStringRef returned = utMakeCFStringFromHFSString(&name, &stored);
    EXPECT_EQ(returned, stored);
    EXPECT_EQ(uCFGetRetainCount(stored), 1);
    EXPECT_EQ(test::takeUTF8(stored), "a\u00e4b");
}

TEST(utMakeCFStringFromHFSString, takesAtMost255Units)
{
    HFSUniStr255 name = {};
    std::fill(std::begin(name.unicode), std::end(name.unicode), u'x');
    for (const int length : {0, 1, 255, 256, 65535}) {
        SCOPED_TRACE(length);
        name.length = static_cast<std::uint16_t>(length);
        TovStringRef stored = nullptr;
        (void)utMakeCFStringFromHFSString(&name, &stored);
        EXPECT_EQ(test::takeUTF8(stored), std::string(std::min(length, 255), 'x'));
    }
}

TEST(utMakeCFStringFromHFSString, givesNullWhenMemoryRunsOut)
{
    const HFSUniStr255 name = {1, {u'a'}};
    TovStringRef stored = test::text("earlier").get();
    baseFailAllocation(1);
    EXPECT_EQ(utMakeCFStringFromHFSString(&name, &stored), nullptr);
    baseFailAllocation(0);
    EXPECT_EQ(stored, nullptr);
}

TEST(utEndianSwapIntArray, swapsTheBytesOfEachValue)
{
    std::uint16_t values[] = {0x1234, 0xabcd, 0x00ff, 0x0000, 0xffff};
    utEndianSwapIntArray(values, 2);
    EXPECT_EQ(values[0], 0x3412);
    EXPECT_EQ(values[1], 0xcdab);
    EXPECT_EQ(values[2], 0x00ff) << "only as many as asked for";
    utEndianSwapIntArray(values, 5);
    EXPECT_EQ(values[0], 0x1234);
    EXPECT_EQ(values[2], 0xff00);
}

TEST(utEndianSwapIntArray, countZeroChangesNothing)
{
    std::uint16_t value = 0x1234;
    utEndianSwapIntArray(&value, 0);
    EXPECT_EQ(value, 0x1234);
    utEndianSwapIntArray(nullptr, 0);
}
