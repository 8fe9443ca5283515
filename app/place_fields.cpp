#include "app/place_fields.h"

#include "app/main_window.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/cocoa_utils.h"
#include "places/words/place_words.h"

namespace pinorama {

void PlaceFields::show(const fileInfoRecord& info)
{
    const auto place = places_.find(signedLatitude(info), signedLongitude(info));
    const StringHolder words(place ? createPlaceText(*place) : nullptr);
    cocoaUtils::setStringValue(window_.placeField, words.get());
}

void PlaceFields::clear()
{
    cocoaUtils::setStringValue(window_.placeField, nullptr);
}

}  // namespace pinorama
