// File names: making them safe, and finding one that is free. Lengths count UTF-16 units.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/string.h"

// Makes a name safe for every file system, in place.
//
// A colon becomes a semicolon, each of / * ? < > | and the double quote a hyphen, then a full stop
// at the start a comma, then a blank or a full stop at the end a hyphen. A zero unit cuts the name
// there and ends the work at once: the rules for the start and the end are not applied then.
//
// Returns 0, or -1 for a name that is empty when it comes in.
std::int32_t feCheckFileNameRef(HFSUniStr255* name);

// Finds a free name in a folder: `base`, a blank, a number and `suffix` ("photo 1.kml").
//
// Numbers begin with 1 even when the base alone is free. After 100 names that are taken the 100th
// is returned although it exists. A null text reads "(null)".
//
// Returns a new text, null if memory runs out.
[[nodiscard]] TovStringRef feGetUniqueFileName(const FSRef* parent, TovStringRef base,
                                               TovStringRef suffix);
