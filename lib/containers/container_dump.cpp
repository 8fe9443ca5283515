#include "lib/containers/container_dump.h"

#include "lib/containers/flex_item.h"
#include "lib/debug/debug_log.h"

#include <cinttypes>

void memDumpDynArray(const DynArray* array)
{
    (void)debugFormat("\nDump DynArray:  items %" PRIu32, array->itemCount);
    for (std::uint32_t i = 0; i < array->itemCount; ++i) {
        (void)debugFormat("\nitem index: %" PRIu32 ":    ID: %" PRIu32, i, memGetItemID(array, i));
    }
}

void memDumpFlexDynArray(const FlexDynArray* flex)
{
    (void)debugFormat("\nDump FlexDynArray:  TotalDataSize %" PRIu32 " Bytes", flex->usedBytes);
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        (void)debugFormat("Location: %" PRIu64 ", ItemID: %" PRIu32 ", ItemType: %" PRIu32
                          ", ItemSize: %" PRIu32,
                          location, header.itemID, header.itemType, header.size);
        if (location + header.size > flex->usedBytes) return;
        location = nextFlexItem(location, header);
    }
}

void memCheckFlexDynArray(const FlexDynArray* flex)
{
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        if (location + header.size > flex->usedBytes) {
            memDumpFlexDynArray(flex);
            return;
        }
        location = nextFlexItem(location, header);
    }
}
