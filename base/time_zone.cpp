#include "base/time_zone.h"

#include <algorithm>
#include <ctime>

namespace pinorama {
namespace {
constexpr std::int64_t kSecondsPerDay = 86400;
}

std::int64_t utcOffsetAt(std::int64_t unixSeconds)
{
    const std::time_t instant = unixSeconds;
    std::tm local{};
    tzset();  // localtime_r alone need not notice a change of TZ
    return localtime_r(&instant, &local) == nullptr ? 0 : local.tm_gmtoff;
}

std::int64_t instantOfLocalTime(std::int64_t localSeconds)
{
    // No zone is a day away from UTC or changes twice within two days, so these two are the only
    // offsets that can be in force.
    const std::int64_t before = utcOffsetAt(localSeconds - kSecondsPerDay);
    const std::int64_t after = utcOffsetAt(localSeconds + kSecondsPerDay);
    const auto [smaller, larger] = std::minmax(before, after);
    const bool onlyLargerFits = utcOffsetAt(localSeconds - smaller) != smaller &&
                                utcOffsetAt(localSeconds - larger) == larger;
    return localSeconds - (onlyLargerFits ? larger : smaller);
}

}  // namespace pinorama
