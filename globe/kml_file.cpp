#include "globe/kml_file.h"

#include "base/utf8.h"
#include "globe/google_earth_connector.h"
#include "globe/kml_document.h"
#include "globe/xml_escape.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"

#include <cerrno>
#include <optional>
#include <string>
#include <utility>

#include <sys/mman.h>
#include <unistd.h>

using namespace pinorama;

namespace {
// A picture without a name is another thing than one whose name is empty.
TovStringRef copyForXML(TovStringRef name)
{
    return TovStringIsValid(name) ? gpsEscapeForXML(unitsOf(name)) : nullptr;
}

// The document as it should be, and the name in it.
struct Document {
    StringHolder name{};
    std::string bytes{};
};

// Nothing with errno set when memory runs out.
std::optional<Document> documentOf(const fileInfoRecord& info, TovStringRef pictureName)
{
    Document document{StringHolder(copyForXML(pictureName))};
    const StringHolder text(gpsMakeKMLDocument(&info, document.name.get()));
    document.bytes = displayUTF8(unitsOf(text.get()));
    if (text && !document.bytes.empty() && (!TovStringIsValid(pictureName) || document.name))
        return document;
    errno = ENOMEM;
    return std::nullopt;
}

// True when these are the bytes of the file.
bool contentIs(int file, const std::string& bytes)
{
    std::string content(bytes.size() + 1, '\0');
    const std::int64_t count = readAt(file, 0, content.data(), content.size());
    return count == static_cast<std::int64_t>(bytes.size()) && content.starts_with(bytes);
}
}  // namespace

bool gpsSaveKML(const std::string& path, const fileInfoRecord& info, TovStringRef pictureName,
                FullPipe fullPipe)
{
    const std::optional<Document> document = documentOf(info, pictureName);
    if (!document) return false;
    ReplacingFile file({.fullPipe = fullPipe});
    if (!file.begin(path)) return false;
    if (!file.unfinishedPath().empty()) {
        const StringHolder unfinished(createPathText(file.unfinishedPath()));
        GoogleEarthConnector::exportToKML(unfinished.get(), &info, document->name.get());
    }
    // The export reports nothing. Writing what it could not write shows why.
    return (file.contentIs(document->bytes) || file.write(document->bytes)) && file.finish();
}

DescriptorHolder gpsMakeKMLInMemory(const fileInfoRecord& info, TovStringRef pictureName)
{
    const std::optional<Document> document = documentOf(info, pictureName);
    if (!document) return DescriptorHolder();
    DescriptorHolder file(memfd_create("kml", MFD_CLOEXEC));
    if (!file) return file;
    const StringHolder path(createPathText("/proc/self/fd/" + std::to_string(file.get())));
    GoogleEarthConnector::exportToKML(path.get(), &info, document->name.get());
    if (contentIs(file.get(), document->bytes)) return file;
    // The export reports nothing; without /proc it has written nothing.
    const auto size = static_cast<ssize_t>(document->bytes.size());
    const bool isWritten =
        ftruncate(file.get(), 0) == 0 &&
        pwrite(file.get(), document->bytes.data(), document->bytes.size(), 0) == size;
    return isWritten ? std::move(file) : DescriptorHolder();
}
