#include "bench/window/jpegs.h"

#include "tests/support/jpeg_encoder.h"
#include "tests/support/jpeg_pictures.h"
#include "tests/support/picture_builder.h"

#include <algorithm>
#include <csetjmp>
#include <cstdint>
#include <cstdio>  // jpeglib.h needs it before itself
#include <vector>

#include <jpeglib.h>

using namespace pinorama;

namespace {
constexpr int kQuality = 92;
constexpr int kLargeWidth = 6000;
constexpr int kLargeHeight = 4000;
constexpr int kThumbnailWidth = 160;
constexpr int kThumbnailHeight = 107;
constexpr int kNoiseLevels = 24;
constexpr std::uint32_t kSeed = 12345;

std::string encode(int width, int height)
{
    std::uint32_t random = kSeed;
    const auto fillRow = [&](int y, std::span<std::uint8_t> row) {
        for (std::size_t i = 0; i < row.size(); i++) {
            random = random * 1664525u + 1013904223u;
            const int noise = static_cast<int>(random >> 16) % kNoiseLevels;
            const int slope = static_cast<int>(i / 3) * 100 / width + y * 100 / height;
            row[i] = static_cast<std::uint8_t>(slope + noise);
        }
    };
    return test::encodeJpeg({.width = width, .height = height, .channels = 3, .quality = kQuality},
                            fillRow);
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
    const std::string tiff = test::exifWithThumbnail(0, encode(kThumbnailWidth, kThumbnailHeight));
    return jpeg.insert(2, test::exifSegment(tiff));
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
