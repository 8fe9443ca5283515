#include "cli/json_line.h"

#include "cli/json_object.h"
#include "cli/report_fields.h"

namespace pinorama {
namespace {
void addPlace(const std::optional<NamedPlace>& place, JsonObject& object)
{
    if (!place) return object.addNothing("place");
    object.open("place");
    object.add("words", textOrNothing(place->words));
    object.add("country", textOrNothing(place->country));
    object.add("countryName", textOrNothing(place->countryName));
    object.add("sea", textOrNothing(place->sea));
    object.add("town", textOrNothing(place->town));
    object.add("distance", place->distance);
    object.add("bearing", place->bearing);
    object.add("zone", textOrNothing(place->zone));
    object.close();
}
}  // namespace

void appendJsonLine(const FileReport& report, std::string* out)
{
    JsonObject object(out);
    visitFields(report, object);
    addPlace(report.namedPlace, object);
    object.close();
    *out += '\n';
}

}  // namespace pinorama
