#include "cli/iso_time.h"

#include <chrono>
#include <cstdio>

namespace pinorama {
namespace {
using std::chrono::sys_days;

constexpr std::int64_t kSecondsPerDay = 86400;
constexpr std::int64_t kMinutesPerDay = 1440;

std::int64_t dayOf(int year, unsigned month, unsigned day)
{
    return sys_days(std::chrono::year(year) / static_cast<int>(month) / static_cast<int>(day))
        .time_since_epoch()
        .count();
}

std::string offsetText(std::int64_t minutes)
{
    if (minutes == 0) return "Z";
    const auto size = static_cast<int>(minutes < 0 ? -minutes : minutes);
    char text[16];
    (void)std::snprintf(text, sizeof text, "%c%02d:%02d", minutes < 0 ? '-' : '+', size / 60,
                        size % 60);
    return text;
}
}  // namespace

std::string isoTime(std::int64_t seconds, std::optional<std::int64_t> offset)
{
    const std::int64_t first = dayOf(1, 1, 1) * kSecondsPerDay;
    const std::int64_t end = dayOf(10000, 1, 1) * kSecondsPerDay;
    if (seconds < first || seconds >= end) return {};
    if (offset && (*offset <= -kMinutesPerDay || *offset >= kMinutesPerDay)) return {};

    // Days before 1970 are negative, and a time of day never is.
    const std::chrono::sys_seconds time{std::chrono::seconds(seconds)};
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const auto ofDay = static_cast<int>((time - day).count());
    char text[64];
    (void)std::snprintf(text, sizeof text, "%04d-%02u-%02uT%02d:%02d:%02d",
                        static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                        static_cast<unsigned>(date.day()), ofDay / 3600, ofDay / 60 % 60,
                        ofDay % 60);
    return text + (offset ? offsetText(*offset) : std::string());
}

}  // namespace pinorama
