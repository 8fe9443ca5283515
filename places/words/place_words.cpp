#include "places/words/place_words.h"

#include "base/memory_guard.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"
#include "lib/text/country_name.h"
#include "lib/text/locale.h"
#include "lib/text/number_format.h"
#include "places/bearing.h"
#include "places/words/table_text.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <string>

using namespace pinorama;

namespace {
constexpr double kNear = 3.5;  // kilometres

std::u16string kilometres(double distance)
{
    const double rounded = distance < 1000 ? std::round(distance) : std::round(distance / 10) * 10;
    const std::unique_ptr<NumberFormat, decltype(&releaseNumberFormat)> format(
        createNumberFormat(numberLocale()), releaseNumberFormat);
    return take(createNumberText(format.get(), static_cast<std::int64_t>(rounded)));
}

std::u16string nameOf(const NearTown& town, TownNames names)
{
    const std::u16string name = unitsOfUTF8(town.name);
    return names == TownNames::plain ? name : u'\u2068' + name + u'\u2069';
}

TovStringRef textOnLand(const Place& place, TownNames names)
{
    const std::u16string country = take(createCountryName(place.country));
    if (!place.town) return createString(country);
    const NearTown& town = *place.town;
    const Filling name{u"town", nameOf(town, names)};
    const Filling land{u"country", country};
    const bool isBoth = country.starts_with(unitsOfUTF8(town.name));
    if (town.distance < std::max(kNear, town.radius)) {
        return fill(isBoth ? "nearTown" : "near", {name, land});
    }
    const Filling distance{u"distance", kilometres(town.distance)};
    const Filling direction{u"direction", take(createCompassText(town.bearing))};
    return fill(isBoth ? "awayTown" : "away", {distance, direction, name, land});
}

TovStringRef textAtSea(const Place& place, TownNames names)
{
    const std::u16string sea = tableText(place.sea);
    if (!place.town) return createString(sea);
    const std::u16string from =
        place.islands.empty() ? nameOf(*place.town, names) : take(createCountryName(place.islands));
    return fill("atSea",
                {{u"sea", sea}, {u"distance", kilometres(place.town->distance)}, {u"place", from}});
}
}  // namespace

TovStringRef pinorama::createPlaceText(const Place& place, TownNames names)
{
    return baseGuardMemory([&]() -> TovStringRef {
        if (!place.country.empty()) return textOnLand(place, names);
        return place.sea.empty() ? nullptr : textAtSea(place, names);
    });
}

TovStringRef pinorama::createCompassText(double degrees)
{
    return baseGuardMemory([&]() -> TovStringRef {
        const int point = compassPoint(degrees);
        return point < 0 ? nullptr : createString(tableText("compass" + std::to_string(point)));
    });
}

TovStringRef pinorama::createViewText(double degrees, char north)
{
    return baseGuardMemory([&]() -> TovStringRef {
        const StringHolder point(createCompassText(degrees));
        if (!point || (north != 'T' && north != 'M')) return TovStringGetCopy(point.get());
        return fill(north == 'T' ? "trueNorth" : "magneticNorth",
                    {{u"direction", std::u16string(unitsOf(point.get()))}});
    });
}
