#include "lib/text/leading_number.h"

#include "base/block_holder.h"

#include <algorithm>
#include <clocale>
#include <cstdlib>
#include <limits>

using namespace pinorama;

namespace {
constexpr std::size_t kUsualLength = 64;  // bytes of a number that needs no block of its own

bool isDigit(char16_t unit)
{
    return unit >= u'0' && unit <= u'9';
}

// The white space of Unicode (property White_Space).
bool isWhiteSpace(char16_t unit)
{
    if (unit == u' ' || (unit >= u'\t' && unit <= u'\r')) return true;
    if (unit < 0x85) return false;
    return unit == 0x85 || unit == 0xa0 || unit == 0x1680 || (unit >= 0x2000 && unit <= 0x200a) ||
           unit == 0x2028 || unit == 0x2029 || unit == 0x202f || unit == 0x205f || unit == 0x3000;
}

// Steps through the units of a text; 0 follows the last one.
struct Reader {
    std::u16string_view units;
    std::size_t next = 0;

    char16_t peek() const { return next < units.size() ? units[next] : u'\0'; }

    void skipWhiteSpace()
    {
        while (isWhiteSpace(peek())) next++;
    }

    // Takes a sign, when there is one; true for minus.
    bool takeMinus()
    {
        const char16_t sign = peek();
        if (sign == u'-' || sign == u'+') next++;
        return sign == u'-';
    }

    // Takes digits and returns how many.
    std::size_t takeDigits()
    {
        const std::size_t start = next;
        while (isDigit(peek())) next++;
        return next - start;
    }

    // Takes "e", a sign and digits; nothing when no digit follows.
    void takeExponent()
    {
        if (peek() != u'e' && peek() != u'E') return;
        const std::size_t start = next++;
        (void)takeMinus();
        if (takeDigits() == 0) next = start;
    }
};

// Reads an unsigned number that has been checked already; 0 ends it. A number out of range becomes
// infinity or 0; std::from_chars() would not say which of the two it has to be.
double parse(const char* number)
{
    static const locale_t kPlain = newlocale(LC_ALL_MASK, "C", locale_t{});
    return strtod_l(number, nullptr, kPlain);
}
}  // namespace

std::int32_t pinorama::leadingInteger(std::u16string_view units)
{
    Reader reader{units};
    reader.skipWhiteSpace();
    const bool isNegative = reader.takeMinus();
    constexpr std::int64_t kMagnitudeOfLowest = std::int64_t{1} << 31;
    std::int64_t magnitude = 0;
    for (; isDigit(reader.peek()); reader.next++) {
        magnitude = std::min(magnitude * 10 + (reader.peek() - u'0'), kMagnitudeOfLowest);
    }
    constexpr std::int64_t kHighest = std::numeric_limits<std::int32_t>::max();
    return static_cast<std::int32_t>(isNegative ? -magnitude : std::min(magnitude, kHighest));
}

double pinorama::leadingDouble(std::u16string_view units)
{
    Reader reader{units};
    reader.skipWhiteSpace();
    const bool isNegative = reader.takeMinus();
    const std::size_t start = reader.next;
    std::size_t digits = reader.takeDigits();
    if (reader.peek() == u'.') {
        reader.next++;
        digits += reader.takeDigits();
    }
    if (digits == 0) return 0.0;
    reader.takeExponent();

    const std::u16string_view number = units.substr(start, reader.next - start);
    char usual[kUsualLength];
    BlockHolder block;
    if (number.size() >= kUsualLength) {
        block = BlockHolder(baseAllocate(number.size() + 1));
        if (!block) return 0.0;
    }
    char* bytes = block ? static_cast<char*>(block.get()) : usual;
    *std::copy(number.begin(), number.end(), bytes) = '\0';
    const double value = parse(bytes);
    return isNegative ? -value : value;
}
