// Names inside the addresses of web services.

#pragma once

#include "lib/objects/string.h"

#include <string_view>

// Returns a new text: `name` as an address needs it (RFC 2396). What may stand anywhere in an
// address stays, the reserved "&", "+", "?" and "/" included; every other byte of the UTF-8 form
// becomes %XX with upper-case digits. A lone surrogate is escaped as U+FFFD. Null when memory runs
// out.
[[nodiscard]] TovStringRef gpsEscapeForAddress(std::u16string_view name);

// Returns a new text: `name` as one value in an address (RFC 3986, section 2.3). Only letters,
// digits and "-._~" stay, so that no name adds a parameter, a fragment or a bracket. The rest is as
// above.
[[nodiscard]] TovStringRef gpsEscapeForAddressValue(std::u16string_view name);
