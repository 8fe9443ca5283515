// One text of a dialog: whether it is a placeholder, and what it stands for.

#include "lib/strings/tov_string.h"
#include "lib/ui/cocoa_utils.h"
#include "tests/lib/ui/translated_window.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

using namespace pinorama;

namespace {
using translateADialogString = test::TranslatedWindow;

std::string translatedText(std::string_view text)
{
    const test::Text original = test::text(text);
    const test::Text result(cocoaUtils::translateADialogString(original.get()));
    if (result.get() == original.get()) uCFRetain(original.get());
    return test::utf8(result.get()).value_or("null");
}
}  // namespace

TEST_F(translateADialogString, readsMarkerAndNumber)
{
    const struct {
        const char *text, *expected;
    } rows[] = {
        {"##5", "five"},
        {"+#12", "twelve"},
        {"##17", "STR#1100:17"},
        {"+#93", "STR#1001:93"},
        {"## 7", "STR#1100:7"},
        {"##\t7", "STR#1100:7"},
        {"##+7", "STR#1100:7"},
        {"##7x", "STR#1100:7"},
        {"##-3", "STR#1100:-3"},
        {"##005", "five"},
        {"###5", "###5"},
        {"#+5", "#+5"},
        {"+ #5", "+ #5"},
        {"++5", "++5"},
        {" ##5", " ##5"},
        {"##", "##"},
        {"##abc", "##abc"},
        {"##0", "##0"},
        {"##-0", "##-0"},
        {"## ", "## "},
        {"OK", "OK"},
        {"", ""},
        {"\xC3\xA4#5", "\xC3\xA4#5"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(translatedText(row.text), row.expected);
    }
}

TEST_F(translateADialogString, testsTheNumberForZeroBeforeNarrowingIt)
{
    EXPECT_EQ(translatedText("##65536"), "STR#1100:0");
    EXPECT_EQ(translatedText("##70000"), "STR#1100:4464");
    EXPECT_EQ(translatedText("##40000"), "STR#1100:-25536");
    EXPECT_EQ(translatedText("##99999999999"), "STR#1100:-1");  // held at 2^31 - 1
}

TEST_F(translateADialogString, ordinaryTextIsTheSameObject)
{
    const test::Text ordinary = test::text("Fixed");
    EXPECT_EQ(cocoaUtils::translateADialogString(ordinary.get()), ordinary.get());
    EXPECT_EQ(uCFGetRetainCount(ordinary.get()), 1);
    EXPECT_EQ(cocoaUtils::translateADialogString(nullptr), nullptr);
}

TEST_F(translateADialogString, aTextWithoutAUTF8FormIsNotAPlaceholder)
{
    const test::Text broken(createString(u"##5\xD800"));
    EXPECT_EQ(cocoaUtils::translateADialogString(broken.get()), broken.get());
}
