#include "lib/files/file_names.h"

#include "base/alloc.h"
#include "lib/ui/small_utilities.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>

using namespace pinorama;

TEST(feCheckFileNameRef, makesANameSafe)
{
    const struct {
        const char* name;
        std::u16string text;
        std::int32_t status;
        std::u16string expected;
    } rows[] = {
        {"the usual one", u".a:b ", 0, u",a;b-"},
        {"nothing to do", u"photo 1.jpg", 0, u"photo 1.jpg"},
        {"every bad unit", u"/*?<>|\"x:", 0, u"-------x;"},
        {"backslash stays", u"a\\b", 0, u"a\\b"},
        {"one full stop", u".", 0, u","},
        {"one blank", u" ", 0, u"-"},
        {"one colon", u":", 0, u";"},
        {"two full stops", u"..", 0, u",-"},
        {"full stop at the end", u"a.", 0, u"a-"},
        {"blank at the start stays", u" a", 0, u" a"},
        {"within", u"a. b", 0, u"a. b"},
        {"beyond ASCII", u"\u00e4\uff0f\u2215", 0, u"\u00e4\uff0f\u2215"},
        {"empty", u"", -1, u""},
        {"zero unit cuts and ends the work", std::u16string(u".a:b \0c", 7), 0, u".a;b "},
        {"zero unit at the start", std::u16string(u"\0.", 2), 0, u""},
        {"control units stay", u"a\tb\n", 0, u"a\tb\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        HFSUniStr255 name = {};
        utMakeHFSStringFromCFString(test::Text(createString(row.text)).get(), &name);
        EXPECT_EQ(feCheckFileNameRef(&name), row.status);
        EXPECT_EQ(std::u16string(name.unicode, name.length), row.expected);
    }
}

TEST(feCheckFileNameRef, reachesTheLastUnitOfALongName)
{
    HFSUniStr255 name = {};
    std::fill(std::begin(name.unicode), std::end(name.unicode), u':');
    name.unicode[254] = u' ';
    name.length = 255;
    EXPECT_EQ(feCheckFileNameRef(&name), 0);
    EXPECT_EQ(std::u16string(name.unicode, name.length), std::u16string(254, u';') + u'-');
}

TEST(feGetUniqueFileName, numbersFromOne)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    const test::Text base = test::text("photo \u00e4");
    const test::Text suffix = test::text(".kml");
    const auto next = [&] {
        return test::takeUTF8(feGetUniqueFileName(&parent, base.get(), suffix.get()));
    };
    EXPECT_EQ(next(), "photo \u00e4 1.kml") << "even when the base alone is free";
    folder.write("photo \u00e4 1.kml", "");
    EXPECT_EQ(next(), "photo \u00e4 2.kml");
    std::filesystem::create_symlink("nowhere", folder.file("photo \u00e4 2.kml"));
    EXPECT_EQ(next(), "photo \u00e4 3.kml");
    std::filesystem::remove(folder.file("photo \u00e4 1.kml"));
    EXPECT_EQ(next(), "photo \u00e4 1.kml") << "the first gap";
}

TEST(feGetUniqueFileName, givesUpAfterTheHundredth)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    const test::Text base = test::text("a");
    const test::Text suffix = test::text("");
    for (int number = 1; number <= 99; number++) folder.write("a " + std::to_string(number), "");
    EXPECT_EQ(test::takeUTF8(feGetUniqueFileName(&parent, base.get(), suffix.get())), "a 100");
    folder.write("a 100", "");
    EXPECT_EQ(test::takeUTF8(feGetUniqueFileName(&parent, base.get(), suffix.get())), "a 100")
        << "though it exists";
}

TEST(feGetUniqueFileName, showsANullText)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    EXPECT_EQ(test::takeUTF8(feGetUniqueFileName(&parent, nullptr, nullptr)), "(null) 1(null)");
}

TEST(feGetUniqueFileName, givesNullWhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const FSRef parent = {folder.path()};
    const test::Text base = test::text("a");
    baseFailAllocation(1);
    EXPECT_EQ(feGetUniqueFileName(&parent, base.get(), base.get()), nullptr);
    baseFailAllocation(0);
}
