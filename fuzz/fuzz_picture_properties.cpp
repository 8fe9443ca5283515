// Whole pictures: whatever the bytes are, to properties and on to dictionaries.

#include "lib/objects/object.h"
#include "location/property_dictionary.h"
#include "pictures/picture_properties.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    platform::MemoryByteSource source({data, size});
    if (const auto properties = platform::readPictureProperties(source)) {
        platform::releaseObject(platform::createPropertyDictionary(*properties));
    }
    return 0;
}
