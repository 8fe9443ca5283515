// Times as texts in the extended form of ISO 8601, which RFC 3339 and XML Schema share.

#pragma once

#include <cstdint>
#include <optional>
#include <string>

namespace pinorama {

// "2026-05-03T14:03:22+02:00": the time `seconds` after 1970-01-01 00:00 of a clock that is
// `offset` minutes ahead of UTC. "Z" stands for an offset of 0, and nothing for an unknown one.
//
// Empty for a year that has more than four digits or lies before the year 1, and for an offset of a
// day or more.
std::string isoTime(std::int64_t seconds, std::optional<std::int64_t> offset);

}  // namespace pinorama
