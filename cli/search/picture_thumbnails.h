// Thumbnails of pictures for documents. The pixels come from pinorama-reader, which decodes every
// picture in a sandboxed process of its own; here they are only encoded again.

#pragma once

#include "reader/reader_client.h"

#include <string>

namespace pinorama {

class PictureThumbnails {
public:
    static constexpr int kSide = 256;  // pixels

    PictureThumbnails();

    // The thumbnail of a picture as a JPEG stream; empty if it has no preview, cannot be read, or
    // if there is no reader. Starts the reader when it is called first.
    std::string make(const std::string& path);

private:
    ReaderClient reader_;
};

}  // namespace pinorama
