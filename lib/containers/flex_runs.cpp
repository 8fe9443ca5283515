#include "lib/containers/flex_runs.h"

#include "lib/containers/flex_index.h"
#include "lib/containers/flex_item.h"

#include <algorithm>

namespace {
struct Run {
    std::uint32_t start = 0;  // location of its first header
    std::uint32_t end = 0;    // location after its last item
    bool isLast = false;      // no item of another ID follows
};

bool findRun(const FlexDynArray* flex, std::uint32_t itemID, Run* outRun)
{
    bool found = false;
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        if (found && header.itemID != itemID) {
            outRun->end = static_cast<std::uint32_t>(location);
            outRun->isLast = false;
            return true;
        }
        if (!found && header.itemID == itemID) {
            found = true;
            outRun->start = static_cast<std::uint32_t>(location);
        }
        location = nextFlexItem(location, header);
    }
    // The last item of a damaged array may run past the used bytes.
    outRun->end = static_cast<std::uint32_t>(std::min<std::uint64_t>(location, flex->usedBytes));
    outRun->isLast = true;
    return found;
}
}  // namespace

std::int16_t memExtractFlexItemsForSpecificID(const FlexDynArray* source, std::uint32_t itemID,
                                              FlexDynArray* dest)
{
    Run run;
    if (!findRun(source, itemID, &run)) return kMemErrNotFound;

    const std::uint32_t length = run.end - run.start;
    if (memNewFlexDynArray(dest, length) != 0) return kMemErrNoMemory;
    std::memcpy(dest->data, source->data + run.start, length);
    dest->usedBytes = length;
    return 0;
}

std::int16_t memReplaceFlexItemsForSpecificID(const FlexDynArray* source, FlexDynArray* dest,
                                              std::uint32_t itemID)
{
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(source, location)) {
        const FlexHeader header = readFlexHeader(source, location);
        const std::uint64_t next = nextFlexItem(location, header);
        if (next > source->usedBytes) return kMemErrBadPosition;
        const std::int16_t status = memChangeFlexData(dest, itemID, header.itemType, header.size,
                                                      flexItemData(source, location));
        if (status != 0) return status;
        location = next;
    }
    return 0;
}

std::int16_t memAdjustIDinFlexDynArray(FlexDynArray* flex, std::uint32_t newID)
{
    std::int16_t status = 0;
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        FlexHeader header = readFlexHeader(flex, location);
        if (location + header.size > std::uint64_t{flex->usedBytes} + kFlexHeaderSize) {
            status = kMemErrBadPosition;
            break;
        }
        header.itemID = newID;
        writeFlexHeader(flex, location, header);
        location = nextFlexItem(location, header);
    }
    m2RefreshFlexIndex(flex);
    return status;
}

std::int16_t memAppendFlexDynArray(FlexDynArray* source, FlexDynArray* dest)
{
    if (source->usedBytes > 0) {
        const std::uint64_t used = std::uint64_t{dest->usedBytes} + source->usedBytes;
        if (dest->allocatedBytes <= used) {
            const std::uint64_t grown = std::uint64_t{dest->allocatedBytes} + source->usedBytes;
            const std::uint64_t size = std::max(grown, used);
            if (size > UINT32_MAX ||
                m2ResizeFlexDynArray(dest, static_cast<std::uint32_t>(size)) != 0)
                return kMemErrNoMemory;
        }
        std::memcpy(dest->data + dest->usedBytes, source->data, source->usedBytes);
        dest->usedBytes = static_cast<std::uint32_t>(used);
        m2RefreshFlexIndex(dest);
    }
    return memFreeFlexDynArray(source);
}

std::int16_t memDeleteAllFlexData(FlexDynArray* flex, std::uint32_t itemID)
{
    Run run;
    if (!findRun(flex, itemID, &run)) return kMemErrNotFound;

    if (run.isLast) {
        flex->usedBytes = run.start;
    } else {
        std::memmove(flex->data + run.start, flex->data + run.end, flex->usedBytes - run.end);
        flex->usedBytes -= run.end - run.start;
    }
    m2RefreshFlexIndex(flex);
    return 0;
}
