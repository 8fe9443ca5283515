#include "lib/strings/tov_item_text.h"

#include "base/alloc.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <string_view>

using namespace pinorama;

using test::takeUTF8;

namespace {
constexpr std::uint32_t kID = 5;
constexpr std::uint32_t kType = 7;

// An array with one item, and another after it so that the first may be empty.
class OneItem {
public:
    explicit OneItem(std::string_view bytes)
    {
        memSetFlexInvalid(&array_);
        add(kID, bytes);
        add(kID + 1, "last");
    }
    OneItem(const OneItem&) = delete;
    OneItem& operator=(const OneItem&) = delete;
    ~OneItem() { memFreeFlexDynArray(&array_); }

    const FlexDynArray* array() const { return &array_; }

private:
    void add(std::uint32_t id, std::string_view bytes)
    {
        EXPECT_EQ(memAddFlexDataAtEnd(&array_, id, kType, static_cast<std::uint32_t>(bytes.size()),
                                      bytes.data()),
                  0);
    }

    FlexDynArray array_;
};
}  // namespace

TEST(TovStringFromFlexDynArray, decodesTheItem)
{
    const struct {
        const char* name;
        std::string_view bytes;
        const char *macRoman, *utf8;
    } rows[] = {
        {"ASCII", "photo", "photo", "photo"},
        {"UTF-8", "\xc3\xa9", "√©", "é"},
        {"no UTF-8", "caf\x8e", "café", "café"},
        {"byte-order mark stays", "\xef\xbb\xbfx", "Ôªøx", "\ufeffx"},
        {"empty", "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const OneItem item(row.bytes);
        EXPECT_EQ(takeUTF8(TovStringFromFlexDynArray(item.array(), kID, kType, 0)), row.macRoman);
        EXPECT_EQ(takeUTF8(TovStringFromFlexDynArray(item.array(), kID, kType, 1)), row.utf8);
        EXPECT_EQ(takeUTF8(TovStringFromFlexDynArray(item.array(), kID, kType, 255)), row.utf8);
    }
}

TEST(TovStringFromFlexDynArray, isNullWithoutTheItem)
{
    const OneItem item("photo");
    EXPECT_EQ(TovStringFromFlexDynArray(item.array(), kID, kType + 1, 1), nullptr);
    EXPECT_EQ(TovStringFromFlexDynArray(item.array(), kID + 2, kType, 1), nullptr);
    EXPECT_EQ(TovStringFromFlexDynArray(nullptr, kID, kType, 1), nullptr);
    FlexDynArray empty;
    memSetFlexInvalid(&empty);
    EXPECT_EQ(TovStringFromFlexDynArray(&empty, kID, kType, 1), nullptr);
}

TEST(TovStringFromFlexDynArray, doesNotFindAnEmptyItemInLastPlace)
{
    FlexDynArray array;
    memSetFlexInvalid(&array);
    ASSERT_EQ(memAddFlexDataAtEnd(&array, kID, kType, 0, nullptr), 0);
    EXPECT_EQ(TovStringFromFlexDynArray(&array, kID, kType, 1), nullptr);
    memFreeFlexDynArray(&array);
}

TEST(TovStringFromFlexDynArray, isNullForAnItemThatRunsPastTheUsedBytes)
{
    const OneItem item("photo");
    FlexDynArray cut = *item.array();  // borrows the block
    cut.usedBytes = 12 + 4;
    EXPECT_EQ(TovStringFromFlexDynArray(&cut, kID, kType, 1), nullptr);
    cut.usedBytes = 12 + 5;
    EXPECT_EQ(takeUTF8(TovStringFromFlexDynArray(&cut, kID, kType, 1)), "photo");
}

TEST(TovStringFromFlexDynArray, givesNullWhenMemoryRunsOut)
{
    const OneItem item("photo");
    baseFailAllocation(1);
    EXPECT_EQ(TovStringFromFlexDynArray(item.array(), kID, kType, 1), nullptr);
    EXPECT_TRUE(baseAllocationHasFailed());
    baseFailAllocation(0);
}
