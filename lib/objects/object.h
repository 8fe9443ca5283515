// What texts, numbers, dates and collections have in common: the header of every object with its
// kind and the count of its references.
//
// Counts are plain integers: an object belongs to one thread. A new object has one reference, its
// creator's. Debug builds abort if an object is released more often than it was retained.
//
//     const TovTypeRef value = TovNumberCreateSInt64(7);  // one reference, ours
//     TovArrayAppend(array, value);                       // two: the array retains it
//     uCFRelease(value);                                  // one: it lives as long as the array

#pragma once

#include <cstdint>

enum class TovTypeID : std::int32_t { none, string, number, boolean, date, array, dictionary };

struct TovObject {
    TovTypeID kind;
    mutable std::int32_t references;  // kSharedForever: never counted, never freed
};

// Any object, whatever its kind; null means no object.
using TovTypeRef = const TovObject*;

// The reference count of objects that live as long as the process (the two booleans, the shared
// empty text): retaining and releasing leave them alone.
constexpr std::int32_t kSharedForever = -1;

// The kind of an object; `none` for null.
TovTypeID TovGetTypeID(TovTypeRef value);

// Adds a reference and returns `ref`; null stays null. The caller owns the added reference.
TovTypeRef uCFRetain(TovTypeRef ref);

// The current number of references; 0 for null, kSharedForever for objects that are never freed.
std::int32_t uCFGetRetainCount(TovTypeRef ref);

namespace pinorama {
// Gives one reference back and frees the object with the last one; null is ignored.
// Callers outside lib/objects use its public name, uCFRelease.
void releaseObject(TovTypeRef ref);
}  // namespace pinorama
