// The text object: UTF-16 units in a block of their own, mutable or immutable, and the few
// operations on raw units that everything about text is built from. Lengths and indexes count
// UTF-16 units.
//
// The library's callers use the TovString functions of lib/strings; this header is for those
// functions and for the folders that work on raw units.

#pragma once

#include <cstdint>
#include <string_view>

#include "lib/objects/object.h"

struct TovString : TovObject {
    bool isMutable;
    std::int32_t length;    // units in use
    std::int32_t capacity;  // units that fit into the block
    char16_t* units;        // inside the object's own block until a mutable text outgrows it
};

using TovStringRef = TovString*;

namespace pinorama {

// The longest text that is made; longer requests fail like a lack of memory.
constexpr std::int32_t kMaxStringLength = 0x3fffffff;

// Returns a new text with a copy of `units`, or null if memory runs out.
[[nodiscard]] TovStringRef createString(std::u16string_view units, bool isMutable = false);

// Returns a new immutable text of `length` units, or null. The units are undefined until the caller
// has written them all through the pointer `units` of the result; `length` may be lowered then.
[[nodiscard]] TovStringRef createUnfilledString(std::int32_t length);

// Appends `units`, which may lie inside `target` itself. Returns false and changes nothing when
// `target` is null or immutable or memory runs out.
bool appendUnits(TovStringRef target, std::u16string_view units);

// Makes `target` longer by `added` units and returns where they start, or null as above. The caller
// writes them all before the text is used again.
[[nodiscard]] char16_t* extendUnits(TovStringRef target, std::int32_t added);

// Reserves capacity for `capacity` units in total, so that appending up to that length moves
// nothing. False as above.
bool reserveUnits(TovStringRef target, std::int32_t capacity);

// The units of a text, borrowed until its next change; empty for null.
std::u16string_view unitsOf(const TovString* string);

// True when both texts have the same units, or both are null.
bool equalUnits(const TovString* a, const TovString* b);

// The text of a value, or null when the value is missing or of another kind. Borrowed.
TovStringRef asString(TovTypeRef value);

}  // namespace pinorama
