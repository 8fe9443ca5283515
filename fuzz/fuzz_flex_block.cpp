// Reads and changes a variable-item array of arbitrary bytes in a block of exactly that size: no
// function may access anything outside it.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "lib/containers/array_files.h"
#include "lib/containers/container_dump.h"
#include "lib/containers/flex_index.h"
#include "lib/containers/flex_lookup.h"
#include "lib/containers/flex_runs.h"

namespace {
struct Flex : FlexDynArray {
    Flex(const std::uint8_t* bytes, std::size_t size) : FlexDynArray{}
    {
        if (memNewFlexDynArray(this, static_cast<std::uint32_t>(size)) != 0) std::abort();
        if (size > 0) std::memcpy(data, bytes, size);
        usedBytes = static_cast<std::uint32_t>(size);
    }
    ~Flex() { memFreeFlexDynArray(this); }
    Flex(const Flex&) = delete;
    Flex& operator=(const Flex&) = delete;
};

void expect(bool holds)
{
    if (!holds) __builtin_trap();
}

// Reads every byte that a lookup returns, so that one outside the block is noticed.
void lookUp(const FlexDynArray* flex, std::uint32_t id, std::uint32_t type)
{
    std::uint32_t location = 0;
    const bool found = m2LookupFlexDataOffset(flex, id, type, &location) == 0;
    expect(found == (location != UINT32_MAX));

    std::uint32_t size = 0;
    void* data = nullptr;
    volatile std::uint8_t sum = 0;
    if (memGetFlexDataInfo(flex, id, type, &size, &data) == 0) {
        for (std::uint32_t i = 0; i < size; ++i) sum = sum + static_cast<std::uint8_t*>(data)[i];
    }
    std::uint8_t buffer[16];
    (void)memGetFlexData(flex, id, type, buffer, &size, sizeof buffer);
}

bool lookUpEach(std::uint32_t id, std::uint32_t type, std::uint32_t, void*, void* flex)
{
    lookUp(static_cast<const FlexDynArray*>(flex), id, type);
    return true;
}

// Calls that change an array, each on its own copy, with and without an index.
void change(const std::uint8_t* bytes, std::size_t size, std::uint32_t id, bool isIndexed)
{
    for (int call = 0; call < 7; ++call) {
        Flex flex(bytes, size);
        FlexDynArray other{};
        if (isIndexed) (void)memBuildFlexIndex(&flex);
        switch (call) {
        case 0: (void)memAdjustIDinFlexDynArray(&flex, id + 1); break;
        case 1: (void)memDeleteAllFlexData(&flex, id); break;
        case 2: (void)memChangeFlexData(&flex, id, 1, 5, "bytes"); break;
        case 3: (void)memChangeFlexData(&flex, id, 0, 0, nullptr); break;
        case 4: (void)memExtractFlexItemsForSpecificID(&flex, id, &other); break;
        case 5: (void)memReplaceFlexItemsForSpecificID(&flex, &other, id); break;
        default: (void)memAppendFlexDynArray(&flex, &other); break;
        }
        (void)memVerifyFlexDynArray(&flex);
        (void)memVerifyFlexDynArray(&other);
        memFreeFlexDynArray(&other);
    }
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    // No log can be created there, so dumps read the array without writing.
    static const int homeless =
        setenv("HOME", "/dev/null", 1) | setenv("XDG_CONFIG_HOME", "/dev/null", 1);
    expect(homeless == 0);

    std::uint32_t id = 0;
    if (size >= sizeof id) std::memcpy(&id, data, sizeof id);
    Flex flex(data, size);
    for (const bool isIndexed : {false, true}) {
        if (isIndexed) (void)memBuildFlexIndexNumItems(&flex, size % 2 == 0 ? 0 : 5000);
        (void)memWalkFlexDynArray(&flex, &flex, lookUpEach);
        for (const std::uint32_t wanted : {0u, id, id + 1, UINT32_MAX}) lookUp(&flex, wanted, 0);
        change(data, size, id, isIndexed);
    }
    expect(memVerifyFlexDynArray(&flex) != 0 || memWalkFlexDynArray(&flex, &flex, lookUpEach) == 0);
    memCheckFlexDynArray(&flex);
    memDumpFlexDynArray(&flex);

    (void)memEndianConvertFlexDynArray(&flex, 0);
    Flex there(data, size);
    if (memEndianConvertFlexDynArray(&there, 1) == 0) {
        expect(memEndianConvertFlexDynArray(&there, 0) == 0);
        expect(size == 0 || std::memcmp(there.data, data, size) == 0);
    }
    return 0;
}
