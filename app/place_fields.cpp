#include "app/place_fields.h"

#include "app/main_window.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/cocoa_utils.h"
#include "lib/ui/qt_text.h"
#include "places/words/place_words.h"
#include "places/words/taken_words.h"

#include <cmath>
#include <optional>

namespace pinorama {
namespace {
// The direction of view that the window shows: 0 counts as none, and more than a turn is no
// direction.
std::optional<double> directionOf(const fileInfoRecord& info)
{
    const bool isShown = info.azimuth != 0.0 && std::abs(info.azimuth) <= 360.0;
    return isShown ? std::optional(info.azimuth) : std::nullopt;
}

bool isOnEarth(double latitude, double longitude)
{
    return std::abs(latitude) <= 90 && std::abs(longitude) <= 180;
}
}  // namespace

PlaceFields::~PlaceFields()
{
    window_.placeMap->showNothing();  // the map reads the file of places
}

void PlaceFields::show(const fileInfoRecord& info, const PictureProperties& properties)
{
    const double latitude = signedLatitude(info);
    const double longitude = signedLongitude(info);
    const auto place = places_.find(latitude, longitude);
    const TownNames names = window_.isRightToLeft() ? TownNames::isolated : TownNames::plain;
    const StringHolder words(place ? createPlaceText(*place, names) : nullptr);
    window_.placeField->setSentence(cuDisplayText(words.get()));
    window_.placeMap->showPlace(isOnEarth(latitude, longitude) ? places_.data() : nullptr,
                                {.latitude = latitude,
                                 .longitude = longitude,
                                 .isAtSea = place && place->country.empty(),
                                 .direction = directionOf(info)},
                                cuDisplayText(words.get()));
    showDirection(info, properties);
    showTaken(properties, place ? place->zone : std::string());
}

void PlaceFields::showWithoutPosition(const PictureProperties& properties)
{
    clearPlace();
    showTaken(properties, {});
}

void PlaceFields::clear()
{
    clearPlace();
    showTaken({}, {});
}

void PlaceFields::showDirection(const fileInfoRecord& info, const PictureProperties& properties)
{
    const auto direction = directionOf(info);
    if (!direction) return clearDirection();
    const std::u16string reference = properties.imageDirectionReference.value_or(u"");
    const char north = reference == u"T" ? 'T' : reference == u"M" ? 'M' : '\0';
    const StringHolder words(createViewText(*direction, north));
    window_.compassField->setDirection(*direction, cuDisplayText(words.get()));
    // The compass is no stop of the Tab key: a screen reader says its words after the number.
    window_.gpsDirectionField->setAccessibleDescription(cuDisplayText(words.get()));
}

void PlaceFields::clearDirection()
{
    window_.compassField->clearDirection();
    window_.gpsDirectionField->setAccessibleDescription({});
}

void PlaceFields::showTaken(const PictureProperties& properties, const std::string& zone)
{
    StringHolder text;
    StringHolder source;
    if (properties.taken) {
        const TakenTime taken{*properties.taken, properties.takenOffset,
                              properties.isTakenBySatellites};
        text = StringHolder(createTakenText(taken, zone));
        source = StringHolder(createTakenSource(taken, zone));
    }
    cocoaUtils::setStringValue(window_.takenField, text.get());
    window_.takenField->setToolTip(cuDisplayText(source.get()));
    // A screen reader says it after the text.
    window_.takenField->setAccessibleDescription(cuDisplayText(source.get()));
}

void PlaceFields::clearPlace()
{
    cocoaUtils::setStringValue(window_.placeField, nullptr);
    window_.placeMap->showNothing();
    clearDirection();
}

}  // namespace pinorama
