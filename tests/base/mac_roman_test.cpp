#include "base/mac_roman.h"

#include "lib/text/byte_texts.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>
#include <unicode/ucnv.h>

#include <array>
#include <set>

using namespace pinorama;

namespace {
std::array<char16_t, 256> unitsAsICUHasThem()
{
    std::array<char, 256> bytes;
    for (std::size_t i = 0; i < bytes.size(); i++) bytes[i] = static_cast<char>(i);
    std::array<char16_t, 256> units{};
    UErrorCode status = U_ZERO_ERROR;
    UConverter* converter = ucnv_open("macintosh", &status);
    EXPECT_EQ(ucnv_toUChars(converter, units.data(), 256, bytes.data(), 256, &status), 256);
    EXPECT_TRUE(U_SUCCESS(status) || status == U_STRING_NOT_TERMINATED_WARNING);
    ucnv_close(converter);
    return units;
}
}  // namespace

TEST(macRomanUnit, agreesWithICUForEveryByte)
{
    const auto expected = unitsAsICUHasThem();
    for (unsigned byte = 0; byte < 256; byte++) {
        SCOPED_TRACE(byte);
        EXPECT_EQ(macRomanUnit(static_cast<std::uint8_t>(byte)), expected[byte]);
    }
}

TEST(macRomanUnit, knowsTheCharactersThatEditionsDisagreeAbout)
{
    const struct {
        std::uint8_t byte;
        char16_t unit;
    } rows[] = {
        {0x00, 0x0000}, {0x7f, 0x007f}, {0x80, 0x00c4}, {0x8e, 0x00e9}, {0xa5, 0x2022},
        {0xb5, 0x00b5}, {0xbd, 0x03a9}, {0xc6, 0x2206}, {0xca, 0x00a0}, {0xd7, 0x25ca},
        {0xdb, 0x20ac}, {0xf0, 0xf8ff}, {0xff, 0x02c7},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(static_cast<unsigned>(row.byte));
        EXPECT_EQ(macRomanUnit(row.byte), row.unit);
    }
}

TEST(macRomanByte, isTheWayBackOfEveryByte)
{
    for (unsigned byte = 0; byte < 256; byte++) {
        const char16_t unit = macRomanUnit(static_cast<std::uint8_t>(byte));
        EXPECT_EQ(macRomanByte(unit), static_cast<int>(byte));
    }
}

TEST(macRomanByte, knowsNoOtherUnit)
{
    std::set<char16_t> known;
    for (unsigned byte = 0; byte < 256; byte++) {
        known.insert(macRomanUnit(static_cast<std::uint8_t>(byte)));
    }
    ASSERT_EQ(known.size(), 256u);
    for (unsigned unit = 0; unit <= 0xffff; unit++) {
        const auto one = static_cast<char16_t>(unit);
        EXPECT_EQ(macRomanByte(one) >= 0, known.count(one) == 1) << unit;
    }
}

TEST(createStringFromMacRoman, decodesByteByByte)
{
    EXPECT_EQ(test::takeUTF8(createStringFromMacRoman("")), "");
    EXPECT_EQ(test::takeUTF8(createStringFromMacRoman("caf\x8e \xdb")), "café €");
}
