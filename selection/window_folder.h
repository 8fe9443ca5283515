// Which folder one window of a file manager shows, asked of the window itself: its location entries
// and its rows of buttons. What is seen of it may fit several folders; the right one is the one
// that holds what is selected.

#pragma once

#include <QString>

#include <sys/types.h>

#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_inquiry.h"
#include "selection/folder_choice.h"
#include "selection/frame_walk.h"

namespace pinorama {

class WindowFolder {
public:
    using OutlivesItsTasks = void;  // it is a part of the reader that asks it

    // A desktop, whose icons lie in the user's desktop folder, is not asked.
    WindowFolder(pid_t process, bool isDesktop) : process_(process), isDesktop_(isDesktop) {}

    // Asks the window with the title `title`. False when the window no longer has the make-up of
    // `layout`; what was known of the folder is kept then.
    Task<bool> read(Inquiry& inquiry, QString title, SharedLayout layout);

    // When the window was asked last.
    Clock::time_point readAt() const { return readAt_; }

    // Somebody who knows says which folder the window shows, or has shown a moment ago.
    void note(const std::string& folder) { noted_ = folder; }

    // The path of the item that the window shows by this name, in the likeliest folder that has
    // such an item. This folder is the likeliest from then on.
    std::optional<std::string> pathOf(const QString& name);

private:
    using Rows = std::vector<std::vector<RowButton>>;
    Task<std::optional<Rows>> readRows(Inquiry& inquiry, SharedLayout layout);

    pid_t process_;
    bool isDesktop_;
    std::string noted_;
    std::vector<std::string> likely_;  // that the window may show, the likeliest first
    Clock::time_point readAt_;
};

}  // namespace pinorama
