// The GPS directory of Exif: position, altitude, direction of view, distance.

#pragma once

#include <cstdint>

#include "pictures/picture_properties.h"
#include "pictures/tiff_directory.h"

namespace pinorama {

// Fills the GPS half of `properties` from the directory at `offset` of `tiff`; a directory outside
// the block leaves it as it is.
//
// Coordinates are up to three rationals, degrees, minutes and seconds, folded into degrees. A part
// with the denominator 0 counts as 0; a value all of whose parts are such is absent, and so is a
// value of another type than the standard allows (signed rationals are taken: some phones write
// them, and the sign is dropped from coordinates). Texts end at their first zero byte.
// Source: Exif 2.32, 4.6.6.
void readGpsDirectory(const TiffBlock& tiff, std::uint64_t offset, PictureProperties& properties);

}  // namespace pinorama
