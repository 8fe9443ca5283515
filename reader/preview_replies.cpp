#include "reader/preview_replies.h"

#include "pictures/pixels/picture_preview.h"
#include "reader/cached_thumbnail.h"
#include "reader/other_pictures.h"

#include <utility>

namespace pinorama {
namespace {
std::optional<PreviewReply> pictureReply(ByteSource& source, PreviewKind kind, PixelSize box)
{
    const auto make = kind == PreviewKind::morePicture ? makeMorePreview : makePreview;
    if (std::optional<Preview> preview = make(source, box.width, box.height)) {
        return PreviewReply{std::move(preview->image), preview->wasDecoded, {}, {}};
    }
    if (std::optional<PixelImage> image = decodeOtherPicture(source, box)) {
        return PreviewReply{std::move(*image), true, {}, {}};
    }
    return std::nullopt;
}

std::optional<PreviewReply> thumbnailReply(ByteSource& source, PixelSize box)
{
    std::optional<CachedThumbnail> thumbnail = readCachedThumbnail(source, box);
    if (!thumbnail) return std::nullopt;
    return PreviewReply{std::move(thumbnail->image), false, std::move(thumbnail->uri),
                        std::move(thumbnail->mtime)};
}
}  // namespace

std::optional<PreviewReply> previewReply(ByteSource& source, PreviewKind kind, PixelSize box)
{
    switch (kind) {
    case PreviewKind::picture:
    case PreviewKind::morePicture: return pictureReply(source, kind, box);
    case PreviewKind::cachedThumbnail: return thumbnailReply(source, box);
    }
    return std::nullopt;
}

}  // namespace pinorama
