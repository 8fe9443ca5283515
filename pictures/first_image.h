// The two forms that the metadata of a picture comes in, whatever container is around them: a TIFF
// block, and a JPEG picture with segments of metadata.

#pragma once

#include "pictures/byte_source.h"
#include "pictures/jpeg_segments.h"
#include "pictures/picture_properties.h"
#include "pictures/tiff_directory.h"

namespace pinorama {

// Reads the position, the time and the place texts that the first directory of `tiff` leads to.
// Texts that `properties` has already come first. Returns the XMP packet of the directory, which is
// not read; empty when there is none.
ByteBlock readTiffImage(const TiffBlock& tiff, PictureProperties& properties);

// Reads the first image of a JPEG picture: the texts of its Photoshop resources, then what its TIFF
// block says. Returns its XMP, which is not read; empty when there is none or it is not asked for.
JpegXmp readJpegImage(const ByteBlock& jpeg, PictureProperties& properties,
                      WithXmp withXmp = WithXmp::no);

}  // namespace pinorama
