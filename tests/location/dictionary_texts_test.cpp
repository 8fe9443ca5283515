// The texts that the getters give for values of a dictionary.

#include "location/dictionary_getters.h"

#include "base/alloc.h"
#include "tests/location/dictionary_values.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <optional>
#include <string>

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
using test::Value;
}  // namespace

TEST(convGetTovStringRef, lendsTheTextItself)
{
    const Value value = string("Rome");
    const Holding holding(value);
    const std::int32_t references = uCFGetRetainCount(value.get());
    EXPECT_EQ(convGetTovStringRef(holding.dictionary(), holding.key()), value.get());
    EXPECT_EQ(uCFGetRetainCount(value.get()), references);
}

TEST(convCopyTovStringRef, copiesATextAndWritesANumberAsUnsigned32Bits)
{
    const struct {
        const char* name;
        Value value;
        std::optional<std::string> expected;
    } rows[] = {
        {"text", string("Rome"), "Rome"},
        {"empty text", string(""), ""},
        {"number", integer(42), "42"},
        {"negative", integer(-5), "4294967291"},
        {"2^32 + 5", integer(4294967301), "5"},
        {"float", floating(3.9), "3"},
        {"boolean", boolean(true), std::nullopt},
        {"date", date(0), std::nullopt},
        {"array", array(), std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Holding holding(row.value);
        EXPECT_EQ(takeUTF8(convCopyTovStringRef(holding.dictionary(), holding.key())),
                  row.expected);
    }
}

TEST(convCopyTovStringRef, isACopyThatOutlivesItsSource)
{
    const test::Text source = test::mutableText("Rome");
    TovStringRef copy = nullptr;
    {
        const Holding holding(Value(uCFRetain(source.get())));
        copy = convCopyTovStringRef(holding.dictionary(), holding.key());
    }
    appendUnits(source.get(), u"!");
    EXPECT_EQ(uCFGetRetainCount(copy), 1);
    EXPECT_EQ(takeUTF8(copy), "Rome");
}

TEST(convCopyTovStringRefFromArrayOfStrings, separatesByTheIndexOfTheElement)
{
    const struct {
        const char* name;
        Value value;
        std::optional<std::string> expected;
    } rows[] = {
        {"empty", array(), ""},
        {"one", array(string("a")), "a"},
        {"two", array(string("a"), string("b")), "a\nb"},
        {"a number between", array(string("a"), integer(5), string("b")), "a\nb"},
        {"a number at the end", array(string("a"), string("b"), integer(5)), "a\nb\n"},
        {"a null at the end", array(string("a"), Value()), "a\n"},
        {"only numbers", array(integer(5), integer(6)), ""},
        {"empty texts", array(string(""), string(""), string("")), "\n\n"},
        {"no array", string("a"), std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Holding holding(row.value);
        TovStringRef joined =
            convCopyTovStringRefFromArrayOfStrings(holding.dictionary(), holding.key());
        EXPECT_TRUE(joined == nullptr || joined->isMutable);
        EXPECT_EQ(takeUTF8(joined), row.expected);
    }
}

TEST(conv, copiesGiveNullWhenMemoryRunsOut)
{
    const Holding name(string("Rome"));
    const Holding number(integer(5));
    const Holding list(array(string("a"), string("b")));
    for (std::uint64_t nth = 1; nth <= 2; nth++) {
        baseFailAllocation(nth);
        const std::optional<std::string> copied =
            takeUTF8(convCopyTovStringRef(name.dictionary(), name.key()));
        EXPECT_EQ(copied.has_value(), !baseAllocationHasFailed());
        baseFailAllocation(1);
        EXPECT_EQ(convCopyTovStringRef(number.dictionary(), number.key()), nullptr);
        baseFailAllocation(1);
        EXPECT_EQ(convCopyTovStringRefFromArrayOfStrings(list.dictionary(), list.key()), nullptr);
        baseFailAllocation(0);
    }
}

TEST(convCopyTovStringRefFromArrayOfStrings, isNullInsteadOfAPartWhenMemoryRunsOut)
{
    const Holding list(
        array(string("a text that takes memory"), string(std::string(200, 'b').c_str())));
    EXPECT_GT(test::failEachRequest([&] {
                  return convCopyTovStringRefFromArrayOfStrings(list.dictionary(), list.key());
              }),
              2u);
}
