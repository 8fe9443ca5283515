// The KML file of a picture, as a user gets it: whole, well-formed, and with a reason when there is
// none.

#pragma once

#include "base/descriptor.h"
#include "base/replacing_file.h"
#include "lib/strings/tov_string.h"
#include "location/file_info_record.h"

#include <string>

// Exports a location to a new file beside `path`, which takes the place of the one at `path` when
// it is whole (base/replacing_file.h has the rules for links, permissions, devices and pipes).
//
//   path         in the raw bytes of the system.
//   pictureName  the picture's file name with its extension, or null; read only. It is made safe
//                for XML: the document of `Tom & Jerry.jpg` names `Tom &amp; Jerry.jpg`.
//   fullPipe     what to do when `path` is a pipe that is full.
//
// False with errno set (ENOMEM when memory runs out); what was at `path` is untouched then, unless
// it is written directly.
bool gpsSaveKML(const std::string& path, const fileInfoRecord& info, TovStringRef pictureName,
                pinorama::FullPipe fullPipe = pinorama::FullPipe::fails);

// Exports a location to a new file in memory, for whoever must not wait for a disk and has another
// process save it. The arguments are those of gpsSaveKML. None with errno set if memory runs out.
pinorama::DescriptorHolder gpsMakeKMLInMemory(const fileInfoRecord& info, TovStringRef pictureName);
