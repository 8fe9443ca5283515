#include "tests/support/jpeg_pictures.h"

#include "tests/support/picture_builder.h"

#include <cstdio>  // jpeglib.h needs it before itself

#include <jpeglib.h>

#include <cstdlib>

namespace {
constexpr int kMarkerOfExif = JPEG_APP0 + 1;

std::uint8_t channel(std::uint32_t pixel, int shift)
{
    return static_cast<std::uint8_t>(pixel >> shift);
}

void appendPixel(std::uint32_t pixel, test::JpegKind kind, std::vector<JSAMPLE>* row)
{
    const std::uint8_t rgb[] = {channel(pixel, 16), channel(pixel, 8), channel(pixel, 0)};
    switch (kind) {
    case test::JpegKind::gray: row->push_back(rgb[0]); break;
    case test::JpegKind::cmykOfAdobe:  // what is left of the paper; no black ink
        row->insert(row->end(), std::begin(rgb), std::end(rgb));
        row->push_back(255);
        break;
    case test::JpegKind::cmyk:
        for (const std::uint8_t value : rgb) row->push_back(static_cast<JSAMPLE>(255 - value));
        row->push_back(0);
        break;
    default: row->insert(row->end(), std::begin(rgb), std::end(rgb));
    }
}

void setUp(jpeg_compress_struct* info, test::JpegKind kind)
{
    const bool hasInks = kind == test::JpegKind::cmyk || kind == test::JpegKind::cmykOfAdobe;
    const bool isGray = kind == test::JpegKind::gray;
    info->input_components = hasInks ? 4 : isGray ? 1 : 3;
    info->in_color_space = hasInks ? JCS_CMYK : isGray ? JCS_GRAYSCALE : JCS_RGB;
    jpeg_set_defaults(info);
    jpeg_set_quality(info, 95, TRUE);
    if (kind == test::JpegKind::progressive) jpeg_simple_progression(info);
    if (kind == test::JpegKind::cmyk) info->write_Adobe_marker = FALSE;
}
}  // namespace

std::string test::jpegOfQuarters(int width, int height, const JpegOptions& options)
{
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &bytes, &size);
    info.image_width = static_cast<JDIMENSION>(width);
    info.image_height = static_cast<JDIMENSION>(height);
    setUp(&info, options.kind);
    jpeg_start_compress(&info, TRUE);
    if (!options.exif.empty()) {
        const std::string content = std::string("Exif\0\0", 6) + options.exif;
        jpeg_write_marker(&info, kMarkerOfExif, reinterpret_cast<const JOCTET*>(content.data()),
                          static_cast<unsigned>(content.size()));
    }
    for (int y = 0; y < height; y++) {
        std::vector<JSAMPLE> row;
        for (int x = 0; x < width; x++) {
            const int corner = (y >= (height + 1) / 2 ? 2 : 0) + (x >= (width + 1) / 2 ? 1 : 0);
            appendPixel(options.corners[corner], options.kind, &row);
        }
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    std::string result(reinterpret_cast<char*>(bytes), size);
    jpeg_destroy_compress(&info);
    std::free(bytes);
    return result;
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
    const auto linkPlace = 2 + 12 * fields.size();  // behind the count and the entries
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

std::vector<std::uint32_t> test::quartersOf(const platform::PixelImage& image)
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
