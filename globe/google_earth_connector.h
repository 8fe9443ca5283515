// Writes the KML file for a globe program.

#pragma once

#include "lib/strings/tov_string.h"
#include "location/file_info_record.h"

#include <cstdint>

// A class of class methods only.
class GoogleEarthConnector {
public:
    GoogleEarthConnector() = delete;

    // Writes the document of gpsMakeKMLDocument to the file at `path`, as UTF-8. gpsSaveKML
    // (globe/kml_file.h) is for files that users get.
    //
    //   path      absolute or relative; null writes nothing.
    //   gpsInfo   read only; null writes nothing.
    //   name      the picture's file name with its extension, or null. Bytes in it that are no
    //             UTF-8 stand as U+FFFD.
    //
    // An existing file is written over from its start and never shortened: when it was longer, its
    // tail stays. Always 0: a file that cannot be created or written is not reported.
    static std::int32_t exportToKML(TovStringRef path, const fileInfoRecord* gpsInfo,
                                    TovStringRef name);
};

// The name that an export proposes: the picture's file name less its extension, and ".kml", so that
// "IMG_0001.JPG" gives "IMG_0001.kml". Returns a new text; null for null and when memory runs out.
[[nodiscard]] TovStringRef appMakeKMLFileName(TovStringRef pictureName);
