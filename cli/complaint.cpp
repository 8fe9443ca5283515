#include "cli/complaint.h"

#include "base/utf8.h"
#include "cli/printable.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"

void appendComplaint(std::string_view what, std::string* out)
{
    *out += "pinorama-info: ";
    appendPrintable(what, out);
    *out += '\n';
}

std::string shownPath(const std::string& path)
{
    const StringHolder text(platform::createPathText(path));
    return platform::displayUTF8(platform::unitsOf(text.get()));
}
