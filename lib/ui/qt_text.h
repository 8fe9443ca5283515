// Texts of the library and texts of the toolkit into each other. Both count UTF-16 units.

#pragma once

#include <QString>

#include "lib/objects/string.h"

// The text as a view can show it: a lone surrogate (a byte of a path that is no UTF-8, for
// instance) becomes U+FFFD. Empty for null.
QString cuDisplayText(const TovString* string);

// The text unit by unit, for places that compare or hand it on. Empty for null.
QString cuTextUnits(const TovString* string);

// Returns a new immutable text of the same units, or null if memory runs out.
[[nodiscard]] TovStringRef cuCreateText(QStringView text);
