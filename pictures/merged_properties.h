// One picture's properties from several places, of which an earlier one counts.

#pragma once

#include "pictures/picture_properties.h"

namespace pinorama {

// Adds to `properties` what they lack and `other` has, and sets the source of each value that comes
// from there to `source`. Latitude and longitude go together: half a position is replaced by a
// whole one. So do the altitude and its reference, and the distance and its. An empty text is
// lacking.
void addMissing(PictureProperties& properties, const PictureProperties& other, ValueSource source);

}  // namespace pinorama
