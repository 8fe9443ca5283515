// Shows a file to the user in the file manager.

#pragma once

#include "desktop/url_opener.h"

#include <QObject>

#include <chrono>
#include <string>

namespace pinorama {

// How long the file manager may take to reply. It may have to be started.
constexpr std::chrono::seconds kFileManagerPatience{10};

// Has the file manager open the folder of a file and select the file in it. Without one on the
// session bus that can, or a session bus, `opener` opens the folder. Returns at once.
//
//   path     absolute, in the raw bytes of the system.
//   opener   outlives `context`.
//   context  when it is gone, nothing is opened any more.
//
// Source: freedesktop.org "File Manager DBus Interface", org.freedesktop.FileManager1.ShowItems.
void showInFileManager(const std::string& path, UrlOpener& opener, QObject* context);

}  // namespace pinorama
