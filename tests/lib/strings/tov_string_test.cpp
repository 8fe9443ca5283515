#include "lib/strings/tov_string.h"

#include "base/alloc.h"
#include "lib/strings/string_holder.h"
#include "tests/support/texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <set>

using namespace pinorama;

using test::mutableText;
using test::takeUTF8;
using test::text;
using test::utf8;

namespace {
constexpr std::int32_t kLowest = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t kHighest = std::numeric_limits<std::int32_t>::max();

// What a long text says, so that the appends below have to grow it.
const std::string kLong(40, 'x');
}  // namespace

TEST(TovStringGetEmpty, isTheNullHandle)
{
    EXPECT_EQ(TovStringGetEmpty(), nullptr);
}

TEST(TovStringCreateMutable, isEmptyAndCanGrow)
{
    StringHolder string(TovStringCreateMutable());
    ASSERT_TRUE(string);
    EXPECT_EQ(TovStringGetLength(string.get()), 0);
    TovStringAppendCString(string.slot(), "abc");
    EXPECT_EQ(utf8(string.get()), "abc");
}

TEST(TovStringGetCopy, isAMutableTextOfItsOwn)
{
    const auto original = text("photo");
    StringHolder copy(TovStringGetCopy(original.get()));
    TovStringAppendCString(copy.slot(), ".jpg");
    EXPECT_EQ(utf8(copy.get()), "photo.jpg");
    EXPECT_EQ(utf8(original.get()), "photo");
}

TEST(TovStringGetCopy, ofNullIsNull)
{
    EXPECT_EQ(TovStringGetCopy(nullptr), nullptr);
}

TEST(TovStringCreateWithSubstring, isBoundedByTheText)
{
    const struct {
        const char* name;
        std::int32_t start, length;
        const char* expected;
    } rows[] = {
        {"all", 0, 5, "photo"},
        {"middle", 1, 3, "hot"},
        {"one unit past the end", 3, 3, "to"},
        {"far past the end", 3, kHighest, "to"},
        {"nothing", 2, 0, ""},
        {"start at the end", 5, 0, ""},
        {"start at the end, one unit", 5, 1, ""},
        {"start past the end", 6, 1, ""},
        {"start far past the end", kHighest, kHighest, ""},
        {"negative length", 2, -1, ""},
        {"negative start", -2, 4, "ph"},
        {"lowest start", kLowest, kHighest, ""},
        {"lowest length", 2, kLowest, ""},
    };
    const auto string = text("photo");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringCreateWithSubstring(string.get(), row.start, row.length)),
                  row.expected);
    }
}

TEST(TovStringCreateWithSubstring, ofNullIsNull)
{
    EXPECT_EQ(TovStringCreateWithSubstring(nullptr, 0, 0), nullptr);
}

TEST(TovStringCreateWithSubstring, mayCutASurrogatePair)
{
    const auto string = text("a\U0001F4F7");
    const StringHolder cut(TovStringCreateWithSubstring(string.get(), 0, 2));
    EXPECT_EQ(TovStringGetUniChar(cut.get(), 1), 0xd83d);
}

TEST(TovGetUUIDString, hasTheCanonicalForm)
{
    const auto uuid = takeUTF8(TovGetUUIDString());
    ASSERT_TRUE(uuid);
    EXPECT_THAT(*uuid,
                testing::MatchesRegex("[0-9A-F]{8}-[0-9A-F]{4}-4[0-9A-F]{3}-[89AB][0-9A-F]{3}"
                                      "-[0-9A-F]{12}"));
}

TEST(TovGetUUIDString, isNewEveryTime)
{
    std::set<std::string> seen;
    for (int i = 0; i < 1000; i++) seen.insert(*takeUTF8(TovGetUUIDString()));
    EXPECT_EQ(seen.size(), 1000u);
}

TEST(TovStringInvalidate, doesNotRelease)
{
    const auto string = text("a");
    TovStringRef variable = string.get();
    TovStringInvalidate(&variable);
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(uCFGetRetainCount(string.get()), 1);
    TovStringInvalidate(&variable);
    TovStringInvalidate(nullptr);
}

TEST(TovStringRelease, givesOneReferenceBackAndNullsTheVariable)
{
    const auto string = text("a");
    TovStringRef variable = string.get();
    uCFRetain(variable);
    EXPECT_EQ(TovStringRelease(&variable), 0);
    EXPECT_EQ(variable, nullptr);
    EXPECT_EQ(uCFGetRetainCount(string.get()), 1);
}

TEST(TovStringRelease, ofNullIsHarmless)
{
    TovStringRef variable = nullptr;
    EXPECT_EQ(TovStringRelease(&variable), 0);
    EXPECT_EQ(TovStringRelease(nullptr), 0);
}

TEST(TovStringIsValid, distinguishesNullFromEmpty)
{
    EXPECT_FALSE(TovStringIsValid(nullptr));
    EXPECT_TRUE(TovStringIsValid(text("").get()));
}

TEST(TovStringGetLength, countsUTF16Units)
{
    EXPECT_EQ(TovStringGetLength(nullptr), 0);
    EXPECT_EQ(TovStringGetLength(text("").get()), 0);
    EXPECT_EQ(TovStringGetLength(text("\u00e9").get()), 1);
    EXPECT_EQ(TovStringGetLength(text("\U0001F4F7").get()), 2);
}

TEST(TovStringGetCLength, countsBytes)
{
    EXPECT_EQ(TovStringGetCLength(nullptr), 0);
    EXPECT_EQ(TovStringGetCLength(""), 0);
    EXPECT_EQ(TovStringGetCLength("caf\xc3\xa9"), 5);
}

TEST(TovStringGetUniChar, isZeroOutsideTheText)
{
    const auto string = text("ab");
    EXPECT_EQ(TovStringGetUniChar(string.get(), 0), u'a');
    EXPECT_EQ(TovStringGetUniChar(string.get(), 1), u'b');
    EXPECT_EQ(TovStringGetUniChar(string.get(), 2), 0);
    EXPECT_EQ(TovStringGetUniChar(string.get(), -1), 0);
    EXPECT_EQ(TovStringGetUniChar(string.get(), kLowest), 0);
    EXPECT_EQ(TovStringGetUniChar(string.get(), kHighest), 0);
    EXPECT_EQ(TovStringGetUniChar(nullptr, 0), 0);
}

TEST(TovStringGetIntValue, readsTheLeadingInteger)
{
    EXPECT_EQ(TovStringGetIntValue(nullptr), 0);
    EXPECT_EQ(TovStringGetIntValue(text("").get()), 0);
    EXPECT_EQ(TovStringGetIntValue(text(" -12 pictures").get()), -12);
    EXPECT_EQ(TovStringGetIntValue(text("4294967296").get()), kHighest);
}

TEST(TovStringGetDoubleValue, readsTheLeadingNumber)
{
    EXPECT_EQ(TovStringGetDoubleValue(nullptr), 0.0);
    EXPECT_EQ(TovStringGetDoubleValue(text("").get()), 0.0);
    EXPECT_EQ(TovStringGetDoubleValue(text(" 45.5x").get()), 45.5);
}

TEST(TovStringAppendCString, decodesMacRoman)
{
    auto string = mutableText("a");
    TovStringAppendCString(string.slot(), "\x8e!");
    EXPECT_EQ(utf8(string.get()), "aé!");
    TovStringAppendCString(string.slot(), "");
    TovStringAppendCString(string.slot(), nullptr);
    EXPECT_EQ(utf8(string.get()), "aé!");
}

TEST(TovStringAppendTovString, appendsEverything)
{
    auto string = mutableText("a");
    TovStringAppendTovString(string.slot(), text("bc\u00e9").get());
    TovStringAppendTovString(string.slot(), text("").get());
    TovStringAppendTovString(string.slot(), nullptr);
    EXPECT_EQ(utf8(string.get()), "abcé");
}

TEST(TovStringAppendTovString, canDoubleTheTarget)
{
    auto string = mutableText(kLong);
    TovStringAppendTovString(string.slot(), string.get());
    TovStringAppendTovString(string.slot(), string.get());
    EXPECT_EQ(utf8(string.get()), kLong + kLong + kLong + kLong);
}

TEST(TovStringAppendNumber, writesUnsignedDigits)
{
    auto string = mutableText("");
    TovStringAppendNumber(string.slot(), 0);
    TovStringAppendCString(string.slot(), " ");
    TovStringAppendNumber(string.slot(), std::numeric_limits<std::uint64_t>::max());
    EXPECT_EQ(utf8(string.get()), "0 18446744073709551615");
}

TEST(TovStringAppendTovString, ignoresNullTargets)
{
    const auto other = text("a");
    TovStringRef null = nullptr;
    TovStringAppendCString(&null, "a");
    TovStringAppendTovString(&null, other.get());
    TovStringAppendNumber(&null, 1);
    EXPECT_EQ(null, nullptr);
    TovStringAppendCString(nullptr, "a");
    TovStringAppendTovString(nullptr, other.get());
    TovStringAppendNumber(nullptr, 1);
}

TEST(TovStringAppendTovString, leavesImmutableTextsAlone)
{
    auto string = text("a");
    TovStringAppendCString(string.slot(), "b");
    TovStringAppendTovString(string.slot(), string.get());
    TovStringAppendNumber(string.slot(), 1);
    EXPECT_EQ(utf8(string.get()), "a");
}

TEST(TovStringAppendTovString, leavesTheTargetAloneWhenMemoryRunsOut)
{
    auto string = mutableText("a");
    const auto other = text(kLong);
    const auto failing = [](auto append) {
        baseFailAllocation(1);
        append();
        EXPECT_TRUE(baseAllocationHasFailed());
        baseFailAllocation(0);
    };
    failing([&] { TovStringAppendCString(string.slot(), kLong.c_str()); });
    failing([&] { TovStringAppendTovString(string.slot(), other.get()); });
    EXPECT_EQ(utf8(string.get()), "a");

    auto full = mutableText(kLong);
    failing([&] { TovStringAppendNumber(full.slot(), 1); });
    EXPECT_EQ(utf8(full.get()), kLong);
}

TEST(TovStringCreateMutable, givesNullWhenMemoryRunsOut)
{
    const auto string = text("photo");
    const auto failing = [](auto create) {
        baseFailAllocation(1);
        EXPECT_EQ(create(), nullptr);
        EXPECT_TRUE(baseAllocationHasFailed());
        baseFailAllocation(0);
    };
    failing([] { return TovStringCreateMutable(); });
    failing([&] { return TovStringGetCopy(string.get()); });
    failing([&] { return TovStringCreateWithSubstring(string.get(), 0, 2); });
    failing([] { return TovGetUUIDString(); });
}
