// The search advances in segments, each a character with the marks that belong to it. An occurrence
// consists of whole segments, so each segment can be decomposed and folded on its own, and only
// where the wanted text may begin.

#include "lib/text/find_text.h"

#include "base/ascii.h"

#include <unicode/uchar.h>
#include <unicode/unorm2.h>
#include <unicode/ustring.h>
#include <unicode/utf16.h>

#include <algorithm>
#include <memory>
#include <new>

using namespace pinorama;

namespace {
using pinorama::Case;
using pinorama::isASCII;

constexpr char16_t kFirstMark = 0x0300;  // no unit below it combines with the one before it

const UNormalizer2* decomposer()
{
    static const UNormalizer2* const instance = [] {
        UErrorCode status = U_ZERO_ERROR;
        return unorm2_getNFDInstance(&status);
    }();
    return instance;
}

const UNormalizer2* composer()
{
    static const UNormalizer2* const instance = [] {
        UErrorCode status = U_ZERO_ERROR;
        return unorm2_getNFCInstance(&status);
    }();
    return instance;
}

// True for combining marks and for the vowels and final consonants of Hangul syllables.
bool belongsToCharacterBefore(UChar32 codePoint)
{
    if (codePoint < kFirstMark) return false;
    return (U_GET_GC_MASK(codePoint) & U_GC_M_MASK) != 0 ||
           !unorm2_hasBoundaryBefore(composer(), codePoint);
}

// True for units that cannot become an ASCII character by decomposition or folding: those from the
// CJK radicals on, except for the Latin ligatures.
bool isFarFromASCII(char16_t unit)
{
    return unit >= 0x2e80 && (unit < 0xfb00 || unit > 0xfb06);
}

// The end of the segment that begins at `start`, which lies within the text.
std::size_t endOfSegment(std::u16string_view text, std::size_t start)
{
    std::size_t end = start;
    U16_FWD_1(text.data(), end, text.size());
    while (end < text.size()) {
        std::size_t next = end;
        UChar32 codePoint = 0;
        U16_NEXT(text.data(), next, text.size(), codePoint);
        if (!belongsToCharacterBefore(codePoint)) break;
        end = next;
    }
    return end;
}

// A text decomposed and, if case is ignored, folded. Refers to `text` itself if that changes
// nothing, and allocates nothing for a single segment.
class ComparableForm {
public:
    ComparableForm(std::u16string_view text, Case letterCase) : units_(text)
    {
        if (isASCII(text)) {
            if (letterCase == Case::ignore) foldASCII();
            return;
        }
        decompose();
        if (letterCase == Case::respect) return;
        fold();
        if (!isASCII(units_)) decompose();
    }
    ComparableForm(const ComparableForm&) = delete;
    ComparableForm& operator=(const ComparableForm&) = delete;

    // False when memory has run out.
    bool isUsable() const { return isUsable_; }
    std::u16string_view units() const { return units_; }

private:
    static constexpr std::int32_t kSmall = 32;  // units

    // The output of a step, which must not be its input. Grows if the units do not fit.
    struct Buffer {
        char16_t small[kSmall];
        std::unique_ptr<char16_t[]> large{};
    };

    void foldASCII()
    {
        change([this](char16_t* dest, std::int32_t capacity, UErrorCode* status) {
            if (capacity < length()) {
                *status = U_BUFFER_OVERFLOW_ERROR;
            } else {
                std::transform(units_.begin(), units_.end(), dest, foldedASCII);
            }
            return length();
        });
    }

    void decompose()
    {
        change([this](char16_t* dest, std::int32_t capacity, UErrorCode* status) {
            return unorm2_normalize(decomposer(), units_.data(), length(), dest, capacity, status);
        });
    }

    void fold()
    {
        change([this](char16_t* dest, std::int32_t capacity, UErrorCode* status) {
            return u_strFoldCase(dest, capacity, units_.data(), length(), U_FOLD_CASE_DEFAULT,
                                 status);
        });
    }

    template <typename Step>
    void change(Step step)
    {
        if (!isUsable_) return;
        Buffer& buffer = buffers_[next_];
        next_ = 1 - next_;
        UErrorCode status = U_ZERO_ERROR;
        char16_t* dest = buffer.small;
        std::int32_t count = step(dest, kSmall, &status);
        if (status == U_BUFFER_OVERFLOW_ERROR) {
            status = U_ZERO_ERROR;
            buffer.large.reset(new (std::nothrow) char16_t[static_cast<std::size_t>(count)]);
            dest = buffer.large.get();
            if (dest != nullptr) count = step(dest, count, &status);
        }
        isUsable_ = dest != nullptr && U_SUCCESS(status);
        units_ = isUsable_ ? std::u16string_view(dest, static_cast<std::size_t>(count))
                           : std::u16string_view();
    }

    std::int32_t length() const { return static_cast<std::int32_t>(units_.size()); }

    std::u16string_view units_;
    Buffer buffers_[2];
    int next_ = 0;
    bool isUsable_ = true;
};

// A wanted text in its comparable form, which tests whether it occurs at a given index.
class Wanted {
public:
    Wanted(std::u16string_view units, Case letterCase)
        : form_(units, letterCase), units_(form_.units()), letterCase_(letterCase)
    {
    }

    bool isUsable() const { return form_.isUsable() && !units_.empty(); }

    // False when the text cannot begin with this unit, an ASCII character.
    bool mayBeginWith(char16_t unit) const { return folded(unit) == units_.front(); }

    // The end of the occurrence that begins at `start`, or npos.
    std::size_t endOfMatch(std::u16string_view text, std::size_t start) const
    {
        std::size_t at = start;
        std::size_t matched = 0;
        while (matched < units_.size()) {
            if (at >= text.size()) return std::u16string_view::npos;
            const std::size_t count = matchSegment(text, at, units_.substr(matched));
            if (count == 0) return std::u16string_view::npos;
            matched += count;
        }
        return at;
    }

private:
    char16_t folded(char16_t unit) const
    {
        return letterCase_ == Case::ignore ? foldedASCII(unit) : unit;
    }

    // If `rest` begins with the segment at `at`, moves `at` past that segment and returns how many
    // units of `rest` it matches; else returns 0.
    std::size_t matchSegment(std::u16string_view text, std::size_t& at,
                             std::u16string_view rest) const
    {
        const bool standsAlone = at + 1 >= text.size() || text[at + 1] < kFirstMark;
        if (isASCII(text[at]) && standsAlone) {
            if (folded(text[at]) != rest.front()) return 0;
            at++;
            return 1;
        }
        if (isASCII(rest.front()) && isFarFromASCII(text[at])) return 0;
        const std::size_t end = endOfSegment(text, at);
        const ComparableForm form(text.substr(at, end - at), letterCase_);
        const std::u16string_view segment = form.units();
        if (!form.isUsable() || !rest.starts_with(segment)) return 0;
        at = end;
        return segment.size();
    }

    ComparableForm form_;
    std::u16string_view units_;
    Case letterCase_;
};

// The Kelvin sign, the Greek question mark and the Greek varia are the only characters outside
// ASCII that decompose to ASCII alone.
bool hasOtherSpelling(char16_t unit)
{
    return unit == u'K' || unit == u';' || unit == u'`';
}

// True if every occurrence consists of exactly the wanted units.
bool isFoundByItsUnits(std::u16string_view wanted, Case letterCase)
{
    return letterCase == Case::respect &&
           std::all_of(wanted.begin(), wanted.end(),
                       [](char16_t unit) { return isASCII(unit) && !hasOtherSpelling(unit); });
}

bool isEndOfSegment(std::u16string_view text, std::size_t at)
{
    if (at >= text.size() || text[at] < kFirstMark) return true;
    UChar32 codePoint = 0;
    U16_GET(text.data(), 0, at, text.size(), codePoint);
    return !belongsToCharacterBefore(codePoint);
}

pinorama::FoundRange rangeOf(std::size_t start, std::size_t end)
{
    return {static_cast<std::int32_t>(start), static_cast<std::int32_t>(end - start)};
}

constexpr pinorama::FoundRange kNowhere = {-1, 0};

pinorama::FoundRange findUnits(std::u16string_view text, std::u16string_view wanted,
                               std::size_t start)
{
    for (;;) {
        const std::size_t found = text.find(wanted, start);
        if (found == std::u16string_view::npos) return kNowhere;
        const std::size_t end = found + wanted.size();
        if (isEndOfSegment(text, end)) return rangeOf(found, end);
        start = found + 1;
    }
}
}  // namespace

pinorama::FoundRange pinorama::findText(std::u16string_view text, std::u16string_view wanted,
                                        std::int32_t start, Case letterCase)
{
    if (start < 0 || static_cast<std::size_t>(start) >= text.size() || wanted.empty()) {
        return kNowhere;
    }
    auto at = static_cast<std::size_t>(start);
    if (isFoundByItsUnits(wanted, letterCase)) return findUnits(text, wanted, at);

    const Wanted form(wanted, letterCase);
    if (!form.isUsable()) return kNowhere;
    while (at < text.size()) {
        const bool standsAlone = at + 1 >= text.size() || text[at + 1] < kFirstMark;
        if (isASCII(text[at]) && standsAlone && !form.mayBeginWith(text[at])) {
            at++;
            continue;
        }
        const std::size_t end = form.endOfMatch(text, at);
        if (end != std::u16string_view::npos) return rangeOf(at, end);
        at = endOfSegment(text, at);
    }
    return kNowhere;
}

std::int32_t pinorama::matchAtBeginning(std::u16string_view text, std::u16string_view wanted,
                                        Case letterCase)
{
    if (wanted.empty()) return -1;
    if (isFoundByItsUnits(wanted, letterCase)) {
        const bool begins = text.starts_with(wanted);
        return begins && isEndOfSegment(text, wanted.size())
                   ? static_cast<std::int32_t>(wanted.size())
                   : -1;
    }
    const Wanted form(wanted, letterCase);
    if (!form.isUsable()) return -1;
    const std::size_t end = form.endOfMatch(text, 0);
    return end == std::u16string_view::npos ? -1 : static_cast<std::int32_t>(end);
}
