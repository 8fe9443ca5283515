// The places file: a look-up in it and a map of it. The length and the checksums are made right
// first, or nothing else would be tried.

#include "places/map_lines.h"
#include "places/place_data.h"
#include "places/place_finder.h"
#include "tests/places/places_file.h"

#include <vector>

using namespace pinorama;

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::vector<std::uint8_t> bytes(data, data + size);
    if (size >= 32) {
        for (int i = 0; i < 4; ++i) bytes[24 + i] = static_cast<std::uint8_t>(size >> 8 * i);
        sealPlacesFile(bytes);
    }
    const auto places = PlaceData::parse(bytes);
    if (!places) return 0;
    for (const double latitude : {-45.0, 2.5, 60.0}) {
        for (const double longitude : {-179.0, 5.0, 25.0}) {
            const auto place = findPlace(*places, latitude, longitude);
            if (place && place->country.size() > 2) __builtin_trap();
        }
    }
    for (const double scale : {1.0, 0.01}) (void)mapLines(*places, {-10, -10, 190, 60}, scale);
    return 0;
}
