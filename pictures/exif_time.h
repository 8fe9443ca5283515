// When a picture was taken, out of the directories of Exif: the wall-clock time of the camera, and
// what is known about how far that clock was ahead of UTC.

#pragma once

#include <cstdint>
#include <optional>

#include "pictures/picture_properties.h"
#include "pictures/tiff_directory.h"

namespace pinorama {

// Fills `taken` and what belongs to it in `properties`, from the first of these that the file has:
// DateTimeOriginal with OffsetTimeOriginal; GPSDateStamp with GPSTimeStamp, which are in UTC;
// DateTimeOriginal alone, whose offset nobody knows. Leaves them as they are if it has none.
//
//   exif, gps  where the two directories lie in `tiff`; nothing if the picture has no such one.
//
// A time that no clock shows, such as the "0000:00:00 00:00:00" of a camera whose clock was never
// set, counts as absent, and so does one before there were photographs, or satellites if it is
// theirs. Any later year is taken, of scans and of clocks that are set wrong. Fractions of a second
// are dropped. Source: Exif 2.32, 4.6.5 and 4.6.6.
void readExifTime(const TiffBlock& tiff, std::optional<std::uint64_t> exif,
                  std::optional<std::uint64_t> gps, PictureProperties& properties);

}  // namespace pinorama
