// Places of pictures in KML documents.

#pragma once

#include "base/replacing_file.h"
#include "cli/file_reporter.h"

#include <string>
#include <string_view>

namespace pinorama {

// Writes the document of one picture as the window exports it, byte for byte, and waits for the
// reader of a pipe.
//
//   picture, path  in the bytes of the system.
//
// Returns what is wrong, for a complaint; empty when all went well.
std::string exportPicture(FileReporter* reporter, const std::string& picture,
                          const std::string& path);

// A document with a placemark for each of many pictures, which replaces an existing file when it is
// whole.
class KmlCollection {
public:
    // Each returns false with errno set; the existing file stays then.
    bool begin(const std::string& path);
    bool add(std::string_view placemarks) { return file_.write(placemarks); }
    bool finish();

private:
    ReplacingFile file_{{.fullPipe = FullPipe::waits}};
};

}  // namespace pinorama
