#include "tests/support/jpeg_encoder.h"

#include <cstdio>  // jpeglib.h needs it before itself

#include <jpeglib.h>

#include <cstdlib>
#include <vector>

namespace {
constexpr int kMarkerOfExif = JPEG_APP0 + 1;

void setUp(jpeg_compress_struct* info, const test::JpegEncoding& encoding)
{
    info->image_width = static_cast<JDIMENSION>(encoding.width);
    info->image_height = static_cast<JDIMENSION>(encoding.height);
    info->input_components = encoding.channels;
    info->in_color_space = encoding.channels == 4   ? JCS_CMYK
                           : encoding.channels == 1 ? JCS_GRAYSCALE
                                                    : JCS_RGB;
    jpeg_set_defaults(info);
    jpeg_set_quality(info, encoding.quality, TRUE);
    if (encoding.isProgressive) jpeg_simple_progression(info);
    if (!encoding.namesAdobe) info->write_Adobe_marker = FALSE;
}
}  // namespace

std::string test::encodeJpeg(const JpegEncoding& encoding,
                             const std::function<void(int y, std::span<std::uint8_t> row)>& fillRow)
{
    jpeg_compress_struct info = {};
    jpeg_error_mgr errors = {};
    info.err = jpeg_std_error(&errors);
    jpeg_create_compress(&info);
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
    jpeg_mem_dest(&info, &bytes, &size);
    setUp(&info, encoding);
    jpeg_start_compress(&info, TRUE);
    if (!encoding.exif.empty()) {
        const std::string content = std::string("Exif\0\0", 6) + encoding.exif;
        jpeg_write_marker(&info, kMarkerOfExif, reinterpret_cast<const JOCTET*>(content.data()),
                          static_cast<unsigned>(content.size()));
    }
    std::vector<JSAMPLE> row(static_cast<std::size_t>(encoding.width) *
                             static_cast<std::size_t>(encoding.channels));
    for (int y = 0; y < encoding.height; y++) {
        fillRow(y, row);
        JSAMPROW rows[] = {row.data()};
        jpeg_write_scanlines(&info, rows, 1);
    }
    jpeg_finish_compress(&info);
    std::string jpeg(reinterpret_cast<const char*>(bytes), size);
    jpeg_destroy_compress(&info);
    std::free(bytes);
    return jpeg;
}
