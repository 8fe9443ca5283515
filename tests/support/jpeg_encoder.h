// JPEG streams as libjpeg-turbo writes them, from samples that a test computes.

#pragma once

#include <cstdint>
#include <functional>
#include <span>
#include <string>

namespace test {

struct JpegEncoding {
    int width;     // pixels
    int height;    // pixels
    int channels;  // 1 gray, 3 red, green and blue, 4 inks
    int quality;   // per cent
    bool isProgressive = false;
    bool namesAdobe = true;  // whether inks come with the marker that Adobe's programs write
    std::string exif{};      // a TIFF block; empty: none
};

// Encodes the rows that `fillRow` writes. Its arguments are the number of the row, from the top and
// from 0, and the buffer for its samples, `channels` for each pixel.
std::string encodeJpeg(const JpegEncoding& encoding,
                       const std::function<void(int y, std::span<std::uint8_t> row)>& fillRow);

}  // namespace test
