#include "location/picture_source.h"

#include "base/memory_guard.h"
#include "location/property_dictionary.h"
#include "pictures/picture_file.h"

#include <utility>

using namespace pinorama;

namespace {
pinorama::PropertySource& currentSource()
{
    static PropertySource source;
    return source;
}

std::optional<pinorama::PictureProperties> readHere(int descriptor, std::uint64_t size)
{
    FileByteSource bytes(descriptor, size);
    return readPictureProperties(bytes);
}
}  // namespace

void pinorama::installPropertySource(PropertySource source)
{
    currentSource() = std::move(source);
}

TovDictionaryRef pinorama::copyPictureProperties(const std::string& path)
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
