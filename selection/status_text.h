// Reads what a file manager's status bar says about the selection. Several file managers name the
// one selected item there, in the quotation marks of the user's language; of several items they
// show the number.

#pragma once

#include <QString>

#include <vector>

namespace pinorama {

// The names that the quotation at the start of `text` may contain, the most likely first:
// everything up to the last closing quotation mark, then up to the one before it, and so on. A name
// may contain quotation marks itself, so the caller has to find out which of these items exists.
// Empty if the text does not begin with a quotation mark.
//
// `"a.jpg" (2 kB)`, `„a.jpg“ | 2 kB` and `»a.jpg« ausgewählt` all give `a.jpg`; `3 items` gives
// nothing.
std::vector<QString> quotedNames(const QString& text);

}  // namespace pinorama
