#include "app/nearby/nearby_list.h"

#include <optional>

namespace pinorama {
namespace {
bool appendPicture(const std::vector<std::string>& fields, std::vector<NearbyPicture>* pictures)
{
    const std::string& path = fields[kListPath];
    const std::optional<double> metres = numberOfField(fields[kListMetres]);
    const std::optional<double> bearing = numberOfField(fields[kListBearing]);
    if (!path.starts_with('/') || !metres || *metres < 0.0 || !bearing) return false;
    pictures->push_back({path, *metres, *bearing, fields[kListFile]});
    return true;
}
}  // namespace

bool NearbyListReader::read(std::string_view bytes, std::vector<NearbyPicture>* pictures)
{
    return fields_.read(bytes, [pictures](const std::vector<std::string>& fields) {
        return appendPicture(fields, pictures);
    });
}

}  // namespace pinorama
