// Where the window learns which files are selected in the file manager. One small interface, so
// that the window does not know which of the ways to ask is in use, and tests can answer
// themselves.

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

    // Asks the file manager window that was active last for its selection and returns the absolute
    // paths in raw bytes, in the order of the view; a folder's path ends in a slash. Empty when
    // nothing is selected, when no file manager answers, and when the answer misses its deadline:
    // 300 ms in all, however many calls it takes. Never throws, reports nothing.
    virtual std::vector<std::string> selectedPaths() = 0;
};

}  // namespace pinorama
