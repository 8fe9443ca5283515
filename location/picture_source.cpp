#include "location/picture_source.h"

#include "base/memory_guard.h"
#include "location/property_dictionary.h"
#include "pictures/picture_file.h"

#include <utility>

namespace {
platform::PropertySource& currentSource()
{
    static platform::PropertySource source;
    return source;
}

std::optional<platform::PictureProperties> readHere(int descriptor, std::uint64_t size)
{
    platform::FileByteSource bytes(descriptor, size);
    return platform::readPictureProperties(bytes);
}
}  // namespace

void platform::installPropertySource(PropertySource source)
{
    currentSource() = std::move(source);
}

TovDictionaryRef platform::copyPictureProperties(const std::string& path)
{
    return baseGuardMemory([&]() -> TovDictionaryRef {
        const PictureFile file(path);
        if (!file.isOpen()) return nullptr;
        const PropertySource& source = currentSource();
        const std::optional<PictureProperties> properties =
            source ? source(file.descriptor(), file.size())
                   : readHere(file.descriptor(), file.size());
        return properties ? createPropertyDictionary(*properties) : nullptr;
    });
}
