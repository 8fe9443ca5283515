#include "reader/rehearsal.h"

#include "pictures/byte_source.h"
#include "pictures/picture_properties.h"
#include "reader/reader_protocol.h"

#include <cstdint>
#include <optional>

namespace pinorama {
namespace {
// A JPEG picture without an image, taken at 1° N 2° E.
constexpr std::uint8_t kPicture[] = {
    0xff, 0xd8,                                        // start of the picture
    0xff, 0xe1, 0x00, 0x8c,                            // a segment of 140 bytes, those two included
    'E',  'x',  'i',  'f',  0, 0,                      //
    'I',  'I',  42,   0,    8, 0, 0, 0,                // TIFF, little endian; its directory is at 8
    1,    0,                                           // one entry:
    0x25, 0x88, 4,    0,    1, 0, 0, 0, 26,  0, 0, 0,  // the GPS directory is at 26
    0,    0,    0,    0,                               // no other directory
    4,    0,                                           // four entries:
    1,    0,    2,    0,    2, 0, 0, 0, 'N', 0, 0, 0,  // reference of the latitude
    2,    0,    5,    0,    3, 0, 0, 0, 80,  0, 0, 0,  // latitude, at 80
    3,    0,    2,    0,    2, 0, 0, 0, 'E', 0, 0, 0,  // reference of the longitude
    4,    0,    5,    0,    3, 0, 0, 0, 104, 0, 0, 0,  // longitude, at 104
    0,    0,    0,    0,                               // no other directory
    1,    0,    0,    0,    1, 0, 0, 0, 0,   0, 0, 0,
    1,    0,    0,    0,    0, 0, 0, 0, 1,   0, 0, 0,  // 1° 0' 0"
    2,    0,    0,    0,    1, 0, 0, 0, 0,   0, 0, 0,
    1,    0,    0,    0,    0, 0, 0, 0, 1,   0, 0, 0,  // 2° 0' 0"
    0,    0,    0,    0,                               // padding
    0xff, 0xd9,                                        // end of the picture
};
}  // namespace

bool rehearse()
{
    MemoryByteSource source(kPicture);
    const std::optional<PictureProperties> properties = readPictureProperties(source);
    if (!properties) return false;
    const auto again = decodeProperties(encodeProperties(*properties));
    return again && again->latitude == 1.0 && again->longitude == 2.0;
}

}  // namespace pinorama
