#include "tests/support/icc_profiles.h"

#include <cmath>
#include <cstdint>

namespace {
using namespace std::string_literals;

std::string fixedPoint(double value)
{
    return test::big32(static_cast<std::uint32_t>(std::lround(value * 65536)));
}

std::string formulaOfSrgb()
{
    return test::iccFormula(3, {2.4, 1 / 1.055, 0.055 / 1.055, 1 / 12.92, 0.04045});
}
}  // namespace

std::string test::iccProfile(const Primaries& primaries, std::string_view curve)
{
    constexpr std::size_t kHeader = 128;
    constexpr std::size_t kEntries = 6;
    constexpr std::size_t kPrimary = 20;
    constexpr const char* kTags[kEntries] = {"rXYZ", "gXYZ", "bXYZ", "rTRC", "gTRC", "bTRC"};
    const std::size_t dataStart = kHeader + 4 + 12 * kEntries;
    std::string table = big32(kEntries);
    std::string data;
    for (std::size_t i = 0; i < kEntries; i++) {
        const bool isCurve = i >= 3;
        const std::size_t offset = dataStart + (isCurve ? 3 : i) * kPrimary;
        table += kTags[i] + big32(static_cast<std::uint32_t>(offset)) +
                 big32(static_cast<std::uint32_t>(isCurve ? curve.size() : kPrimary));
        if (isCurve) continue;
        data += "XYZ \0\0\0\0"s;
        for (const double value : primaries[i]) data += fixedPoint(value);
    }
    data += curve;
    std::string header = big32(static_cast<std::uint32_t>(dataStart + data.size())) +
                         "test\x04\0\0\0mntrRGB XYZ "s + std::string(12, '\0') + "acsp";
    header.resize(kHeader, '\0');
    return header + table + data;
}

std::string test::iccGamma(double exponent)
{
    return "curv\0\0\0\0"s + big32(1) +
           big16(static_cast<std::uint32_t>(std::lround(exponent * 256)));
}

std::string test::iccFormula(int kind, const std::vector<double>& numbers)
{
    std::string formula = "para\0\0\0\0"s + big16(static_cast<std::uint32_t>(kind)) + big16(0);
    for (const double number : numbers) formula += fixedPoint(number);
    return formula;
}

std::string test::withJpegProfile(const std::string& jpeg, const std::string& profile,
                                  std::size_t pieceSize)
{
    const std::size_t count = (profile.size() + pieceSize - 1) / pieceSize;
    std::string segments;
    for (std::size_t i = 0; i < count; i++) {
        const std::string piece = "ICC_PROFILE\0"s + static_cast<char>(i + 1) +
                                  static_cast<char>(count) +
                                  profile.substr(i * pieceSize, pieceSize);
        segments += "\xff\xe2" + big16(static_cast<std::uint32_t>(piece.size() + 2)) + piece;
    }
    return jpeg.substr(0, 2) + segments + jpeg.substr(2);
}

std::string test::iccSrgb()
{
    return iccProfile(kSrgbPrimaries, formulaOfSrgb());
}

std::string test::iccDisplayP3()
{
    return iccProfile(
        {{{0.51512, 0.24120, -0.00105}, {0.29198, 0.69225, 0.04189}, {0.15710, 0.06657, 0.78407}}},
        formulaOfSrgb());
}

std::string test::iccAdobeRgb()
{
    return iccProfile(
        {{{0.60974, 0.31111, 0.01947}, {0.20528, 0.62567, 0.06087}, {0.14919, 0.06322, 0.74457}}},
        iccGamma(2.19921875));
}
