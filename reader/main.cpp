// pinorama-reader: reads pictures for the window in a sandbox, each in a process of its own. The
// window starts it with a socket; started from a command line it has none and ends at once. With
// the argument kMoreKindsArgument it has the decoders of more kinds of pictures, too.

#include "base/user_language.h"
#include "pictures/more_properties.h"
#include "pictures/packed_part.h"
#include "pictures/picture_properties.h"
#include "pictures/pixels/av1_image.h"
#include "pictures/pixels/hevc_image.h"
#include "pictures/pixels/jxl_image.h"
#include "reader/namespaces.h"
#include "reader/other_pictures.h"
#include "reader/preview_replies.h"
#include "reader/reader_limits.h"
#include "reader/reader_process.h"
#include "reader/reader_service.h"
#include "reader/reader_zygote.h"
#include "reader/rehearsal.h"
#include "reader/sandbox.h"

#include <cstdio>
#include <cstdlib>
#include <string_view>

#include <unistd.h>

namespace pinorama {
namespace {
// What is asked for only where more kinds of files are read. Most of it takes milliseconds, which
// nobody else has to wait for.
void loadMoreDecoders()
{
    (void)loadHevcDecoder();  // without it there is no preview of most HEIC pictures
    (void)loadAv1Decoder();   // ... of AVIF pictures
    (void)loadJxlDecoder();   // ... of JPEG XL
    loadUnpackers();          // ... no compressed metadata
}
}  // namespace
}  // namespace pinorama

using namespace pinorama;

int main(int argc, char** argv)
{
    if (!hasReaderSocket()) {
        std::fputs("pinorama-reader is started by Pinorama and does nothing by itself.\n", stderr);
        return EXIT_FAILURE;
    }
    loadPicturePlugins();
    if (argc > 1 && std::string_view(argv[1]) == kMoreKindsArgument) loadMoreDecoders();
    bool hasNamespaces = false;
    if (!enterSandbox(readerRules(kReaderSocket), &hasNamespaces)) return EXIT_FAILURE;
    const ReaderProcess keeper = hasNamespaces ? forkNamespaceKeeper() : ReaderProcess();
    serveInChildren(kReaderSocket, [](int socket) {
        if (!enterChildSandbox(socket)) return;
        (void)rehearse();
        servePicture(socket, {readPictureProperties, previewReply, moreReaderFor(userLanguage())});
    });
    // Libraries would look for files while they clean up.
    _exit(EXIT_SUCCESS);
}
