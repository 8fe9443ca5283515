#include "lib/text/region_formats.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <chrono>
#include <cmath>
#include <cstring>

using namespace pinorama;

namespace {
using pinorama::RegionFormats;

constexpr std::int64_t kFirstSecond = -2082844800;  // 1904-01-01
constexpr std::int64_t kEndSecond = 2240611200;     // 2041-01-01
constexpr double kLargestNumber = 1e15;
constexpr int kMostFractionDigits = 9;
constexpr std::size_t kThousands = 3;  // digits

// The list's text at `index`; texts are followed by 0 each.
std::u16string_view textAt(std::u16string_view list, unsigned index)
{
    for (; index > 0; index--) list.remove_prefix(std::min(list.find(u'\0'), list.size() - 1) + 1);
    return list.substr(0, list.find(u'\0'));
}

// Appends to a given place; remembers when something did not fit.
class Writer {
public:
    Writer(std::span<char16_t> dest, std::u16string_view zero) : dest_(dest), zero_(zero) {}

    void add(std::u16string_view units)
    {
        if (units.size() > dest_.size() - count_) hasFailed_ = true;
        if (hasFailed_) return;
        std::copy(units.begin(), units.end(), dest_.begin() + static_cast<std::ptrdiff_t>(count_));
        count_ += units.size();
    }

    // A digit of the region; beyond U+FFFF the second half of the pair counts.
    void addDigit(int digit)
    {
        if (zero_.empty()) return;
        add(zero_.substr(0, zero_.size() - 1));
        const char16_t last = static_cast<char16_t>(zero_.back() + digit);
        add({&last, 1});
    }

    void addNumber(unsigned value, std::size_t leastDigits)
    {
        char text[16];
        const std::size_t count =
            static_cast<std::size_t>(std::to_chars(text, text + sizeof text, value).ptr - text);
        for (std::size_t i = count; i < leastDigits; i++) addDigit(0);
        for (std::size_t i = 0; i < count; i++) addDigit(text[i] - '0');
    }

    std::size_t count() const { return hasFailed_ ? 0 : count_; }

private:
    std::span<char16_t> dest_;
    std::u16string_view zero_;
    std::size_t count_ = 0;
    bool hasFailed_ = false;
};

struct Moment {
    unsigned year, month, day, hour, minute;
};

Moment momentAt(std::int64_t seconds)
{
    using namespace std::chrono;
    const sys_seconds instant{std::chrono::seconds(seconds)};
    const sys_days date = floor<days>(instant);
    const year_month_day calendar(date);
    const hh_mm_ss clock(instant - date);
    return {static_cast<unsigned>(static_cast<int>(calendar.year())),
            static_cast<unsigned>(calendar.month()), static_cast<unsigned>(calendar.day()),
            static_cast<unsigned>(clock.hours().count()),
            static_cast<unsigned>(clock.minutes().count())};
}

// A letter of the pattern that stands there `count` times.
void addField(const RegionFormats& formats, const Moment& moment, char16_t letter,
              std::size_t count, Writer* out)
{
    switch (letter) {
    case u'y': out->addNumber(moment.year, count); break;
    case u'M':
        if (count > 2) {
            out->add(textAt(formats.months, moment.month - 1));
        } else {
            out->addNumber(moment.month, count);
        }
        break;
    case u'd': out->addNumber(moment.day, count); break;
    case u'h': out->addNumber(moment.hour % 12 == 0 ? 12 : moment.hour % 12, count); break;
    case u'H': out->addNumber(moment.hour, count); break;
    case u'm': out->addNumber(moment.minute, count); break;
    case u'a':
    case u'B': out->add(textAt(formats.dayPeriods, moment.hour)); break;
    default: break;
    }
}

bool isLetter(char16_t unit)
{
    return (unit >= u'a' && unit <= u'z') || (unit >= u'A' && unit <= u'Z');
}

// A number in decimal, the fraction rounded.
struct Decimal {
    std::array<char, 40> digits;  // those of the fraction too, without a point
    std::size_t count;
    std::size_t wholeCount;
};

// Adds one to the last digit; the first one, which is 0, takes what is carried over.
void increment(std::span<char> digits)
{
    std::size_t i = digits.size() - 1;
    while (digits[i] == '9') digits[i--] = '0';
    digits[i]++;
}

Decimal decimalOf(double value, std::size_t fractionDigits)
{
    char text[400];
    const char* const begin = text;
    const char* const end =
        std::to_chars(text, text + sizeof text, value, std::chars_format::fixed).ptr;
    const char* const point = std::find(begin, end, '.');
    const char* const fraction = point == end ? end : point + 1;

    Decimal decimal{};
    char* out = decimal.digits.data();
    *out++ = '0';
    out = std::copy(begin, point, out);
    const std::size_t given = static_cast<std::size_t>(end - fraction);
    const std::size_t kept = std::min(given, fractionDigits);
    out = std::copy_n(fraction, kept, out);
    out = std::fill_n(out, fractionDigits - kept, '0');
    decimal.count = static_cast<std::size_t>(out - decimal.digits.data());
    decimal.wholeCount = decimal.count - fractionDigits;

    const std::string_view rest(fraction + kept, given - kept);
    const bool isTie = rest == "5";
    const bool isOdd = (decimal.digits[decimal.count - 1] - '0') % 2 != 0;
    if (!rest.empty() && (isTie ? isOdd : rest.front() >= '5')) {
        increment(std::span(decimal.digits).first(decimal.count));
    }
    return decimal;
}
}  // namespace

std::size_t pinorama::writeDateAndTime(const RegionFormats& formats, std::int64_t seconds,
                                       std::span<char16_t> dest)
{
    if (seconds < kFirstSecond || seconds >= kEndSecond) return 0;
    const Moment moment = momentAt(seconds);
    Writer out(dest, textAt(formats.numbers, 0));
    const std::u16string_view pattern = formats.dateAndTime;
    bool isQuoted = false;
    for (std::size_t i = 0; i < pattern.size();) {
        const std::size_t next = std::min(pattern.find_first_not_of(pattern[i], i), pattern.size());
        if (pattern[i] == u'\'') {
            isQuoted = !isQuoted;
            i++;
        } else if (isQuoted || !isLetter(pattern[i])) {
            out.add(pattern.substr(i++, 1));
        } else {
            addField(formats, moment, pattern[i], next - i, &out);
            i = next;
        }
    }
    return out.count();
}

std::size_t pinorama::writeNumber(const RegionFormats& formats, double value, int fractionDigits,
                                  std::span<char16_t> dest)
{
    if (!(value >= 0.0 && value <= kLargestNumber) || std::signbit(value)) return 0;
    if (fractionDigits < 0 || fractionDigits > kMostFractionDigits) return 0;
    const Decimal decimal = decimalOf(value, static_cast<std::size_t>(fractionDigits));
    const std::u16string_view separator = textAt(formats.numbers, 1);
    const std::u16string_view groupSeparator = textAt(formats.numbers, 2);
    const std::u16string_view groupSize = textAt(formats.numbers, 3);
    if (groupSize.empty()) return 0;

    // The digit in front is there for what was carried over.
    const std::size_t first = decimal.digits[0] == '0' && decimal.wholeCount > 1 ? 1 : 0;
    Writer out(dest, textAt(formats.numbers, 0));
    for (std::size_t i = first; i < decimal.count; i++) {
        const std::size_t left = decimal.wholeCount - i;
        if (i == decimal.wholeCount) {
            out.add(separator);
        } else if (i > first && i < decimal.wholeCount && left >= kThousands &&
                   (left - kThousands) % groupSize.front() == 0) {
            out.add(groupSeparator);
        }
        out.addDigit(decimal.digits[i] - '0');
    }
    return out.count();
}
