#include "app/finder_sync.h"
#include "lib/prefs/preferences.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
// Stores a value as another program of the house would.
void store(const char* value)
{
    const test::Text text(value != nullptr ? test::text(value).take() : nullptr);
    prefStoreString(test::text("finderSync").take(), text.get());
}

std::string stored()
{
    TovStringRef value = nullptr;
    prefLoadString(test::text("finderSync").take(), &value);
    return test::takeUTF8(value).value_or("none");
}
}  // namespace

TEST(appLoadFinderSync, isOnByTheRegisteredDefaultWhichIsNeverStored)
{
    store(nullptr);
    appRegisterFinderSyncDefault();
    EXPECT_TRUE(appLoadFinderSync());
    EXPECT_EQ(stored(), "none");
}

TEST(appLoadFinderSync, aStoredValueComesFirst)
{
    appRegisterFinderSyncDefault();
    const struct {
        const char* value;
        bool expected;
    } rows[] = {{"0", false},  {"1", true},   {"2", true},    {"", false},
                {"no", false}, {"YES", true}, {"true", true}, {"00", false},
                {"007", true}, {" -1", true}, {"x1", false},  {"false", false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.value);
        store(row.value);
        EXPECT_EQ(appLoadFinderSync(), row.expected);
    }
    store(nullptr);
}

TEST(appLoadFinderSync, aStoredNumberCountsToo)
{
    appRegisterFinderSyncDefault();
    prefStoreUInt32(test::text("finderSync").take(), 0);
    EXPECT_FALSE(appLoadFinderSync());
    store(nullptr);
}

TEST(appStoreFinderSync, sharesTheStoreOfThePreferences)
{
    appStoreFinderSync(false);
    EXPECT_EQ(stored(), "0");
    EXPECT_FALSE(appLoadFinderSync());
    appStoreFinderSync(true);
    EXPECT_EQ(stored(), "1");
    EXPECT_TRUE(appLoadFinderSync());
    store(nullptr);
}
