#include "cli/diagnostic.h"

#include "base/printable.h"
#include "base/utf8.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"

namespace pinorama {

void appendDiagnostic(std::string_view what, std::string* out)
{
    *out += "pinorama-info: ";
    appendPrintable(what, out);
    *out += '\n';
}

std::string shownPath(const std::string& path)
{
    const StringHolder text(createPathText(path));
    return displayUTF8(unitsOf(text.get()));
}

}  // namespace pinorama
