#include "globe/xml_escape.h"

#include "tests/support/failing_memory.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
std::string escaped(std::u16string_view name)
{
    return test::takeUTF8(gpsEscapeForXML(name)).value_or("null");
}
}  // namespace

TEST(gpsEscapeForXML, keepsMarkupOutOfTheDocument)
{
    const struct {
        const char* name;
        std::u16string_view text;
        const char* expected;
    } rows[] = {
        {"nothing", u"", ""},
        {"a plain name", u"IMG_0001.JPG", "IMG_0001.JPG"},
        {"markup", u"<a & b> \"c\" 'd'", "&lt;a &amp; b&gt; &quot;c&quot; 'd'"},
        {"an entity", u"&amp;", "&amp;amp;"},
        {"the end of a section", u"]]>", "]]&gt;"},
        {"blanks that readers change", u"a\tb\nc\rd", "a&#9;b&#10;c&#13;d"},
        {"umlauts and a globe", u"\u00e4\U0001F30D", "\xC3\xA4\xF0\x9F\x8C\x8D"},
        {"control characters", u"a\x1b[1mb\x7f", "a\xEF\xBF\xBD[1mb\x7f"},
        {"a zero unit", std::u16string_view(u"a\0b", 3),
         "a\xEF\xBF\xBD"
         "b"},
        {"not characters", u"\ufffe\uffff\ufffd", "\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(escaped(row.text), row.expected);
    }
}

TEST(gpsEscapeForXML, aLoneSurrogateIsNoCharacter)
{
    const char16_t high[] = {0xd83c, u'a'};
    const char16_t low[] = {u'a', 0xdf0d};
    const char16_t last[] = {0xd83c};
    EXPECT_EQ(escaped({high, 2}),
              "\xEF\xBF\xBD"
              "a");
    EXPECT_EQ(escaped({low, 2}), "a\xEF\xBF\xBD");
    EXPECT_EQ(escaped({last, 1}), "\xEF\xBF\xBD");
}

TEST(gpsEscapeForXML, isNullWhenMemoryRunsOut)
{
    const std::u16string text(40, u'&');
    EXPECT_GT(test::failEachRequest([&] { return gpsEscapeForXML(text); }), 1u);
    const test::Text escaped(gpsEscapeForXML(text));
    EXPECT_EQ(unitsOf(escaped.get()).size(), 200u);
}

TEST(appendXmlText, writesMarkupAndControlsAsEntities)
{
    const struct {
        const char* name;
        std::string text;
        const char* expected;
    } rows[] = {
        {"nothing", "", ""},
        {"plain", "caf\u00e9 \U0001f4f7", "caf\u00e9 \U0001f4f7"},
        {"markup", "<a b=\"c\"> & d", "&lt;a b=&quot;c&quot;&gt; &amp; d"},
        {"line breaks", "a\tb\nc\rd", "a&#9;b&#10;c&#13;d"},
        {"what XML cannot hold", std::string("a\0b\x1b[2J\uffff", 10), "a\ufffdb\ufffd[2J\ufffd"},
        {"what a terminal would obey", "\u009b2J\u202e\x7f", "&#155;2J&#8238;&#127;"},
    };
    for (const auto& row : rows) {
        std::string out = "x";
        pinorama::appendXmlText(row.text, &out);
        EXPECT_EQ(out, std::string("x") + row.expected) << row.name;
    }
}
