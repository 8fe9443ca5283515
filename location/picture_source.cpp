#include "location/picture_source.h"

#include <utility>

using namespace pinorama;

namespace {
PropertySource& currentSource()
{
    static PropertySource source;
    return source;
}
}  // namespace

void pinorama::installPropertySource(PropertySource source)
{
    currentSource() = std::move(source);
}

std::optional<PictureProperties> pinorama::propertiesOf(const PictureFile& picture)
{
    if (!picture.isOpen()) return std::nullopt;
    if (const PropertySource& source = currentSource()) {
        return source(picture.descriptor(), picture.size());
    }
    FileByteSource bytes(picture.descriptor(), picture.size());
    return readPictureProperties(bytes);
}
