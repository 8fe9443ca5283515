// The reader's side: waits for requests, reads the pictures, replies. Knows neither how it was
// started nor whether it is locked in.

#pragma once

#include <functional>
#include <optional>

#include "pictures/byte_source.h"
#include "pictures/picture_properties.h"
#include "reader/preview_reply.h"

namespace pinorama {

struct ReaderTasks {
    std::function<std::optional<PictureProperties>(ByteSource& source)> readProperties;
    // Empty in a reader that makes no previews.
    std::function<std::optional<PreviewReply>(ByteSource& source, PreviewKind kind, PixelSize box)>
        makePreview;
};

// Says that the reader is ready and serves requests until the other side closes the socket or sends
// something that is no request. A preview is given up as soon as another request comes: its bytes
// seem to end.
void serveReader(int socket, const ReaderTasks& tasks);

}  // namespace pinorama
