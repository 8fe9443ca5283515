// The web services of the menu, and the addresses that a location is opened under. Services are
// data: the table "GPS" holds the title of service n under "an" and its address under "bn". Numbers
// begin with 1.

#pragma once

#include "lib/objects/string.h"
#include "location/file_info_record.h"

#include <cstdint>

// Returns a new text: the title of service `number` in the menu; null when the table has none,
// which ends the list. A title that equals its own key, in upper or lower case, counts as missing.
[[nodiscard]] TovStringRef appCopyServiceTitle(std::int32_t number);

// Returns a new text: the address of the first service whose title is exactly `title`, still with
// its conversions; null when none up to the end of the list has that title. The entry that ends the
// list, whose title is its key, is looked at too. A service without an address gives its key.
[[nodiscard]] TovStringRef appCopyServiceTemplate(TovStringRef title);

// Fills the address of a service in.
//
//   urlTemplate  with two conversions for the signed latitude and longitude, in decimal degrees, or
//                with three, the last for the name; every percent sign counts as one.
//   info         read only; 'S' and 'W' negate, every other letter leaves the number as it is.
//   path         the picture, whose name is escaped as an address needs it: what may stand in an
//                address stays, such as '&' and '+', everything else becomes %XX of its UTF-8 form.
//
// The template is data that anybody may edit. Its conversions are those of tovFormat, whatever they
// are: one that does not fit its value prints nothing or itself.
//
// Returns a new text; null for any other number of percent signs, for null arguments, and when
// memory runs out.
[[nodiscard]] TovStringRef appMakeWebServiceURL(TovStringRef urlTemplate,
                                                const fileInfoRecord* info, TovStringRef path);

// The same with a name that is escaped as one value, so that "x&q=0,0.jpg" adds no parameter to the
// address. For every address that is opened or printed.
[[nodiscard]] TovStringRef appMakeSafeWebServiceURL(TovStringRef urlTemplate,
                                                    const fileInfoRecord* info, TovStringRef path);

// Returns a new text: the address by which the cataloguing program finds the pictures within 2000 m
// of the location. Null for null and when memory runs out.
[[nodiscard]] TovStringRef appMakeCatalogueURL(const fileInfoRecord* info);
