#include "cli/search/picture_thumbnails.h"

#include "pictures/picture_file.h"
#include "pictures/pixels/jpeg_encode.h"

namespace pinorama {
namespace {
constexpr int kQuality = 80;  // per cent
}  // namespace

PictureThumbnails::PictureThumbnails() : reader_([] { return startReaderProgram(readerProgram()); })
{
}

std::string PictureThumbnails::make(const std::string& path)
{
    const PictureFile picture(path);
    if (!picture.isOpen()) return {};
    (void)reader_.startPreview(picture.descriptor(), PreviewKind::picture, {kSide, kSide});
    const PreviewResult result = reader_.waitForPreview();
    if (result.outcome != ReadOutcome::found) return {};
    return encodeJpeg(result.reply.image, kQuality);
}

}  // namespace pinorama
