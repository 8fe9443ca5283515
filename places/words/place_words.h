// A place in words, one line for a person: "Near Ushuaia, Argentina", "8 km SE of Grävenwiesbach,
// Germany", "South Atlantic Ocean, 412 km from Tristan da Cunha".
//
// The texts are in the table "Places" of the main bundle, in the user's language; countries are
// named by ICU, towns as the places file has them, numbers as the user's locale writes them.

#pragma once

#include "lib/objects/string.h"
#include "places/place_finder.h"

#include <cstdint>

namespace pinorama {

// Isolated, the name of a town does not change the order of the words around it in languages that
// are read from right to left, nor they its own (Unicode Standard Annex 9). For windows only: a
// text that is copied or handed on has no such characters.
enum class TownNames : std::uint8_t { plain, isolated };

// Returns a new text: the place in words; null if memory runs out and for a place without country
// and sea.
//
// A point is near a town up to 3.5 km from its centre, and up to the edge of a large one; further
// away the distance is given in whole kilometres, from 1000 on in tens. A town that the name of its
// country begins with stands alone: "Near Singapore". At sea the name of an island state or group
// takes the place of the town's.
[[nodiscard]] TovStringRef createPlaceText(const Place& place, TownNames names = TownNames::plain);

// Returns a new text: the nearest of the sixteen points of the compass, "SSE", in the letters of
// the user's language. Degrees clockwise from north. Null for infinity and what is no number, and
// if memory runs out.
[[nodiscard]] TovStringRef createCompassText(double degrees);

// Returns a new text: the same for the direction of view of a picture, with the north that it
// counts from, "SSE (true)", "SSE (magnetic)".
//
//   north  'T' for true and 'M' for magnetic as in Exif; anything else if the picture does not say.
[[nodiscard]] TovStringRef createViewText(double degrees, char north);

}  // namespace pinorama
