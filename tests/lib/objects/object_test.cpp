#include "lib/objects/object.h"

#include "lib/objects/collections.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/string.h"
#include "lib/objects/values.h"

#include <gtest/gtest.h>

using namespace pinorama;

TEST(TovGetTypeID, everyKindIsDistinctAndNullIsNone)
{
    const ObjectHolder string(createString(u"a"));
    const ObjectHolder number(TovNumberCreateSInt64(1));
    const ObjectHolder boolean(TovBooleanCreate(true));
    const ObjectHolder date(TovDateCreate(1.0));
    const ObjectHolder array(TovArrayCreate());
    const ObjectHolder dictionary(TovDictionaryCreate());
    const struct {
        const char* name;
        TovTypeRef value;
        TovTypeID kind;
    } rows[] = {
        {"null", nullptr, TovTypeID::none},
        {"string", string.get(), TovTypeID::string},
        {"number", number.get(), TovTypeID::number},
        {"boolean", boolean.get(), TovTypeID::boolean},
        {"date", date.get(), TovTypeID::date},
        {"array", array.get(), TovTypeID::array},
        {"dictionary", dictionary.get(), TovTypeID::dictionary},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(TovGetTypeID(row.value), row.kind);
    }
}

TEST(uCFRetain, addsOneReferenceAndReturnsTheObject)
{
    TovStringRef string = createString(u"a");
    EXPECT_EQ(uCFGetRetainCount(string), 1);
    EXPECT_EQ(uCFRetain(string), string);
    EXPECT_EQ(uCFGetRetainCount(string), 2);
    releaseObject(string);
    EXPECT_EQ(uCFGetRetainCount(string), 1);
    releaseObject(string);
}

TEST(uCFRetain, nullStaysNull)
{
    EXPECT_EQ(uCFRetain(nullptr), nullptr);
    EXPECT_EQ(uCFGetRetainCount(nullptr), 0);
    releaseObject(nullptr);
}

TEST(uCFRetain, sharedObjectsAreNeverCounted)
{
    TovBooleanRef yes = TovBooleanCreate(true);
    uCFRetain(yes);
    EXPECT_EQ(uCFGetRetainCount(yes), kSharedForever);
    releaseObject(yes);
    releaseObject(yes);
    releaseObject(yes);
    EXPECT_TRUE(yes->value);
}

TEST(ObjectHolder, givesItsReferenceBackOnce)
{
    TovStringRef string = createString(u"a");
    uCFRetain(string);
    {
        ObjectHolder first(string);
        ObjectHolder second(std::move(first));
        EXPECT_FALSE(first);
        EXPECT_EQ(second.get(), string);
    }
    EXPECT_EQ(uCFGetRetainCount(string), 1);
    releaseObject(string);
}

TEST(ObjectHolder, takeHandsTheReferenceOver)
{
    ObjectHolder holder(createString(u"a"));
    TovStringRef string = holder.take();
    EXPECT_FALSE(holder);
    EXPECT_EQ(uCFGetRetainCount(string), 1);
    releaseObject(string);
}
