// The items of a HEIF file, as far as they hold metadata: HEIC, HEIF and AVIF list their pictures
// and whatever belongs to them in the `meta` box.

#pragma once

#include "pictures/embedded_metadata.h"
#include "pictures/step_budget.h"

namespace pinorama {

// Looks the first Exif item and the first XMP item of `meta` up, and puts them into `metadata`
// unless it has such a part already.
//
//   file  what the offsets of items count from.
//
// Only items in one piece, in this file or in the box itself, are found.
// Source: ISO/IEC 14496-12, 8.11; ISO/IEC 23008-12, Annex A.
void findIsoItems(const ByteBlock& meta, const ByteBlock& file, StepBudget& budget,
                  EmbeddedMetadata& metadata);

}  // namespace pinorama
