#include "cli/kml_export.h"

#include "base/utf8.h"
#include "cli/diagnostic.h"
#include "globe/kml_document.h"
#include "globe/kml_file.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "location/file_name.h"

#include <cerrno>
#include <cstring>

namespace pinorama {
namespace {
std::string takeUTF8(StringHolder text)
{
    return displayUTF8(unitsOf(text.get()));
}
}  // namespace

std::string exportPicture(FileReporter* reporter, const std::string& picture,
                          const std::string& path)
{
    fileInfoRecord record{};
    gpsPrepareInfoRecord(&record);
    const FileReport report = reporter->report(picture, &record);
    std::string problem;
    if (!report.error.empty()) {
        problem = report.path + ": " + report.error;
    } else if (!report.isLocated()) {
        problem = report.path + ": no position";
    } else {
        const StringHolder picturePath(createPathText(picture));
        const StringHolder name(gpsCopyFileName(picturePath.get()));
        if (!gpsSaveKML(path, record, name.get(), FullPipe::waits)) {
            problem = shownPath(path) + ": " + std::strerror(errno);
        }
    }
    gpsReleaseInfoRecord(&record);
    return problem;
}

bool KmlCollection::begin(const std::string& path)
{
    if (!file_.begin(path)) return false;
    StringHolder header(TovStringCreateMutable());
    gpsInsertKmlHeader(header.slot(), nullptr);
    return file_.write(takeUTF8(std::move(header)));
}

bool KmlCollection::finish()
{
    StringHolder footer(TovStringCreateMutable());
    gpsInsertKmlFooter(footer.slot());
    return file_.write(takeUTF8(std::move(footer))) && file_.finish();
}

}  // namespace pinorama
