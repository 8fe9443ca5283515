#include "app/selection_script.h"

#include "base/utf8.h"
#include "lib/text/byte_texts.h"

namespace pinorama {

TovStringRef appMakeSelectionScript()
{
    // What lists the selection here is SelectionSource; this is the same request as a
    // script of the file manager's own language.
    return createStringFromUTF8(
        "tell application \"Finder\" \r"
        " set ms to selection \r"
        " set mR to {} \r"
        " repeat with i from 1 to number of ms \r"
        "\tset mR to mR & (POSIX path of (item i of ms as alias)) \r"
        " end repeat \r"
        "\tend tell");
}

}  // namespace pinorama
