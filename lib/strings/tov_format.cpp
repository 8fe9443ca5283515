#include "lib/strings/tov_format.h"

#include "base/mac_roman.h"
#include "base/truncate.h"
#include "lib/strings/format_directive.h"
#include "lib/strings/format_number.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <cstring>
#include <limits>

using namespace pinorama;

namespace {
using pinorama::unitsOf;

bool isNumeric(const FormatArgument& argument)
{
    return argument.kind == FormatArgument::Kind::integer ||
           argument.kind == FormatArgument::Kind::number ||
           argument.kind == FormatArgument::Kind::character;
}

std::int64_t integerOf(const FormatArgument& argument)
{
    return argument.kind == FormatArgument::Kind::number ? baseTruncate(argument.number)
                                                         : argument.integer;
}

double doubleOf(const FormatArgument& argument)
{
    return argument.kind == FormatArgument::Kind::number ? argument.number
                                                         : static_cast<double>(argument.integer);
}

// Prints a template after the end of a text. After the first failure nothing more is printed.
class Renderer {
public:
    Renderer(TovStringRef target, std::span<const FormatArgument> arguments)
        : target_(target),
          firstLength_(static_cast<std::size_t>(target->length)),
          arguments_(arguments)
    {
    }

    bool render(std::u16string_view format)
    {
        std::size_t at = 0;
        while (const auto directive = nextFormatDirective(format, at)) {
            append(format.substr(at, directive->begin - at));
            if (directive->conversion == 0) {
                append(format.substr(directive->begin, directive->end - directive->begin));
            } else {
                print(*directive);
            }
            at = directive->end;
        }
        append(format.substr(at));
        return isComplete_;
    }

private:
    void append(std::u16string_view units)
    {
        isComplete_ = isComplete_ && appendUnits(target_, units);
    }

    char16_t* extend(std::size_t count)
    {
        char16_t* dest = nullptr;
        if (isComplete_ && count <= static_cast<std::size_t>(kMaxStringLength)) {
            dest = extendUnits(target_, static_cast<std::int32_t>(count));
        }
        isComplete_ = dest != nullptr;
        return dest;
    }

    void appendASCII(std::string_view text)
    {
        if (char16_t* dest = extend(text.size())) std::copy(text.begin(), text.end(), dest);
    }

    void appendMany(int count, char16_t unit)
    {
        if (count <= 0) return;
        if (char16_t* dest = extend(static_cast<std::size_t>(count))) {
            std::fill_n(dest, count, unit);
        }
    }

    const FormatArgument* nextArgument()
    {
        return next_ < arguments_.size() ? &arguments_[next_++] : nullptr;
    }

    // The argument that a * stands for; 0 if there is none.
    int takePlaces()
    {
        const FormatArgument* argument = nextArgument();
        if (argument == nullptr || !isNumeric(*argument)) return 0;
        constexpr std::int64_t kMax = std::numeric_limits<int>::max();
        return static_cast<int>(std::clamp<std::int64_t>(integerOf(*argument), -kMax, kMax));
    }

    void print(FormatDirective directive)
    {
        if (directive.takesWidth) {
            const int width = takePlaces();
            directive.isLeftAligned |= width < 0;
            directive.width = std::abs(width);
        }
        directive.width = std::min(directive.width, kMaxFormatPlaces);
        if (directive.takesPrecision) {
            const int precision = takePlaces();
            directive.precision = precision < 0 ? std::nullopt : std::optional(precision);
        }
        if (directive.conversion == u'%') return append(u"%");

        const FormatArgument* argument = nullptr;
        if (directive.position < 0) {
            argument = nextArgument();
        } else if (static_cast<std::size_t>(directive.position) < arguments_.size()) {
            argument = &arguments_[static_cast<std::size_t>(directive.position)];
        }
        if (argument != nullptr) printArgument(directive, *argument);
    }

    void printArgument(const FormatDirective& directive, const FormatArgument& argument)
    {
        const bool wantsText = directive.conversion == u'@' || directive.conversion == u's';
        if (wantsText == isNumeric(argument)) return;
        if (wantsText) return printText(directive, argument);

        FormatBuffer buffer;
        switch (directive.conversion) {
        case u'c':
        case u'C': return printCharacter(directive, integerOf(argument));
        case u'f':
        case u'F':
        case u'e':
        case u'E':
        case u'g':
        case u'G':
            return printNumber(directive, formatDouble(directive, doubleOf(argument), buffer));
        default:
            return printNumber(directive, formatInteger(directive, integerOf(argument), buffer));
        }
    }

    void printNumber(const FormatDirective& directive, const FormattedNumber& number)
    {
        const int length =
            static_cast<int>(number.sign.size() + number.digits.size()) + number.zeros;
        const int missing = std::max(directive.width - length, 0);
        const bool fills =
            directive.fillsWithZeros && number.canFillWithZeros && !directive.isLeftAligned;
        if (!directive.isLeftAligned && !fills) appendMany(missing, u' ');
        appendASCII(number.sign);
        appendMany(number.zeros + (fills ? missing : 0), u'0');
        appendASCII(number.digits);
        if (directive.isLeftAligned) appendMany(missing, u' ');
    }

    void printCharacter(const FormatDirective& directive, std::int64_t value)
    {
        const char16_t unit = directive.conversion == u'C'
                                  ? static_cast<char16_t>(value)
                                  : macRomanUnit(static_cast<std::uint8_t>(value));
        const int length = unit == 0 ? 0 : 1;
        const int missing = std::max(directive.width - length, 0);
        if (!directive.isLeftAligned) appendMany(missing, u' ');
        append({&unit, static_cast<std::size_t>(length)});
        if (directive.isLeftAligned) appendMany(missing, u' ');
    }

    void printText(const FormatDirective& directive, const FormatArgument& argument)
    {
        constexpr std::size_t kWhole = std::u16string_view::npos;
        const std::size_t most =
            directive.precision ? static_cast<std::size_t>(*directive.precision) : kWhole;
        if (argument.kind == FormatArgument::Kind::cString && argument.cString != nullptr) {
            // With a precision the bytes need no terminator.
            const std::size_t count =
                most == kWhole ? std::strlen(argument.cString) : strnlen(argument.cString, most);
            return printAligned(directive, count, [&] {
                if (char16_t* dest = extend(count)) {
                    decodeMacRoman({argument.cString, count}, dest);
                }
            });
        }
        const bool isNull =
            argument.kind == FormatArgument::Kind::cString || argument.text == nullptr;
        // The target as an argument counts as it was before anything was printed. Its units move
        // while it grows, so that they are looked up each time.
        const auto units = [&] {
            if (isNull) return kNull;
            const std::u16string_view all = unitsOf(argument.text);
            return argument.text == target_ ? all.substr(0, firstLength_) : all;
        };
        const std::size_t count = std::min(units().size(), most);
        printAligned(directive, count, [&] { append(units().substr(0, count)); });
    }

    template <typename Print>
    void printAligned(const FormatDirective& directive, std::size_t length, Print print)
    {
        const auto width = static_cast<std::size_t>(directive.width);
        const int missing = length < width ? static_cast<int>(width - length) : 0;
        if (!directive.isLeftAligned) appendMany(missing, u' ');
        print();
        if (directive.isLeftAligned) appendMany(missing, u' ');
    }

    static constexpr std::u16string_view kNull = u"(null)";

    TovStringRef target_;
    std::size_t firstLength_;
    std::span<const FormatArgument> arguments_;
    std::size_t next_ = 0;
    bool isComplete_ = true;
};

constexpr std::size_t kMaxArguments = 32;  // that a template of the program can take

// The arguments of a template, read one after the other.
class ArgumentList {
public:
    ArgumentList(std::u16string_view format, std::va_list arguments)
    {
        std::size_t at = 0;
        while (const auto directive = nextFormatDirective(format, at)) {
            note(*directive);
            at = directive->end;
        }
        std::va_list list;
        va_copy(list, arguments);
        // After a gap the type, and so the place, of the next argument is unknown.
        while (count_ < kMaxArguments && types_[count_] != Type::unknown) {
            arguments_[count_] = read(types_[count_], list);
            count_++;
        }
        va_end(list);
    }

    std::span<const FormatArgument> arguments() const { return {arguments_.data(), count_}; }

private:
    enum class Type {
        unknown,
        integer,
        longInteger,
        wideInteger,
        number,
        character,
        text,
        cString
    };

    void note(const FormatDirective& directive)
    {
        if (directive.takesWidth) note(next_++, Type::integer);
        if (directive.takesPrecision) note(next_++, Type::integer);
        if (directive.conversion == 0 || directive.conversion == u'%') return;
        const std::size_t position =
            directive.position < 0 ? next_++ : static_cast<std::size_t>(directive.position);
        note(position, typeOf(directive));
    }

    void note(std::size_t position, Type type)
    {
        if (position < kMaxArguments && types_[position] == Type::unknown) types_[position] = type;
    }

    static Type typeOf(const FormatDirective& directive)
    {
        switch (directive.conversion) {
        case u'@': return Type::text;
        case u's': return Type::cString;
        case u'c': return Type::character;
        case u'C': return Type::integer;
        case u'f':
        case u'F':
        case u'e':
        case u'E':
        case u'g':
        case u'G': return Type::number;
        default: break;
        }
        if (directive.integerWidth == FormatWidth::bits64) return Type::wideInteger;
        return directive.isLong ? Type::longInteger : Type::integer;
    }

    static FormatArgument read(Type type, std::va_list& arguments)
    {
        switch (type) {
        case Type::text: return FormatArgument(va_arg(arguments, TovStringRef));
        case Type::cString: return FormatArgument(va_arg(arguments, const char*));
        case Type::number: return FormatArgument(va_arg(arguments, double));
        case Type::character: return FormatArgument(static_cast<char>(va_arg(arguments, int)));
        case Type::longInteger: return FormatArgument(va_arg(arguments, long));
        case Type::wideInteger: return FormatArgument(va_arg(arguments, long long));
        case Type::integer:
        case Type::unknown: break;
        }
        return FormatArgument(va_arg(arguments, int));
    }

    std::array<Type, kMaxArguments> types_{};
    std::array<FormatArgument, kMaxArguments> arguments_;
    std::size_t next_ = 0;
    std::size_t count_ = 0;
};
}  // namespace

bool tovAppendFormat(TovStringRef* target, std::u16string_view format,
                     std::span<const FormatArgument> arguments)
{
    if (target == nullptr || *target == nullptr || !(*target)->isMutable) return false;
    const std::int32_t length = (*target)->length;
    const bool isComplete = Renderer(*target, arguments).render(format);
    if (!isComplete) (*target)->length = length;
    return isComplete;
}

TovStringRef tovFormat(std::u16string_view format, std::span<const FormatArgument> arguments)
{
    StringHolder text(TovStringCreateMutable());
    if (!text || !Renderer(text.get(), arguments).render(format)) return nullptr;
    text.get()->isMutable = false;
    return text.take();
}

TovStringRef tovFormatList(std::u16string_view format, std::va_list arguments)
{
    return tovFormat(format, ArgumentList(format, arguments).arguments());
}

TovStringRef TovStringCreateWithFormat(TovStringRef format, ...)
{
    if (format == nullptr) return nullptr;
    std::va_list arguments;
    va_start(arguments, format);
    TovStringRef text = tovFormatList(unitsOf(format), arguments);
    va_end(arguments);
    return text;
}
