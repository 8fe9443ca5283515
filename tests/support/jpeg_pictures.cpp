#include "tests/support/jpeg_pictures.h"

#include "tests/support/jpeg_encoder.h"
#include "tests/support/picture_builder.h"

#include <algorithm>
#include <array>
#include <cstdlib>

using namespace pinorama;

namespace {
constexpr int kQuality = 95;

std::uint8_t channel(std::uint32_t pixel, int shift)
{
    return static_cast<std::uint8_t>(pixel >> shift);
}

int channelsOf(test::JpegKind kind)
{
    switch (kind) {
    case test::JpegKind::gray: return 1;
    case test::JpegKind::cmykOfAdobe:
    case test::JpegKind::cmyk: return 4;
    default: return 3;
    }
}

// The samples of a pixel, as many as its kind has channels.
std::array<std::uint8_t, 4> samplesOf(std::uint32_t pixel, test::JpegKind kind)
{
    const std::uint8_t red = channel(pixel, 16);
    const std::uint8_t green = channel(pixel, 8);
    const std::uint8_t blue = channel(pixel, 0);
    if (kind != test::JpegKind::cmyk) {
        return {red, green, blue, 255};  // of inks what is left of the paper; no black ink
    }
    const auto ink = [](std::uint8_t value) { return static_cast<std::uint8_t>(255 - value); };
    return {ink(red), ink(green), ink(blue), 0};
}
}  // namespace

std::string test::jpegOfQuarters(int width, int height, const JpegOptions& options)
{
    const JpegEncoding encoding{.width = width,
                                .height = height,
                                .channels = channelsOf(options.kind),
                                .quality = kQuality,
                                .isProgressive = options.kind == JpegKind::progressive,
                                .namesAdobe = options.kind != JpegKind::cmyk,
                                .exif = options.exif};
    const auto fillRow = [&](int y, std::span<std::uint8_t> row) {
        for (int x = 0; x < width; x++) {
            const int corner = (y >= (height + 1) / 2 ? 2 : 0) + (x >= (width + 1) / 2 ? 1 : 0);
            const auto samples = samplesOf(options.corners[corner], options.kind);
            std::copy_n(samples.begin(), encoding.channels, row.begin() + x * encoding.channels);
        }
    };
    return encodeJpeg(encoding, fillRow);
}

std::string test::exifWithThumbnail(int orientation, const std::string& thumbnail)
{
    constexpr ByteOrder order = ByteOrder::big;
    constexpr std::uint32_t firstDirectory = 8;
    std::vector<TiffField> fields;
    if (orientation != 0) {
        fields.push_back(shortField(order, 0x0112, static_cast<std::uint16_t>(orientation)));
    }
    std::string first = tiffDirectory(order, firstDirectory, fields);
    std::string block = "MM" + bytes16(order, 42) + bytes32(order, firstDirectory);
    if (thumbnail.empty()) return block + first;

    const auto second = static_cast<std::uint32_t>(firstDirectory + first.size());
    const auto linkPlace = 2 + 12 * fields.size();  // after the count and the entries
    first.replace(linkPlace, 4, bytes32(order, second));
    const auto directoryOf = [&](std::uint32_t thumbnailOffset) {
        return tiffDirectory(
            order, second,
            {shortField(order, 0x0103, 6), longField(order, 0x0201, thumbnailOffset),
             longField(order, 0x0202, static_cast<std::uint32_t>(thumbnail.size()))});
    };
    const auto offset = static_cast<std::uint32_t>(second + directoryOf(0).size());
    return block + first + directoryOf(offset) + thumbnail;
}

std::vector<std::uint32_t> test::quartersOf(const PixelImage& image)
{
    std::vector<std::uint32_t> colors;
    for (const int row : {1, 3}) {
        for (const int column : {1, 3}) {
            const int x = image.width * column / 4;
            const int y = image.height * row / 4;
            colors.push_back(image.pixels.at(static_cast<std::size_t>(y) * image.width + x));
        }
    }
    return colors;
}

bool test::isNear(std::uint32_t a, std::uint32_t b, int tolerance)
{
    for (const int shift : {0, 8, 16, 24}) {
        if (std::abs(channel(a, shift) - channel(b, shift)) > tolerance) return false;
    }
    return true;
}

bool test::areNear(const std::vector<std::uint32_t>& a, const std::vector<std::uint32_t>& b,
                   int tolerance)
{
    if (a.size() != b.size()) return false;
    for (std::size_t i = 0; i < a.size(); i++) {
        if (!isNear(a[i], b[i], tolerance)) return false;
    }
    return true;
}
