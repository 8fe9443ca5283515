#include "app/nearby/list_fields.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <system_error>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kMaxField = 4096;  // bytes; no path of the system is longer
}  // namespace

bool ListFields::read(std::string_view bytes, const Take& take)
{
    while (!bytes.empty()) {
        const std::size_t end = bytes.find('\0');
        const std::size_t length = std::min(end, bytes.size());
        if (field_.size() + length > kMaxField) return false;
        field_.append(bytes.substr(0, length));
        if (end == bytes.npos) return true;
        bytes.remove_prefix(end + 1);
        fields_.push_back(std::exchange(field_, {}));
        if (fields_.size() < kListFieldCount) continue;
        if (!take(std::exchange(fields_, {}))) return false;
    }
    return true;
}

std::optional<double> numberOfField(std::string_view text)
{
    double number = 0.0;
    const auto [end, problem] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool isWhole = problem == std::errc() && end == text.data() + text.size();
    return isWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

}  // namespace pinorama
