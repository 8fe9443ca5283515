#include "places/place_finder.h"

#include "base/memory_guard.h"
#include "base/resource_folder.h"
#include "places/mapped_file.h"
#include "places/outlines.h"
#include "places/place_data.h"
#include "places/town_search.h"

#include <cerrno>
#include <cmath>
#include <cstring>
#include <utility>

using namespace pinorama;

namespace {
constexpr std::size_t kMaxFileSize = 6 * 1024 * 1024;
constexpr double kTownLimitOnLand = 1000;  // kilometres
constexpr double kTownLimitAtSea = 4000;

// A code of two letters, or nothing for two zeros.
std::string code(const std::uint8_t* bytes)
{
    const auto* text = reinterpret_cast<const char*>(bytes);
    return {text, strnlen(text, 2)};
}

std::optional<Place> placeOnLand(const PlaceData& data, double latitude, double longitude,
                                 const std::string& country)
{
    Place place;
    place.country = country;
    if (auto found = findTown(data, latitude, longitude, country, kTownLimitOnLand)) {
        place.town = std::move(found->town);
        place.zone = std::move(found->zone);
    }
    return place;
}

std::optional<Place> placeAtSea(const PlaceData& data, double latitude, double longitude,
                                std::uint16_t sea)
{
    Place place;
    place.sea = PlaceData::fixedText(data.seas, sea);
    if (place.sea.empty()) return std::nullopt;
    if (auto found = findTown(data, latitude, longitude, {}, kTownLimitAtSea)) {
        const auto area = areaAt(data, storedPoint(found->latitude, found->longitude));
        const std::uint8_t* item = area ? data.areas.item(*area) : nullptr;
        if (item != nullptr) place.islands = code(item + 2);
        place.town = std::move(found->town);
    }
    return place;
}

std::optional<Place> placeAt(const PlaceData& data, double latitude, double longitude)
{
    const StoredPoint point = storedPoint(latitude, longitude);
    if (const auto area = areaAt(data, point)) {
        const std::uint8_t* item = data.areas.item(*area);
        const std::string country = item == nullptr ? std::string() : code(item);
        if (!country.empty()) return placeOnLand(data, latitude, longitude, country);
    }
    const auto sea = seaAt(data, point);
    return sea ? placeAtSea(data, latitude, longitude, *sea) : std::nullopt;
}
}  // namespace

std::optional<Place> pinorama::findPlace(const PlaceData& data, double latitude, double longitude)
{
    if (!(std::abs(latitude) <= 90) || !(std::abs(longitude) <= 180)) return std::nullopt;
    return baseGuardMemory([&]() -> std::optional<Place> {
        auto place = placeAt(data, latitude, longitude);
        if (data.isDamaged()) place.reset();
        return place;
    });
}

PlaceFinder::PlaceFinder(std::string path) : path_(std::move(path)) {}

PlaceFinder::~PlaceFinder() = default;

const PlaceData* PlaceFinder::data()
{
    if (isOpened_) return data_ != nullptr && !data_->isDamaged() ? data_.get() : nullptr;
    isOpened_ = true;
    (void)baseGuardMemory([this] {
        file_ = std::make_unique<MappedFile>(path_, kMaxFileSize);
        if (auto data = PlaceData::parse(file_->bytes())) {
            data_ = std::make_unique<PlaceData>(*data);
        }
        return true;
    });
    if (data_ == nullptr) {
        const int error = file_ ? file_->error() : ENOMEM;
        error_ = error == ENOENT || error == ENOTDIR ? 0 : error;
        file_.reset();
    }
    return data_.get();
}

int PlaceFinder::error()
{
    (void)data();
    return error_;
}

std::optional<Place> PlaceFinder::find(double latitude, double longitude)
{
    const PlaceData* content = data();
    return content == nullptr ? std::nullopt : findPlace(*content, latitude, longitude);
}

std::string pinorama::placesFile()
{
    return resourceFolder() + "/places/places.bin";
}
