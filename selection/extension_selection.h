// The selection as an extension inside the file manager tells it. The last push of a file manager
// answers for the window that it came from, as long as that window is the one that was active last
// and shows the same folder.

#pragma once

#include <QObject>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_inquiry.h"
#include "selection/frame_tracker.h"
#include "selection/selection_pushes.h"
#include "selection/selection_source.h"

namespace pinorama {

class ExtensionSelection : public QObject, public SelectionSource {
    Q_OBJECT

public:
    using OutlivesItsTasks = void;  // waits for each of them, or is held by who does

    // `tracker` must outlive this.
    explicit ExtensionSelection(FrameTracker& tracker);

    std::vector<std::string> selectedPaths() override;

    // The same as a part of a longer inquiry, for a window that is known to be the one that counts.
    // Nothing when no extension speaks for this window.
    Task<std::optional<std::vector<std::string>>> pathsIn(Inquiry& inquiry, SharedFrame frame);

    // Whether pushes are taken; when not, the extensions do not find this program on the bus.
    void setListening(bool isListening) { pushes_.setListening(isListening); }

private:
    Task<std::vector<std::string>> answer(Inquiry& inquiry);

    FrameTracker& tracker_;
    SelectionPushes pushes_;
};

}  // namespace pinorama
