#include "lib/prefs/preferences.h"

#include "lib/prefs/registered_defaults.h"
#include "lib/ui/small_utilities.h"
#include "lib/ui/string_tables.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <optional>
#include <string>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

// A folder of settings that only this test has.
struct Settings {
    std::string path(const std::string& identifier = "org.pinorama.Pinorama") const
    {
        return folder.file(identifier + "/preferences.json");
    }
    void write(const std::string& json) const
    {
        fs::create_directories(folder.file("org.pinorama.Pinorama"));
        folder.write("org.pinorama.Pinorama/preferences.json", json);
    }
    test::TemporaryFolder folder;
    test::ScopedVariable variable{"XDG_CONFIG_HOME", folder.path().c_str()};
};

// A key that the callee consumes.
TovStringRef key(std::string_view text)
{
    return test::text(text).take();
}

std::optional<std::string> loadString(std::string_view name)
{
    TovStringRef value = nullptr;
    EXPECT_EQ(prefLoadString(key(name), &value), 0);
    return test::takeUTF8(value);
}

// The number, or nothing when the status is not 0.
std::optional<std::uint32_t> loadNumber(std::string_view name)
{
    std::uint32_t value = 12345;
    const std::int32_t status = prefLoadUInt32(key(name), &value);
    if (status == 0) return value;
    EXPECT_EQ(status, -1);
    EXPECT_EQ(value, 12345u) << "untouched";
    return std::nullopt;
}
}  // namespace

TEST(prefStoreString, keepsAText)
{
    const Settings settings;
    for (const char* text : {"plain", "", "\u00e4\u20ac\U0001f4f7", "\"quoted\"\\\n\t\x01", "1"}) {
        SCOPED_TRACE(text);
        const test::Text value = test::text(text);
        EXPECT_EQ(prefStoreString(key("name"), value.get()), 0);
        EXPECT_EQ(uCFGetRetainCount(value.get()), 1) << "the value stays the caller's";
        EXPECT_EQ(loadString("name"), text);
    }
    const test::Text withZero = test::text(std::string("a\0b", 3));
    EXPECT_EQ(prefStoreString(key("name"), withZero.get()), 0);
    EXPECT_EQ(loadString("name"), std::string("a\0b", 3));
}

TEST(prefStoreString, nullRemovesTheKey)
{
    const Settings settings;
    EXPECT_EQ(prefStoreString(key("a"), test::text("1").get()), 0);
    EXPECT_EQ(prefStoreString(key("b"), test::text("2").get()), 0);
    EXPECT_EQ(prefStoreString(key("a"), nullptr), 0);
    EXPECT_EQ(loadString("a"), std::nullopt);
    EXPECT_EQ(loadString("b"), "2");
    EXPECT_EQ(prefStoreString(key("never there"), nullptr), 0);
    EXPECT_THAT(test::readFile(settings.path()), testing::Not(testing::HasSubstr("\"a\"")));
}

TEST(prefLoadString, keepsTheCallersValueForAMissingKey)
{
    const Settings settings;
    const test::Text earlier = test::text("default");
    TovStringRef value = earlier.get();
    EXPECT_EQ(prefLoadString(key("missing"), &value), 0);
    EXPECT_EQ(value, earlier.get());
}

TEST(prefLoadString, showsANumberInDigits)
{
    const Settings settings;
    const struct {
        std::uint32_t number;
        const char* expected;
    } rows[] = {{0, "0"}, {42, "42"}, {0x7fffffff, "2147483647"}, {0xffffffff, "-1"}};
    for (const auto& row : rows) {
        EXPECT_EQ(prefStoreUInt32(key("number"), row.number), 0);
        EXPECT_EQ(loadString("number"), row.expected);
    }
}

TEST(prefStoreUInt32, keepsAll32Bits)
{
    const Settings settings;
    for (const std::uint32_t number : {0u, 1u, 0x7fffffffu, 0x80000000u, 0xffffffffu}) {
        SCOPED_TRACE(number);
        EXPECT_EQ(prefStoreUInt32(key("number"), number), 0);
        EXPECT_EQ(loadNumber("number"), number);
    }
}

TEST(prefLoadUInt32, readsTheLeadingIntegerOfAText)
{
    const Settings settings;
    const struct {
        const char* text;
        std::uint32_t expected;
    } rows[] = {
        {"42abc", 42},
        {"42", 42},
        {"  7", 7},
        {"-1", 0xffffffff},
        {"abc", 0},
        {"", 0},
        {"99999999999", 0x7fffffff},  // as large as a signed number can be
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(prefStoreString(key("number"), test::text(row.text).get()), 0);
        EXPECT_EQ(loadNumber("number"), row.expected);
    }
}

TEST(prefLoadUInt32, readsWhatOtherProgramsHaveWritten)
{
    const Settings settings;
    settings.write(
        R"({"whole": 7, "negative": -3, "large": 4294967297, "fraction": 2.9, "huge": 1e30,
                       "true": true, "null": null, "list": [1], "object": {"a": 1}, "text": "5 m"})");
    const struct {
        const char* name;
        std::optional<std::uint32_t> number;
        std::optional<std::string> text;
    } rows[] = {
        {"whole", 7, "7"},
        {"negative", 0xfffffffd, "-3"},
        {"large", 1, "1"},  // the low 32 bits
        {"fraction", 2, "2"},
        {"text", 5, "5 m"},
        {"huge", std::nullopt, std::nullopt},
        {"true", std::nullopt, std::nullopt},
        {"null", std::nullopt, std::nullopt},
        {"list", std::nullopt, std::nullopt},
        {"object", std::nullopt, std::nullopt},
        {"missing", std::nullopt, std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(loadNumber(row.name), row.number);
        EXPECT_EQ(loadString(row.name), row.text);
    }
    EXPECT_EQ(prefStoreUInt32(key("new"), 1), 0);
    EXPECT_THAT(test::readFile(settings.path()), testing::HasSubstr("\"list\"")) << "all is kept";
}

TEST(preferences, everyCallReleasesItsKey)
{
    const Settings settings;
    const test::Text name = test::text("key");
    const test::Text value = test::text("value");
    for (int round = 0; round < 2; round++) {  // missing first, then there
        TovStringRef text = nullptr;
        std::uint32_t number = 0;
        uCFRetain(name.get());
        EXPECT_EQ(prefLoadString(name.get(), &text), 0);
        EXPECT_EQ(uCFGetRetainCount(name.get()), 1);
        uCFRelease(text);
        uCFRetain(name.get());
        (void)prefLoadUInt32(name.get(), &number);
        EXPECT_EQ(uCFGetRetainCount(name.get()), 1);
        uCFRetain(name.get());
        EXPECT_EQ(prefStoreUInt32(name.get(), 7), 0);
        EXPECT_EQ(uCFGetRetainCount(name.get()), 1);
        uCFRetain(name.get());
        EXPECT_EQ(prefStoreString(name.get(), value.get()), 0);
        EXPECT_EQ(uCFGetRetainCount(name.get()), 1);
    }
}

TEST(preferences, releaseTheKeyWhenNothingCanBeStored)
{
    const test::TemporaryFolder folder;
    const test::ScopedVariable config("XDG_CONFIG_HOME", folder.write("file", "").c_str());
    const test::Text name = test::text("key");
    uCFRetain(name.get());
    EXPECT_EQ(prefStoreString(name.get(), name.get()), 0) << "failures are not reported";
    EXPECT_EQ(uCFGetRetainCount(name.get()), 1);
    EXPECT_EQ(loadString("key"), std::nullopt);
}

TEST(preferences, takeANullKey)
{
    const Settings settings;
    std::uint32_t number = 5;
    TovStringRef text = nullptr;
    EXPECT_EQ(prefStoreString(nullptr, test::text("x").get()), 0);
    EXPECT_EQ(prefStoreUInt32(nullptr, 1), 0);
    EXPECT_EQ(prefLoadString(nullptr, &text), 0);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(prefLoadUInt32(nullptr, &number), -1);
    EXPECT_EQ(number, 5u);
    EXPECT_FALSE(fs::exists(settings.path()));
}

TEST(preferences, belongToTheApplicationOfTheMainBundle)
{
    const Settings settings;
    EXPECT_EQ(prefStoreUInt32(key("number"), 1), 0);
    EXPECT_TRUE(fs::exists(settings.path("org.pinorama.Pinorama"))) << "without a main bundle";

    ASSERT_NE(iuRegisterBundle(test::text("org.example.Other").get(), "/nowhere", true), nullptr);
    EXPECT_EQ(loadNumber("number"), std::nullopt);
    EXPECT_EQ(prefStoreUInt32(key("number"), 2), 0);
    EXPECT_TRUE(fs::exists(settings.path("org.example.Other")));

    // A name that leads elsewhere stores nothing anywhere.
    ASSERT_NE(iuRegisterBundle(test::text("../outside").get(), "/nowhere", true), nullptr);
    EXPECT_EQ(prefStoreUInt32(key("number"), 3), 0);
    EXPECT_EQ(loadNumber("number"), std::nullopt);
    EXPECT_FALSE(fs::exists(settings.folder.file("../outside")));

    ASSERT_NE(iuRegisterBundle(test::text("org.pinorama.Pinorama").get(), "/nowhere", true),
              nullptr);
    EXPECT_EQ(loadNumber("number"), 1u);
}

TEST(prefRegisterDefault, isNeverWrittenAndLosesAgainstAStoredValue)
{
    const Settings settings;
    EXPECT_EQ(prefValueOrDefault(u"finderSync"), std::nullopt);
    prefRegisterDefault(u"finderSync", u"1");
    EXPECT_EQ(prefValueOrDefault(u"finderSync"), u"1");
    EXPECT_EQ(loadString("finderSync"), std::nullopt) << "the pref functions do not see it";
    EXPECT_EQ(loadNumber("finderSync"), std::nullopt);
    EXPECT_FALSE(fs::exists(settings.path()));

    EXPECT_EQ(prefStoreString(key("finderSync"), test::text("0").get()), 0);
    EXPECT_EQ(prefValueOrDefault(u"finderSync"), u"0") << "a stored value comes first";
    EXPECT_EQ(prefStoreUInt32(key("finderSync"), 5), 0);
    EXPECT_EQ(prefValueOrDefault(u"finderSync"), u"5");
    EXPECT_EQ(prefStoreString(key("finderSync"), nullptr), 0);
    EXPECT_EQ(prefValueOrDefault(u"finderSync"), u"1");
    EXPECT_EQ(prefValueOrDefault(u"finderSync "), std::nullopt);

    settings.write(R"({"finderSync": [1]})");
    EXPECT_EQ(prefValueOrDefault(u"finderSync"), u"1") << "no value that could be shown";
    prefRegisterDefault(u"finderSync", u"0");
    EXPECT_EQ(prefValueOrDefault(u"finderSync"), u"0");
}
