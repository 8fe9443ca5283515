#include "reader/preview_answers.h"

#include "pictures/pixels/picture_preview.h"
#include "reader/cached_thumbnail.h"
#include "reader/other_pictures.h"

#include <utility>

namespace pinorama {
namespace {
std::optional<PreviewAnswer> answerPicture(ByteSource& source, PixelSize box)
{
    if (std::optional<Preview> preview = makePreview(source, box.width, box.height)) {
        return PreviewAnswer{std::move(preview->image), preview->wasDecoded, {}, {}};
    }
    if (std::optional<PixelImage> image = decodeOtherPicture(source, box)) {
        return PreviewAnswer{std::move(*image), true, {}, {}};
    }
    return std::nullopt;
}

std::optional<PreviewAnswer> answerThumbnail(ByteSource& source, PixelSize box)
{
    std::optional<CachedThumbnail> thumbnail = readCachedThumbnail(source, box);
    if (!thumbnail) return std::nullopt;
    return PreviewAnswer{std::move(thumbnail->image), false, std::move(thumbnail->uri),
                         std::move(thumbnail->mtime)};
}
}  // namespace

std::optional<PreviewAnswer> answerPreview(ByteSource& source, PreviewKind kind, PixelSize box)
{
    switch (kind) {
    case PreviewKind::picture: return answerPicture(source, box);
    case PreviewKind::cachedThumbnail: return answerThumbnail(source, box);
    }
    return std::nullopt;
}

}  // namespace pinorama
