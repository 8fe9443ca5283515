// Arrays and dictionaries of objects. Both retain what is put into them and release it when they
// are freed. Counts and indexes are items.

#pragma once

#include <cstdint>

#include "lib/objects/object.h"
#include "lib/objects/string.h"

struct TovArray : TovObject {
    std::int32_t count;
    std::int32_t capacity;
    TovTypeRef* items;  // null until the first append
};

struct TovDictionaryEntry {
    TovStringRef key;
    TovTypeRef value;
};

// Entries stand in the order of their first setting and are searched one after the other: a
// picture's properties are a few dozen keys at most.
struct TovDictionary : TovObject {
    std::int32_t count;
    std::int32_t capacity;
    TovDictionaryEntry* entries;  // null until the first setting
};

using TovArrayRef = TovArray*;
using TovDictionaryRef = TovDictionary*;

// Returns a new empty array, or null if memory runs out.
[[nodiscard]] TovArrayRef TovArrayCreate();

// Appends `value`, retaining it; a null value stands as a null element. Does nothing for a null
// array or if memory runs out.
void TovArrayAppend(TovArrayRef array, TovTypeRef value);

// The number of elements; 0 for null.
std::int32_t TovArrayGetCount(TovArrayRef array);

// The element at `index`, borrowed; null out of range and for a null array.
TovTypeRef TovArrayGetValue(TovArrayRef array, std::int32_t index);

// Returns a new empty dictionary, or null if memory runs out.
[[nodiscard]] TovDictionaryRef TovDictionaryCreate();

// Sets the value of a key, retaining both and replacing an earlier value; a null value removes the
// key. Keys are equal when their units are. An immutable key is retained, a mutable one copied, so
// that a later append cannot change it. Does nothing for a null dictionary or key, or when memory
// runs out.
void TovDictionarySetValue(TovDictionaryRef dict, TovStringRef key, TovTypeRef value);

// The value of a key, borrowed; null if there is none, and for a null dictionary or key.
TovTypeRef TovDictionaryGetValue(TovDictionaryRef dict, TovStringRef key);

namespace pinorama {
// The array or dictionary, or null when the value is missing or of another kind. Borrowed.
TovArrayRef asArray(TovTypeRef value);
TovDictionaryRef asDictionary(TovTypeRef value);
}  // namespace pinorama
