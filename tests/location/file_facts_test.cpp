#include "location/file_facts.h"

#include "lib/ui/string_tables.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <ctime>
#include <filesystem>
#include <fstream>
#include <string>

using namespace pinorama;

namespace {
using test::ScopedVariable;
using test::takeUTF8;
using test::text;

// A folder with a small file in it, and unit words to show sizes with.
class FileFacts : public testing::Test {
protected:
    FileFacts()
    {
        std::filesystem::create_directory(tables_.file("en"));
        std::ofstream(tables_.file("en/Localizable.strings"))
            << "\"STR#1001:46\" = \" K\";\n\"STR#1001:3\" = \" M\";\n";
        const test::Text identifier = text("test.facts");
        (void)iuRegisterBundle(identifier.get(), tables_.path().c_str(), true);
        (void)initStringBundle(identifier.get());
    }

    fileFacts factsOf(const std::string& path) { return gpsReadFileFacts(text(path).get()); }

    // A file that was last changed at a moment: whole seconds since 1970 and a fraction.
    std::string fileChangedAt(std::time_t seconds, long nanoseconds)
    {
        const std::string path = folder_.write("changed", "");
        const timespec times[2] = {{seconds, nanoseconds}, {seconds, nanoseconds}};
        EXPECT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
        return path;
    }

    test::TemporaryFolder tables_;
    test::TemporaryFolder folder_;
};
using gpsReadFileFactsTest = FileFacts;
using gpsMakeFileSizeTextTest = FileFacts;
using gpsMakeModifiedTextTest = FileFacts;

constexpr std::time_t kNoonInWinter = 1229428800;  // 2008-12-16 12:00 UTC
constexpr std::time_t kNoonInSummer = 1213617600;  // 2008-06-16 12:00 UTC
constexpr std::uint32_t kMacTimeOf1970 = 2082844800;

// The text without the narrow blank that some editions of ICU put in front of AM and PM.
std::string plain(TovStringRef owned)
{
    std::string shown = takeUTF8(owned).value_or("null");
    const std::string narrowBlank = "\u202f";
    for (std::size_t at = 0; (at = shown.find(narrowBlank)) != std::string::npos;) {
        shown.replace(at, narrowBlank.size(), " ");
    }
    return shown;
}
}  // namespace

TEST_F(gpsReadFileFactsTest, tellsTheSizeOfRegularFilesOnly)
{
    const std::string file = folder_.write("a.jpg", "12345");
    const std::string pipe = folder_.file("pipe.jpg");
    ASSERT_EQ(symlink("a.jpg", folder_.file("link").c_str()), 0);
    ASSERT_EQ(symlink("nowhere", folder_.file("dangling").c_str()), 0);
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(factsOf(file).size, 5u);
    EXPECT_EQ(factsOf(folder_.write("empty", "")).size, 0u);
    EXPECT_EQ(factsOf(folder_.file("link")).size, 5u);
    EXPECT_EQ(factsOf(folder_.path()).size, std::nullopt);
    EXPECT_EQ(factsOf(folder_.path() + "/").size, std::nullopt);
    EXPECT_EQ(factsOf(pipe).size, std::nullopt);
    EXPECT_EQ(factsOf("/dev/null").size, std::nullopt);
    EXPECT_EQ(factsOf(folder_.file("dangling")).size, std::nullopt);
    EXPECT_EQ(factsOf(folder_.file("none")).size, std::nullopt);
}

TEST_F(gpsReadFileFactsTest, missesEverythingOfWhatIsNotThere)
{
    for (const fileFacts& facts : {factsOf(folder_.file("none")), gpsReadFileFacts(nullptr)}) {
        EXPECT_EQ(facts.size, std::nullopt);
        EXPECT_EQ(facts.modified, 0u);
        EXPECT_EQ(facts.created, 0u);
    }
}

TEST_F(gpsReadFileFactsTest, readsPathsThatAreNoUTF8)
{
    const std::string path = folder_.write("f\xfcr.jpg", "123");
    const test::Text asText(createString(u"f\xdcfcr.jpg"));
    std::u16string whole(unitsOf(text(folder_.path() + "/").get()));
    whole += unitsOf(asText.get());
    const test::Text wholeText(createString(whole));
    EXPECT_EQ(gpsReadFileFacts(wholeText.get()).size, 3u);
}

TEST_F(gpsReadFileFactsTest, countsDatesOnTheLocalClockOfThatDate)
{
    const struct {
        const char* zone;
        std::time_t instant;
        std::int32_t hours;
    } rows[] = {
        {"UTC", kNoonInWinter, 0},
        {"Europe/Berlin", kNoonInWinter, 1},
        {"Europe/Berlin", kNoonInSummer, 2},
        {"America/New_York", kNoonInSummer, -4},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.zone);
        const ScopedVariable zone("TZ", row.zone);
        EXPECT_EQ(factsOf(fileChangedAt(row.instant, 999999999)).modified,
                  static_cast<std::uint32_t>(row.instant + row.hours * 3600) + kMacTimeOf1970);
    }
}

TEST_F(gpsReadFileFactsTest, theCreationIsNotTheChange)
{
    const ScopedVariable zone("TZ", "UTC");
    const std::int64_t before = std::time(nullptr);
    const fileFacts facts = factsOf(fileChangedAt(kNoonInWinter, 0));
    if (facts.created == 0) GTEST_SKIP() << "this file system keeps no creation dates";
    const std::int64_t created = std::int64_t{facts.created} - kMacTimeOf1970;
    // The clocks of files and of std::time differ by up to a tick, in either direction.
    EXPECT_GE(created, before - 1);
    EXPECT_LE(created, std::time(nullptr) + 1);
}

TEST(gpsMakeFileFacts, takesTheSizeOfRegularFilesAndBothDates)
{
    const ScopedVariable zone("TZ", "Europe/Berlin");
    const fileFacts picture = gpsMakeFileFacts(
        {.isRegular = true, .size = 7, .modified = kNoonInWinter, .created = kNoonInSummer});
    EXPECT_EQ(picture.size, 7u);
    EXPECT_EQ(picture.modified, kNoonInWinter + 3600 + kMacTimeOf1970);
    EXPECT_EQ(picture.created, kNoonInSummer + 7200 + kMacTimeOf1970);

    const fileFacts other = gpsMakeFileFacts(
        {.isRegular = false, .size = 7, .modified = kNoonInWinter, .created = std::nullopt});
    EXPECT_EQ(other.size, std::nullopt);
    EXPECT_EQ(other.created, 0u) << "a missing date, not the start of 1970";
}

TEST_F(gpsMakeFileSizeTextTest, hasOneDecimalAndAUnit)
{
    EXPECT_EQ(takeUTF8(gpsMakeFileSizeText({.size = 0})), "0.0 K");
    EXPECT_EQ(takeUTF8(gpsMakeFileSizeText({.size = 1536})), "1.5 K");
    EXPECT_EQ(takeUTF8(gpsMakeFileSizeText({.size = 1572864})), "1.5 M");
}

TEST_F(gpsMakeFileSizeTextTest, saysSoWhenThereIsNone)
{
    EXPECT_EQ(takeUTF8(gpsMakeFileSizeText({})), "n.a.");
}

TEST_F(gpsMakeModifiedTextTest, showsTheLocalClock)
{
    const std::string file = fileChangedAt(kNoonInWinter, 0);
    const struct {
        const char *zone, *expected;
    } rows[] = {
        {"UTC", "Dec 16, 2008, 12:00 PM"},
        {"Europe/Berlin", "Dec 16, 2008, 1:00 PM"},
        {"America/New_York", "Dec 16, 2008, 7:00 AM"},
        {"Asia/Kolkata", "Dec 16, 2008, 5:30 PM"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.zone);
        const ScopedVariable zone("TZ", row.zone);
        EXPECT_EQ(plain(gpsMakeModifiedText(factsOf(file))), row.expected);
    }
}

TEST_F(gpsMakeModifiedTextTest, showsAMissingDateAsTheStartOf1904InEveryZone)
{
    for (const char* name : {"UTC", "Europe/Berlin", "America/New_York"}) {
        const ScopedVariable zone("TZ", name);
        EXPECT_EQ(plain(gpsMakeModifiedText({})), "Jan 1, 1904, 12:00 AM");
        EXPECT_EQ(plain(gpsMakeCreatedText({})), "Jan 1, 1904, 12:00 AM");
    }
}

TEST_F(gpsMakeModifiedTextTest, keepsTheDatesApart)
{
    const fileFacts facts{.size = {}, .modified = 3029529600, .created = 3029616000};
    EXPECT_EQ(plain(gpsMakeModifiedText(facts)), "Jan 1, 2000, 12:00 AM");
    EXPECT_EQ(plain(gpsMakeCreatedText(facts)), "Jan 2, 2000, 12:00 AM");
}

TEST_F(gpsMakeModifiedTextTest, followsTheLanguage)
{
    const ScopedVariable language("LC_ALL", "de_DE.UTF-8");
    const fileFacts facts{.size = {}, .modified = 3029529600, .created = 0};
    EXPECT_EQ(plain(gpsMakeModifiedText(facts)), "01.01.2000, 00:00");
}
