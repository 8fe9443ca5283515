// JPEG pictures for tests of previews, with four corners of different colours, which distinguish a
// rotated or mirrored picture from the upright one.

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "pictures/pixels/pixel_image.h"

namespace test {

// How a test picture is encoded.
enum class JpegKind { baseline, progressive, gray, cmykOfAdobe, cmyk };

struct JpegOptions {
    JpegKind kind = JpegKind::baseline;
    std::string exif{};  // a TIFF block; empty: none
    std::uint32_t corners[4] = {0xffff0000, 0xff00ff00, 0xff0000ff, 0xffffff00};
};

// The colours of the corners, named after their corner in a picture with default options.
constexpr std::uint32_t kRed = 0xffff0000;     // top left
constexpr std::uint32_t kGreen = 0xff00ff00;   // top right
constexpr std::uint32_t kBlue = 0xff0000ff;    // bottom left
constexpr std::uint32_t kYellow = 0xffffff00;  // bottom right

// A JPEG picture whose quarters have the colours of the corners.
std::string jpegOfQuarters(int width, int height, const JpegOptions& options = {});

// A TIFF block with the orientation (none when 0) and, unless empty, a thumbnail in its second
// directory.
std::string exifWithThumbnail(int orientation, const std::string& thumbnail);

// The colours in the middle of the four quarters, from left to right and from top to bottom.
std::vector<std::uint32_t> quartersOf(const pinorama::PixelImage& image);

// True when no channel of the two differs by more than `tolerance`.
bool isNear(std::uint32_t a, std::uint32_t b, int tolerance = 12);

// The same for lists of one length.
bool areNear(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b,
             int tolerance = 12);

}  // namespace test
