// The selection of the file manager, read over the accessibility bus. The file manager needs no
// extension for it, and the clipboard stays untouched.
//
//     FrameTracker tracker;
//     AccessibilitySelection selection(tracker);
//     timer.callOnTimeout([&] { show(selection.selectedPaths()); });
//
// A call at rest costs one round trip: FrameTracker asks all windows which is active and, along
// with that, revalidates what was read last.

#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_query.h"
#include "selection/frame_tracker.h"
#include "selection/selection_source.h"

namespace pinorama {

class AccessibilitySelection : public SelectionSource {
public:
    using OutlivesItsTasks =
        void;  // it blocks for its own, and the owners of other queries own this

    // `tracker` must outlive this.
    explicit AccessibilitySelection(FrameTracker& tracker);

    std::vector<std::string> selectedPaths() override;

    bool isKnown() const override { return isKnown_; }

    // The same as a part of a longer query, for the window that was active last. Nothing if the
    // selection is not known.
    Task<std::optional<std::vector<std::string>>> pathsIn(DBusQuery& query, SharedFrame frame);

private:
    Task<std::optional<std::vector<std::string>>> findPaths(DBusQuery& query);

    FrameTracker& tracker_;
    bool isKnown_ = false;
};

// The time limit of one query for the selection, all its calls together.
constexpr std::chrono::milliseconds kSelectionDeadline{300};

}  // namespace pinorama
