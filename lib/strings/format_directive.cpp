#include "lib/strings/format_directive.h"

#include <algorithm>

namespace {
constexpr std::u16string_view kConversions = u"@diuxXocCsfFeEgG%";
constexpr int kMaxNumber = 1000000;  // longer numbers in a template say nothing more

class Parser {
public:
    Parser(std::u16string_view format, std::size_t percentSign) : format_(format)
    {
        directive_.begin = percentSign;
        next_ = percentSign + 1;
    }

    FormatDirective parse()
    {
        parsePosition();
        parseFlags();
        parseWidth();
        parsePrecision();
        parseLength();
        if (kConversions.find(peek()) != std::u16string_view::npos && next_ < format_.size()) {
            directive_.conversion = peek();
            next_++;
        } else {
            next_ = directive_.begin + 1;  // what follows the percent sign is plain text
        }
        directive_.end = next_;
        return directive_;
    }

private:
    char16_t peek() const { return next_ < format_.size() ? format_[next_] : u'\0'; }
    bool isAtDigit() const { return peek() >= u'0' && peek() <= u'9'; }

    bool take(char16_t unit)
    {
        if (peek() != unit) return false;
        next_++;
        return true;
    }

    int takeNumber()
    {
        int number = 0;
        for (; isAtDigit(); next_++) number = std::min(number * 10 + (peek() - u'0'), kMaxNumber);
        return number;
    }

    void parsePosition()
    {
        const std::size_t start = next_;
        const int number = takeNumber();
        if (number > 0 && take(u'$')) {
            directive_.position = number - 1;
        } else {
            next_ = start;
        }
    }

    void parseFlags()
    {
        for (;; next_++) {
            switch (peek()) {
            case u'-': directive_.isLeftAligned = true; break;
            case u'+': directive_.showsPlus = true; break;
            case u' ': directive_.showsBlank = true; break;
            case u'#': directive_.showsForm = true; break;
            case u'0': directive_.fillsWithZeros = true; break;
            case u'\'': break;  // grouping is the locale's affair, which formats leave alone
            default: return;
            }
        }
    }

    void parseWidth()
    {
        directive_.takesWidth = take(u'*');
        if (!directive_.takesWidth) directive_.width = takeNumber();
    }

    void parsePrecision()
    {
        if (!take(u'.')) return;
        directive_.takesPrecision = take(u'*');
        directive_.precision = directive_.takesPrecision ? 0 : takeNumber();
    }

    void parseLength()
    {
        if (take(u'h')) {
            directive_.integerWidth = take(u'h') ? FormatWidth::bits8 : FormatWidth::bits16;
        } else if (take(u'l')) {
            directive_.isLong = !take(u'l');
            if (!directive_.isLong) directive_.integerWidth = FormatWidth::bits64;
        } else if (take(u'q') || take(u'j') || take(u'z') || take(u't')) {
            directive_.integerWidth = FormatWidth::bits64;
        }
    }

    std::u16string_view format_;
    std::size_t next_;
    FormatDirective directive_;
};
}  // namespace

std::optional<FormatDirective> nextFormatDirective(std::u16string_view format, std::size_t from)
{
    const std::size_t percentSign = format.find(u'%', from);
    if (percentSign == std::u16string_view::npos) return std::nullopt;
    return Parser(format, percentSign).parse();
}
