#include "cli/text_block.h"

#include "base/printable.h"

#include <charconv>
#include <cmath>
#include <iterator>
#include <string_view>

namespace pinorama {
namespace {
constexpr std::size_t kValueColumn = 14;

void appendLine(std::string_view caption, std::string_view value, std::string* out)
{
    *out += caption;
    *out += ':';
    if (!value.empty()) {
        out->append(kValueColumn - caption.size() - 1, ' ');
        appendPrintable(value, out);
    }
    *out += '\n';
}

std::string rounded(double number)
{
    return std::to_string(std::llround(number));
}

// Six decimals with a point in every locale; zero has no sign.
std::string sixDecimals(double degrees)
{
    constexpr double kUnit = 1e6;
    char digits[32];
    const auto end =
        std::to_chars(std::begin(digits), std::end(digits),
                      std::round(degrees * kUnit) / kUnit + 0.0, std::chars_format::fixed, 6);
    return {digits, end.ptr};
}

// The time of ISO 8601 in two words, for people.
std::string spaced(std::string time)
{
    const std::size_t middle = time.find('T');
    if (middle != time.npos) time[middle] = ' ';
    return time;
}

std::string_view textOr(const std::optional<std::string>& text)
{
    return text ? std::string_view(*text) : std::string_view();
}
}  // namespace

void appendTextBlock(const FileReport& report, std::string* out)
{
    appendLine("Path", report.path, out);
    appendLine("Name", report.name, out);
    appendLine("Size", report.sizeText, out);
    appendLine("Modified", report.modified, out);
    appendLine("Created", report.created, out);
    if (!report.taken.empty()) appendLine("Taken", spaced(report.taken), out);
    appendLine("Coordinate", report.coordinate, out);
    if (report.position) {
        appendLine(
            "Decimal",
            sixDecimals(report.position->latitude) + ", " + sixDecimals(report.position->longitude),
            out);
    }
    appendLine("Altitude", report.altitudeText, out);
    appendLine("Direction", report.direction, out);
    if (report.namedPlace) appendLine("Place", report.namedPlace->words, out);
    if (report.nearness) {
        appendLine("Distance", rounded(report.nearness->metres) + " m", out);
        appendLine("Bearing", rounded(report.nearness->bearing) + "\u00b0", out);
    }
    const PlaceReport none{};
    const PlaceReport& place = report.place ? *report.place : none;
    appendLine("City", textOr(place.city), out);
    appendLine("State", textOr(place.state), out);
    appendLine("Country", textOr(place.country), out);
    appendLine("Caption", textOr(place.description), out);
}

}  // namespace pinorama
