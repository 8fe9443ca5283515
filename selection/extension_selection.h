// The selection as an extension inside the file manager pushes it. The last push of a file manager
// is valid for the window that it came from, as long as that window is the one that was active last
// and shows the same folder.

#pragma once

#include <QObject>

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "selection/dbus_query.h"
#include "selection/frame_tracker.h"
#include "selection/selection_pushes.h"
#include "selection/selection_source.h"

namespace pinorama {

class ExtensionSelection : public QObject, public SelectionSource {
    Q_OBJECT

public:
    using OutlivesItsTasks =
        void;  // it blocks for its own, and the owners of other queries own this

    // `tracker` must outlive this.
    explicit ExtensionSelection(FrameTracker& tracker);

    std::vector<std::string> selectedPaths() override;
    bool isKnown() const override { return isKnown_; }

    // The same as a part of a longer query, for the window that was active last. Nothing if no
    // extension has pushed the selection of this window.
    Task<std::optional<std::vector<std::string>>> pathsIn(DBusQuery& query, SharedFrame frame);

    // Whether pushes are accepted; if not, the extensions do not find this program on the bus.
    void setListening(bool isListening) { pushes_.setListening(isListening); }

Q_SIGNALS:
    // An extension has pushed a selection, or has taken back the last one.
    void pushed();

private:
    Task<std::optional<std::vector<std::string>>> findPaths(DBusQuery& query);

    FrameTracker& tracker_;
    bool isKnown_ = false;
    SelectionPushes pushes_;
};

}  // namespace pinorama
