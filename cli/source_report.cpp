#include "cli/source_report.h"

namespace pinorama {
namespace {
const char* nameOf(ValueSource source)
{
    switch (source) {
    case ValueSource::exif: return "exif";
    case ValueSource::iptc: return "iptc";
    case ValueSource::xmp: return "xmp";
    case ValueSource::quickTime: return "quicktime";
    case ValueSource::sidecar: return "sidecar";
    }
    return "";
}

template <typename Value>
std::optional<std::string> sourceOf(const std::optional<Value>& value, ValueSource source)
{
    return value ? std::optional<std::string>(nameOf(source)) : std::nullopt;
}
}  // namespace

SourceReport sourceReportOf(const PictureProperties& properties)
{
    const ValueSources& sources = properties.sources;
    const bool hasPosition = properties.latitude && properties.longitude;
    SourceReport report;
    if (hasPosition) report.position = nameOf(sources.position);
    report.altitude = sourceOf(properties.altitude, sources.altitude);
    report.direction = sourceOf(properties.imageDirection, sources.direction);
    report.city = sourceOf(properties.city, sources.city);
    report.state = sourceOf(properties.state, sources.state);
    report.country = sourceOf(properties.country, sources.country);
    report.description = sourceOf(properties.caption, sources.caption);
    return report;
}

}  // namespace pinorama
