// The one-liners that everything else uses: releasing any reference, counted file names, radians,
// byte order. Lengths count UTF-16 units.

#pragma once

#include <cstdint>

#include "lib/files/file_types.h"
#include "lib/objects/object.h"
#include "lib/objects/string.h"

// Degrees in radians: pi times the degrees, then divided by 180.
double radians(double degrees);

// Gives one reference of any object back; null is ignored.
void uCFRelease(TovTypeRef ref);

// Always false: the keyboard is not read.
bool uAltPressed();

// Fills a counted name with the first 255 units of `string`, or all when there are fewer; null
// gives length 0. The cut is silent and may fall between the halves of a surrogate pair. Units
// after the length are left as they are.
void utMakeHFSStringFromCFString(TovStringRef string, HFSUniStr255* name);

// Makes a new text of a counted name's units; a length beyond 255 counts as 255.
//
//   out  receives the text, null if memory runs out.
//
// Returns the same handle as `out` receives: one reference in two places, to be released once.
TovStringRef utMakeCFStringFromHFSString(const HFSUniStr255* name, TovStringRef* out);

// Exchanges the two bytes of each of `count` values in place.
void utEndianSwapIntArray(std::uint16_t* values, std::uint32_t count);
