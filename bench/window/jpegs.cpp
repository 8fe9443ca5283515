#include "bench/window/jpegs.h"

#include "tests/support/picture_builder.h"

#include <algorithm>
#include <cmath>
#include <csetjmp>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it before itself
#include <cstdlib>
#include <vector>

#include <jpeglib.h>

namespace {
constexpr int kQuality = 92;
constexpr int kLargeWidth = 6000;
constexpr int kLargeHeight = 4000;
constexpr int kThumbnailWidth = 160;
constexpr int kThumbnailHeight = 107;
constexpr int kMostNoise = 24;
constexpr std::uint32_t kSeed = 12345;

std::string encode(int width, int height)
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
    info.input_components = 3;
    info.in_color_space = JCS_RGB;
    jpeg_set_defaults(&info);
    jpeg_set_quality(&info, kQuality, TRUE);
    jpeg_start_compress(&info, TRUE);

    std::vector<JSAMPLE> row(static_cast<std::size_t>(width) * 3);
    std::uint32_t random = kSeed;
    for (int y = 0; y < height; y++) {
        for (std::size_t i = 0; i < row.size(); i++) {
            random = random * 1664525u + 1013904223u;
            const int noise = static_cast<int>(random >> 16) % kMostNoise;
            const int slope = static_cast<int>(i / 3) * 100 / width + y * 100 / height;
            row[i] = static_cast<JSAMPLE>(slope + noise);
        }
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    std::string jpeg(reinterpret_cast<const char*>(bytes), size);
    jpeg_destroy_compress(&info);
    std::free(bytes);
    return jpeg;
}

struct Errors {
    jpeg_error_mgr base;
    std::jmp_buf leave;
};

[[noreturn]] void leaveOnError(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<Errors*>(info->err)->leave, 1);
}

void keepSilent(j_common_ptr /*info*/) {}
}  // namespace

std::string bench::largeJpeg(bool withThumbnail)
{
    std::string jpeg = encode(kLargeWidth, kLargeHeight);
    if (!withThumbnail) return jpeg;
    using namespace test;
    // TIFF: an empty first directory, then one with the thumbnail behind it.
    const std::string thumbnail = encode(kThumbnailWidth, kThumbnailHeight);
    constexpr std::uint32_t kFirst = 8;
    constexpr std::uint32_t kSecond = kFirst + 6;
    constexpr std::uint32_t kData = kSecond + 2 + 3 * 12 + 4;
    const auto length = static_cast<std::uint32_t>(thumbnail.size());
    std::string tiff = std::string("II*\0", 4) + bytes32(ByteOrder::little, kFirst) +
                       bytes16(ByteOrder::little, 0) + bytes32(ByteOrder::little, kSecond);
    tiff += tiffDirectory(
        ByteOrder::little, kSecond,
        {shortField(ByteOrder::little, 0x0103, 6), longField(ByteOrder::little, 0x0201, kData),
         longField(ByteOrder::little, 0x0202, length)});
    tiff += thumbnail;
    return jpeg.insert(2, exifSegment(tiff));
}

std::uint64_t bench::decodeReduced(const std::string& jpeg, unsigned side)
{
    jpeg_decompress_struct info = {};
    Errors errors = {};
    std::vector<JSAMPLE> row;
    info.err = jpeg_std_error(&errors.base);
    errors.base.error_exit = leaveOnError;
    errors.base.output_message = keepSilent;
    if (setjmp(errors.leave) != 0) {
        jpeg_destroy_decompress(&info);
        return 0;
    }
    jpeg_create_decompress(&info);
    jpeg_mem_src(&info, reinterpret_cast<const unsigned char*>(jpeg.data()), jpeg.size());
    jpeg_read_header(&info, TRUE);
    info.scale_num = 1;
    for (info.scale_denom = 8; info.scale_denom > 1; info.scale_denom /= 2) {
        jpeg_calc_output_dimensions(&info);
        if (std::max(info.output_width, info.output_height) >= side) break;
    }
    jpeg_start_decompress(&info);
    row.resize(std::size_t{info.output_width} * static_cast<unsigned>(info.output_components));
    while (info.output_scanline < info.output_height) {
        JSAMPROW rows[] = {row.data()};
        jpeg_read_scanlines(&info, rows, 1);
    }
    jpeg_finish_decompress(&info);
    const std::uint64_t pixels = std::uint64_t{info.image_width} * info.image_height;
    jpeg_destroy_decompress(&info);
    return pixels;
}
