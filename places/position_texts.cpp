#include "places/position_texts.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string_view>

using namespace pinorama;

namespace {
bool isPosition(double latitude, double longitude)
{
    return std::abs(latitude) <= 90 && std::abs(longitude) <= 180;
}

// `value` without a sign, at least `width` digits.
std::string digits(std::int64_t value, std::size_t width)
{
    std::string text = std::to_string(std::abs(value));
    if (text.size() < width) text.insert(0, width - text.size(), '0');
    return text;
}

std::string angleText(double degrees, char positive, char negative)
{
    constexpr std::int64_t kSteps = 10000;  // in a minute
    const std::int64_t steps = std::llround(std::abs(degrees) * 60 * kSteps);
    std::string text(1, degrees < 0 && steps != 0 ? negative : positive);
    text += ' ' + digits(steps / (60 * kSteps), 1) + "° ";
    text += digits(steps / kSteps % 60, 1) + '.' + digits(steps % kSteps, 4) + '\'';
    return text;
}

// Six decimals; what is rounded to zero has no sign.
std::string decimalText(double degrees)
{
    constexpr std::int64_t kSteps = 1000000;
    const std::int64_t steps = std::llround(degrees * kSteps);
    return (steps < 0 ? "-" : "") + digits(steps / kSteps, 1) + '.' + digits(steps % kSteps, 6);
}

// Open Location Code: five pairs of digits to the base of 20, then digits that each divide a cell
// into five rows of four.
constexpr std::string_view kPlusDigits = "23456789CFGHJMPQRVWX";
constexpr int kPairs = 5;
constexpr int kGridDigits = 2;
constexpr std::int64_t kPairSteps = 8000;  // of the last pair, in a degree
constexpr int kRows = 5;
constexpr int kColumns = 4;
}  // namespace

std::string pinorama::degreesMinutesText(double latitude, double longitude)
{
    if (!isPosition(latitude, longitude)) return {};
    return angleText(latitude, 'N', 'S') + "   " + angleText(longitude, 'E', 'W');
}

std::string pinorama::geoAddress(double latitude, double longitude)
{
    if (!isPosition(latitude, longitude)) return {};
    const bool isPole = std::abs(latitude) == 90;
    return "geo:" + decimalText(latitude) + ',' + decimalText(isPole ? 0 : longitude);
}

std::string pinorama::plusCode(double latitude, double longitude)
{
    if (!isPosition(latitude, longitude)) return {};
    constexpr std::int64_t kLatitudeSteps = kPairSteps * kRows * kRows;
    constexpr std::int64_t kLongitudeSteps = kPairSteps * kColumns * kColumns;
    // 0.1 degrees must not fall below its cell for being stored as 0.09999.
    constexpr double kSlack = 1e-9;
    auto row = static_cast<std::int64_t>(std::floor((latitude + 90 + kSlack) * kLatitudeSteps));
    auto column =
        static_cast<std::int64_t>(std::floor((longitude + 180 + kSlack) * kLongitudeSteps));
    if (row >= 180 * kLatitudeSteps) row = 180 * kLatitudeSteps - 1;
    if (column >= 360 * kLongitudeSteps) column -= 360 * kLongitudeSteps;

    std::string code;  // from its end
    for (int digit = 0; digit < kGridDigits; ++digit) {
        code.insert(code.begin(), kPlusDigits[row % kRows * kColumns + column % kColumns]);
        row /= kRows;
        column /= kColumns;
    }
    for (int pair = 0; pair < kPairs; ++pair) {
        if (pair == 1) code.insert(code.begin(), '+');
        code.insert(code.begin(), kPlusDigits[column % 20]);
        code.insert(code.begin(), kPlusDigits[row % 20]);
        row /= 20;
        column /= 20;
    }
    return code;
}
