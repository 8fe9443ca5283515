// The settings that an application keeps between its runs: texts and 32-bit numbers by key. They
// belong to the application whose bundle is the main one, else to this one; see
// lib/prefs/preference_file.h for where and how they are stored.
//
// Every function here releases the key that it is given, whatever happens: pass a key of your own.
// Values stay the caller's. No function reports that a value could not be stored.
//
//     std::uint32_t isOn = 1;                                       // the default
//     prefLoadUInt32(TovStringFromCString("finderSync", 10), &isOn);  // consumes the key

#pragma once

#include <cstdint>

#include "lib/objects/string.h"

// Stores a text. A null value removes the key. Returns 0.
std::int32_t prefStoreString(TovStringRef key, TovStringRef value);

// Reads a text.
//
//   out  receives a new text, which the caller releases; a number as its decimal digits. It keeps
//        what it holds if there is no such key, or a value of another kind: that is the default.
//
// Returns 0 in any case.
std::int32_t prefLoadString(TovStringRef key, TovStringRef* out);

// Stores a number; all 32 bits come back. Returns 0.
std::int32_t prefStoreUInt32(TovStringRef key, std::uint32_t value);

// Reads a number. Of a text the leading integer is taken, 0 if it has none.
//
//   out  keeps what it holds if there is no such key, or a value of another kind.
//
// Returns 0 when a value was read, else -1.
std::int32_t prefLoadUInt32(TovStringRef key, std::uint32_t* out);
