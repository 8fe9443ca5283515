// The messages between a program and the process that reads pictures for it. Numbers are little
// endian. Each side checks what it receives as if an attacker had sent it: the length of a message
// is known before it is read, and never more than a reply to this request can need.
//
// A request of kRequestSize bytes carries as many open descriptors as it counts. Each gets a reply,
// in order: a header of kReplyHeaderSize bytes and a body whose length is in the header. While a
// picture takes its time the reader reports now and then what it has cost so far. The layouts are
// in docs/formats.md.

#pragma once

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

#include "pictures/byte_source.h"
#include "pictures/picture_properties.h"
#include "reader/preview_reply.h"

namespace pinorama {

constexpr std::size_t kRequestSize = 20;
constexpr std::size_t kReplyHeaderSize = 20;
constexpr std::size_t kReportSize = 8;          // the body of a report
constexpr std::size_t kMaxDescriptors = 64;     // in one request
constexpr std::int32_t kMaxPreviewSide = 2048;  // pixels
constexpr std::size_t kMaxTextLength = 65536;   // UTF-16 units of one property

enum class ReaderTask : std::uint16_t {
    hello,  // no request: the reader's first word, once it is sandboxed
    properties,
    picturePreview,
    cachedThumbnail,
    giveUp,  // nobody needs the reply of that number any more; has no descriptor and no reply
    moreProperties,  // of more kinds of files, and out of XMP (pictures/more_properties.h)
    morePreview,     // of more kinds of pictures
};

constexpr bool asksForProperties(ReaderTask task)
{
    return task == ReaderTask::properties || task == ReaderTask::moreProperties;
}

// The task that a kind of preview is, and the kind of a task that is a preview.
constexpr ReaderTask taskOf(PreviewKind kind)
{
    switch (kind) {
    case PreviewKind::morePicture: return ReaderTask::morePreview;
    case PreviewKind::cachedThumbnail: return ReaderTask::cachedThumbnail;
    case PreviewKind::picture: break;
    }
    return ReaderTask::picturePreview;
}
constexpr PreviewKind kindOf(ReaderTask task)
{
    if (task == ReaderTask::morePreview) return PreviewKind::morePicture;
    return task == ReaderTask::cachedThumbnail ? PreviewKind::cachedThumbnail
                                               : PreviewKind::picture;
}

struct ReaderRequest {
    ReaderTask task = ReaderTask::properties;
    std::uint32_t number = 0;           // of the first descriptor's reply; the others count on
    std::uint16_t descriptorCount = 0;  // previews: 1; giveUp: 0
    PixelSize box;                      // previews: 1 to kMaxPreviewSide; otherwise {0, 0}
};

enum class ReplyOutcome : std::uint16_t {
    found,        // the body holds what was asked for
    nothing,      // the file has no such thing
    interrupted,  // was given up: a preview because there is another request, or as requested
    failed,       // the process that had this one picture died, or replied with something else
    atWork,       // no reply yet: the body holds the processor time that the picture has cost
};

struct ReplyHeader {
    ReaderTask task = ReaderTask::properties;
    ReplyOutcome outcome = ReplyOutcome::nothing;
    std::uint32_t number = 0;
    std::uint32_t bodyLength = 0;  // bytes; 0 unless found or atWork
};

std::array<std::uint8_t, kRequestSize> encodeRequest(const ReaderRequest& request);
std::array<std::uint8_t, kReplyHeaderSize> encodeReplyHeader(const ReplyHeader& header);

// Nothing unless the bytes are one well-formed request.
std::optional<ReaderRequest> decodeRequest(ByteView bytes);

// Nothing unless the bytes are the well-formed header of a reply to `task` with that number, whose
// body is not longer than `maxBodyLength`.
std::optional<ReplyHeader> decodeReplyHeader(ByteView bytes, ReaderTask task, std::uint32_t number,
                                             std::size_t maxBodyLength);

// The longest body that a reply can have; for previews in a box of that size.
std::size_t maxBodyLength(ReaderTask task, PixelSize box);

// The body of a report, of kReportSize bytes. Any such bytes are one; what is read is never longer
// than a day.
std::array<std::uint8_t, kReportSize> encodeReport(std::chrono::nanoseconds processorTime);
std::chrono::nanoseconds decodeReport(ByteView body);

// Properties. Longer texts are cut when they are written; what is read has to be whole: finite
// numbers, texts without zero units, values only of dictionaries that are there, nothing left over.
std::vector<std::uint8_t> encodeProperties(const PictureProperties& properties);
std::optional<PictureProperties> decodeProperties(ByteView body);

// Previews. What is read fits into `box` and has as many pixels as its size says; a pixel whose
// colours exceed its alpha is corrected. Only cached thumbnails name a file.
std::vector<std::uint8_t> encodePreview(const PreviewReply& reply);
std::optional<PreviewReply> decodePreview(ByteView body, PreviewKind kind, PixelSize box);

}  // namespace pinorama
