#include "lib/strings/tov_item_text.h"

#include "lib/containers/flex_lookup.h"
#include "lib/strings/tov_bytes.h"

#include <limits>

TovStringRef TovStringFromFlexDynArray(const FlexDynArray* array, std::uint32_t itemID,
                                       std::uint32_t itemType, std::uint8_t isUTF8)
{
    if (array == nullptr) return nullptr;
    std::uint32_t size = 0;
    void* data = nullptr;
    if (memGetFlexDataInfo(array, itemID, itemType, &size, &data) != 0) return nullptr;
    if (size > std::uint32_t{std::numeric_limits<std::int32_t>::max()}) return nullptr;

    const auto* bytes = static_cast<const char*>(data);
    const auto count = static_cast<std::int32_t>(size);
    return isUTF8 != 0 ? TovStringFromUTF8(bytes, count) : TovStringFromCString(bytes, count);
}
