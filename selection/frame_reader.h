// Reads the selection of one window of a file manager over the accessibility bus. Finding the view
// takes long and is done once; reading what is selected takes a few questions; checking that what
// was read still holds takes three or four, which are asked all at once.

#pragma once

#include <QString>

#include <sys/types.h>

#include <chrono>
#include <string>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_inquiry.h"
#include "selection/dolphin_window.h"
#include "selection/file_manager_kind.h"
#include "selection/frame_walk.h"
#include "selection/selected_items.h"
#include "selection/window_folder.h"
#include "selection/witness.h"

namespace pinorama {

class FrameReader {
public:
    using OutlivesItsTasks = void;  // who has it read holds it by a shared pointer

    FrameReader(Accessible frame, const FileManagerKind& kind, pid_t process, bool isDesktop);

    const Accessible& frame() const { return frame_; }
    const FileManagerKind& kind() const { return kind_; }
    pid_t process() const { return process_; }

    // Finds the view and reads it. Takes 40 to 250 ms; meant to run in the event loop.
    Task<Done> findAndRead(Inquiry& inquiry);

    // Reads the selection anew. The window's make-up must be known.
    Task<Done> read(Inquiry& inquiry);

    // Asks whether the last reading still holds, and marks it stale when not.
    Task<Done> check(Inquiry& inquiry);

    // The same along with other questions: asks them and gives what they are about, and takes the
    // first of the answers to what was asked. The window may have been read anew between the two.
    Witnesses askToCheck(Inquiry& inquiry) const;
    void takeCheck(const Witnesses& asked, const std::vector<QDBusMessage>& answers);

    // The program has said that something changed.
    void markStale() { isStale_ = true; }

    // An item of this program got the focus; it is likely to be the selected one.
    void noteFocus(const Accessible& item);

    // The selection of a view of this program has changed.
    void noteSelection(const Accessible& view);

    // Somebody who knows says which folder the window shows, or has shown a moment ago.
    void noteFolder(const std::string& folder) { folder_.note(folder); }

    bool isFound() const { return isFound_; }

    // Whether something has changed, so that the selection has to be read anew.
    bool isStale() const { return isStale_; }

    // Whether so much time has gone by that reading again takes no more than a small part of it. A
    // change that no file manager's word and no check has told of is found out this way, and one
    // whose folder is large is not kept busy.
    bool isDue(Clock::time_point now) const;

    // How long the last reading took; a second before the first one, so that it does not hold
    // anybody up.
    std::chrono::microseconds cost() const { return cost_; }
    void setCost(std::chrono::microseconds cost) { cost_ = cost; }

    // The paths that were read last, in the order of the view.
    const std::vector<std::string>& paths() const { return paths_; }

    // Forgets everything, as after a change of the window's make-up. A reading that waits for an
    // answer ends then.
    void forget();

private:
    void takeOver(const SelectedItems& selected);

    Accessible frame_;
    const FileManagerKind& kind_;
    pid_t process_;

    bool isFound_ = false;
    SharedLayout layout_;   // never null, and another one after every change of the make-up
    std::size_t pane_ = 0;  // the view that has or had the focus
    QString title_;
    WindowFolder folder_;
    DolphinWindow dolphin_;

    bool isStale_ = true;
    Clock::time_point readAt_;
    std::chrono::microseconds cost_ = std::chrono::seconds(1);
    Accessible focused_;  // item that got the focus last
    Accessible touched_;  // item or view in which something happened last
    Accessible item_;     // the only one that was read last
    Witnesses witnesses_;
    std::vector<std::string> paths_;
};

}  // namespace pinorama
