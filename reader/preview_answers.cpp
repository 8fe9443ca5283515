#include "reader/preview_answers.h"

#include "pictures/pixels/picture_preview.h"
#include "reader/cached_thumbnail.h"
#include "reader/other_pictures.h"

#include <utility>

namespace {
std::optional<platform::PreviewAnswer> answerPicture(platform::ByteSource& source,
                                                     platform::PixelSize box)
{
    if (std::optional<platform::Preview> preview =
            platform::makePreview(source, box.width, box.height)) {
        return platform::PreviewAnswer{std::move(preview->image), preview->wasDecoded, {}, {}};
    }
    if (std::optional<platform::PixelImage> image = decodeOtherPicture(source, box)) {
        return platform::PreviewAnswer{std::move(*image), true, {}, {}};
    }
    return std::nullopt;
}

std::optional<platform::PreviewAnswer> answerThumbnail(platform::ByteSource& source,
                                                       platform::PixelSize box)
{
    std::optional<CachedThumbnail> thumbnail = readCachedThumbnail(source, box);
    if (!thumbnail) return std::nullopt;
    return platform::PreviewAnswer{std::move(thumbnail->image), false, std::move(thumbnail->uri),
                                   std::move(thumbnail->mtime)};
}
}  // namespace

std::optional<platform::PreviewAnswer> answerPreview(platform::ByteSource& source,
                                                     platform::PreviewKind kind,
                                                     platform::PixelSize box)
{
    switch (kind) {
    case platform::PreviewKind::picture: return answerPicture(source, box);
    case platform::PreviewKind::cachedThumbnail: return answerThumbnail(source, box);
    }
    return std::nullopt;
}
