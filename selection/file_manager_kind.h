// The file managers whose selection can be followed, and what has to be known about each.

#pragma once

#include <sys/types.h>

#include <string_view>

namespace pinorama {

enum class FileManager { nautilus, nemo, caja, thunar, pcmanfm, pcmanfmQt, dolphin };

// The kits that the file managers are made with, which differ in how they show themselves on the
// accessibility bus and in what switches that on.
enum class Toolkit { gtk2, gtk3, gtk4, qt };

struct FileManagerKind {
    FileManager manager;
    std::string_view process;  // the name of its executable, also of one that draws the desktop
    std::string_view name;     // as its makers write it
    Toolkit toolkit;
    bool isDesktop;  // the process draws desktop icons and nothing else
};

// The kind of a process by the name of its executable, in any case: "Thunar" and "thunar" are the
// same. Null for every other program.
const FileManagerKind* fileManagerKind(std::string_view process);

// The kind of a running process of this machine, or null.
const FileManagerKind* fileManagerKindOfProcess(pid_t process);

}  // namespace pinorama
