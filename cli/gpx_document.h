// Reports as a GPX 1.1 document (www.topografix.com/GPX/1/1): a waypoint for each picture that has
// a position, and on wish a track through them in the order of time.

#pragma once

#include "cli/file_report.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace pinorama {

// A place of the track.
struct TrackPoint {
    std::int64_t instant;  // seconds since 1970; without a known offset as if in UTC
    bool isInUTC;          // the offset was known
    Position position;
    std::optional<double> altitude;  // metres
};

// The point of a report; nothing without a position or a time.
std::optional<TrackPoint> trackPointOf(const FileReport& report);

void appendGpxBeginning(std::string* out);

// Appends the waypoint of one report; nothing without a position. GPX knows only times in UTC, so
// the time of a clock that nobody knows the offset of stands in the comment.
void appendGpxWaypoint(const FileReport& report, std::string* out);

// Appends a track of one segment through all points, sorted by time; points of the same second stay
// in their order. Nothing without points.
void appendGpxTrack(std::vector<TrackPoint> points, std::string* out);

void appendGpxEnd(std::string* out);

}  // namespace pinorama
