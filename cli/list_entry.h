// Reports as a list for other programs: six fields of each file, every one followed by a zero
// byte, which no path can contain:
//
//   path                 in the bytes of the system, as it was given
//   latitude, longitude  signed decimal degrees
//   metres, bearing      how it lies from the place of a search; degrees clockwise from north
//   file                 names the file behind the path: the same for links to it, and for no other
//                        file of this computer
//
// What a file does not have is empty; numbers read back exactly. JSON has more to say, but its
// texts are UTF-8, and a path need not be.

#pragma once

#include "cli/file_report.h"

#include <string>
#include <string_view>

namespace pinorama {

// Appends the fields of one report; nothing for a file that could not be read.
//
//   path  of the file, in the bytes of the system.
void appendListEntry(const FileReport& report, std::string_view path, std::string* out);

}  // namespace pinorama
