#include "lib/strings/tov_xml.h"

#include "base/alloc.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using namespace pinorama;

using test::mutableText;
using test::takeUTF8;
using test::text;
using test::utf8;

namespace {
void collect(TovStringRef item, void* context)
{
    static_cast<std::vector<std::string>*>(context)->push_back(*utf8(item));
}

std::vector<std::string> itemsOf(std::string_view document, const char* tag)
{
    std::vector<std::string> items;
    TovStringSimpleXMLParserForEachItem(text(document).get(), text(tag).get(), collect, &items);
    return items;
}
}  // namespace

TEST(TovStringAppendStringAsXMLTag, appendsOneLine)
{
    const auto tag = text("name");
    const struct {
        const char *name, *value, *expected;
    } rows[] = {
        {"value", "photo.jpg", "x<name>photo.jpg</name>\n"},
        {"raw value", "a & <b>", "x<name>a & <b></name>\n"},
        {"empty value", "", "x<name></name>\n"},
        {"null value", nullptr, "x<name></name>\n"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        auto target = mutableText("x");
        const auto value = row.value ? text(row.value) : test::Text();
        TovStringAppendStringAsXMLTag(target.slot(), value.get(), tag.get());
        EXPECT_EQ(utf8(target.get()), row.expected);
    }
}

TEST(TovStringAppendStringAsXMLTag, takesTheTargetAsItsValue)
{
    auto target = mutableText("x");
    TovStringAppendStringAsXMLTag(target.slot(), target.get(), text("t").get());
    EXPECT_EQ(utf8(target.get()), "x<t>x</t>\n");
}

TEST(TovStringAppendNumberAsXMLTag, appendsOneLine)
{
    auto target = mutableText("");
    const auto tag = text("size");
    TovStringAppendNumberAsXMLTag(target.slot(), 42, tag.get());
    TovStringAppendNumberAsXMLTag(target.slot(), std::numeric_limits<std::uint64_t>::max(),
                                  tag.get());
    EXPECT_EQ(utf8(target.get()), "<size>42</size>\n<size>18446744073709551615</size>\n");
}

TEST(TovStringAppendStringAsXMLTag, leavesTheTargetAloneForNull)
{
    const auto tag = text("t");
    TovStringRef null = nullptr;
    TovStringAppendStringAsXMLTag(nullptr, tag.get(), tag.get());
    TovStringAppendStringAsXMLTag(&null, tag.get(), tag.get());
    TovStringAppendNumberAsXMLTag(nullptr, 1, tag.get());
    TovStringAppendNumberAsXMLTag(&null, 1, tag.get());
    EXPECT_EQ(null, nullptr);

    auto target = mutableText("x");
    TovStringAppendStringAsXMLTag(target.slot(), tag.get(), nullptr);
    TovStringAppendNumberAsXMLTag(target.slot(), 1, nullptr);
    auto fixed = text("x");
    TovStringAppendStringAsXMLTag(fixed.slot(), tag.get(), tag.get());
    EXPECT_EQ(utf8(target.get()), "x");
    EXPECT_EQ(utf8(fixed.get()), "x");
}

TEST(TovStringAppendStringAsXMLTag, leavesTheTargetAloneWhenMemoryRunsOut)
{
    const auto tag = text("tag"), value = text(std::string(100, 'v'));
    auto target = mutableText("x");
    baseFailAllocation(1);
    TovStringAppendStringAsXMLTag(target.slot(), value.get(), tag.get());
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(1);
    TovStringAppendNumberAsXMLTag(target.slot(), 12345678901234, tag.get());
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
    EXPECT_EQ(utf8(target.get()), "x");
}

TEST(TovStringSimpleXMLParserFindData, findsTheFirstElement)
{
    const struct {
        const char *name, *document;
        std::optional<std::string> expected;
    } rows[] = {
        {"content", "<a>x</a>", "x"},
        {"first of two", "..<a>x</a><a>y</a>", "x"},
        {"empty content", "<a></a>", ""},
        {"other tags within", "<a><b>x</b></a>", "<b>x</b>"},
        {"same tag within", "<a>1<a>2</a>3</a>", "1<a>2"},
        {"entities stay", "<a>&lt;</a>", "&lt;"},
        {"not there", "<b>x</b>", std::nullopt},
        {"attribute", "<a x='1'>x</a>", std::nullopt},
        {"attribute first, then without", "<a x='1'>x</a><a>y</a>", "y"},
        {"other case", "<A>x</A>", std::nullopt},
        {"not closed", "<a>x", std::nullopt},
        {"closed before", "</a><a>x", std::nullopt},
        {"closed before and after", "</a><a>x</a>", "x"},
        {"empty text", "", std::nullopt},
    };
    const auto tag = text("a");
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(takeUTF8(TovStringSimpleXMLParserFindData(text(row.document).get(), tag.get())),
                  row.expected);
    }
}

TEST(TovStringSimpleXMLParserFindData, searchesByCanonicalEquivalence)
{
    EXPECT_EQ(takeUTF8(TovStringSimpleXMLParserFindData(text("<\u00e9>x</e\u0301>").get(),
                                                        text("\u00e9").get())),
              "x");
}

TEST(TovStringSimpleXMLParserFindNthData, countsFromOne)
{
    const auto document = text("<a>1</a><a>2</a> <b/> <a>3</a>"), tag = text("a");
    const struct {
        std::uint32_t n;
        std::optional<std::string> expected;
    } rows[] = {
        {0, std::nullopt}, {1, "1"},          {2, "2"},
        {3, "3"},          {4, std::nullopt}, {0xffffffffu, std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.n);
        EXPECT_EQ(takeUTF8(TovStringSimpleXMLParserFindNthData(document.get(), tag.get(), row.n)),
                  row.expected);
    }
}

TEST(TovStringSimpleXMLParserFindNthData, needsOnlyTheNthElementToBeClosed)
{
    const auto tag = text("a");
    const auto document = text("<a>1<a>2</a>");
    EXPECT_EQ(takeUTF8(TovStringSimpleXMLParserFindNthData(document.get(), tag.get(), 2)), "2");
    const auto open = text("<a>1</a><a>2");
    EXPECT_EQ(TovStringSimpleXMLParserFindNthData(open.get(), tag.get(), 2), nullptr);
}

TEST(TovStringSimpleXMLParserForEachItem, visitsElementsInOrder)
{
    using Items = std::vector<std::string>;
    EXPECT_EQ(itemsOf("<a>1</a>x<a></a><b>2</b><a>3</a>", "a"), (Items{"1", "", "3"}));
    EXPECT_EQ(itemsOf("<b>2</b>", "a"), Items{});
    EXPECT_EQ(itemsOf("", "a"), Items{});
}

TEST(TovStringSimpleXMLParserForEachItem, seesNestedElementsTwice)
{
    EXPECT_EQ(itemsOf("<a>1<a>2</a>3</a>", "a"), (std::vector<std::string>{"1<a>2", "2"}));
}

TEST(TovStringSimpleXMLParserForEachItem, stopsAtAnElementThatIsNotClosed)
{
    EXPECT_EQ(itemsOf("<a>1</a><a>2", "a"), (std::vector<std::string>{"1"}));
}

TEST(TovStringSimpleXMLParserForEachItem, releasesEachItem)
{
    StringHolder kept;
    TovStringSimpleXMLParserForEachItem(
        text("<a>1</a>").get(), text("a").get(),
        [](TovStringRef item, void* context) {
            EXPECT_EQ(uCFGetRetainCount(item), 1);
            uCFRetain(item);
            *static_cast<TovStringRef*>(context) = item;
        },
        kept.slot());
    EXPECT_EQ(uCFGetRetainCount(kept.get()), 1);
    EXPECT_EQ(utf8(kept.get()), "1");
}

TEST(TovStringSimpleXMLParserFindData, takesNull)
{
    const auto document = text("<(null)>x</(null)><>y</>"), tag = text("a"), noTag = text("");
    EXPECT_EQ(TovStringSimpleXMLParserFindData(nullptr, tag.get()), nullptr);
    EXPECT_EQ(TovStringSimpleXMLParserFindData(document.get(), nullptr), nullptr);
    EXPECT_EQ(TovStringSimpleXMLParserFindNthData(nullptr, nullptr, 1), nullptr);
    EXPECT_EQ(takeUTF8(TovStringSimpleXMLParserFindData(document.get(), noTag.get())), "y");
    std::vector<std::string> items;
    TovStringSimpleXMLParserForEachItem(nullptr, tag.get(), collect, &items);
    TovStringSimpleXMLParserForEachItem(document.get(), nullptr, collect, &items);
    TovStringSimpleXMLParserForEachItem(document.get(), tag.get(), nullptr, nullptr);
    EXPECT_TRUE(items.empty());
}

TEST(TovStringSimpleXMLParserFindData, findsNothingWhenMemoryRunsOut)
{
    const auto document = text("<a>1</a><a>2</a>"), tag = text("a");
    std::uint64_t nth = 1;
    for (;; nth++) {
        baseFailAllocation(nth);
        const StringHolder found(TovStringSimpleXMLParserFindData(document.get(), tag.get()));
        if (!baseAllocationHasFailed()) break;
        EXPECT_FALSE(found);
    }
    EXPECT_GE(nth, 4u);
    for (std::uint64_t failing = 1; failing <= nth; failing++) {
        baseFailAllocation(failing);
        int items = 0;
        const auto count = [](TovStringRef, void* context) { ++*static_cast<int*>(context); };
        TovStringSimpleXMLParserForEachItem(document.get(), tag.get(), count, &items);
        EXPECT_LT(items, 2);
        EXPECT_TRUE(baseAllocationHasFailed());
    }
    baseFailAllocation(0);
}
