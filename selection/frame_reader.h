// Reads the selection of one window of a file manager over the accessibility bus, in three steps of
// falling cost: finding the view takes up to 250 ms and happens once; reading the selection takes a
// few round trips; revalidating what was read takes one, of three or four calls.
//
//     if (!frame->isFound()) co_await frame->findAndRead(query);
//     if (!frame->isStale()) co_await frame->revalidate(query);
//     if (frame->isStale()) co_await frame->read(query);
//     use(frame->paths());

#pragma once

#include <QString>

#include <sys/types.h>

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "selection/accessible.h"
#include "selection/dbus_query.h"
#include "selection/file_manager_kind.h"
#include "selection/frame_walk.h"
#include "selection/manager_window.h"
#include "selection/selected_items.h"
#include "selection/validator.h"
#include "selection/window_folder.h"

namespace pinorama {

class FrameReader {
public:
    using OutlivesItsTasks = void;  // whoever awaits them holds it by a shared pointer

    FrameReader(Accessible frame, const FileManagerKind& kind, pid_t process, bool isDesktop);

    const Accessible& frame() const { return frame_; }
    const FileManagerKind& kind() const { return kind_; }
    pid_t process() const { return process_; }

    // Finds the view and reads it. Takes 40 to 250 ms, so it belongs into the event loop.
    Task<Done> findAndRead(DBusQuery& query);

    // Reads the selection again. Does nothing until the view has been found. Another coroutine may
    // call forget() while this one waits; it then ends and leaves the window forgotten.
    Task<Done> read(DBusQuery& query);

    // Sends ahead what the last reading of a changed window asked, about the item that is probably
    // selected now instead of the one that was. The reading that follows in the same query then
    // mostly needs no more than a round trip for the names in that item, however many of its
    // questions depend on each other. read() does the same if nobody has.
    void askAhead(DBusQuery& query) const;

    // The same about the item alone that was selected last, because that was reported only after
    // the query had begun.
    void askAheadAboutItem(DBusQuery& query) const;

    // Revalidates the last reading, and marks it stale if it is no longer true.
    Task<Done> revalidate(DBusQuery& query);

    // The same in two halves, to share a round trip with other calls: sends the calls, and takes
    // the first of the replies. Another coroutine may read the window between the two, so the
    // second half needs the validators whose calls were sent, not those of the latest reading.
    Validators sendRevalidation(DBusQuery& query) const;
    void takeRevalidation(const Validators& sent, const std::vector<QDBusMessage>& replies);

    // The program reported a change.
    void markStale();

    // An item of this program got the focus, so it is probably the selected one.
    void noteFocus(const Accessible& item);

    // The selection of a view of this program has changed, as the view or one of its items reports.
    void noteSelection(const Accessible& object);

    // An item of this program was selected.
    void noteSelected(const Accessible& item);

    // An extension reported the folder that the window shows, or showed a moment ago.
    void noteFolder(const std::string& folder) { folder_.note(folder); }

    // The item that probably is the selected one; null if none was reported.
    const Accessible& likelyItem() const { return likely_; }

    bool isFound() const { return isFound_; }

    // Whether something has changed since the last reading.
    bool isStale() const { return isStale_; }

    // Whether the window should be read again although nothing reported a change and revalidation
    // found none. The interval grows with the cost of a reading, so that a file manager with a
    // large folder is not kept busy.
    bool isDue(Clock::time_point now) const;

    // How long the last reading took; before the first one a second, so that nobody waits for it.
    std::chrono::microseconds cost() const { return cost_; }
    void setCost(std::chrono::microseconds cost) { cost_ = cost; }

    // The paths of the last reading, in the order of the view; empty also if one of several items
    // has no path. Nothing if the selection is not known: it has not been read since the view was
    // found, or the only item has no path.
    const std::optional<std::vector<std::string>>& paths() const { return paths_; }

    // Forgets the view and everything read from it, because the window's structure has changed. A
    // reading that waits for a reply ends when it gets it.
    void forget();

private:
    bool isScrolledOut(const SelectedItems& selected) const;
    void store(const SelectedItems& selected);
    void noteQuestions(const FrameLayout& layout, std::vector<DBusQuery::Call> calls);
    std::vector<DBusQuery::Call> questionsAbout(const Accessible& item) const;

    Accessible frame_;
    const FileManagerKind& kind_;
    pid_t process_;
    std::unique_ptr<ManagerWindow> window_;  // never null

    bool isFound_ = false;
    SharedLayout layout_;   // never null; replaced, never changed, so that a reading notices
    std::size_t pane_ = 0;  // the view that has or had the focus
    QString title_;
    WindowFolder folder_;

    bool isStale_ = true;
    Clock::time_point changedAt_;  // when that was last reported
    Clock::time_point readAt_;
    std::chrono::microseconds cost_ = std::chrono::seconds(1);
    Accessible focused_;  // the item that got the focus last
    Accessible touched_;  // the item or view of the last focus or selection event
    Accessible likely_;   // the item that was selected or got the focus last, as it reported
    Accessible item_;     // the selected item of the last reading that did not find several
    std::vector<DBusQuery::Call> windowQuestions_;  // of the last reading of a changed window
    std::vector<DBusQuery::Call> itemQuestions_;    // about the selected item of the last with one
    Validators validators_;
    std::optional<std::vector<std::string>> paths_;
};

}  // namespace pinorama
