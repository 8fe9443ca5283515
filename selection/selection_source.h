// Where the window gets the selection of the file manager from. An interface, so that the window
// does not depend on how the selection is found, and tests can provide one.

#pragma once

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
    // if no file manager replies, or if the deadline passes: 300 ms in all, however many calls it
    // takes. Never throws, reports nothing.
    virtual std::vector<std::string> selectedPaths() = 0;

    // Whether the last selectedPaths() found out what is selected. If not, its empty result does
    // not mean that nothing is: a file manager did not reply, or its window is still being read.
    virtual bool isKnown() const { return true; }
};

}  // namespace pinorama
