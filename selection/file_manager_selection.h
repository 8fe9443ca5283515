// The selection source of the window: the extension inside the file manager where one is installed,
// the accessibility bus everywhere else.
//
//     FileManagerSelection selection;                // connects to nothing yet
//     timer.callOnTimeout([&] {                      // every 0.2 s
//         const auto paths = selection.selectedPaths();
//         if (paths.size() == 1) show(paths.front());
//     });

#pragma once

#include <memory>
#include <string>
#include <vector>

#include "selection/selection_source.h"

namespace pinorama {

class FileManagerSelection : public SelectionSource {
public:
    FileManagerSelection();
    ~FileManagerSelection() override;

    // Needs an event loop between the calls, which finds the windows of the file managers. Two
    // seconds after the last call all connections but the one to the session bus close, and no file
    // manager is called any more.
    std::vector<std::string> selectedPaths() override;

    bool isKnown() const override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace pinorama
