#include "cli/place_report.h"

#include "base/utf8.h"
#include "lib/strings/string_holder.h"
#include "lib/text/country_name.h"
#include "places/place_finder.h"
#include "places/words/place_words.h"

#include <cmath>

namespace pinorama {
namespace {
std::string takeUTF8(TovStringRef text)
{
    const StringHolder owned(text);
    return displayUTF8(unitsOf(owned.get()));
}
}  // namespace

std::optional<NamedPlace> namePlace(PlaceFinder& places, double latitude, double longitude)
{
    const auto place = places.find(latitude, longitude);
    if (!place) return std::nullopt;
    NamedPlace named;
    named.words = takeUTF8(createPlaceText(*place));
    named.country = place->country;
    named.countryName = takeUTF8(createCountryName(place->country));
    named.sea = place->sea;
    named.zone = place->zone;
    if (place->town) {
        named.town = place->town->name;
        // The file is exact to a few metres.
        named.distance = std::round(place->town->distance * 100) * 10;
        named.bearing = std::round(place->town->bearing);
    }
    return named;
}

}  // namespace pinorama
