// The reader's side: waits for requests, reads the pictures, replies. It works the same in a
// sandboxed process, in a test and in a fuzzer, because it knows neither how it was started nor
// whether it is sandboxed.

#pragma once

#include <functional>
#include <optional>

#include "pictures/byte_source.h"
#include "pictures/picture_properties.h"
#include "reader/preview_reply.h"

namespace pinorama {

struct ReaderTasks {
    using PropertyReader = std::function<std::optional<PictureProperties>(ByteSource& source)>;

    PropertyReader readProperties;
    // Empty in a reader that makes no previews.
    std::function<std::optional<PreviewReply>(ByteSource& source, PreviewKind kind, PixelSize box)>
        makePreview;
    // For ReaderTask::moreProperties. Empty in a reader that finds none.
    PropertyReader readMoreProperties{};
};

// Says that the reader is ready and serves requests until the other side closes the socket or sends
// a malformed request. As soon as another request comes a preview is given up: to its decoder the
// file seems to end there, which every decoder can cope with.
void serveReader(int socket, const ReaderTasks& tasks);

// Serves one request, without a first word; what the process of one picture does.
void servePicture(int socket, const ReaderTasks& tasks);

}  // namespace pinorama
