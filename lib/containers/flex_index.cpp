#include "lib/containers/flex_index.h"

#include "lib/containers/flex_item.h"

namespace {
constexpr std::uint32_t kIndexEntries = 2048;  // the largest index with an entry for every ID

std::uint32_t countIDs(const FlexDynArray* flex)
{
    std::uint32_t count = 0;
    std::uint32_t previousID = 0;
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        if (location == 0 || header.itemID != previousID) ++count;
        previousID = header.itemID;
        location = nextFlexItem(location, header);
    }
    return count;
}

bool addEntry(FlexDynArray* flex, std::uint32_t itemID, std::uint64_t location)
{
    const FlexIndexEntry entry{itemID, static_cast<std::uint32_t>(location)};
    return memAppendItem(&flex->index, &entry) == 0;
}

void addEveryID(FlexDynArray* flex)
{
    std::uint32_t previousID = 0;
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        // An entry without memory is left out: a lookup then starts further ahead.
        if (location == 0 || header.itemID != previousID)
            (void)addEntry(flex, header.itemID, location);
        previousID = header.itemID;
        location = nextFlexItem(location, header);
    }
}

void addIDsApart(FlexDynArray* flex, std::uint32_t step)
{
    std::uint64_t nextID = 0;  // the lowest ID of the next entry, in 64 bits so that it cannot wrap
    std::uint64_t location = 0;
    while (hasFlexHeaderAt(flex, location)) {
        const FlexHeader header = readFlexHeader(flex, location);
        if (header.itemID >= nextID && addEntry(flex, header.itemID, location))
            nextID = std::uint64_t{header.itemID} + step;
        location = nextFlexItem(location, header);
    }
}
}  // namespace

bool memHasFlexIndex(const FlexDynArray* flex)
{
    return memValidDynArray(&flex->index) && flex->index.itemCount != 0;
}

std::int16_t memBuildFlexIndex(FlexDynArray* flex)
{
    return memBuildFlexIndexNumItems(flex, countIDs(flex));
}

std::int16_t memBuildFlexIndexNumItems(FlexDynArray* flex, std::uint32_t distinctIDCount)
{
    memFreeDynArray(&flex->index);
    memSetInvalid(&flex->index);
    if (memNewDynArray(&flex->index, sizeof(FlexIndexEntry), kIndexEntries) != 0)
        return kMemErrNoMemory;

    if (distinctIDCount <= kIndexEntries) {
        addEveryID(flex);
    } else {
        addIDsApart(flex, (distinctIDCount >> 11) + 1);
    }
    return 0;
}

std::int16_t memRemoveFlexIndex(FlexDynArray* flex)
{
    if (!memHasFlexIndex(flex)) return kMemErrNotFound;
    return memFreeDynArray(&flex->index);
}

void m2RefreshFlexIndex(FlexDynArray* flex)
{
    if (memHasFlexIndex(flex)) (void)memBuildFlexIndex(flex);
}
