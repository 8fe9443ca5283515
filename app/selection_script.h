// The request by which the file manager is asked for its selection, as a text.

#pragma once

#include "lib/objects/string.h"

namespace pinorama {

// Returns a new text: seven lines separated by carriage returns, every blank at their ends and
// every tab as it belongs there. Null when memory runs out.
[[nodiscard]] TovStringRef appMakeSelectionScript();

}  // namespace pinorama
