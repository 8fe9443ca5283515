#include "lib/text/compare_texts.h"

#include "lib/text/find_text.h"

#include <gtest/gtest.h>
#include <unicode/normalizer2.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>
#include <unicode/unorm.h>
#include <unicode/utf16.h>

#include <random>
#include <set>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
int signOf(int value)
{
    return (value > 0) - (value < 0);
}

// What ICU says without any short cut.
int compareWithICU(std::u16string_view a, std::u16string_view b, Case letterCase)
{
    std::uint32_t options = U_COMPARE_CODE_POINT_ORDER;
    if (letterCase == Case::ignore) options |= U_COMPARE_IGNORE_CASE;
    UErrorCode status = U_ZERO_ERROR;
    const std::u16string first(a), second(b);
    const int result =
        unorm_compare(first.c_str(), static_cast<std::int32_t>(first.size()), second.c_str(),
                      static_cast<std::int32_t>(second.size()), options, &status);
    EXPECT_TRUE(U_SUCCESS(status));
    return signOf(result);
}

const icu::Normalizer2& normalizer(const char* name)
{
    UErrorCode status = U_ZERO_ERROR;
    const icu::Normalizer2* instance =
        icu::Normalizer2::getInstance(nullptr, name, UNORM2_COMPOSE, status);
    EXPECT_NE(instance, nullptr);
    return *instance;
}

bool isBoundary(std::u16string_view text, std::size_t at, std::size_t start)
{
    if (at == start || at == text.size()) return true;
    if (U16_IS_TRAIL(text[at]) && U16_IS_LEAD(text[at - 1]) && at - 1 >= start) return false;
    UChar32 codePoint = 0;
    std::size_t next = at;
    U16_NEXT(text.data(), next, text.size(), codePoint);
    if ((U_GET_GC_MASK(codePoint) & U_GC_M_MASK) != 0) return false;
    return normalizer("nfc").hasBoundaryBefore(codePoint);
}

// The definition, tried out place by place.
std::pair<int, int> findByDefinition(std::u16string_view text, std::u16string_view wanted,
                                     std::size_t start, Case letterCase)
{
    for (std::size_t from = start; !wanted.empty() && from < text.size(); from++) {
        if (!isBoundary(text, from, start)) continue;
        for (std::size_t to = from + 1; to <= text.size(); to++) {
            if (!isBoundary(text, to, start)) continue;
            if (compareWithICU(text.substr(from, to - from), wanted, letterCase) == 0) {
                return {static_cast<int>(from), static_cast<int>(to - from)};
            }
        }
    }
    return {-1, 0};
}

std::pair<int, int> found(std::u16string_view text, std::u16string_view wanted, std::int32_t start,
                          Case letterCase)
{
    const FoundRange range = findText(text, wanted, start, letterCase);
    return {range.location, range.length};
}

std::u16string hexadecimal(std::u16string_view units)
{
    std::u16string text;
    for (const char16_t unit : units) {
        for (int shift = 12; shift >= 0; shift -= 4) {
            text += u"0123456789abcdef"[(unit >> shift) & 0xf];
        }
        text += u' ';
    }
    return text;
}

// Texts of characters that decompose, compose, fold, reorder or do none of that.
class RandomTexts {
public:
    explicit RandomTexts(unsigned seed) : random_(seed) {}

    std::u16string make(std::size_t mostCharacters)
    {
        static const std::vector<std::u16string> characters = {u"a",
                                                               u"A",
                                                               u"e",
                                                               u"E",
                                                               u"k",
                                                               u"K",
                                                               u"s",
                                                               u"S",
                                                               u";",
                                                               u"`",
                                                               u".",
                                                               u"<",
                                                               u"\u00e9",
                                                               u"\u00c9",
                                                               u"\u0301",
                                                               u"\u0323",
                                                               u"\u0345",
                                                               u"\u212a",
                                                               u"\u017f",
                                                               u"\u00df",
                                                               u"\u00b5",
                                                               u"\u03bc",
                                                               u"\u1fb3",
                                                               u"\u03b1",
                                                               u"\u03b9",
                                                               u"\u0391",
                                                               u"\u1100",
                                                               u"\u1161",
                                                               u"\u11a8",
                                                               u"\uac00",
                                                               u"\uac01",
                                                               u"\ufb01",
                                                               u"f",
                                                               u"i",
                                                               u"\u0130",
                                                               u"\u0131",
                                                               u"\u4e00",
                                                               u"\U0001F4F7",
                                                               u"\U00010400",
                                                               u"\U00010428",
                                                               u"\u0bb2\u0bbe",
                                                               u"\u1ea5",
                                                               u"\u0344",
                                                               u"\u037e",
                                                               u"\u1fef",
                                                               u"\u1e9e"};
        std::uniform_int_distribution<std::size_t> count(0, mostCharacters);
        std::uniform_int_distribution<std::size_t> pick(0, characters.size() - 1);
        std::uniform_int_distribution<int> percent(0, 99);
        std::u16string text;
        const bool isASCII = percent(random_) < 30;
        for (std::size_t n = count(random_); n > 0; n--) {
            text += characters[isASCII ? pick(random_) % 12 : pick(random_)];
        }
        return text;
    }

    std::size_t below(std::size_t end)
    {
        return std::uniform_int_distribution<std::size_t>(0, end - 1)(random_);
    }

private:
    std::mt19937 random_;
};
}  // namespace

TEST(compareTexts, goesByCanonicalEquivalence)
{
    const struct {
        const char* name;
        std::u16string a, b;
        int respecting, ignoring;
    } rows[] = {
        {"both empty", u"", u"", 0, 0},
        {"empty first", u"", u"a", -1, -1},
        {"same", u"photo.jpg", u"photo.jpg", 0, 0},
        {"beginning first", u"photo", u"photo.jpg", -1, -1},
        {"case", u"ABC", u"abc", -1, 0},
        {"case within the order", u"aB", u"Aa", 1, 1},
        {"between the cases", u"_", u"a", -1, -1},
        {"between the cases, folded", u"_", u"A", 1, -1},
        {"precomposed", u"\u00e9", u"e\u0301", 0, 0},
        {"precomposed and case", u"\u00c9", u"e\u0301", -1, 0},
        {"precomposed after ASCII", u"caf\u00e9s", u"cafe\u0301s", 0, 0},
        {"mark against none", u"e\u0301", u"e", 1, 1},
        {"mark against the next letter", u"e\u0301", u"f", -1, -1},
        {"order of marks", u"a\u0323\u0301", u"a\u0301\u0323", 0, 0},
        {"two ways to compose", u"\u1ea5", u"\u00e2\u0301", 0, 0},
        {"Kelvin sign", u"\u212a", u"K", 0, 0},
        {"Kelvin sign and case", u"\u212a", u"k", -1, 0},
        {"Greek question mark", u"\u037e", u";", 0, 0},
        {"Hangul", u"\uac01", u"\u1100\u1161\u11a8", 0, 0},
        {"Greek case", u"\u03a3", u"\u03c2", -1, 0},
        {"Cyrillic case", u"\u0416", u"\u0436", -1, 0},
        {"case beyond 16 bits", u"\U00010400", u"\U00010428", -1, 0},
        {"compatibility does not count", u"\uff21", u"A", 1, 1},
        {"code points, not units", u"\uff21", u"\U0001F4F7", -1, -1},
        {"no Turkic folding", u"\u0131", u"I", 1, 1},
        {"embedded null", {u"a\0b", 3}, {u"a\0c", 3}, -1, -1},
        {"lone surrogates", {u"\xd800", 1}, {u"\xd801", 1}, -1, -1},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(compareTexts(row.a, row.b, Case::respect), row.respecting);
        EXPECT_EQ(compareTexts(row.b, row.a, Case::respect), -row.respecting);
        EXPECT_EQ(compareTexts(row.a, row.b, Case::ignore), row.ignoring);
        EXPECT_EQ(compareTexts(row.b, row.a, Case::ignore), -row.ignoring);
    }
}

TEST(compareTexts, findsEveryDecompositionEqual)
{
    for (UChar32 codePoint = 0; codePoint <= 0x10ffff; codePoint++) {
        if (U_IS_SURROGATE(codePoint)) continue;
        icu::UnicodeString decomposed;
        if (!normalizer("nfc").getDecomposition(codePoint, decomposed)) continue;
        const icu::UnicodeString composed(codePoint);
        const std::u16string a(composed.getBuffer(), static_cast<std::size_t>(composed.length()));
        const std::u16string b(decomposed.getBuffer(),
                               static_cast<std::size_t>(decomposed.length()));
        ASSERT_EQ(compareTexts(a, b, Case::respect), 0) << std::hex << codePoint;
        ASSERT_EQ(compareTexts(u"x" + a, u"x" + b, Case::ignore), 0) << std::hex << codePoint;
        ASSERT_EQ(matchAtBeginning(a, b, Case::respect), static_cast<int>(a.size()))
            << std::hex << codePoint;
    }
}

TEST(compareTexts, findsEveryCaseFoldingEqual)
{
    for (UChar32 codePoint = 0; codePoint <= 0x10ffff; codePoint++) {
        const UChar32 folded = u_foldCase(codePoint, U_FOLD_CASE_DEFAULT);
        if (folded == codePoint) continue;
        const icu::UnicodeString one(codePoint), other(folded);
        const std::u16string a(one.getBuffer(), static_cast<std::size_t>(one.length()));
        const std::u16string b(other.getBuffer(), static_cast<std::size_t>(other.length()));
        ASSERT_EQ(matchAtBeginning(a, b, Case::ignore), static_cast<int>(a.size()))
            << std::hex << codePoint;
        // Full and simple folding differ for a handful, which then keep their own folding.
        icu::UnicodeString full(one);
        if (full.foldCase() != other) continue;
        ASSERT_EQ(compareTexts(a, b, Case::ignore), 0) << std::hex << codePoint;
    }
}

TEST(compareTexts, agreesWithICUOnRandomTexts)
{
    RandomTexts texts(20240229);
    for (int i = 0; i < 100000; i++) {
        const std::u16string shared = texts.make(4);
        const std::u16string a = shared + texts.make(4);
        const std::u16string b = shared + texts.make(4);
        for (const Case letterCase : {Case::respect, Case::ignore}) {
            ASSERT_EQ(compareTexts(a, b, letterCase), compareWithICU(a, b, letterCase))
                << testing::PrintToString(hexadecimal(a)) << testing::PrintToString(hexadecimal(b));
        }
    }
}

TEST(findText, findsWholeLettersOnly)
{
    using Range = std::pair<int, int>;
    constexpr Range kNowhere = {-1, 0};
    const struct {
        const char* name;
        std::u16string text, wanted;
        Range respecting, ignoring;
    } rows[] = {
        {"empty text", u"", u"a", kNowhere, kNowhere},
        {"nothing wanted", u"abc", u"", kNowhere, kNowhere},
        {"first of several", u"xabcabc", u"abc", {1, 3}, {1, 3}},
        {"case", u"ABCabc", u"abc", {3, 3}, {0, 3}},
        {"longer than the text", u"ab", u"abc", kNowhere, kNowhere},
        {"whole text", u"abc", u"abc", {0, 3}, {0, 3}},
        {"base letter of a mark", u"e\u0301", u"e", kNowhere, kNowhere},
        {"base letter later without mark", u"e\u0301e", u"e", {2, 1}, {2, 1}},
        {"base letter of a composed letter", u"\u00e9", u"e", kNowhere, kNowhere},
        {"mark of a letter", u"xe\u0301", u"\u0301", kNowhere, kNowhere},
        {"last letter has a mark", u"cafe\u0301", u"cafe", kNowhere, kNowhere},
        {"length of the decomposed", u"cafe\u0301s", u"\u00e9", {3, 2}, {3, 2}},
        {"length of the precomposed", u"caf\u00e9s", u"e\u0301", {3, 1}, {3, 1}},
        {"case of the precomposed", u"CAF\u00c9", u"fe\u0301", kNowhere, {2, 2}},
        {"Kelvin sign", u"5 \u212a", u"K", {2, 1}, {2, 1}},
        {"question mark", u"a\u037eb;", u";", {1, 1}, {1, 1}},
        {"part of a syllable", u"\uac01", u"\u1100", kNowhere, kNowhere},
        {"part of a spelt-out syllable", u"\u1100\u1161", u"\u1100", kNowhere, kNowhere},
        {"pair", u"a\U0001F4F7b", u"\U0001F4F7", {1, 2}, {1, 2}},
        {"half of a pair", u"a\U0001F4F7b", {u"\xd83d", 1}, kNowhere, kNowhere},
        {"sharp s", u"Stra\u00dfe", u"ss", kNowhere, {4, 1}},
        {"half of a sharp s", u"\u00df", u"s", kNowhere, kNowhere},
        {"embedded null", {u"a\0b", 3}, {u"\0b", 2}, {1, 2}, {1, 2}},
        {"many candidates", u"aaaaaaab", u"aab", {5, 3}, {5, 3}},
        {"tag before a mark", u"<a>\u0338 <a>", u"<a>", {5, 3}, {5, 3}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(found(row.text, row.wanted, 0, Case::respect), row.respecting);
        EXPECT_EQ(found(row.text, row.wanted, 0, Case::ignore), row.ignoring);
    }
}

TEST(findText, beginsAtTheStart)
{
    using Range = std::pair<int, int>;
    EXPECT_EQ(found(u"abcabc", u"abc", 1, Case::respect), Range(3, 3));
    EXPECT_EQ(found(u"abcabc", u"abc", 3, Case::ignore), Range(3, 3));
    EXPECT_EQ(found(u"abcabc", u"abc", 4, Case::respect), Range(-1, 0));
    EXPECT_EQ(found(u"abc", u"c", 3, Case::respect), Range(-1, 0));
    EXPECT_EQ(found(u"abc", u"c", -1, Case::respect), Range(-1, 0));
    EXPECT_EQ(found(u"e\u0301x", u"\u0301", 1, Case::respect), Range(1, 1)) << "a mark there";
}

TEST(findText, findsTextsAndLettersOfAnyLength)
{
    using Range = std::pair<int, int>;
    std::u16string composed;
    std::u16string decomposed;
    for (int i = 0; i < 100; i++) {
        composed += u"\u00c9x";
        decomposed += u"E\u0301x";
    }
    EXPECT_EQ(found(u"-" + decomposed, composed, 0, Case::respect), Range(1, 300));
    EXPECT_EQ(found(u"-" + composed, decomposed, 0, Case::ignore), Range(1, 200));

    const std::u16string letter = u"\u00e9" + std::u16string(100, u'\u0323');
    const std::u16string reordered = u"e" + std::u16string(100, u'\u0323') + u"\u0301";
    EXPECT_EQ(found(u"-" + letter, reordered, 0, Case::respect), Range(1, 101));
}

TEST(findText, agreesWithItsDefinitionOnRandomTexts)
{
    RandomTexts texts(19840124);
    int hits = 0;
    for (int i = 0; i < 60000; i++) {
        const std::u16string text = texts.make(8);
        const std::u16string wanted = texts.make(2);
        const std::size_t start = texts.below(3) == 0 ? texts.below(text.size() + 1) : 0;
        for (const Case letterCase : {Case::respect, Case::ignore}) {
            const auto expected = findByDefinition(text, wanted, start, letterCase);
            hits += expected.first >= 0;
            ASSERT_EQ(found(text, wanted, static_cast<std::int32_t>(start), letterCase), expected)
                << testing::PrintToString(hexadecimal(text)) << " wanted "
                << testing::PrintToString(hexadecimal(wanted)) << " from " << start;
            if (start == 0) {
                const bool begins = expected.first == 0;
                ASSERT_EQ(matchAtBeginning(text, wanted, letterCase),
                          begins ? expected.second : -1);
            }
        }
    }
    EXPECT_GT(hits, 1000) << "the texts have to meet often enough to say anything";
}

TEST(findText, handlesEverythingThatDecomposesToASCII)
{
    std::set<UChar32> decomposing;
    for (UChar32 codePoint = 0x80; codePoint <= 0x10ffff; codePoint++) {
        icu::UnicodeString form;
        if (!normalizer("nfc").getDecomposition(codePoint, form)) continue;
        bool isASCII = true;
        for (std::int32_t i = 0; i < form.length(); i++) isASCII = isASCII && form.charAt(i) < 0x80;
        if (isASCII) decomposing.insert(codePoint);
    }
    EXPECT_EQ(decomposing, (std::set<UChar32>{0x212a, 0x037e, 0x1fef}));
}

TEST(findText, skipsOnlyUnitsThatNeverFoldToASCII)
{
    for (UChar32 codePoint = 0x2e80; codePoint <= 0x10ffff; codePoint++) {
        if (codePoint >= 0xfb00 && codePoint <= 0xfb06) continue;
        icu::UnicodeString form;
        if (!normalizer("nfc").getDecomposition(codePoint, form)) form.setTo(codePoint);
        form.foldCase();
        ASSERT_GE(form.charAt(0), 0x80) << std::hex << codePoint;
    }
    EXPECT_EQ(found(u"a\ufb06one", u"STONE", 0, Case::ignore), (std::pair<int, int>(1, 4)));
}

TEST(findText, noMarkLiesBelowTheFirstOne)
{
    for (UChar32 codePoint = 0; codePoint < 0x300; codePoint++) {
        EXPECT_EQ(U_GET_GC_MASK(codePoint) & U_GC_M_MASK, 0u) << codePoint;
        EXPECT_TRUE(normalizer("nfc").hasBoundaryBefore(codePoint)) << codePoint;
    }
}
