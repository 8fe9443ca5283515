// Who may push a selection. Every program of the session can call SelectionPushes and can give its
// process any name, so that only the program's file says what it is.

#pragma once

#include <string_view>

#include <sys/types.h>

#include "selection/file_manager_kind.h"

namespace pinorama {

// The facts about the file of a running program.
struct Executable {
    std::string_view path;  // as the kernel gives it; of a file that was replaced meanwhile it ends
                            // in " (deleted)"
    uid_t owner;
    mode_t mode;
};

// The file manager whose program this is: it has that program's name, belongs to root, and only
// root may write to it. Null for every other file, so that no user's copy, link or script counts.
const FileManagerKind* fileManagerKindOfExecutable(const Executable& executable);

// The same for a running process of this machine. Null if its file cannot be looked at, as that of
// another user's process.
const FileManagerKind* fileManagerKindOfSender(pid_t process);

}  // namespace pinorama
