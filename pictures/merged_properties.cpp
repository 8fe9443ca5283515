#include "pictures/merged_properties.h"

namespace pinorama {
namespace {
bool isWhole(const PictureProperties& properties)
{
    return properties.latitude && properties.longitude;
}

bool isBlank(const PictureProperties& properties)
{
    return !properties.latitude && !properties.longitude;
}

// Returns whether the text was taken.
bool addText(std::optional<std::u16string>& text, const std::optional<std::u16string>& other)
{
    if ((text && !text->empty()) || !other || other->empty()) return false;
    text = other;
    return true;
}
}  // namespace

void addMissing(PictureProperties& properties, const PictureProperties& other, ValueSource source)
{
    ValueSources& sources = properties.sources;
    if ((!isWhole(properties) && isWhole(other)) || (isBlank(properties) && !isBlank(other))) {
        properties.latitude = other.latitude;
        properties.latitudeReference = other.latitudeReference;
        properties.longitude = other.longitude;
        properties.longitudeReference = other.longitudeReference;
        sources.position = source;
        properties.hasGps = true;
    }
    if (!properties.altitude && other.altitude) {
        properties.altitude = other.altitude;
        properties.altitudeReference = other.altitudeReference;
        sources.altitude = source;
        properties.hasGps = true;
    }
    if (!properties.imageDirection && other.imageDirection) {
        properties.imageDirection = other.imageDirection;
        properties.imageDirectionReference = other.imageDirectionReference;
        sources.direction = source;
        properties.hasGps = true;
    }
    if (!properties.destinationDistance && other.destinationDistance) {
        properties.destinationDistance = other.destinationDistance;
        properties.destinationDistanceReference = other.destinationDistanceReference;
        properties.hasGps = true;
    }
    if (addText(properties.satellites, other.satellites)) properties.hasGps = true;

    const struct {
        std::optional<std::u16string>& text;
        const std::optional<std::u16string>& other;
        ValueSource& source;
    } texts[] = {{properties.city, other.city, sources.city},
                 {properties.state, other.state, sources.state},
                 {properties.country, other.country, sources.country},
                 {properties.caption, other.caption, sources.caption}};
    for (const auto& row : texts) {
        if (!addText(row.text, row.other)) continue;
        row.source = source;
        properties.hasIptc = true;
    }
}

}  // namespace pinorama
