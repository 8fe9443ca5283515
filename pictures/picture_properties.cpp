#include "pictures/picture_properties.h"

#include "pictures/crw.h"
#include "pictures/first_image.h"
#include "pictures/mrw.h"
#include "pictures/raf.h"

namespace pinorama {

std::optional<PictureProperties> readPictureProperties(ByteSource& source)
{
    const ByteBlock picture(source);
    PictureProperties properties;
    if (isJpeg(picture)) {
        readJpegImage(picture, properties);
    } else if (isRaf(picture)) {
        const ByteBlock jpeg = findRafJpeg(picture);
        if (isJpeg(jpeg)) readJpegImage(jpeg, properties);
    } else if (isMrw(picture)) {
        if (const auto tiff = TiffBlock::open(findMrwTiff(picture))) {
            readTiffImage(*tiff, properties);
        }
    } else if (const auto tiff = TiffBlock::open(picture)) {
        readTiffImage(*tiff, properties);
    } else if (!isCrw(picture)) {
        return std::nullopt;
    }
    return properties;
}

}  // namespace pinorama
