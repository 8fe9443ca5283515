// HEIF files with images in them, byte by byte, and images of HEVC and AV1 to put into them; one of
// JPEG XL; CR3 files with JPEG pictures.

#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace test {

struct HeifPart {
    std::string type;                       // "hvc1", "jpeg", "grid"
    std::string bytes;                      // as coded
    std::vector<std::string> properties{};  // boxes
    std::string reference{};                // "thmb" or "dimg"; empty: it refers to no other
    std::vector<int> to{};
};

// A file with these items; the first has the number 1, and `primary` is the picture.
std::string heifPicture(const std::vector<HeifPart>& parts, int primary = 1);

// Properties.
std::string heifSize(int width, int height);
std::string heifRotation(int quarters);  // against the clock
std::string heifMirror(int axis);
std::string heifColours(int matrix, bool isFullRange, int primaries = 1, int transfer = 13);
std::string heifProfile(const std::string& icc);
// A part of the image in the middle, but for so many pixels.
std::string heifPart(int width, int height, int right = 0, int down = 0);
std::string heifDecoder(const std::string& hvcc);

// A grid of rows x columns tiles; its size in pixels.
std::string heifGrid(int rows, int columns, int width, int height);

// An image of 64 x 64 pixels in HEVC whose quarters are red, green, blue and yellow, as in
// jpeg_pictures.h, and what its decoder has to know.
std::string hevcConfiguration();
std::string hevcQuarters();

// An item of it.
HeifPart hevcPart();

// The same image in AV1, which says of itself what its decoder has to know.
HeifPart av1Part();

// The same image as a file of JPEG XL without a container.
std::string jxlQuarters();

// A CR3 file with these two JPEG pictures and a TIFF block that states the orientation.
std::string cr3Picture(std::string_view tiff, std::string_view thumbnail, std::string_view preview);

}  // namespace test
