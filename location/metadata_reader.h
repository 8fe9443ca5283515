// Reads where a picture was taken, and the four place texts, out of its metadata into a
// fileInfoRecord.
//
// The record is the caller's and must be prepared before (gpsPrepareInfoRecord): what the picture
// does not say stays as it is. Texts that are stored are new and belong to the record, whatever the
// result; an earlier text in their place is not released.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/collections.h"
#include "location/file_info_record.h"
#include "pictures/picture_file.h"
#include "pictures/picture_properties.h"

// Reads the picture at a POSIX path.
//
// Returns 0 when a usable position was found, -1 when none was; the status of
// feMakeFSRefFromPath when the path names nothing, and the record is untouched then.
std::int32_t gpsGetCoordinatesFromFilePath(TovStringRef path, fileInfoRecord* record);

// The same for a reference. What is no picture or cannot be read gives -1 and an untouched record.
std::int32_t gpsGetCoordinatesFromFile(const FSRef* ref, fileInfoRecord* record);

// The same for a dictionary of properties as gpsCopyImageProperties makes it. A value of another
// kind counts as missing; null properties give -1.
std::int32_t gpsFillInfoFromProperties(TovDictionaryRef properties, fileInfoRecord* record);

// Returns the properties of the first image as new nested dictionaries (property_dictionary.h), or
// null when the file is no picture or cannot be read, or memory runs out. For programs that want
// more of them than a record holds; the record itself is filled without.
[[nodiscard]] TovDictionaryRef gpsCopyImageProperties(const FSRef* ref);

namespace pinorama {

// The same for a picture that is open already. One that is not open gives -1 and an untouched
// record.
std::int32_t readInfoRecord(const PictureFile& picture, fileInfoRecord* record);

// The same for properties that have been read already; all of the above end here.
//
// With a GPS directory every field of it is written, 0 or 0.0 where it has no value, except two:
// `distance` needs a reference K, M or N in either case, and `tilt` a satellites text that begins
// with "tilt:". A position counts as usable when neither coordinate is 0.0, so a picture from the
// equator or the prime meridian has none; its fields are written all the same. A longitude without
// a reference takes the letter of the latitude. Without a GPS directory only texts are stored.
//
// Source: Exif 2.32, GPS attributes 0x0001 to 0x001A; IPTC-IIM 4.2, datasets 2:90, 2:95, 2:101 and
// 2:120.
std::int32_t fillInfoRecord(const PictureProperties& properties, fileInfoRecord* record);

}  // namespace pinorama
