// ICC profiles of three primaries and one curve, byte by byte.

#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/container_builder.h"

namespace test {

// Red, green and blue in XYZ under the light D50.
using Primaries = std::array<std::array<double, 3>, 3>;

constexpr Primaries kSrgbPrimaries = {
    {{0.43607, 0.22249, 0.01392}, {0.38515, 0.71687, 0.09708}, {0.14307, 0.06061, 0.71410}}};

// A profile with these primaries and, for all three channels, this curve: the content of a tag.
std::string iccProfile(const Primaries& primaries, std::string_view curve);

// Curves: of one exponent, and of the formula of that kind with these numbers.
std::string iccGamma(double exponent);
std::string iccFormula(int kind, const std::vector<double>& numbers);

// The JPEG stream with the profile in segments of at most so many bytes.
std::string withJpegProfile(const std::string& jpeg, const std::string& profile,
                            std::size_t pieceSize = 65000);

std::string iccSrgb();
std::string iccDisplayP3();  // which telephones write
std::string iccAdobeRgb();   // which cameras write if asked to

}  // namespace test
