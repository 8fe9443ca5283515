#include "app/place_fields.h"

#include "app/main_window.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/cocoa_utils.h"
#include "lib/ui/qt_text.h"
#include "places/words/place_words.h"

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

void PlaceFields::show(const fileInfoRecord& info)
{
    const double latitude = signedLatitude(info);
    const double longitude = signedLongitude(info);
    const auto place = places_.find(latitude, longitude);
    const StringHolder words(place ? createPlaceText(*place) : nullptr);
    cocoaUtils::setStringValue(window_.placeField, words.get());
    window_.placeMap->showPlace(isOnEarth(latitude, longitude) ? places_.data() : nullptr,
                                {.latitude = latitude,
                                 .longitude = longitude,
                                 .isAtSea = place && place->country.empty(),
                                 .direction = directionOf(info)},
                                cuDisplayText(words.get()));
}

void PlaceFields::clear()
{
    cocoaUtils::setStringValue(window_.placeField, nullptr);
    window_.placeMap->showNothing();
}

}  // namespace pinorama
