#include "pictures/xmp_values.h"

#include <charconv>
#include <cmath>

namespace pinorama {
namespace {
std::string_view trimmed(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n";
    const std::size_t start = text.find_first_not_of(kBlanks);
    if (start == text.npos) return {};
    return text.substr(start, text.find_last_not_of(kBlanks) + 1 - start);
}

// All of `text` as one number with digits and a point.
std::optional<double> plainNumber(std::string_view text)
{
    if (text.starts_with('+')) text.remove_prefix(1);
    double value = 0.0;
    const char* end = text.data() + text.size();
    const auto [stop, problem] = std::from_chars(text.data(), end, value, std::chars_format::fixed);
    if (problem != std::errc() || stop != end || !std::isfinite(value)) return std::nullopt;
    return value;
}

// Takes the part in front of the next comma off `text`, or all of it.
std::string_view takePart(std::string_view& text)
{
    const std::size_t comma = text.find(',');
    const std::string_view part = text.substr(0, comma);
    text.remove_prefix(comma == text.npos ? text.size() : comma + 1);
    return trimmed(part);
}

// Degrees, minutes and perhaps seconds, with commas between them.
std::optional<double> degreesOfParts(std::string_view text)
{
    double degrees = 0.0;
    double partsPerDegree = 1.0;
    for (int parts = 0; !text.empty(); parts++) {
        const std::optional<double> part = plainNumber(takePart(text));
        if (!part || *part < 0.0 || parts == 3) return std::nullopt;
        degrees += *part / partsPerDegree;
        partsPerDegree *= 60.0;
    }
    return degrees;
}

char upper(char letter)
{
    return letter >= 'a' && letter <= 'z' ? static_cast<char>(letter - 'a' + 'A') : letter;
}

// The letter that `text` is or begins with, if it is that of a hemisphere; else 0.
char letterOf(char letter, const char* letters)
{
    return upper(letter) == letters[0] || upper(letter) == letters[1] ? upper(letter) : '\0';
}
}  // namespace

std::optional<XmpCoordinate> coordinateOfXmp(std::string_view text, std::string_view reference,
                                             const char* letters, double max)
{
    text = trimmed(text);
    reference = trimmed(reference);
    if (text.empty()) return std::nullopt;
    XmpCoordinate found{0.0, letterOf(text.back(), letters)};
    std::optional<double> degrees;
    if (found.letter != 0) {
        text.remove_suffix(1);
        degrees = text.empty() ? std::nullopt : degreesOfParts(text);
    } else if ((degrees = plainNumber(text))) {
        found.letter = *degrees < 0.0 ? letters[1] : letters[0];
        if (!reference.empty() && letterOf(reference[0], letters) != 0) {
            found.letter = letterOf(reference[0], letters);
        }
        degrees = std::abs(*degrees);
    }
    if (!degrees || *degrees > max) return std::nullopt;
    found.degrees = *degrees;
    return found;
}

std::optional<double> numberOfXmp(std::string_view text)
{
    text = trimmed(text);
    const std::size_t stroke = text.find('/');
    if (stroke == text.npos) return plainNumber(text);
    const auto numerator = plainNumber(text.substr(0, stroke));
    const auto denominator = plainNumber(text.substr(stroke + 1));
    if (!numerator || !denominator || *denominator == 0.0) return std::nullopt;
    return *numerator / *denominator;
}

}  // namespace pinorama
