// Where the window gets the selection of the file manager from. An interface, so that the window
// does not depend on how the selection is found, and tests can provide one.

#pragma once

#include <functional>
#include <string>
#include <vector>

namespace pinorama {

class SelectionSource {
public:
    SelectionSource() = default;
    SelectionSource(const SelectionSource&) = delete;
    SelectionSource& operator=(const SelectionSource&) = delete;
    virtual ~SelectionSource() = default;

    // The selection of the file manager window that was active last: absolute paths in raw bytes,
    // in the order of the view; the path of a folder ends in a slash. Empty if nothing is selected,
    // if no file manager replies, or if it takes too long: nobody waits longer for this than the
    // window may keep its user waiting. Never throws, reports nothing.
    virtual std::vector<std::string> selectedPaths() = 0;

    // Whether the last selectedPaths() found out what is selected. If not, its empty result does
    // not mean that nothing is: a file manager has not replied yet, or its window is still being
    // read.
    virtual bool isKnown() const { return true; }

    // Receives the selection, as selectedPaths() returns it.
    using Listener = std::function<void(const std::vector<std::string>& paths)>;

    // Looks at the selection also between two calls of selectedPaths(), each time that a file
    // manager reports a change, and gives the listener what it finds. It does not look for an empty
    // listener, nor if selectedPaths() was not called lately. A look finds what selectedPaths()
    // would, but lets the event loop run while it waits for replies. If the selection is not known,
    // the listener is not called. A source that receives no reports never calls it.
    virtual void setListener(Listener) {}
};

}  // namespace pinorama
