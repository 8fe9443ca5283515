// Reads whole pictures of arbitrary bytes, to properties and on to dictionaries.

#include "lib/objects/object.h"
#include "location/property_dictionary.h"
#include "pictures/picture_properties.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    if (const auto properties = readPictureProperties(source)) {
        releaseObject(createPropertyDictionary(*properties));
    }
    return 0;
}
