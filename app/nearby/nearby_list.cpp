#include "app/nearby/nearby_list.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstddef>
#include <optional>
#include <system_error>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kFieldCount = 6;   // path, latitude, longitude, metres, bearing, file
constexpr std::size_t kMaxField = 4096;  // bytes; no path of the system is longer

std::optional<double> numberOf(std::string_view text)
{
    double number = 0.0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = problem == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}
}  // namespace

bool NearbyListReader::read(std::string_view bytes, std::vector<NearbyPicture>* pictures)
{
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\0');
        const std::size_t length = std::min(end, bytes.size());
        if (field_.size() + length > kMaxField) return false;
        field_.append(bytes.substr(0, length));
        if (end == bytes.npos) return true;
        bytes.remove_prefix(end + 1);
        if (!takeField(pictures)) return false;
    }
    return true;
}

bool NearbyListReader::takeField(std::vector<NearbyPicture>* pictures)
{
    fields_.push_back(std::exchange(field_, {}));
    if (fields_.size() < kFieldCount) return true;
    const std::vector<std::string> fields = std::exchange(fields_, {});
    const std::optional<double> metres = numberOf(fields[3]);
    const std::optional<double> bearing = numberOf(fields[4]);
    if (!fields[0].starts_with('/') || !metres || *metres < 0.0 || !bearing) return false;
    pictures->push_back({fields[0], *metres, *bearing, fields[5]});
    return true;
}

}  // namespace pinorama
