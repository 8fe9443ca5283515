// The whole way of a preview in the process that reads a picture, from bytes to the reply: our own
// decoders, LibRaw, libde265, dav1d, libjxl and the toolkit's image plug-ins. scripts/fuzz links a
// LibRaw that is built with the sanitizers.

#include "reader/other_pictures.h"
#include "reader/preview_replies.h"
#include "reader/reader_protocol.h"

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr PixelSize kBox = {32, 32};
    static const bool isLoaded = (loadPicturePlugins(), true);
    MemoryByteSource source({data, size});
    for (const PreviewKind kind : {PreviewKind::picture, PreviewKind::morePicture}) {
        const auto reply = previewReply(source, kind, kBox);
        // The window accepts what is made.
        if (isLoaded && reply && !decodePreview(encodePreview(*reply), kind, kBox)) {
            __builtin_trap();
        }
    }
    return 0;
}
