// A program of another project that uses the library: it reads where a picture was taken, or shows
// a place that it knows.

#include "public_functions.h"

#include <pinorama.h>

#include <cstdio>
#include <string>

namespace {
std::string utf8(TovStringRef text)
{
    std::string bytes(TovStringGetUTF8Size(text), '\0');
    std::uint32_t size = 0;
    TovStringCopyToUTF8(text, bytes.data(), &size);
    return bytes;
}
}  // namespace

int main()
{
    VardenTime minutes = 0;
    convUnixTime2VardenTime(946684800, &minutes);
    const StringHolder number(TovMakeNumberString(minutes));

    fileInfoRecord record{};
    gpsPrepareInfoRecord(&record);
    record.latti = 48.1;
    record.refLatti = 'N';
    const StringHolder name(TovStringFromUTF8("a.jpg", 5));
    const StringHolder document(gpsMakeKMLDocument(&record, name.get()));
    const bool isDocument = TovStringBeginsWithCString(document.get(), "<?xml", 1);
    const bool isAccepted = gpsIsAcceptedPath(name.get());
    gpsReleaseInfoRecord(&record);

    std::printf("%d functions, %s minutes, document %d, accepted %d\n", countPublicFunctions(),
                utf8(number.get()).c_str(), isDocument, isAccepted);
    const bool isRight = utf8(number.get()) == "21038400" && isDocument && isAccepted;
    return isRight && countPublicFunctions() == 278 ? 0 : 1;
}
