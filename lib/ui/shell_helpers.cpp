#include "lib/ui/shell_helpers.h"

#include "base/status.h"
#include "lib/files/file_reference.h"
#include "lib/files/fork_io.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"

#include <fcntl.h>

using namespace pinorama;

namespace {
// Lines end in a carriage return with a blank on either side; the last one is led in by two.
constexpr char kScriptBegin[] = "tell application \"Finder\" \r set myFile to POSIX file \"";
constexpr char kScriptAfterPath[] =
    "\" as alias \r set current_com to comment of myfile \r if current_com is \"\" then"
    " \r set comment of myfile to \"";
constexpr char kScriptAfterNewComment[] =
    "\" \r else \r set comment of myfile to (current_com & return & \"";
constexpr char kScriptEnd[] = "\") as string \r end if \r  end tell";

void appendArgument(TovStringRef* script, TovStringRef text)
{
    if (text == nullptr) {
        TovStringAppendCString(script, "(null)");
    } else {
        TovStringAppendTovString(script, text);
    }
}
}  // namespace

std::int16_t cuCreateAndOpenTextFile(TovStringRef path, ForkRef* outForkRef)
{
    *outForkRef = 0;
    const std::string bytes = pathBytes(path);
    const ForkCloser made(openDescriptor(bytes.c_str(), O_WRONLY | O_CREAT | O_TRUNC));
    if (!made) return kErrCannotCreate;
    FSRef ref;
    std::int32_t status = feMakeFSRefFromBytes(bytes.c_str(), &ref);
    if (status == kErrNone) status = feOpenExistingFileRef(&ref, outForkRef, 1, 1);
    return static_cast<std::int16_t>(status);
}

TovStringRef cuMakeFinderCommentScript(TovStringRef path, TovStringRef comment)
{
    StringHolder script(TovStringCreateMutable());
    TovStringAppendCString(script.slot(), kScriptBegin);
    appendArgument(script.slot(), path);
    TovStringAppendCString(script.slot(), kScriptAfterPath);
    appendArgument(script.slot(), comment);
    TovStringAppendCString(script.slot(), kScriptAfterNewComment);
    appendArgument(script.slot(), comment);
    TovStringAppendCString(script.slot(), kScriptEnd);
    return script.take();
}
