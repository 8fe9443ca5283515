// Containers in files: their memory image and nothing else (docs/formats.md, "Array files"). The
// caller knows where in an open file a container starts and how long it is; the byte order is that
// of the machine that wrote it.
//
// Offsets and lengths are bytes. The writing functions return the status of feWriteToFile or
// feAppendToFile as it is.

#pragma once

#include <cstdint>

#include "lib/containers/dyn_array.h"
#include "lib/containers/flex_dyn_array.h"
#include "lib/files/file_types.h"

// Writes the items in use after the end of the file.
std::int16_t memAppendFileContentsMMIO(ForkRef refNum, const DynArray* array);

// Writes the items in use at `offset`.
std::int16_t memWriteToFileContentsMMIO(ForkRef refNum, const DynArray* array, std::int64_t offset);

// Reads items into a new array with exactly the room for them. Mind the order of the arguments: the
// count comes first, other than with memNewDynArray.
//
//   array  what the record held before is overwritten, not freed.
//
// Returns 0, -1 with the record untouched when the range ends beyond the end of the file or is 4
// GiB or longer, 22001 or the status of the reading with an empty record.
[[nodiscard]] std::int16_t memGetFileContentsMMIO(ForkRef refNum, std::int64_t offset,
                                                  std::uint32_t itemCount, std::uint32_t itemSize,
                                                  DynArray* array);

// Writes the used bytes after the end of the file.
std::int16_t memAppendFlexArrayToFileMMIO(ForkRef refNum, const FlexDynArray* flex);

// Writes the used bytes at `offset`.
std::int16_t memWriteFlexArrayToFileMMIO(ForkRef refNum, const FlexDynArray* flex,
                                         std::int64_t offset);

// Reads `byteCount` used bytes into a new array without an index.
//
//   flex  what the record held before is overwritten, not freed.
//
// Returns 0, the status of feGetEOF or -1 for a range that ends beyond the end of the file with the
// record untouched, 22001 or the status of the reading with an empty record. memGetFileContentsMMIO
// does not look at the status of feGetEOF; the two differ on purpose.
[[nodiscard]] std::int16_t memGetFileContentsFlexMMIO(ForkRef refNum, std::int64_t offset,
                                                      std::uint32_t byteCount, FlexDynArray* flex);

// Swaps the bytes of the three numbers in every item's header. The caller converts the data
// (utEndianSwapIntArray helps) and rebuilds the index, which this function leaves unchanged.
//
//   direction  1: the headers are in this machine's order now; any other value: in the other one.
//
// Returns 0, or 22003 at a header whose size runs past the used bytes by more than 12: the headers
// before it are converted, it and those after it are not.
std::int16_t memEndianConvertFlexDynArray(FlexDynArray* flex, std::uint8_t direction);
