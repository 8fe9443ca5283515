// The selection of the file manager over the accessibility bus. Nothing has to be installed in the
// file manager for it, and the clipboard is never touched.

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "selection/dbus_inquiry.h"
#include "selection/frame_tracker.h"
#include "selection/selection_source.h"

namespace pinorama {

class AccessibilitySelection : public SelectionSource {
public:
    using OutlivesItsTasks = void;  // waits for each of them, or is held by who does

    // `tracker` must outlive this.
    explicit AccessibilitySelection(FrameTracker& tracker);

    std::vector<std::string> selectedPaths() override;

    // The same as a part of a longer inquiry, for a window that is known to be the one that counts.
    Task<std::vector<std::string>> pathsIn(Inquiry& inquiry, SharedFrame frame);

private:
    Task<std::vector<std::string>> answer(Inquiry& inquiry);

    FrameTracker& tracker_;
};

// How long one question for the selection may take, all its parts together.
constexpr std::chrono::milliseconds kSelectionDeadline{300};

}  // namespace pinorama
