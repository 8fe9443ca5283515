// Previews for callers that wait for them: from the desktop's thumbnails, else from the reader.

#pragma once

namespace pinorama {

// Has imageWithPreviewOfFileAtPath (lib/ui/preview.h) show previews from now on: the desktop's
// thumbnail when it is up to date, else what the reader finds in the file, for which it has
// 3 seconds. Once, while a program starts.
void cuInstallFilePreviews();

}  // namespace pinorama
