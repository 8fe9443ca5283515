// What the window asks: the selection of the file manager from whoever can tell it, the file
// manager's extension where one is installed, the accessibility bus everywhere else.

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

    // Needs an event loop between the calls: the windows of the file managers are found in it. Two
    // seconds after the last call all connections but the one to the session bus are dropped, and
    // no file manager is asked anything.
    std::vector<std::string> selectedPaths() override;

private:
    struct Parts;
    std::unique_ptr<Parts> parts_;
};

}  // namespace pinorama
