// The number, boolean and date objects. All are immutable. The kinds are distinct: a boolean is
// never read as a number, nor a number as a boolean.

#pragma once

#include <cstdint>

#include "lib/objects/object.h"

struct TovNumber : TovObject {
    bool isFloat;          // which of the two the number was made from
    std::int64_t integer;  // a float's value truncated toward zero, and kept to 64 bits
    double floating;       // an integer's nearest double
};

struct TovBoolean : TovObject {
    bool value;
};

struct TovDate : TovObject {
    double absoluteTime;  // seconds since 2001-01-01 00:00 UTC
};

using TovNumberRef = TovNumber*;
using TovBooleanRef = TovBoolean*;
using TovDateRef = TovDate*;

// Returns a new integer number, or null if memory runs out.
[[nodiscard]] TovNumberRef TovNumberCreateSInt64(std::int64_t value);

// Returns a new floating-point number, or null if memory runs out. Read as an integer it is
// truncated toward zero; beyond 64 bits it gives the nearest end of the range, and NaN gives 0.
[[nodiscard]] TovNumberRef TovNumberCreateDouble(double value);

// Returns one of the two shared booleans; releasing it is allowed and does nothing.
[[nodiscard]] TovBooleanRef TovBooleanCreate(bool value);

// Returns a new date from seconds since 2001-01-01 00:00 UTC, or null if memory runs out.
[[nodiscard]] TovDateRef TovDateCreate(double absoluteTime);

// The date's seconds since 2001-01-01 00:00 UTC; 0.0 for null.
double TovDateGetAbsoluteTime(TovDateRef date);

namespace pinorama {
// The number, or null when the value is missing or of another kind. Borrowed; so are the others.
const TovNumber* asNumber(TovTypeRef value);
const TovBoolean* asBoolean(TovTypeRef value);
TovDateRef asDate(TovTypeRef value);
}  // namespace pinorama
