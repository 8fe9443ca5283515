#include "pictures/pixels/jpeg_encode.h"

#include <cstdio>  // jpeglib.h needs it before itself

#include <jpeglib.h>

#include <bit>
#include <csetjmp>
#include <cstdint>
#include <cstdlib>

namespace pinorama {
namespace {
constexpr J_COLOR_SPACE kPixelOrder =
    std::endian::native == std::endian::little ? JCS_EXT_BGRX : JCS_EXT_XRGB;
constexpr int kBytesOfPixel = 4;

// libjpeg reports an error by a call that must not return.
struct ErrorManager {
    jpeg_error_mgr base;
    std::jmp_buf leave;
};

[[noreturn]] void leaveOnError(j_common_ptr info)
{
    std::longjmp(reinterpret_cast<ErrorManager*>(info->err)->leave, 1);
}

// What is being made; it outlives the jump.
struct Encoder {
    jpeg_compress_struct info{};
    ErrorManager errors{};
    unsigned char* bytes = nullptr;
    unsigned long size = 0;

    Encoder() = default;
    Encoder(const Encoder&) = delete;
    Encoder& operator=(const Encoder&) = delete;
    ~Encoder()
    {
        jpeg_destroy_compress(&info);
        std::free(bytes);
    }
};

bool encode(Encoder* encoder, const PixelImage& image, int quality)
{
    jpeg_compress_struct* info = &encoder->info;
    info->err = jpeg_std_error(&encoder->errors.base);
    encoder->errors.base.error_exit = leaveOnError;
    if (setjmp(encoder->errors.leave) != 0) return false;
    jpeg_create_compress(info);
    jpeg_mem_dest(info, &encoder->bytes, &encoder->size);
    info->image_width = static_cast<JDIMENSION>(image.width);
    info->image_height = static_cast<JDIMENSION>(image.height);
    info->input_components = kBytesOfPixel;
    info->in_color_space = kPixelOrder;
    jpeg_set_defaults(info);
    jpeg_set_quality(info, quality, TRUE);
    jpeg_start_compress(info, TRUE);
    while (info->next_scanline < info->image_height) {
        const std::size_t start = std::size_t{info->next_scanline} * info->image_width;
        // libjpeg takes rows that it does not write to without const.
        JSAMPROW row =
            reinterpret_cast<JSAMPROW>(const_cast<std::uint32_t*>(image.pixels.data() + start));
        jpeg_write_scanlines(info, &row, 1);
    }
    jpeg_finish_compress(info);
    return true;
}
}  // namespace

std::string encodeJpeg(const PixelImage& image, int quality)
{
    const bool isWhole = image.width > 0 && image.height > 0 &&
                         image.pixels.size() == static_cast<std::size_t>(image.width) *
                                                    static_cast<std::size_t>(image.height);
    if (!isWhole) return {};
    Encoder encoder;
    if (!encode(&encoder, image, quality)) return {};
    return {reinterpret_cast<const char*>(encoder.bytes), encoder.size};
}

}  // namespace pinorama
