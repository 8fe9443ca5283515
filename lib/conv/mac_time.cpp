#include "lib/conv/mac_time.h"

#include "base/time_zone.h"

#include <cmath>

using namespace pinorama;

namespace {
constexpr double kTwoTo32 = 4294967296.0;
constexpr double kTwoTo62 = 4611686018427387904.0;

std::uint32_t wrapped(double wholeSeconds)
{
    double turns = 0;
    const double rest = std::modf(wholeSeconds / kTwoTo32, &turns) * kTwoTo32;  // exact
    return static_cast<std::uint32_t>(static_cast<std::int64_t>(rest));
}
}  // namespace

std::uint32_t macSecondsInUTC(double absoluteTime)
{
    if (!std::isfinite(absoluteTime)) return 0;
    constexpr auto kSecondsFrom1904To2001 =
        kMacSecondsOf1970 + static_cast<std::uint32_t>(kUnixSecondsOf2001);
    return wrapped(std::floor(absoluteTime)) + kSecondsFrom1904To2001;
}

std::uint32_t macSecondsOnLocalClock(double absoluteTime)
{
    const std::uint32_t inUTC = macSecondsInUTC(absoluteTime);
    const double unixSeconds = std::floor(absoluteTime) + kUnixSecondsOf2001;
    // Not true for NaN either. No zone is known for times that far away.
    if (!(std::fabs(unixSeconds) < kTwoTo62)) return inUTC;
    const std::int64_t offset = utcOffsetAt(static_cast<std::int64_t>(unixSeconds));
    return inUTC + static_cast<std::uint32_t>(offset);
}
