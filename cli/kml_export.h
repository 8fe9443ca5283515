// Writes the places of pictures to KML documents.

#pragma once

#include "base/replacing_file.h"
#include "cli/file_reporter.h"

#include <string>
#include <string_view>

namespace pinorama {

// Writes the document of one picture, byte for byte as the window exports it. If `path` is a pipe,
// waits for its reader.
//
//   picture, path  in the bytes of the system.
//
// Returns the error message; empty on success.
std::string exportPicture(FileReporter* reporter, const std::string& picture,
                          const std::string& path);

// A document with a placemark for each of many pictures. It replaces an existing file once it is
// complete.
class KmlCollection {
public:
    // On failure each returns false with errno set, and the existing file stays.
    bool begin(const std::string& path);
    bool add(std::string_view placemarks) { return file_.write(placemarks); }
    bool finish();

private:
    ReplacingFile file_{{.fullPipe = FullPipe::waits}};
};

}  // namespace pinorama
