#include "places/words/place_words.h"

#include "base/memory_guard.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/text/country_name.h"
#include "lib/text/locale.h"
#include "lib/text/number_format.h"
#include "lib/ui/string_tables.h"
#include "places/bearing.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <memory>
#include <new>
#include <string>
#include <string_view>

using namespace pinorama;

namespace {
constexpr double kNear = 3.5;  // kilometres

struct Filling {
    std::u16string_view name;  // what stands between braces
    std::u16string text;
};

// The units of a new text, which is released; throws if there is none.
std::u16string take(TovStringRef text)
{
    const StringHolder holder(text);
    if (!holder) throw std::bad_alloc();
    return std::u16string(unitsOf(holder.get()));
}

std::u16string unitsOfUTF8(std::string_view bytes)
{
    return take(TovStringFromUTF8(bytes.data(), static_cast<std::int32_t>(bytes.size())));
}

// The text of a key, which stands for itself if no language has it.
std::u16string tableText(std::string_view key)
{
    const StringHolder keyText(
        TovStringFromUTF8(key.data(), static_cast<std::int32_t>(key.size())));
    return take(iuCopyLocalizedString(keyText.get(), keyText.get(), kPlacesTable));
}

// Puts the fillings into the places of the text that name them.
TovStringRef fill(std::string_view key, std::initializer_list<Filling> fillings)
{
    const std::u16string pattern = tableText(key);
    std::u16string text;
    for (std::size_t at = 0; at < pattern.size();) {
        const Filling* found = nullptr;
        for (const Filling& filling : fillings) {
            const std::u16string hole = u"{" + std::u16string(filling.name) + u"}";
            if (pattern.compare(at, hole.size(), hole) == 0) found = &filling;
        }
        if (found == nullptr) {
            text.push_back(pattern[at++]);
            continue;
        }
        text += found->text;
        at += found->name.size() + 2;
    }
    return createString(text);
}

std::u16string kilometres(double distance)
{
    const double rounded = distance < 1000 ? std::round(distance) : std::round(distance / 10) * 10;
    const std::unique_ptr<NumberFormat, decltype(&releaseNumberFormat)> format(
        createNumberFormat(numberLocale()), releaseNumberFormat);
    return take(createNumberText(format.get(), static_cast<std::int64_t>(rounded)));
}

TovStringRef textOnLand(const Place& place)
{
    const std::u16string country = take(createCountryName(place.country));
    if (!place.town) return createString(country);
    const NearTown& town = *place.town;
    const Filling name{u"town", unitsOfUTF8(town.name)};
    const Filling land{u"country", country};
    const bool isBoth = country.starts_with(name.text);
    if (town.distance < std::max(kNear, town.radius)) {
        return fill(isBoth ? "nearTown" : "near", {name, land});
    }
    const Filling distance{u"distance", kilometres(town.distance)};
    const Filling direction{u"direction", take(createCompassText(town.bearing))};
    return fill(isBoth ? "awayTown" : "away", {distance, direction, name, land});
}

TovStringRef textAtSea(const Place& place)
{
    const std::u16string sea = tableText(place.sea);
    if (!place.town) return createString(sea);
    const std::u16string from = place.islands.empty() ? unitsOfUTF8(place.town->name)
                                                      : take(createCountryName(place.islands));
    return fill("atSea",
                {{u"sea", sea}, {u"distance", kilometres(place.town->distance)}, {u"place", from}});
}
}  // namespace

TovStringRef pinorama::createPlaceText(const Place& place)
{
    return baseGuardMemory([&]() -> TovStringRef {
        if (!place.country.empty()) return textOnLand(place);
        return place.sea.empty() ? nullptr : textAtSea(place);
    });
}

TovStringRef pinorama::createCompassText(double degrees)
{
    return baseGuardMemory([&]() -> TovStringRef {
        const int point = compassPoint(degrees);
        return point < 0 ? nullptr : createString(tableText("compass" + std::to_string(point)));
    });
}
