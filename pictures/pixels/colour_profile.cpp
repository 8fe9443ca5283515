#include "pictures/pixels/colour_profile.h"

#include "pictures/byte_order.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace pinorama {
namespace {
using Matrix = std::array<std::array<double, 3>, 3>;
using Curve = std::array<double, 256>;

constexpr double kSameMatrix = 0.003;  // differences that nobody sees
constexpr double kSameLight = 0.009;   // of a gamma of 2.2, for which many stand that mean sRGB

// The primaries of sRGB in XYZ under the light D50, as its ICC profile has them; one per column.
constexpr Matrix kSrgb = {{{0.436066, 0.385147, 0.143066},
                           {0.222488, 0.716873, 0.060608},
                           {0.013916, 0.097076, 0.714096}}};

// From the light D65 to D50. Source: ICC.1:2022, Annex E, with the matrix of Bradford.
constexpr Matrix kD65ToD50 = {{{1.0478112, 0.0228866, -0.0501270},
                               {0.0295424, 0.9904844, -0.0170491},
                               {-0.0092345, 0.0150436, 0.7521316}}};

Matrix product(const Matrix& a, const Matrix& b)
{
    Matrix result{};
    for (std::size_t row = 0; row < 3; row++) {
        for (std::size_t column = 0; column < 3; column++) {
            for (std::size_t i = 0; i < 3; i++) result[row][column] += a[row][i] * b[i][column];
        }
    }
    return result;
}

// Nothing if the three columns are no base of all colours.
std::optional<Matrix> inverse(const Matrix& m)
{
    const auto cofactor = [&m](std::size_t row, std::size_t column) {
        const std::size_t r1 = (row + 1) % 3, r2 = (row + 2) % 3;
        const std::size_t c1 = (column + 1) % 3, c2 = (column + 2) % 3;
        return m[r1][c1] * m[r2][c2] - m[r1][c2] * m[r2][c1];
    };
    double determinant = 0;
    for (std::size_t i = 0; i < 3; i++) determinant += m[0][i] * cofactor(0, i);
    if (!(std::abs(determinant) > 1e-6)) return std::nullopt;
    Matrix result{};
    for (std::size_t row = 0; row < 3; row++) {
        for (std::size_t column = 0; column < 3; column++) {
            result[column][row] = cofactor(row, column) / determinant;
        }
    }
    return result;
}

double lightOfSrgb(double number)
{
    return number <= 0.04045 ? number / 12.92 : std::pow((number + 0.055) / 1.055, 2.4);
}

double numberOfSrgb(double light)
{
    return light <= 0.0031308 ? light * 12.92 : 1.055 * std::pow(light, 1 / 2.4) - 0.055;
}

// Lights of up to `peak` times white paper as lights of up to 1; dark ones hardly change.
double compressed(double light, double peak)
{
    return light * (1 + light / (peak * peak)) / (1 + light);
}

double lightOfPq(double number)
{
    constexpr double kPaper = 203.0 / 10000;
    constexpr double kPeak = 1000.0 / 203;
    const double root = std::pow(number, 1 / 78.84375);
    const double light = std::pow(std::max(root - 0.8359375, 0.0) / (18.8515625 - 18.6875 * root),
                                  1 / 0.1593017578125);
    return std::min(compressed(light / kPaper, kPeak), 1.0);
}

double lightOfHlg(double number)
{
    constexpr double kPaper = 0.203;  // of the peak of a screen of 1000 cd/m2
    const double scene = number <= 0.5
                             ? number * number / 3
                             : (std::exp((number - 0.55991073) / 0.17883277) + 0.28466892) / 12;
    return std::min(compressed(std::pow(scene, 1.2) / kPaper, 1 / kPaper), 1.0);
}

double lightOfCode(int transfer, double number)
{
    switch (transfer) {
    case 4: return std::pow(number, 2.2);
    case 5: return std::pow(number, 2.8);
    case 8: return number;
    case 16: return lightOfPq(number);
    case 17: return std::min(std::pow(number, 2.6) * (52.37 / 48), 1.0);
    case 18: return lightOfHlg(number);
    default: return lightOfSrgb(number);  // those of television are meant to be shown like it
    }
}

bool isKnownTransfer(int transfer)
{
    constexpr int kKnown[] = {1, 2, 4, 5, 6, 8, 13, 14, 15, 16, 17, 18};
    return std::find(std::begin(kKnown), std::end(kKnown), transfer) != std::end(kKnown);
}

// The primaries with that number in XYZ under D50.
std::optional<Matrix> primariesOfCode(int primaries)
{
    struct Places {
        int code;
        double x[3], y[3];
    };
    static constexpr Places kPlaces[] = {
        {5, {0.640, 0.290, 0.150}, {0.330, 0.600, 0.060}},
        {6, {0.630, 0.310, 0.155}, {0.340, 0.595, 0.070}},
        {7, {0.630, 0.310, 0.155}, {0.340, 0.595, 0.070}},
        {9, {0.708, 0.170, 0.131}, {0.292, 0.797, 0.046}},
        {12, {0.680, 0.265, 0.150}, {0.320, 0.690, 0.060}},
    };
    if (primaries == 1 || primaries == 2) return kSrgb;
    for (const Places& places : kPlaces) {
        if (places.code != primaries) continue;
        Matrix matrix{};
        for (std::size_t i = 0; i < 3; i++) {
            const double x = places.x[i], y = places.y[i];
            matrix[0][i] = x / y;
            matrix[1][i] = 1;
            matrix[2][i] = (1 - x - y) / y;
        }
        const auto inverted = inverse(matrix);
        if (!inverted) return std::nullopt;
        constexpr double kD65[3] = {0.3127 / 0.3290, 1, (1 - 0.3127 - 0.3290) / 0.3290};
        for (std::size_t i = 0; i < 3; i++) {
            double amount = 0;
            for (std::size_t j = 0; j < 3; j++) amount += (*inverted)[i][j] * kD65[j];
            for (auto& row : matrix) row[i] *= amount;
        }
        return product(kD65ToD50, matrix);
    }
    return std::nullopt;
}

// The tags of an ICC profile.
class IccTags {
public:
    explicit IccTags(ByteView profile) : profile_(profile) {}

    // Whether its numbers are red, green and blue, and its colours those of XYZ.
    bool isOfLights() const
    {
        return profile_.size() >= kTableAt + 4 && bigEndian32(&profile_[16]) == kRgb &&
               bigEndian32(&profile_[20]) == kXyz && bigEndian32(&profile_[36]) == kSignature;
    }

    // The content of a tag; empty when there is none.
    ByteView find(std::uint32_t tag) const
    {
        const std::size_t count = std::min<std::size_t>(bigEndian32(&profile_[kTableAt]), 100);
        for (std::size_t i = 0; i < count; i++) {
            const std::size_t entry = kTableAt + 4 + 12 * i;
            if (entry + 12 > profile_.size()) break;
            if (bigEndian32(&profile_[entry]) != tag) continue;
            const std::size_t offset = bigEndian32(&profile_[entry + 4]);
            const std::size_t length = bigEndian32(&profile_[entry + 8]);
            if (offset > profile_.size() || length > profile_.size() - offset) break;
            return profile_.subspan(offset, length);
        }
        return {};
    }

private:
    static constexpr std::size_t kTableAt = 128;
    static constexpr std::uint32_t kRgb = 0x52474220;        // "RGB "
    static constexpr std::uint32_t kXyz = 0x58595a20;        // "XYZ "
    static constexpr std::uint32_t kSignature = 0x61637370;  // "acsp"

    ByteView profile_;
};

double fixedPoint(const std::uint8_t* bytes)
{
    return static_cast<std::int32_t>(bigEndian32(bytes)) / 65536.0;
}

// A curve of values, or of a single exponent.
std::optional<Curve> curveOfTable(ByteView tag)
{
    const std::size_t count = bigEndian32(&tag[8]);
    if (count > (tag.size() - 12) / 2) return std::nullopt;
    const auto value = [&tag](std::size_t i) { return bigEndian16(&tag[12 + 2 * i]); };
    Curve curve;
    for (std::size_t i = 0; i < curve.size(); i++) {
        const double number = static_cast<double>(i) / 255;
        if (count == 0) {
            curve[i] = number;
        } else if (count == 1) {
            curve[i] = std::pow(number, value(0) / 256.0);
        } else {
            const double place = number * static_cast<double>(count - 1);
            const auto before = std::min(static_cast<std::size_t>(place), count - 2);
            const double part = place - static_cast<double>(before);
            curve[i] = (value(before) * (1 - part) + value(before + 1) * part) / 65535;
        }
    }
    return curve;
}

// One of the formulas with up to seven numbers, named as in the standard.
std::optional<Curve> curveOfFormula(ByteView tag)
{
    constexpr std::size_t kCounts[] = {1, 3, 4, 5, 7};
    const std::size_t kind = bigEndian16(&tag[8]);
    if (kind >= std::size(kCounts) || tag.size() < 12 + 4 * kCounts[kind]) return std::nullopt;
    double n[7] = {};
    for (std::size_t i = 0; i < kCounts[kind]; i++) n[i] = fixedPoint(&tag[12 + 4 * i]);
    const double g = n[0], a = kind == 0 ? 1 : n[1], b = n[2], c = n[3], d = n[4];
    Curve curve;
    for (std::size_t i = 0; i < curve.size(); i++) {
        const double x = static_cast<double>(i) / 255;
        const double power = std::pow(std::max(a * x + b, 0.0), g);
        switch (kind) {
        case 0: curve[i] = power; break;
        case 1: curve[i] = a * x + b >= 0 ? power : 0; break;
        case 2: curve[i] = (a * x + b >= 0 ? power : 0) + c; break;
        case 3: curve[i] = x >= d ? power : c * x; break;
        default: curve[i] = x >= d ? power + n[5] : c * x + n[6]; break;
        }
    }
    return curve;
}

std::optional<Curve> curveOf(ByteView tag)
{
    constexpr std::uint32_t kTable = 0x63757276;    // "curv"
    constexpr std::uint32_t kFormula = 0x70617261;  // "para"
    if (tag.size() < 12) return std::nullopt;
    std::optional<Curve> curve;
    if (bigEndian32(tag.data()) == kTable) curve = curveOfTable(tag);
    if (bigEndian32(tag.data()) == kFormula) curve = curveOfFormula(tag);
    if (!curve) return std::nullopt;
    for (double& light : *curve) {
        if (!std::isfinite(light)) return std::nullopt;
        light = std::clamp(light, 0.0, 1.0);
    }
    return curve;
}

// The numbers of sRGB for 0 to 1 of light, in equal steps fine enough for dark colours.
class SrgbNumbers {
public:
    SrgbNumbers()
    {
        for (std::size_t i = 0; i < numbers_.size(); i++) {
            const double light = static_cast<double>(i) / kSteps;
            numbers_[i] = static_cast<std::uint8_t>(std::lround(numberOfSrgb(light) * 255));
        }
    }

    std::uint32_t of(double light) const
    {
        return numbers_[static_cast<std::size_t>(std::clamp(light, 0.0, 1.0) * kSteps + 0.5)];
    }

private:
    static constexpr std::size_t kSteps = 4095;
    std::array<std::uint8_t, kSteps + 1> numbers_;
};
}  // namespace

std::optional<ColourProfile> ColourProfile::fromIcc(ByteView profile)
{
    // "rXYZ", "gXYZ", "bXYZ" and "rTRC", "gTRC", "bTRC".
    constexpr std::uint32_t kPrimaries[] = {0x7258595a, 0x6758595a, 0x6258595a};
    constexpr std::uint32_t kCurves[] = {0x72545243, 0x67545243, 0x62545243};
    const IccTags tags(profile);
    if (!tags.isOfLights()) return std::nullopt;
    ColourProfile found;
    Matrix toXyz{};
    for (std::size_t i = 0; i < 3; i++) {
        const ByteView primary = tags.find(kPrimaries[i]);
        const std::optional<Curve> curve = curveOf(tags.find(kCurves[i]));
        if (primary.size() < 20 || !curve) return std::nullopt;
        for (std::size_t j = 0; j < 3; j++) toXyz[j][i] = fixedPoint(&primary[8 + 4 * j]);
        found.light_[i] = *curve;
    }
    if (!inverse(toXyz)) return std::nullopt;
    found.toSrgb_ = product(*inverse(kSrgb), toXyz);
    return found;
}

std::optional<ColourProfile> ColourProfile::fromIcc(const ByteBlock& profile)
{
    const std::vector<std::uint8_t> bytes = copyOf(profile, kMaxProfileLength);
    return fromIcc(ByteView(bytes));
}

std::optional<ColourProfile> ColourProfile::fromCodes(int primaries, int transfer)
{
    const std::optional<Matrix> toXyz = primariesOfCode(primaries);
    if (!toXyz || !isKnownTransfer(transfer)) return std::nullopt;
    ColourProfile found;
    found.toSrgb_ = product(*inverse(kSrgb), *toXyz);
    for (std::size_t i = 0; i < 256; i++) {
        found.light_[0][i] = lightOfCode(transfer, static_cast<double>(i) / 255);
    }
    found.light_[1] = found.light_[2] = found.light_[0];
    if (found.isSrgb()) return std::nullopt;
    return found;
}

bool ColourProfile::isSrgb() const
{
    for (std::size_t row = 0; row < 3; row++) {
        for (std::size_t column = 0; column < 3; column++) {
            const double wanted = row == column ? 1 : 0;
            if (std::abs(toSrgb_[row][column] - wanted) > kSameMatrix) return false;
        }
    }
    for (std::size_t i = 0; i < 256; i++) {
        const double wanted = lightOfSrgb(static_cast<double>(i) / 255);
        for (const Curve& curve : light_) {
            if (std::abs(curve[i] - wanted) > kSameLight) return false;
        }
    }
    return true;
}

void ColourProfile::convertToSrgb(PixelImage& image) const
{
    if (isSrgb()) return;
    const SrgbNumbers numbers;
    for (std::uint32_t& pixel : image.pixels) {
        const std::uint32_t alpha = pixel >> 24;
        if (alpha == 0) continue;
        double light[3];
        for (std::size_t i = 0; i < 3; i++) {
            // Colours are stored multiplied by alpha.
            const std::uint32_t number = pixel >> (16 - 8 * i) & 0xff;
            light[i] = light_[i][std::min(alpha == 255 ? number : number * 255 / alpha, 255u)];
        }
        std::uint32_t converted = alpha << 24;
        for (std::size_t i = 0; i < 3; i++) {
            const auto& row = toSrgb_[i];
            const std::uint32_t number =
                numbers.of(row[0] * light[0] + row[1] * light[1] + row[2] * light[2]);
            converted |= (alpha == 255 ? number : (number * alpha + 127) / 255) << (16 - 8 * i);
        }
        pixel = converted;
    }
}

}  // namespace pinorama
