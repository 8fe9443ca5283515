// What a file manager's status bar says about the selection. Several file managers name the one
// selected item there, in the quotation marks of the user's language, and count otherwise.

#pragma once

#include <QString>

#include <vector>

namespace pinorama {

// The names that the quotation at the start of `text` may hold, the most likely first: everything
// up to the last closing mark, then up to the one before it, and so on. A name may contain
// quotation marks itself, so that the caller has to see which of them exists. Empty when the text
// does not begin with a quotation mark.
//
// `"a.jpg" (2 kB)` gives `a.jpg`; `„a.jpg“ | 2 kB` and `»a.jpg« ausgewählt` do as well;
// `3 items` gives nothing.
std::vector<QString> quotedNames(const QString& text);

}  // namespace pinorama
