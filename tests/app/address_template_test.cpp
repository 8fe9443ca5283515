#include "app/address_template.h"
#include "platform/text/utf8.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace {
// The filled template as UTF-8; "-" for nothing.
std::string filled(std::u16string_view addressTemplate, std::vector<app::TemplateValue> values)
{
    const auto text = app::fillTemplate(addressTemplate, values);
    return text ? platform::displayUTF8(*text) : "-";
}

std::string filled(std::u16string_view addressTemplate)
{
    return filled(addressTemplate, {-45.5, 3.25, std::u16string(u"name")});
}
}  // namespace

TEST(fillTemplate, takesValuesInTurnOrByPosition)
{
    const struct {
        const char16_t* text;
        const char* expected;
    } rows[] = {
        {u"q=%f,%f", "q=-45.500000,3.250000"},
        {u"%f/%f/%@", "-45.500000/3.250000/name"},
        {u"%2$f %1$f", "3.250000 -45.500000"},
        {u"%3$@:%1$.2f", "name:-45.50"},
        {u"%.0f %.10f", "-46 3.2500000000"},  // halves go to the even neighbour
        {u"%lf %F", "-45.500000 3.250000"},
        {u"%+f %+f", "-45.500000 +3.250000"},
        {u"% .1f|% .1f", "-45.5| 3.2"},
        {u"%8.1f|%-8.1f|", "   -45.5|3.2     |"},
        {u"%08.1f|%08.2f", "-00045.5|00003.25"},
        {u"%f %f %6@|", "-45.500000 3.250000   name|"},
        {u"no conversion", "no conversion"},
        {u"", ""},
        {u"\u00e4%.1f\U0001F30D", "\xC3\xA4-45.5\xF0\x9F\x8C\x8D"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.expected);
        EXPECT_EQ(filled(row.text), row.expected);
    }
}

TEST(fillTemplate, aTemplateIsDataAndNeverReadsWhatIsNotThere)
{
    for (const char16_t* text : {u"%s",
                                 u"%n",
                                 u"%d",
                                 u"%x",
                                 u"%%",
                                 u"%",
                                 u"%f%",
                                 u"%*f",
                                 u"%hf",
                                 u"%4$f",
                                 u"%0$f",
                                 u"%$f",
                                 u"%f%f%f%f",
                                 u"%@%f",
                                 u"%f%@",
                                 u"%1$@",
                                 u"%3$f",
                                 u"%99999999999f",
                                 u"%.99999999999f",
                                 u"%65f",
                                 u"%.65f",
                                 u"%1$",
                                 u"%.",
                                 u"%-"}) {
        SCOPED_TRACE(platform::displayUTF8(text));
        EXPECT_EQ(filled(text), "-");
    }
}

TEST(fillTemplate, numbersOfAnySizeHaveTheirDigits)
{
    const double largest = std::numeric_limits<double>::max();
    EXPECT_EQ(filled(u"%.64f", {largest}).size(), 309u + 1 + 64);
    EXPECT_EQ(filled(u"%f", {-0.0}), "-0.000000");
    EXPECT_EQ(filled(u"%f", {std::nan("")}), "nan");
    EXPECT_EQ(filled(u"%f", {1e-9}), "0.000000");
}

TEST(escapeForAddress, keepsWhatMayStandInAnAddress)
{
    const std::u16string legal = u"ABCXYZabcxyz0189-_.!~*'();/?:@&=+$,";
    EXPECT_EQ(app::escapeForAddress(legal), legal);
}

TEST(escapeForAddress, escapesEverythingElseInUpperCase)
{
    EXPECT_EQ(app::escapeForAddress(u"My Photo.jpg"), u"My%20Photo.jpg");
    EXPECT_EQ(app::escapeForAddress(u"100%#[1]\"<>\\^`{|}"),
              u"100%25%23%5B1%5D%22%3C%3E%5C%5E%60%7B%7C%7D");
    EXPECT_EQ(app::escapeForAddress(u"\u00e4\u20ac\U0001F30D\n\x7f"),
              u"%C3%A4%E2%82%AC%F0%9F%8C%8D%0A%7F");
    EXPECT_EQ(app::escapeForAddress(u""), u"");
}
