#include "app/address_template.h"

#include "platform/text/utf8.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace {
constexpr int kUsualDecimals = 6;
constexpr int kWidest = 64;          // characters; wider fields and more decimals are no address
constexpr int kLongestNumber = 512;  // a double has 309 digits before the point

struct Conversion {
    int position = 0;  // of its value, from 1; 0 takes the next in turn
    bool leftAligned = false;
    bool zeroPadded = false;
    char16_t plus = 0;  // what stands before a number that is not negative
    int width = 0;
    int decimals = kUsualDecimals;
    char16_t kind = 0;
};

class TemplateReader {
public:
    explicit TemplateReader(std::u16string_view text) : rest_(text) {}

    bool atEnd() const { return rest_.empty(); }
    char16_t next() const { return rest_.empty() ? u'\0' : rest_.front(); }

    char16_t take()
    {
        const char16_t unit = next();
        if (!rest_.empty()) rest_.remove_prefix(1);
        return unit;
    }

    // A run of digits; 0 when there is none, and -1 when it is larger than any use.
    int takeNumber()
    {
        int number = 0;
        while (next() >= u'0' && next() <= u'9') {
            number = number * 10 + (take() - u'0');
            if (number > kWidest) return -1;
        }
        return number;
    }

    // Up to the next percent sign or the end.
    std::u16string_view takePlainText()
    {
        const std::u16string_view text = rest_.substr(0, rest_.find(u'%'));
        rest_.remove_prefix(text.size());
        return text;
    }

    std::optional<Conversion> takeConversion();

private:
    void takeFlags(Conversion* conversion);

    std::u16string_view rest_;
};

void TemplateReader::takeFlags(Conversion* conversion)
{
    for (;; take()) {
        switch (next()) {
        case u'-': conversion->leftAligned = true; break;
        case u'0': conversion->zeroPadded = true; break;
        case u'+': conversion->plus = u'+'; break;
        case u' ':
            if (conversion->plus == 0) conversion->plus = u' ';
            break;
        default: return;
        }
    }
}

std::optional<Conversion> TemplateReader::takeConversion()
{
    take();  // the percent sign
    Conversion conversion;
    TemplateReader ahead(rest_);
    const int position = ahead.takeNumber();
    if (position > 0 && ahead.next() == u'$') {
        conversion.position = position;
        ahead.take();
        rest_ = ahead.rest_;
    }
    takeFlags(&conversion);
    conversion.width = takeNumber();
    if (next() == u'.') {
        take();
        conversion.decimals = takeNumber();
    }
    if (next() == u'l') take();  // "%lf" is "%f"
    conversion.kind = take();
    if (conversion.width < 0 || conversion.decimals < 0) return std::nullopt;
    return conversion;
}

std::u16string numberText(const Conversion& conversion, double value)
{
    std::array<char, kLongestNumber> digits{};
    const auto [end, error] = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                            std::chars_format::fixed, conversion.decimals);
    std::u16string text(digits.data(), end);
    if (conversion.plus != 0 && text.front() != u'-') text.insert(0, 1, conversion.plus);
    return text;
}

std::u16string padded(std::u16string text, const Conversion& conversion)
{
    const auto width = static_cast<std::size_t>(conversion.width);
    if (text.size() >= width) return text;
    const std::size_t missing = width - text.size();
    if (conversion.leftAligned) return text.append(missing, u' ');
    if (!conversion.zeroPadded || conversion.kind == u'@') return text.insert(0, missing, u' ');
    const bool hasSign = text.front() == u'-' || text.front() == u'+' || text.front() == u' ';
    return text.insert(hasSign ? 1 : 0, missing, u'0');
}

bool isLegalInAddress(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') ||
           (byte >= '0' && byte <= '9') ||
           std::string_view("-_.!~*'();/?:@&=+$,").find(byte) != std::string_view::npos;
}
}  // namespace

std::optional<std::u16string> app::fillTemplate(std::u16string_view addressTemplate,
                                                const std::vector<TemplateValue>& values)
{
    std::u16string filled;
    TemplateReader reader(addressTemplate);
    std::size_t turn = 0;
    while (!reader.atEnd()) {
        filled += reader.takePlainText();
        if (reader.atEnd()) break;
        const std::optional<Conversion> conversion = reader.takeConversion();
        if (!conversion) return std::nullopt;

        const std::size_t index =
            conversion->position > 0 ? static_cast<std::size_t>(conversion->position - 1) : turn++;
        if (index >= values.size()) return std::nullopt;
        const bool wantsNumber = conversion->kind == u'f' || conversion->kind == u'F';
        const double* number = std::get_if<double>(&values[index]);
        const std::u16string* text = std::get_if<std::u16string>(&values[index]);
        if (wantsNumber && number != nullptr) {
            filled += padded(numberText(*conversion, *number), *conversion);
        } else if (conversion->kind == u'@' && text != nullptr) {
            filled += padded(*text, *conversion);
        } else {
            return std::nullopt;
        }
    }
    return filled;
}

std::u16string app::escapeForAddress(std::u16string_view name)
{
    constexpr std::u16string_view kDigits = u"0123456789ABCDEF";
    std::u16string escaped;
    for (const char byte : platform::displayUTF8(name)) {
        if (isLegalInAddress(byte)) {
            escaped += static_cast<char16_t>(byte);
        } else {
            const auto value = static_cast<unsigned char>(byte);
            escaped += {u'%', kDigits[value >> 4], kDigits[value & 15]};
        }
    }
    return escaped;
}
