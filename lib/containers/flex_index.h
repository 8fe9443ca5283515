// The index of a variable-item array: where in the block a lookup may start. Up to 2048 IDs have an
// entry each; beyond that entries are a step of IDs apart, so that the index stays near 2048
// entries.

#pragma once

#include <cstdint>

#include "lib/containers/flex_dyn_array.h"

struct FlexIndexEntry {
    std::uint32_t itemID;
    std::uint32_t location;  // of the first header with this ID
};

// True when there is an index to use: its block, its allocated amount and its count are all there.
// An index built over an empty array counts as none.
bool memHasFlexIndex(const FlexDynArray* flex);

// Rebuilds the index. Returns 0, or 22001 with no index: the array works without one. Entries
// that find no memory beyond the first 2048 are left out, which makes lookups longer, not wrong.
std::int16_t memBuildFlexIndex(FlexDynArray* flex);

// The same for a caller who knows the number of different IDs; the number is not checked.
std::int16_t memBuildFlexIndexNumItems(FlexDynArray* flex, std::uint32_t distinctIDCount);

// Frees the index; its item size stays. Returns 0, or 22002 if there is no index to use.
std::int16_t memRemoveFlexIndex(FlexDynArray* flex);

// Rebuilds the index when there is one, after a change of IDs or locations. Without memory the
// array goes on without an index.
void m2RefreshFlexIndex(FlexDynArray* flex);
