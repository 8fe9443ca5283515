#include "lib/ui/string_tables.h"

#include "base/alloc.h"
#include "lib/ui/small_utilities.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

using namespace pinorama;

namespace {
// A folder of tables that is registered as a bundle.
class TestBundle {
public:
    void write(const std::string& language, const std::string& table, std::string_view lines) const
    {
        std::filesystem::create_directories(folder_.file(language));
        folder_.write(language + "/" + table + ".strings", lines);
    }
    void* registerAs(const char* identifier, bool isMain) const
    {
        return iuRegisterBundle(test::text(identifier).get(), folder_.path().c_str(), isMain);
    }

private:
    test::TemporaryFolder folder_;
};

std::optional<std::string> localized(const char* key, const char* table)
{
    const test::Text keyText = test::text(key);
    return test::takeUTF8(iuCopyLocalizedString(keyText.get(), keyText.get(), table));
}
}  // namespace

TEST(initStringBundle, withoutARegisteredBundleGivesNullAndKeyTexts)
{
    EXPECT_EQ(initStringBundle(test::text("test.unknown").get()), nullptr);
    EXPECT_EQ(gCFBundleRef, nullptr);
    EXPECT_EQ(test::takeUTF8(iuGetIndCFString(1001, 46)), "STR#1001:46");
}

TEST(initStringBundle, selectsAndReturnsTheBundle)
{
    const TestBundle one, two;
    one.write("en", "Localizable", "\"STR#1:1\" = \"one\";");
    two.write("en", "Localizable", "\"STR#1:1\" = \"two\";");
    void* first = one.registerAs("test.one", true);
    void* second = two.registerAs("test.two", false);
    EXPECT_NE(first, second);

    EXPECT_EQ(initStringBundle(test::text("test.two").get()), second);
    EXPECT_EQ(gCFBundleRef, second);
    EXPECT_EQ(test::takeUTF8(iuGetIndCFString(1, 1)), "two");
    EXPECT_EQ(initStringBundle(test::text("test.one").get()), first);
    EXPECT_EQ(test::takeUTF8(iuGetIndCFString(1, 1)), "one");
}

TEST(initStringBundle, unknownOrNullIdentifierSelectsNothing)
{
    const TestBundle bundle;
    bundle.write("en", "Localizable", "\"STR#1:1\" = \"text\";");
    ASSERT_NE(bundle.registerAs("test.known", true), nullptr);
    for (const char* identifier : {"test.know", "TEST.KNOWN", ""}) {
        SCOPED_TRACE(identifier);
        ASSERT_NE(initStringBundle(test::text("test.known").get()), nullptr);
        EXPECT_EQ(initStringBundle(test::text(identifier).get()), nullptr);
        EXPECT_EQ(gCFBundleRef, nullptr);
        EXPECT_EQ(test::takeUTF8(iuGetIndCFString(1, 1)), "STR#1:1");
    }
    EXPECT_EQ(initStringBundle(nullptr), nullptr);
}

TEST(iuRegisterBundle, refusesNullArguments)
{
    EXPECT_EQ(iuRegisterBundle(nullptr, "/tmp", false), nullptr);
    EXPECT_EQ(iuRegisterBundle(test::text("test.null").get(), nullptr, false), nullptr);
}

TEST(iuRegisterBundle, knownIdentifierGetsTheNewFolder)
{
    const TestBundle before, after;
    before.write("en", "Localizable", "\"1\" = \"before\";");
    after.write("en", "Localizable", "\"1\" = \"after\";");
    void* bundle = before.registerAs("test.again", true);
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), "before");
    EXPECT_EQ(after.registerAs("test.again", true), bundle);
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), "after");
}

TEST(iuRegisterBundle, folderThatDoesNotExistHasNoTexts)
{
    ASSERT_NE(iuRegisterBundle(test::text("test.nowhere").get(), "/nowhere/at/all", true), nullptr);
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(11)), "11");
}

TEST(iuRegisterBundle, readsNothingBeforeTheFirstLookup)
{
    const TestBundle bundle;
    ASSERT_NE(bundle.registerAs("test.late", true), nullptr);
    bundle.write("en", "Localizable", "\"1\" = \"written later\";");
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), "written later");
    bundle.write("en", "Localizable", "\"1\" = \"changed\";");
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), "written later") << "read once";
}

TEST(iuRegisterBundle, tableOfMoreThan256KiBIsNotRead)
{
    const TestBundle bundle;
    const std::string entry = "\"1\" = \"text\";\n";
    bundle.write("en", "Localizable", entry + std::string(256 * 1024 - entry.size(), ' '));
    ASSERT_NE(bundle.registerAs("test.large", true), nullptr);
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), "text");
    bundle.write("en", "Localizable", entry + std::string(256 * 1024 - entry.size() + 1, ' '));
    ASSERT_NE(bundle.registerAs("test.large", true), nullptr);
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), "1");
}

TEST(iuGetIndCFString, makesTheKeyFromTableAndIndex)
{
    const TestBundle bundle;
    bundle.write("en", "Localizable",
                 "\"STR#1001:46\" = \" KB\";\n\"STR#-1:-32768\" = \"negative\";\n"
                 "\"STR#32767:0\" = \"largest\";\n\"STR#7:7\" = \"\";\n");
    ASSERT_NE(bundle.registerAs("test.keys", true), nullptr);
    ASSERT_NE(initStringBundle(test::text("test.keys").get()), nullptr);
    const struct {
        std::int16_t table, index;
        const char* expected;
    } rows[] = {
        {1001, 46, " KB"},         {-1, -32768, "negative"},    {32767, 0, "largest"}, {7, 7, ""},
        {1001, 47, "STR#1001:47"}, {-1001, -5, "STR#-1001:-5"}, {0, 0, "STR#0:0"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.expected);
        EXPECT_EQ(test::takeUTF8(iuGetIndCFString(row.table, row.index)), row.expected);
    }
}

TEST(iuGetIndCFString, givesANewReferenceEveryTime)
{
    const TestBundle bundle;
    bundle.write("en", "Localizable", "\"STR#1:1\" = \"text\";");
    ASSERT_NE(bundle.registerAs("test.references", true), nullptr);
    ASSERT_NE(initStringBundle(test::text("test.references").get()), nullptr);
    for (const std::int16_t index : {1, 2}) {  // there and missing
        const test::Text first(iuGetIndCFString(1, index));
        const test::Text second(iuGetIndCFString(1, index));
        EXPECT_NE(first.get(), second.get());
        EXPECT_EQ(uCFGetRetainCount(first.get()), 1);
        EXPECT_TRUE(equalUnits(first.get(), second.get()));
    }
}

TEST(iuGetIndCFString, givesNullWhenMemoryRunsOut)
{
    const TestBundle bundle;
    bundle.write("en", "Localizable",
                 "\"STR#1:1\" = \"a text that takes memory\";\n\"1\" = \"one\";");
    const auto registered = [&] { return bundle.registerAs("test.memory", true); };
    EXPECT_GT(test::failEachRequest(registered, [](void* made) { return made == nullptr; }), 1u);
    ASSERT_NE(initStringBundle(test::text("test.memory").get()), nullptr);

    EXPECT_GT(test::failEachRequest([] { return iuGetIndCFString(1, 1); }), 3u);
    EXPECT_EQ(test::takeUTF8(iuGetIndCFString(1, 1)), "a text that takes memory")
        << "the table is whole although memory ran out while it was read";
    EXPECT_GT(test::failEachRequest([] { return iuGetIndKVLCFString(1); }), 0u);
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), "one");
}

TEST(iuCopyLocalizedString, givesNullWhenMemoryRunsOut)
{
    const TestBundle bundle, user;
    bundle.write("en", "Other", "\"key\" = \"a text that takes memory\";");
    ASSERT_NE(bundle.registerAs("test.memory", true), nullptr);
    iuSetUserTableFolder("/nowhere/at/all/that/exists");
    const test::Text key = test::text("key");
    EXPECT_GT(
        test::failEachRequest([&] { return iuCopyLocalizedString(key.get(), nullptr, "Other"); }),
        4u);
    EXPECT_EQ(localized("key", "Other"), "a text that takes memory");
    iuSetUserTableFolder(nullptr);
}

TEST(iuGetIndKVLCFString, readsTheMainBundleWhicheverIsSelected)
{
    const TestBundle main, other;
    main.write("en", "Localizable", "\"11\" = \"main\";\n\"-3\" = \"negative\";");
    other.write("en", "Localizable", "\"11\" = \"other\";\n\"12\" = \"other\";");
    ASSERT_NE(main.registerAs("test.main", true), nullptr);
    ASSERT_NE(other.registerAs("test.other", false), nullptr);
    ASSERT_NE(initStringBundle(test::text("test.other").get()), nullptr);
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(11)), "main");
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(-3)), "negative");
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(12)), "12");
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(-32768)), "-32768");
}

TEST(iuGetIndKVLCFString, followsTheLanguagesOfTheUserKeyByKey)
{
    const TestBundle bundle;
    bundle.write("en", "Localizable", "\"1\" = \"one\";\n\"2\" = \"two\";\n\"3\" = \"three\";");
    bundle.write("de", "Localizable", "\"1\" = \"eins\";\n\"2\" = \"zwei\";\ndamaged\n");
    bundle.write("de_AT", "Localizable", "\"1\" = \"ans\";");
    ASSERT_NE(bundle.registerAs("test.languages", true), nullptr);
    const struct {
        const char *language, *one, *two, *three, *four;
    } rows[] = {
        {"en_US.UTF-8", "one", "two", "three", "4"},
        {"de_DE.UTF-8", "eins", "zwei", "three", "4"},
        {"de_AT.UTF-8", "ans", "zwei", "three", "4"},
        {"fr_FR.UTF-8", "one", "two", "three", "4"},
        {"C", "one", "two", "three", "4"},
        {"de_AT.UTF-8", "ans", "zwei", "three", "4"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.language);
        const test::ScopedVariable language("LC_ALL", row.language);
        EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(1)), row.one);
        EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(2)), row.two);
        EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(3)), row.three);
        EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(4)), row.four);
    }
}

TEST(iuCopyLocalizedString, readsANamedTableOfTheMainBundle)
{
    const TestBundle main, other;
    main.write("en", "GPS", "\"a1\" = \"Map\";\n\"b1\" = \"geo:%f,%f\";");
    main.write("en", "Localizable", "\"a1\" = \"default\";");
    other.write("en", "GPS", "\"a1\" = \"Other\";");
    ASSERT_NE(main.registerAs("test.named", true), nullptr);
    ASSERT_NE(other.registerAs("test.named.other", false), nullptr);
    ASSERT_NE(initStringBundle(test::text("test.named.other").get()), nullptr);
    EXPECT_EQ(localized("a1", "GPS"), "Map");
    EXPECT_EQ(localized("b1", "GPS"), "geo:%f,%f");
    EXPECT_EQ(localized("a1", "Localizable"), "default");
    EXPECT_EQ(localized("a1", nullptr), "default");
    EXPECT_EQ(localized("a1", ""), "default");
    EXPECT_EQ(localized("a2", "GPS"), "a2");
    EXPECT_EQ(localized("a1", "Missing"), "a1");
}

TEST(iuCopyLocalizedString, missingKeyGivesTheDefaultElseTheKey)
{
    const test::Text key = test::text("missing key");
    EXPECT_EQ(test::takeUTF8(iuCopyLocalizedString(key.get(), test::text("word").get(), "GPS")),
              "word");
    EXPECT_EQ(test::takeUTF8(iuCopyLocalizedString(key.get(), nullptr, "GPS")), "missing key");
    EXPECT_EQ(test::takeUTF8(iuCopyLocalizedString(key.get(), test::text("").get(), "GPS")),
              "missing key");
    EXPECT_EQ(test::takeUTF8(iuCopyLocalizedString(nullptr, test::text("word").get(), "GPS")),
              "word");
    EXPECT_EQ(iuCopyLocalizedString(nullptr, nullptr, "GPS"), nullptr);
    EXPECT_EQ(uCFGetRetainCount(key.get()), 1);
}

TEST(iuCopyMainBundleIdentifier, namesTheBundleRegisteredLastAsMain)
{
    const TestBundle bundle;
    ASSERT_NE(bundle.registerAs("test.identifier", true), nullptr);
    ASSERT_NE(bundle.registerAs("test.not.main", false), nullptr);
    EXPECT_EQ(test::takeUTF8(iuCopyMainBundleIdentifier()), "test.identifier");
}

TEST(iuSetUserTableFolder, tablesOfTheUserComeFirst)
{
    const TestBundle main;
    main.write("en", "GPS", "\"a1\" = \"Map\";\n\"a2\" = \"Globe\";\n\"b1\" = \"geo:%f,%f\";");
    ASSERT_NE(main.registerAs("test.user", true), nullptr);
    const test::TemporaryFolder user;
    user.write("GPS.strings", "\"a2\" = \"My globe\";\n\"a3\" = \"Mine\";\n");
    iuSetUserTableFolder(user.path().c_str());
    EXPECT_EQ(localized("a1", "GPS"), "Map");
    EXPECT_EQ(localized("a2", "GPS"), "My globe");
    EXPECT_EQ(localized("a3", "GPS"), "Mine");
    EXPECT_EQ(test::takeUTF8(iuGetIndKVLCFString(11)), "11") << "numbers are the program's own";
    iuSetUserTableFolder(nullptr);
    EXPECT_EQ(localized("a2", "GPS"), "Globe");
    EXPECT_EQ(localized("a3", "GPS"), "a3");
}

TEST(iuSetUserTableFolder, aDamagedLineIsNamedOnceAndSkipped)
{
    const test::TemporaryFolder user;
    const std::string path =
        user.write("GPS.strings", "\"a1\" = \"Mine\";\n\"a2\" = unquoted;\n\"a3\" = \"Third\";\n");
    iuSetUserTableFolder(user.path().c_str());
    testing::internal::CaptureStderr();
    for (int i = 0; i < 3; i++) {
        EXPECT_EQ(localized("a1", "GPS"), "Mine");
        EXPECT_EQ(localized("a3", "GPS"), "Third");
    }
    EXPECT_EQ(testing::internal::GetCapturedStderr(),
              program_invocation_short_name + (": " + path) +
                  ":2: malformed line skipped, expected \"key\" = \"value\";\n");
    iuSetUserTableFolder(nullptr);
}

TEST(iuSetUserTableFolder, aFolderThatDoesNotExistHasNoTables)
{
    iuSetUserTableFolder("/nowhere/at/all");
    testing::internal::CaptureStderr();
    EXPECT_EQ(localized("a77", "GPS"), "a77");
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
    iuSetUserTableFolder(nullptr);
}
