// Reads whole files of every kind that is read on request, to properties and on to dictionaries.

#include "lib/objects/object.h"
#include "location/property_dictionary.h"
#include "pictures/more_properties.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    MemoryByteSource source({data, size});
    if (const auto properties = readMoreProperties(source, "en")) {
        releaseObject(createPropertyDictionary(*properties));
    }
    return 0;
}
