#include "lib/strings/tov_search.h"

#include "base/block_holder.h"
#include "base/mac_roman.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_string.h"
#include "lib/text/find_text.h"

#include <algorithm>
#include <iterator>
#include <utility>

using namespace pinorama;

namespace {
using pinorama::Case;
using pinorama::unitsOf;

Case caseOf(std::uint8_t caseFlag)
{
    return caseFlag != 0 ? Case::respect : Case::ignore;
}

// The units of a C string for the length of one call; short ones need no block.
class CStringUnits {
public:
    explicit CStringUnits(const char* text)
    {
        if (text == nullptr) return;
        const std::string_view bytes(text);
        if (bytes.size() > static_cast<std::size_t>(kMaxStringLength)) return;
        if (bytes.size() > std::size(short_)) {
            block_ = BlockHolder(baseAllocate(bytes.size() * sizeof(char16_t)));
            if (!block_) return;
        }
        char16_t* units = block_ ? static_cast<char16_t*>(block_.get()) : short_;
        decodeMacRoman(bytes, units);
        view_ = {units, bytes.size()};
        isValid_ = true;
    }

    // False for a null C string, and when memory ran out.
    bool isValid() const { return isValid_; }
    std::u16string_view view() const { return view_; }

private:
    char16_t short_[64];
    BlockHolder block_;
    std::u16string_view view_;
    bool isValid_ = false;
};

bool endsWith(std::u16string_view text, std::u16string_view suffix, Case letterCase)
{
    // Only the first occurrence is looked at, so "abcabc" does not end with "abc". Intended; pinned
    // by TovStringEndsWith.looksAtTheFirstOccurrenceOnly.
    const FoundRange found = findText(text, suffix, 0, letterCase);
    return found.location >= 0 && std::cmp_equal(found.location + found.length, text.size());
}

// The index of the last full stop, or -1; index 0 is ignored.
std::int32_t extensionDot(TovStringRef string)
{
    const std::size_t found = unitsOf(string).rfind(u'.');
    return found == std::u16string_view::npos || found == 0 ? -1 : static_cast<std::int32_t>(found);
}
}  // namespace

std::int32_t TovStringCompare(TovStringRef a, TovStringRef b, std::uint8_t caseFlag)
{
    if (a == nullptr || b == nullptr) return (a != nullptr) - (b != nullptr);
    return compareTexts(unitsOf(a), unitsOf(b), caseOf(caseFlag));
}

bool TovStringEqualsCString(TovStringRef string, const char* text, std::uint8_t caseFlag)
{
    const CStringUnits units(text);
    if (string == nullptr || !units.isValid()) return false;
    return compareTexts(unitsOf(string), units.view(), caseOf(caseFlag)) == 0;
}

bool TovStringBeginsWith(TovStringRef string, TovStringRef prefix, std::uint8_t caseFlag)
{
    return matchAtBeginning(unitsOf(string), unitsOf(prefix), caseOf(caseFlag)) >= 0;
}

bool TovStringBeginsWithCString(TovStringRef string, const char* prefix, std::uint8_t caseFlag)
{
    const CStringUnits units(prefix);
    return matchAtBeginning(unitsOf(string), units.view(), caseOf(caseFlag)) >= 0;
}

bool TovStringEndsWith(TovStringRef string, TovStringRef suffix, std::uint8_t caseFlag)
{
    return endsWith(unitsOf(string), unitsOf(suffix), caseOf(caseFlag));
}

bool TovStringEndsWithCString(TovStringRef string, const char* suffix, std::uint8_t caseFlag)
{
    const CStringUnits units(suffix);
    return endsWith(unitsOf(string), units.view(), caseOf(caseFlag));
}

bool TovStringContains(TovStringRef string, TovStringRef sub, std::uint8_t caseFlag)
{
    return TovStringPosition(string, sub, 0, caseFlag) >= 0;
}

std::int32_t TovStringPosition(TovStringRef string, TovStringRef sub, std::int32_t start,
                               std::uint8_t caseFlag)
{
    return findText(unitsOf(string), unitsOf(sub), start, caseOf(caseFlag)).location;
}

std::int32_t TovStringCountCharAppearances(TovStringRef string, char16_t unit)
{
    const std::u16string_view units = unitsOf(string);
    return static_cast<std::int32_t>(std::count(units.begin(), units.end(), unit));
}

TovStringRef TovStringReplaceCharacter(TovStringRef string, char16_t from, char16_t to)
{
    std::uint32_t size = TovStringGetUTF8Size(string);
    if (size == 0) return nullptr;
    const BlockHolder block(baseAllocate(size));
    if (!block) return nullptr;

    char* bytes = static_cast<char*>(block.get());
    TovStringCopyToUTF8(string, bytes, &size);
    const bool isASCII = from < 0x80;
    if (isASCII) std::replace(bytes, bytes + size, static_cast<char>(from), static_cast<char>(to));
    return TovStringFromUTF8(bytes, static_cast<std::int32_t>(size));
}

TovStringRef TovStringGetExtension(TovStringRef string)
{
    const std::int32_t dot = extensionDot(string);
    if (dot < 0) return nullptr;
    return TovStringCreateWithSubstring(string, dot + 1, string->length - dot - 1);
}

TovStringRef TovStringStripExtension(TovStringRef string)
{
    const std::int32_t dot = extensionDot(string);
    return dot < 0 ? TovStringGetCopy(string) : TovStringCreateWithSubstring(string, 0, dot);
}
