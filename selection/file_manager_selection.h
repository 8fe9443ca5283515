// The selection source of the window: the extension inside the file manager where one is installed,
// the accessibility bus everywhere else.
//
//     FileManagerSelection selection;                // connects to nothing yet
//     timer.callOnTimeout([&] {                      // every 0.2 s
//         const auto paths = selection.selectedPaths();
//         if (paths.size() == 1) show(paths.front());
//     });

#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "selection/file_manager_kind.h"
#include "selection/selection_source.h"

namespace pinorama {

class FileManagerSelection : public SelectionSource {
public:
    // Returns the kind of a process, or null if it is no file manager. Tests pass their own.
    using KindOfProcess = std::function<const FileManagerKind*(pid_t)>;

    // How long selectedPaths() waits. The window has to answer its user meanwhile.
    static constexpr std::chrono::milliseconds kPatience{40};

    explicit FileManagerSelection(KindOfProcess kindOfProcess = fileManagerKindOfProcess,
                                  std::chrono::milliseconds patience = kPatience);
    ~FileManagerSelection() override;

    // Needs an event loop between the calls, which finds the windows of the file managers. Two
    // seconds after the last call all connections but the one to the session bus close, and no file
    // manager is called any more.
    //
    // If a file manager takes longer than the patience lasts, it is asked in the event loop from
    // then on until it is quick again: a call begins a question, and returns the answer to the one
    // before unless the listener has heard it.
    std::vector<std::string> selectedPaths() override;

    bool isKnown() const override;

    // Reports are the events of the accessibility bus, the pushes of extensions, and the end of a
    // reading that took too long to be waited for. There is one look at a time: selectedPaths()
    // cancels the one that waits for replies.
    void setListener(Listener listener) override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace pinorama
