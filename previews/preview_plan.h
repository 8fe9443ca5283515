// The steps on the way to a file's preview: first the thumbnails that the desktop's cache may have,
// then the file itself. The plan only says which: its user has each file read and passes the reply
// on to imageOf. A picture file stays open from the first step to the last, so that a file that is
// replaced meanwhile cannot get the preview of another.

#pragma once

#include <QImage>
#include <QPixmap>
#include <QSizeF>

#include <cstdint>
#include <deque>
#include <memory>
#include <optional>
#include <string>

#include "pictures/picture_file.h"
#include "previews/thumbnail_cache.h"
#include "reader/preview_reply.h"

namespace pinorama {

// The size in pixels of `size` points; {0, 0} for a size that is not positive. A preview
// is never larger than 2048 pixels each way.
PixelSize cuPixelsOfPoints(QSizeF size, qreal ratio);

class PreviewPlan {
public:
    // Plans the preview that fits into `box` pixels.
    //
    //   path     of the file, absolute, in the bytes of the system.
    //   picture  the file, open; one that is not open has no preview.
    PreviewPlan(std::string path, PictureFile picture, PixelSize box);

    // Goes on to the next file that is there to be read. False when there is none left: the file
    // has no preview.
    bool next();

    // The current step: an open regular file and how it is to be read.
    PreviewKind kind() const { return kind_; }
    const PictureFile& file() const { return *file_; }
    PixelSize box() const { return box_; }

    // Closes the picture: nothing of it is read any more, and `store` needs only its facts. A disk
    // may stop to answer, and closing a file asks it.
    void close() { *picture_ = {}; }

    // The preview, when `reply` to the current step gives one: a thumbnail of another file, or
    // from before the file was changed last, gives none. When memory runs out it is null, which is
    // not the same: then there is nothing to show.
    std::optional<QImage> imageOf(const PreviewReply& reply) const;

    // Keeps the preview in the desktop's cache when `reply` took its time, so that it is there at
    // once the next time.
    void store(const PreviewReply& reply) const;

private:
    std::string path_;
    PixelSize box_;
    std::unique_ptr<PictureFile> picture_;  // `file_` points to it or to the thumbnail
    FileAttributes attributes_;             // of the picture
    std::deque<ThumbnailPlace> places_;
    ThumbnailLabel label_;
    std::unique_ptr<PictureFile> thumbnail_;
    const PictureFile* file_ = nullptr;
    PreviewKind kind_ = PreviewKind::picture;
    bool isInCache_ = false;
    bool isFinished_ = false;
};

// What the window shows of a preview: at the screen's ratio, on a card of exactly `size` points
// when `asIcon` is nonzero. Null for a null preview.
QPixmap cuPictureOfPreview(const QImage& preview, QSizeF size, qreal ratio, std::uint8_t asIcon);

}  // namespace pinorama
