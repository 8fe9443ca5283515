#include "location/picture_source.h"

#include "base/descriptor_box.h"
#include "base/user_language.h"
#include "pictures/more_properties.h"
#include "pictures/packed_part.h"

#include <utility>

using namespace pinorama;

namespace {
bool gReadsMoreKinds = false;

PropertySource& currentSource()
{
    static PropertySource source;
    return source;
}
}  // namespace

void pinorama::setReadsMoreKinds(bool isOn)
{
    gReadsMoreKinds = isOn;
    if (isOn) loadUnpackers();  // for the sandboxed processes that are forked later on
}

bool pinorama::readsMoreKinds()
{
    return gReadsMoreKinds;
}

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
    const DescriptorHolder unboxed = unboxDescriptor(picture.descriptor());
    FileByteSource bytes(unboxed ? unboxed.get() : picture.descriptor(), picture.size());
    return gReadsMoreKinds ? readMoreProperties(bytes, userLanguage())
                           : readPictureProperties(bytes);
}
