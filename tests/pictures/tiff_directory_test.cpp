#include "pictures/tiff_directory.h"

#include "tests/support/byte_views.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

using namespace pinorama;

using test::textOf;
using test::viewOf;
using namespace std::string_literals;

TEST(TiffBlock_open, acceptsTheKnownHeaders)
{
    const struct {
        const char* name;
        std::string header;
        bool isTiff;
    } rows[] = {
        {"little-endian", "II*\0\x8\0\0\0"s, true},
        {"big-endian", "MM\0*\0\0\0\x8"s, true},
        {"Olympus IIRO", "IIRO\x8\0\0\0"s, true},
        {"Olympus IIRS", "IIRS\x8\0\0\0"s, true},
        {"Olympus MMOR", "MMOR\0\0\0\x8"s, true},
        {"Panasonic IIU", "IIU\0\x18\0\0\0"s, true},
        {"the number in the other order", "II\0*\x8\0\0\0"s, false},
        {"mixed byte orders", "IM*\0\x8\0\0\0"s, false},
        {"another doubled letter", "AA*\0\x8\0\0\0"s, false},
        {"cut", "II*\0\x8\0\0"s, false},
        {"empty", "", false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.header));
        EXPECT_EQ(TiffBlock::open(ByteBlock(source)).has_value(), row.isTiff);
    }
}

TEST(TiffBlock_openBig, acceptsItsOwnHeaderOnly)
{
    const struct {
        const char* name;
        std::string header;
        bool isBig;
    } rows[] = {
        {"little-endian", "II+\0\x8\0\0\0\x10\0\0\0\0\0\0\0"s, true},
        {"big-endian", "MM\0+\0\x8\0\0\0\0\0\0\0\0\0\x10"s, true},
        {"TIFF", "II*\0\x8\0\0\0\x10\0\0\0\0\0\0\0"s, false},
        {"offsets of another size", "II+\0\x10\0\0\0\x10\0\0\0\0\0\0\0"s, false},
        {"something after it", "II+\0\x8\0\x1\0\x10\0\0\0\0\0\0\0"s, false},
        {"mixed byte orders", "IM+\0\x8\0\0\0\x10\0\0\0\0\0\0\0"s, false},
        {"cut", "II+\0\x8\0\0\0\x10\0\0\0\0\0\0"s, false},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.header));
        EXPECT_EQ(TiffBlock::openBig(ByteBlock(source)).has_value(), row.isBig);
        EXPECT_FALSE(row.isBig && TiffBlock::open(ByteBlock(source)).has_value());
    }
}

TEST(TiffBlock_findEntries, claimsOfBigTiffTakeNoMoreThanThereIs)
{
    const std::string header = "II+\0\x8\0\0\0\x10\0\0\0\0\0\0\0"s;
    const std::string entry =
        "\x25\x88\x12\0\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff\xff"s;
    const std::string bytes = header + std::string(8, '\xff') + entry;
    MemoryByteSource source(viewOf(bytes));
    const auto tiff = TiffBlock::openBig(ByteBlock(source));
    ASSERT_TRUE(tiff);
    TiffEntry entries[] = {{0x8825}};
    EXPECT_EQ(tiff->findEntries(tiff->firstDirectory(), entries), 1u);
    EXPECT_EQ(entries[0].count, UINT32_MAX);
    EXPECT_TRUE(entries[0].value.isEmpty());
    EXPECT_EQ(tiff->directoryOf(entries[0]), std::nullopt);
    EXPECT_EQ(tiff->findEntries(UINT64_MAX, entries), 0u);
}

TEST(TiffBlock_findEntries, findsValuesInsideAndOutsideTheEntry)
{
    for (const test::ByteOrder order : {test::ByteOrder::little, test::ByteOrder::big}) {
        const std::string bytes = test::tiffBlock(
            {.order = order,
             .fields = {test::asciiField(0x10f, "abc"), test::asciiField(0x110, "a longer one"),
                        test::shortField(order, 0x112, 0x1234),
                        test::longField(order, 0x8769, 0x12345678)}});
        MemoryByteSource source(viewOf(bytes));
        const auto tiff = TiffBlock::open(ByteBlock(source));
        ASSERT_TRUE(tiff);
        TiffEntry entries[] = {{0x8769}, {0x110}, {0x10f}, {0x112}, {0x9999}};
        EXPECT_EQ(tiff->findEntries(tiff->firstDirectory(), entries), 4u);
        EXPECT_EQ(tiff->integerOf(entries[0]), 0x12345678u);
        EXPECT_EQ(textOf(entries[1].value), "a longer one\0"s);
        EXPECT_EQ(entries[1].type, TiffType::ascii);
        EXPECT_EQ(textOf(entries[2].value), "abc\0"s);
        EXPECT_EQ(tiff->integerOf(entries[3]), 0x1234u);
        EXPECT_EQ(entries[4].count, 0u);
        EXPECT_TRUE(entries[4].value.isEmpty());
    }
}

TEST(TiffBlock_findEntries, damageEndsAtTheBlock)
{
    // One entry, "abc\0"; then what the row makes of it.
    const std::string good = test::tiffBlock({.fields = {test::asciiField(0x10f, "abcdefg")}});
    const auto patched = [&](std::size_t offset, const std::string& bytes) {
        return std::string(good).replace(offset, bytes.size(), bytes);
    };
    constexpr std::size_t kCount = 8 + 2 + 4;  // header, number of entries, tag and type
    const struct {
        const char* name;
        std::string bytes;
        std::size_t directoryEntries;
        std::string value;
    } rows[] = {
        {"undamaged", good, 1, "abcdefg\0"s},
        {"no directory at 0", patched(4, "\0\0\0\0"s), 0, ""},
        {"directory inside the header", patched(4, "\x6\0\0\0"s), 0, ""},
        {"directory outside", patched(4, "\xff\xff\xff\xff"s), 0, ""},
        {"more entries than fit", patched(8, "\xff\xff"s), 2, "abcdefg\0"s},
        {"value outside", patched(kCount + 4, "\xff\0\0\0"s), 1, ""},
        {"value cut at the end", patched(kCount, "\xff\xff\xff\xff"s), 1, "abcdefg\0"s},
        {"unknown type", patched(kCount - 2, "\x63\0"s), 1, ""},
        {"type 0", patched(kCount - 2, "\0\0"s), 1, ""},
        {"no items", patched(kCount, "\0\0\0\0"s), 1, ""},
        {"cut in the entry", good.substr(0, 8 + 2 + 11), 0, ""},
        {"cut in the number of entries", good.substr(0, 9), 0, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        MemoryByteSource source(viewOf(row.bytes));
        const auto tiff = TiffBlock::open(ByteBlock(source));
        ASSERT_TRUE(tiff);
        TiffEntry entries[] = {{0x10f}};
        EXPECT_EQ(tiff->findEntries(tiff->firstDirectory(), entries), row.directoryEntries);
        EXPECT_EQ(textOf(entries[0].value), row.value);
    }
}

TEST(TiffBlock_findEntries, theFirstOfSeveralCounts)
{
    const std::string bytes = test::tiffBlock(
        {.fields = {test::asciiField(0x10f, "one"), test::asciiField(0x10f, "two")}});
    MemoryByteSource source(viewOf(bytes));
    TiffEntry entries[] = {{0x10f}};
    TiffBlock::open(ByteBlock(source))->findEntries(8, entries);
    EXPECT_EQ(textOf(entries[0].value), "one\0"s);
}

TEST(TiffBlock_findEntries, goesThroughTheLargestDirectory)
{
    std::vector<test::TiffField> fields(65534, test::byteField(1, "x"));
    fields.push_back(test::byteField(2, "last"));
    const std::string bytes = test::tiffBlock({.fields = fields});
    MemoryByteSource source(viewOf(bytes));
    TiffEntry entries[] = {{2}};
    EXPECT_EQ(TiffBlock::open(ByteBlock(source))->findEntries(8, entries), 65535u);
    EXPECT_EQ(textOf(entries[0].value), "last");
}

TEST(TiffBlock_integerOf, readsWholeNumbersOfEveryWidth)
{
    const auto order = test::ByteOrder::big;
    const struct {
        const char* name;
        test::TiffField field;
        std::optional<std::uint32_t> expected;
    } rows[] = {
        {"byte", {1, 1, 1, "\xfe"}, 0xfe},
        {"two bytes", {1, 1, 2, "\1\x64"}, 1},
        {"undefined", {1, 7, 1, "\2"}, 2},
        {"short", test::shortField(order, 1, 0xfffe), 0xfffe},
        {"long", test::longField(order, 1, 0xfffffffe), 0xfffffffe},
        {"signed long", {1, 9, 1, test::bytes32(order, 668)}, 668},
        {"directory", {1, 13, 1, test::bytes32(order, 8)}, 8},
        {"text", test::asciiField(1, "1"), std::nullopt},
        {"rational", test::rationalField(order, 1, {{1, 1}}), std::nullopt},
        {"no items", {1, 4, 0, ""}, std::nullopt},
        {"type 0", {1, 0, 1, "\1"}, std::nullopt},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const std::string bytes = test::tiffBlock({.order = order, .fields = {row.field}});
        MemoryByteSource source(viewOf(bytes));
        const auto tiff = TiffBlock::open(ByteBlock(source));
        TiffEntry entries[] = {{1}};
        tiff->findEntries(8, entries);
        EXPECT_EQ(tiff->integerOf(entries[0]), row.expected);
    }
}
