// Writing containers to the debug log (lib/debug/debug_log.h), each line as an entry of its own.

#pragma once

#include "lib/containers/dyn_array.h"
#include "lib/containers/flex_dyn_array.h"

// Writes the number of items, then index and 32-bit ID of each.
void memDumpDynArray(const DynArray* array);

// Writes the used bytes, then location, ID, type and size of each item; an item that runs past the
// used bytes is the last one.
void memDumpFlexDynArray(const FlexDynArray* flex);

// Does the above when an item runs past the used bytes, and nothing for a sound array.
void memCheckFlexDynArray(const FlexDynArray* flex);
