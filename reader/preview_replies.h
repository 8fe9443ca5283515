// The reader's work on previews: its own decoders first, then Qt's, then a reply for the client.

#pragma once

#include <optional>

#include "pictures/byte_source.h"
#include "reader/preview_reply.h"

namespace pinorama {

// Reads what `kind` asks for; nothing when the bytes have no such thing.
std::optional<PreviewReply> previewReply(ByteSource& source, PreviewKind kind, PixelSize box);

}  // namespace pinorama
