#include "location/dictionary_getters.h"

#include "lib/objects/object_holder.h"
#include "tests/location/dictionary_values.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using test::array;
using test::boolean;
using test::date;
using test::floating;
using test::Holding;
using test::integer;
using test::string;
using test::takeUTF8;
using test::text;
using test::Value;

Value versionArray(const std::vector<std::int64_t>& numbers)
{
    TovArrayRef result = TovArrayCreate();
    for (const std::int64_t number : numbers) TovArrayAppend(result, integer(number).get());
    return Value(result);
}

// What every getter gives for a container and a key, as one line.
std::string everything(TovTypeRef container, TovStringRef key)
{
    std::string all;
    const auto add = [&all](const std::string& part) { all += part + ' '; };
    add(std::to_string(convGetUInt16(container, key)));
    add(std::to_string(convGetUInt32(container, key)));
    add(std::to_string(convGetUInt64(container, key)));
    add(std::to_string(convGetFloat(container, key)));
    add(std::to_string(convGetDouble(container, key)));
    add(std::to_string(convGetBoolean(container, key)));
    add(std::to_string(convGetVDTime(container, key)));
    add(std::to_string(convGetDate(container, key)));
    add(convGetTovStringRef(container, key) == nullptr ? "null" : "text");
    add(takeUTF8(convCopyTovStringRef(container, key)).value_or("null"));
    add(takeUTF8(convCopyTovStringRefFromArrayOfStrings(container, key)).value_or("null"));
    add(std::to_string(convGetUInt64FromDictString(container, key)));
    add(std::to_string(convGetVersion(container, key)));
    return all;
}

constexpr char kAllDefaults[] = "0 0 0 0.000000 0.000000 0 0 0 null null null 0 1 ";
}  // namespace

TEST(conv, getsTheDefaultFromWhatIsNoDictionaryOrHasNoSuchKey)
{
    const Holding empty{Value()};
    const test::Text key = text("key");
    EXPECT_EQ(everything(nullptr, key.get()), kAllDefaults);
    EXPECT_EQ(everything(nullptr, nullptr), kAllDefaults);
    EXPECT_EQ(everything(empty.dictionary(), key.get()), kAllDefaults);
    EXPECT_EQ(everything(empty.dictionary(), nullptr), kAllDefaults);
    for (const Value& container : {integer(7), string("key"), boolean(true), date(0), array()}) {
        EXPECT_EQ(everything(container.get(), key.get()), kAllDefaults);
    }
}

TEST(conv, keepsTheKindsOfValuesApart)
{
    const struct {
        const char* name;
        Value value;
        const char* expected;
    } rows[] = {
        {"number", integer(1), "1 1 1 1.000000 1.000000 0 0 0 null 1 null 0 1 "},
        {"boolean", boolean(true), "0 0 0 0.000000 0.000000 1 0 0 null null null 0 1 "},
        {"text", string("12"), "0 0 0 0.000000 0.000000 0 0 0 text 12 null 12 1 "},
        {"date", date(-31622400.0),
         "0 0 0 0.000000 0.000000 0 21038400 21038400 null null null 0 1 "},
        {"array", array(), "0 0 0 0.000000 0.000000 0 0 0 null null  0 805306368 "},
        {"dictionary", Value(TovDictionaryCreate()), kAllDefaults},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Holding holding(row.value);
        EXPECT_EQ(everything(holding.dictionary(), holding.key()), row.expected);
    }
}

TEST(convGetUInt32, keepsTheLowBitsAndTruncatesTowardZero)
{
    const struct {
        const char* name;
        Value value;
        std::uint16_t as16;
        std::uint32_t as32;
        std::uint64_t as64;
    } rows[] = {
        {"0", integer(0), 0, 0, 0},
        {"70000", integer(70000), 4464, 70000, 70000},
        {"-1", integer(-1), 65535, 4294967295, 18446744073709551615u},
        {"2^32 + 5", integer(4294967301), 5, 5, 4294967301},
        {"largest", integer(std::numeric_limits<std::int64_t>::max()), 65535, 4294967295,
         9223372036854775807u},
        {"2.9", floating(2.9), 2, 2, 2},
        {"-2.9", floating(-2.9), 65534, 4294967294, 18446744073709551614u},
        {"not a number", floating(std::numeric_limits<double>::quiet_NaN()), 0, 0, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Holding holding(row.value);
        EXPECT_EQ(convGetUInt16(holding.dictionary(), holding.key()), row.as16);
        EXPECT_EQ(convGetUInt32(holding.dictionary(), holding.key()), row.as32);
        EXPECT_EQ(convGetUInt64(holding.dictionary(), holding.key()), row.as64);
    }
}

TEST(convGetDouble, convertsWhateverTheNumberHolds)
{
    const Holding seven(integer(7));
    EXPECT_EQ(convGetDouble(seven.dictionary(), seven.key()), 7.0);
    EXPECT_EQ(convGetFloat(seven.dictionary(), seven.key()), 7.0f);
    const Holding third(floating(1.0 / 3.0));
    EXPECT_EQ(convGetDouble(third.dictionary(), third.key()), 1.0 / 3.0);
    EXPECT_EQ(convGetFloat(third.dictionary(), third.key()), static_cast<float>(1.0 / 3.0));
}

TEST(convGetBoolean, readsBooleansOnly)
{
    const Holding yes(boolean(true));
    EXPECT_TRUE(convGetBoolean(yes.dictionary(), yes.key()));
    const Holding no(boolean(false));
    EXPECT_FALSE(convGetBoolean(no.dictionary(), no.key()));
    const Holding one(integer(1));
    EXPECT_FALSE(convGetBoolean(one.dictionary(), one.key()));
}

TEST(convGetVDTime, isOnTheClockOfUTC)
{
    const test::ScopedVariable zone("TZ", "Europe/Berlin");
    const Holding holding(date(-31622400.0));
    EXPECT_EQ(convGetVDTime(holding.dictionary(), holding.key()), 21038400u);
    EXPECT_EQ(convGetDate(holding.dictionary(), holding.key()), 21038400u);
}

TEST(convGetNumberFromArray, readsNumbersOnly)
{
    const Value values = array(integer(5), string("7"), floating(-1.5));
    EXPECT_EQ(convGetNumberFromArray(values.get(), 0), 5u);
    EXPECT_EQ(convGetNumberFromArray(values.get(), 1), 0u);
    EXPECT_EQ(convGetNumberFromArray(values.get(), 2), 4294967295u);
    EXPECT_EQ(convGetNumberFromArray(values.get(), 3), 0u);
    EXPECT_EQ(convGetNumberFromArray(values.get(), -1), 0u);
    EXPECT_EQ(convGetNumberFromArray(nullptr, 0), 0u);
    EXPECT_EQ(convGetNumberFromArray(string("5").get(), 0), 0u);
}

TEST(convGetUInt64FromDictString, readsASigned32BitNumber)
{
    const struct {
        const char* text;
        std::uint64_t expected;
    } rows[] = {
        {"12", 12},
        {" 12 apples", 12},
        {"apples", 0},
        {"", 0},
        {"-7", 18446744073709551609u},
        {"5000000000", 2147483647},
        {"-5000000000", 18446744071562067968u},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        const Holding holding(string(row.text));
        EXPECT_EQ(convGetUInt64FromDictString(holding.dictionary(), holding.key()), row.expected);
    }
}

TEST(convGetVersion, addsThePartsAndCarries)
{
    const struct {
        const char* name;
        std::vector<std::int64_t> numbers;
        std::uint32_t expected;
    } rows[] = {
        {"none", {}, 0x30000000},
        {"one", {1}, 0x30310000},
        {"two", {10, 5}, 0x303a3500},
        {"three", {1, 2, 3}, 0x30313233},
        {"a fourth is not looked at", {1, 2, 3, 4}, 0x30313233},
        {"207 still fits", {1, 207, 207}, 0x3031ffff},
        {"208 carries", {1, 2, 208}, 0x30313300},
        {"208 carries into the major part", {1, 208, 3}, 0x30320033},
        {"the family is carried into", {208, 0, 0}, 0x31003030},
        {"a negative third part borrows", {1, 2, -49}, 0x303131ff},
        {"a negative minor part borrows", {1, -49, 0}, 0x3030ff30},
        {"a negative major part is 16 bits without sign", {-49}, 0x2fff0000},
        {"parts are 16 bits", {65536 + 1, 65536 + 2, 65536 + 3}, 0x30313233},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Holding holding(versionArray(row.numbers));
        EXPECT_EQ(convGetVersion(holding.dictionary(), holding.key()), row.expected);
    }
}

TEST(convGetVersion, takesWhatIsNoNumberAsZero)
{
    const Holding holding(array(string("7"), boolean(true), Value()));
    EXPECT_EQ(convGetVersion(holding.dictionary(), holding.key()), 0x30303030u);
}

TEST(convGetVersion, countsElementsIn16SignedBits)
{
    // 32768 elements count as a negative number, 65537 as one.
    const Holding negative(versionArray(std::vector<std::int64_t>(32768, 1)));
    EXPECT_EQ(convGetVersion(negative.dictionary(), negative.key()), 0x30000000u);
    const Holding one(versionArray(std::vector<std::int64_t>(65537, 1)));
    EXPECT_EQ(convGetVersion(one.dictionary(), one.key()), 0x30310000u);
}

TEST(convCFDateRefToMacTime, countsOnTheLocalClockOfThatDate)
{
    constexpr double kNoonInWinter = 251121600.0;  // 2008-12-16 12:00 UTC
    constexpr double kNoonInSummer = 235310400.0;  // 2008-06-16 12:00 UTC
    constexpr std::uint32_t kFrom1904 = 3061152000;
    const struct {
        const char* zone;
        double absoluteTime;
        std::int32_t hours;
    } rows[] = {
        {"UTC", kNoonInWinter, 0},
        {"Europe/Berlin", kNoonInWinter, 1},
        {"Europe/Berlin", kNoonInSummer, 2},
        {"America/New_York", kNoonInWinter, -5},
        {"America/New_York", kNoonInSummer, -4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.zone);
        const test::ScopedVariable zone("TZ", row.zone);
        const ObjectHolder<TovDateRef> date(TovDateCreate(row.absoluteTime + 0.9));
        std::uint32_t seconds = 99;
        convCFDateRefToMacTime(date.get(), &seconds);
        EXPECT_EQ(seconds, static_cast<std::uint32_t>(row.absoluteTime) + kFrom1904 +
                               static_cast<std::uint32_t>(row.hours * 3600));
    }
}

TEST(convCFDateRefToMacTime, isZeroWithoutADate)
{
    const test::ScopedVariable zone("TZ", "Europe/Berlin");
    std::uint32_t seconds = 99;
    convCFDateRefToMacTime(nullptr, &seconds);
    EXPECT_EQ(seconds, 0u);
}
