// The texts that ship with the program, in every language, as the program reads them.

#include "lib/ui/application_bundle.h"
#include "lib/ui/string_tables.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>

using namespace pinorama;

namespace {
class application_texts : public testing::TestWithParam<const char*> {
protected:
    void SetUp() override { ASSERT_NE(iuRegisterApplicationBundle(), nullptr); }

    static std::optional<std::string> service(char kind, int number)
    {
        const test::Text key = test::text(kind + std::to_string(number));
        return test::takeUTF8(iuCopyLocalizedString(key.get(), key.get(), "GPS"));
    }

    // The number of services before the first missing title.
    static int serviceCount()
    {
        int count = 0;
        while (service('a', count + 1) != "a" + std::to_string(count + 1)) count++;
        return count;
    }

private:
    test::ScopedVariable language_{"LC_ALL", GetParam()};
};

// The conversions of a format in order: "%c %.1f" gives "c.1f".
std::string conversionsOf(const std::string& format)
{
    std::string conversions;
    for (std::size_t at = format.find('%'); at != format.npos; at = format.find('%', at + 1)) {
        const std::size_t end = format.find_first_of("cf@", at);
        if (end == format.npos) return conversions + "?";
        conversions += format.substr(at + 1, end - at) + " ";
    }
    return conversions;
}
}  // namespace

TEST_P(application_texts, haveTheUnitWords)
{
    for (const std::int16_t index : {46, 3, 31, 123, 93}) {
        SCOPED_TRACE(index);
        const auto word = test::takeUTF8(iuGetIndCFString(1001, index));
        EXPECT_NE(word, "STR#1001:" + std::to_string(index));
        EXPECT_NE(word, "");
        // The four unit words stand right after a number; the word for bytes gets its blank there.
        const bool hasBlank = word->starts_with(' ') || word->starts_with("\u00a0");
        EXPECT_EQ(hasBlank, index != 93);
    }
}

TEST_P(application_texts, coordinateFormatTakesALetterAndThreeNumbers)
{
    const auto format = test::takeUTF8(iuGetIndKVLCFString(11));
    EXPECT_EQ(conversionsOf(*format), "c .0f .0f .1f ");
}

TEST_P(application_texts, webServicesAreWellFormed)
{
    const int count = serviceCount();
    ASSERT_GE(count, 6);
    int withLabel = 0;
    std::vector<std::optional<std::string>> titles;
    for (int n = 1; n <= count; n++) {
        SCOPED_TRACE(n);
        const auto title = service('a', n);
        EXPECT_EQ(std::count(titles.begin(), titles.end(), title), 0) << "two of one title";
        titles.push_back(title);

        const std::string address = *service('b', n);
        const std::string conversions = conversionsOf(address);
        EXPECT_TRUE(conversions == "f f " || conversions == "f f @ ") << address;
        withLabel += conversions == "f f @ ";
        EXPECT_TRUE(address.starts_with("https://") || address == "geo:%f,%f") << address;
        EXPECT_TRUE(std::all_of(address.begin(), address.end(), [](char c) {
            return c > ' ' && c < 0x7f && c != '"';
        })) << address;
    }
    EXPECT_GE(withLabel, 1);
    EXPECT_EQ(service('b', count + 1), "b" + std::to_string(count + 1)) << "an address too many";
}

INSTANTIATE_TEST_SUITE_P(languages, application_texts,
                         testing::Values("en_US.UTF-8", "de_DE.UTF-8", "fr_FR.UTF-8", "es_ES.UTF-8",
                                         "it_IT.UTF-8", "nl_NL.UTF-8", "pl_PL.UTF-8", "pt_BR.UTF-8",
                                         "ja_JP.UTF-8", "zh_CN.UTF-8"),
                         [](const auto& language) { return std::string(language.param, 2); });

TEST(web_services, areTheSameInEveryLanguage)
{
    ASSERT_NE(iuRegisterApplicationBundle(), nullptr);
    for (int n = 1; n <= 20; n++) {
        SCOPED_TRACE(n);
        const test::Text key = test::text("b" + std::to_string(n));
        std::optional<std::string> address[2];
        for (int i = 0; i < 2; i++) {
            const test::ScopedVariable language("LC_ALL", i == 0 ? "en_US.UTF-8" : "de_DE.UTF-8");
            address[i] = test::takeUTF8(iuCopyLocalizedString(key.get(), key.get(), "GPS"));
        }
        // One service may speak two languages, but it stands in one place.
        const std::size_t host = address[0]->find('.') + 1;
        EXPECT_EQ(address[0]->substr(host, 8), address[1]->substr(host, 8));
    }
}

TEST(iuRegisterApplicationBundle, selectsTheApplicationsTexts)
{
    void* bundle = iuRegisterApplicationBundle();
    EXPECT_EQ(gCFBundleRef, bundle);
    EXPECT_EQ(test::takeUTF8(iuCopyMainBundleIdentifier()), "org.pinorama.Pinorama");
    const test::ScopedVariable language("LC_ALL", "de_AT.UTF-8");
    EXPECT_EQ(test::takeUTF8(iuGetIndCFString(1001, 93)), "Bytes");
}
