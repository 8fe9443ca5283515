// Previews for whoever waits for them: from the desktop's thumbnails, else from the reader.

#pragma once

namespace pinorama {

// Has imageWithPreviewOfFileAtPath (lib/ui/preview.h) show previews from now on: the desktop's
// thumbnail when it is up to date, else what the reader makes of the file's content, which may take
// 3 seconds. Once, while a program starts.
void cuInstallFilePreviews();

}  // namespace pinorama
