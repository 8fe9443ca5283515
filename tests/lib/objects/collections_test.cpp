#include "lib/objects/collections.h"

#include "base/alloc.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <string>

using namespace pinorama;

TEST(TovArrayAppend, retainsAndKeepsTheOrder)
{
    const ObjectHolder array(TovArrayCreate());
    const ObjectHolder number(TovNumberCreateSInt64(5));
    for (int i = 0; i < 20; i++) TovArrayAppend(array.get(), number.get());
    TovArrayAppend(array.get(), nullptr);
    EXPECT_EQ(uCFGetRetainCount(number.get()), 21);
    EXPECT_EQ(TovArrayGetCount(array.get()), 21);
    EXPECT_EQ(TovArrayGetValue(array.get(), 19), number.get());
    EXPECT_EQ(TovArrayGetValue(array.get(), 20), nullptr);
}

TEST(TovArrayAppend, ignoresANullArrayAndALackOfMemory)
{
    const ObjectHolder number(TovNumberCreateSInt64(5));
    TovArrayAppend(nullptr, number.get());
    const ObjectHolder array(TovArrayCreate());
    baseFailAllocation(1);
    TovArrayAppend(array.get(), number.get());
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
    EXPECT_EQ(TovArrayGetCount(array.get()), 0);
    EXPECT_EQ(uCFGetRetainCount(number.get()), 1);
}

TEST(TovArrayGetValue, isNullOutOfRange)
{
    const ObjectHolder array(TovArrayCreate());
    EXPECT_EQ(TovArrayGetValue(array.get(), 0), nullptr);
    EXPECT_EQ(TovArrayGetValue(array.get(), -1), nullptr);
    EXPECT_EQ(TovArrayGetValue(nullptr, 0), nullptr);
    EXPECT_EQ(TovArrayGetCount(nullptr), 0);
}

TEST(TovDictionarySetValue, replacesAndRemoves)
{
    const ObjectHolder dict(TovDictionaryCreate());
    const ObjectHolder one(TovNumberCreateSInt64(1));
    const ObjectHolder two(TovNumberCreateSInt64(2));
    const test::Text key = test::text("key");
    TovDictionarySetValue(dict.get(), key.get(), one.get());
    EXPECT_EQ(TovDictionaryGetValue(dict.get(), key.get()), one.get());
    TovDictionarySetValue(dict.get(), key.get(), two.get());
    EXPECT_EQ(TovDictionaryGetValue(dict.get(), key.get()), two.get());
    EXPECT_EQ(uCFGetRetainCount(one.get()), 1);
    TovDictionarySetValue(dict.get(), key.get(), nullptr);
    EXPECT_EQ(TovDictionaryGetValue(dict.get(), key.get()), nullptr);
    EXPECT_EQ(uCFGetRetainCount(two.get()), 1);
    EXPECT_EQ(uCFGetRetainCount(key.get()), 1);
}

TEST(TovDictionarySetValue, replacingAValueByItselfKeepsIt)
{
    const ObjectHolder dict(TovDictionaryCreate());
    const test::Text key = test::text("key");
    {
        const ObjectHolder number(TovNumberCreateSInt64(1));
        TovDictionarySetValue(dict.get(), key.get(), number.get());
    }
    TovDictionarySetValue(dict.get(), key.get(), TovDictionaryGetValue(dict.get(), key.get()));
    EXPECT_EQ(uCFGetRetainCount(TovDictionaryGetValue(dict.get(), key.get())), 1);
}

TEST(TovDictionarySetValue, aMutableKeyIsCopied)
{
    const ObjectHolder dict(TovDictionaryCreate());
    const ObjectHolder number(TovNumberCreateSInt64(1));
    const test::Text key = test::mutableText("key");
    TovDictionarySetValue(dict.get(), key.get(), number.get());
    appendUnits(key.get(), u"s");
    EXPECT_EQ(TovDictionaryGetValue(dict.get(), key.get()), nullptr);
    EXPECT_EQ(TovDictionaryGetValue(dict.get(), test::text("key").get()), number.get());
}

TEST(TovDictionarySetValue, manyKeysKeepTheirValues)
{
    const ObjectHolder dict(TovDictionaryCreate());
    for (int i = 0; i < 50; i++) {
        const ObjectHolder number(TovNumberCreateSInt64(i));
        TovDictionarySetValue(dict.get(), test::text("key" + std::to_string(i)).get(),
                              number.get());
    }
    TovDictionarySetValue(dict.get(), test::text("key7").get(), nullptr);
    for (int i = 0; i < 50; i++) {
        const auto key = test::text("key" + std::to_string(i));
        const TovNumber* number = asNumber(TovDictionaryGetValue(dict.get(), key.get()));
        if (i == 7) {
            EXPECT_EQ(number, nullptr);
        } else {
            ASSERT_NE(number, nullptr);
            EXPECT_EQ(number->integer, i);
        }
    }
}

TEST(TovDictionarySetValue, ignoresNullsAndALackOfMemory)
{
    const ObjectHolder dict(TovDictionaryCreate());
    const ObjectHolder number(TovNumberCreateSInt64(1));
    const test::Text mutableKey = test::mutableText("key");
    TovDictionarySetValue(nullptr, mutableKey.get(), number.get());
    TovDictionarySetValue(dict.get(), nullptr, number.get());
    EXPECT_EQ(TovDictionaryGetValue(dict.get(), nullptr), nullptr);
    EXPECT_EQ(TovDictionaryGetValue(nullptr, mutableKey.get()), nullptr);
    for (int nth = 1; nth <= 2; nth++) {
        SCOPED_TRACE(nth);
        const ObjectHolder fresh(TovDictionaryCreate());
        baseFailAllocation(static_cast<std::uint64_t>(nth));
        TovDictionarySetValue(fresh.get(), mutableKey.get(), number.get());
        EXPECT_TRUE(baseAllocationHasFailed());
        baseFailAllocation(0);
        EXPECT_EQ(TovDictionaryGetValue(fresh.get(), mutableKey.get()), nullptr);
        EXPECT_EQ(uCFGetRetainCount(number.get()), 1);
    }
}

TEST(TovDictionaryGetValue, nestedCollectionsAreFreedWithTheirOwner)
{
    const ObjectHolder number(TovNumberCreateSInt64(1));
    {
        const ObjectHolder outer(TovDictionaryCreate());
        const ObjectHolder inner(TovDictionaryCreate());
        const ObjectHolder array(TovArrayCreate());
        TovArrayAppend(array.get(), number.get());
        TovDictionarySetValue(inner.get(), test::text("array").get(), array.get());
        TovDictionarySetValue(outer.get(), test::text("inner").get(), inner.get());
        EXPECT_EQ(asDictionary(TovDictionaryGetValue(outer.get(), test::text("inner").get())),
                  inner.get());
        EXPECT_EQ(asArray(inner.get()), nullptr);
        EXPECT_EQ(uCFGetRetainCount(number.get()), 2);
    }
    EXPECT_EQ(uCFGetRetainCount(number.get()), 1);
}
