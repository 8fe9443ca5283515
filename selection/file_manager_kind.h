// The file managers whose selection can be followed, and the facts about each of them.

#pragma once

#include <sys/types.h>

#include <string_view>

namespace pinorama {

enum class FileManager { nautilus, nemo, caja, thunar, pcmanfm, pcmanfmQt, dolphin };

// The toolkits of the file managers. They differ in what they expose on the accessibility bus, and
// in what switches that on.
enum class Toolkit { gtk2, gtk3, gtk4, qt };

struct FileManagerKind {
    FileManager manager;
    std::string_view process;  // the name of the executable
    std::string_view name;     // as its developers spell it
    Toolkit toolkit;
    bool isDesktop;  // the process only draws the icons of the desktop
};

// The kind of a process by the name of its executable, ignoring case ("Thunar" and "thunar" are the
// same). Null for every other program.
const FileManagerKind* fileManagerKind(std::string_view process);

// The kind of a running process of this machine, or null.
const FileManagerKind* fileManagerKindOfProcess(pid_t process);

}  // namespace pinorama
