#include "location/file_facts.h"

#include "base/file_attributes.h"
#include "lib/conv/mac_time.h"
#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/values.h"
#include "lib/strings/tov_display.h"
#include "location/dictionary_getters.h"

using namespace pinorama;

namespace {
constexpr std::uint8_t kWithTime = 1;
constexpr std::uint8_t kWithYear = 1;

std::uint32_t macTimeOf(std::int64_t unixSeconds)
{
    const ObjectHolder<TovDateRef> date(
        TovDateCreate(static_cast<double>(unixSeconds) - kUnixSecondsOf2001));
    std::uint32_t macTime = 0;
    convCFDateRefToMacTime(date.get(), &macTime);
    return macTime;
}
}  // namespace

fileFacts gpsReadFileFacts(TovStringRef path)
{
    const std::optional<FileAttributes> attributes = attributesOf(pathBytes(path));
    return attributes ? gpsMakeFileFacts(*attributes) : fileFacts{};
}

fileFacts gpsMakeFileFacts(const pinorama::FileAttributes& attributes)
{
    fileFacts facts{};
    if (attributes.isRegular) facts.size = attributes.size;
    facts.modified = macTimeOf(attributes.modified);
    if (attributes.created) facts.created = macTimeOf(*attributes.created);
    return facts;
}

TovStringRef gpsMakeFileSizeText(const fileFacts& facts)
{
    return facts.size ? TovStringMakeSizeString(*facts.size) : createString(u"n.a.");
}

TovStringRef gpsMakeModifiedText(const fileFacts& facts)
{
    return TovStringMakeDateTimeString(facts.modified, kWithTime, kWithYear);
}

TovStringRef gpsMakeCreatedText(const fileFacts& facts)
{
    return TovStringMakeDateTimeString(facts.created, kWithTime, kWithYear);
}
