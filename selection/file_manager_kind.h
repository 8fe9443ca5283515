// The file managers whose selection can be followed, and the facts about each of them. What is
// special to one of them is in its file in selection/managers, so that a new version of it is
// mended there.

#pragma once

#include <QDBusMessage>

#include <sys/types.h>

#include <memory>
#include <string_view>

#include "selection/accessible.h"

namespace pinorama {

class ManagerWindow;

// The toolkits of the file managers. They differ in what they expose on the accessibility bus, and
// in what switches that on.
enum class Toolkit { gtk, qt };

struct FileManagerKind {
    std::string_view process;  // the name of the executable
    std::string_view name;     // as its developers spell it
    Toolkit toolkit;

    // Makes what reads a window of this process (manager_window.h).
    std::unique_ptr<ManagerWindow> (*makeWindow)(pid_t process);

    // Whether a window of this role, and with the attributes in this reply, draws the icons of the
    // desktop.
    bool (*isDesktop)(Role role, const QDBusMessage& attributes);

    // Whether some changes of its selection are reported as changes of names only.
    bool reportsByNames = false;

    // Whether its windows send no event of a window when they are activated, but change their
    // state.
    bool activatesSilently = false;

    // Whether its extensions are called before it applies a change, so that they push the selection
    // before the last change.
    bool pushesTooEarly = false;
};

// The kind of a process by the name of its executable, ignoring case ("Thunar" and "thunar" are the
// same). Null for every other program.
const FileManagerKind* fileManagerKind(std::string_view process);

// The kind of a running process of this machine, or null.
const FileManagerKind* fileManagerKindOfProcess(pid_t process);

}  // namespace pinorama
