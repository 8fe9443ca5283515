#include "places/map_lines.h"

#include <algorithm>
#include <cmath>
#include <utility>

using namespace pinorama;

namespace {
constexpr std::uint16_t kStoredLand = 0;
constexpr std::uint16_t kStoredBorder = 1;
constexpr std::size_t kLineSize = 28;  // bytes

// The least degrees in a pixel for which the first two of the stored maps will do: drawings of
// 1:110 and 1:50 million at 96 pixels to the inch.
constexpr double kCoarseEnough[] = {0.2, 0.06};

struct StoredLine {
    double west, south, east, north;  // in the units of its map
    std::uint32_t first, count;       // byte in "MPTS", points
    std::uint16_t kind;
};

StoredLine readLine(const std::uint8_t* item)
{
    const auto side = [item](int at) { return static_cast<double>(loadSigned32(item + at)); };
    return {side(0),           side(4),           side(8),          side(12),
            load32(item + 16), load32(item + 20), load16(item + 24)};
}

// Reads numbers of seven bits to the byte, the lowest first, whose lowest bit is the sign.
class Numbers {
public:
    Numbers(const PlaceSection& section, std::uint64_t first) : section_(section), next_(first) {}

    // Adds the next number; false if there is none.
    bool addTo(std::int64_t& sum)
    {
        std::uint64_t value = 0;
        for (int shift = 0; shift < 35; shift += 7) {
            if (byte_ == end_ && !readOn()) return false;
            const std::uint8_t byte = *byte_++;
            value |= std::uint64_t{byte & 0x7fU} << shift;
            if (byte >= 0x80) continue;
            const auto half = static_cast<std::int64_t>(value >> 1);
            sum += (value & 1) != 0 ? -half - 1 : half;
            return true;
        }
        return false;
    }

private:
    bool readOn()
    {
        const std::span<const std::uint8_t> bytes = section_.itemsFrom(next_);
        byte_ = bytes.data();
        end_ = byte_ + bytes.size();
        next_ += bytes.size();
        return !bytes.empty();
    }

    const PlaceSection& section_;
    std::uint64_t next_;  // the byte that `end_` is
    const std::uint8_t* byte_ = nullptr;
    const std::uint8_t* end_ = nullptr;
};

// The points of a line, shifted by whole turns; as many as there are in a damaged file. Those that
// are less than `least` degrees away from the one before are left out, except for the last one.
std::vector<MapPoint> readPoints(const PlaceData& data, const StoredLine& line, double units,
                                 double shift, double least)
{
    Numbers numbers(data.mapPoints, line.first);
    const auto leastUnits = static_cast<std::int64_t>(std::ceil(least * units));
    std::vector<MapPoint> points;
    std::int64_t x = 0, y = 0, keptX = 0, keptY = 0;
    for (std::uint32_t index = 0; index < line.count; ++index) {
        if (!numbers.addTo(x) || !numbers.addTo(y)) break;
        const bool isFar = std::abs(x - keptX) >= leastUnits || std::abs(y - keptY) >= leastUnits;
        if (!isFar && index != 0 && index + 1 != line.count) continue;
        keptX = x;
        keptY = y;
        points.push_back({static_cast<double>(x) / units + shift, static_cast<double>(y) / units});
    }
    return points;
}

// Cuts off what lies beyond one side of the box (Sutherland and Hodgman).
template <typename Inside, typename Cross>
std::vector<MapPoint> cutOff(const std::vector<MapPoint>& points, Inside isInside, Cross cross)
{
    std::vector<MapPoint> rest;
    rest.reserve(points.size() + 8);
    for (std::size_t index = 0; index < points.size(); ++index) {
        const MapPoint& before = points[index == 0 ? points.size() - 1 : index - 1];
        const MapPoint& point = points[index];
        if (isInside(before) != isInside(point)) rest.push_back(cross(before, point));
        if (isInside(point)) rest.push_back(point);
    }
    return rest;
}

std::vector<MapPoint> clip(std::vector<MapPoint> points, const MapBox& box)
{
    const auto atX = [](double x) {
        return [x](const MapPoint& a, const MapPoint& b) {
            return MapPoint{x, a.y + (b.y - a.y) * (x - a.x) / (b.x - a.x)};
        };
    };
    const auto atY = [](double y) {
        return [y](const MapPoint& a, const MapPoint& b) {
            return MapPoint{a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y), y};
        };
    };
    points = cutOff(
        points, [&](const MapPoint& p) { return p.x >= box.west; }, atX(box.west));
    points = cutOff(
        points, [&](const MapPoint& p) { return p.x <= box.east; }, atX(box.east));
    points = cutOff(
        points, [&](const MapPoint& p) { return p.y >= box.south; }, atY(box.south));
    points = cutOff(
        points, [&](const MapPoint& p) { return p.y <= box.north; }, atY(box.north));
    return points;
}

bool meetsBox(const MapPoint& a, const MapPoint& b, const MapBox& box)
{
    return std::max(a.x, b.x) >= box.west && std::min(a.x, b.x) <= box.east &&
           std::max(a.y, b.y) >= box.south && std::min(a.y, b.y) <= box.north;
}

// Land is stored cut at 180 degrees and at the south pole; there is no coast along the cut.
bool isCut(const MapPoint& a, const MapPoint& b, double shift)
{
    constexpr double kClose = 0.02;
    const double x = std::abs(a.x - shift);
    return (x > 180 - kClose && std::abs(a.x - b.x) < kClose) || (a.y < -89 && b.y < -89);
}

// Appends the runs of a line that meet the box.
void addRuns(std::vector<MapLine>& lines, MapLineKind kind, const std::vector<MapPoint>& points,
             const MapBox& box, double shift)
{
    const bool isClosed = kind == MapLineKind::coast;
    const std::size_t sides = isClosed ? points.size() : points.size() - 1;
    std::vector<MapPoint> run;
    const auto finish = [&] {
        if (run.size() > 1) lines.push_back({kind, std::move(run)});
        run.clear();
    };
    for (std::size_t index = 0; index < sides; ++index) {
        const MapPoint& a = points[index];
        const MapPoint& b = points[(index + 1) % points.size()];
        if (!meetsBox(a, b, box) || (isClosed && isCut(a, b, shift))) {
            finish();
            continue;
        }
        if (run.empty()) run.push_back(a);
        run.push_back(b);
    }
    finish();
}

std::size_t levelFor(double degreesPerPixel, std::size_t count)
{
    std::size_t level = 0;
    for (const double least : kCoarseEnough) {
        if (degreesPerPixel < least) ++level;
    }
    return std::min(level, count - 1);
}

bool isUsable(const MapBox& box, double degreesPerPixel)
{
    const bool isBox = box.west < box.east && box.east - box.west <= 360 && box.south < box.north;
    return isBox && std::abs(box.west) <= 360 && std::abs(box.east) <= 360 && degreesPerPixel > 0 &&
           std::isfinite(degreesPerPixel) && std::isfinite(box.south) && std::isfinite(box.north);
}
}  // namespace

std::vector<MapLine> pinorama::mapLines(const PlaceData& data, const MapBox& box,
                                        double degreesPerPixel)
{
    std::vector<MapLine> lines;
    if (!isUsable(box, degreesPerPixel) || data.mapLevels.count() == 0) return lines;
    const std::uint8_t* level =
        data.mapLevels.item(levelFor(degreesPerPixel, data.mapLevels.count()));
    if (level == nullptr) return lines;
    const double units = load32(level);
    const std::uint32_t first = load32(level + 4);
    const std::uint32_t count = load32(level + 8);
    const std::span<const std::uint8_t> stored = data.mapLines.items(first, count);
    if (units == 0 || stored.empty()) return lines;

    const double margin = 2 * degreesPerPixel;
    const MapBox wide{box.west - margin, box.south - margin, box.east + margin, box.north + margin};
    for (std::size_t at = 0; at < stored.size(); at += kLineSize) {
        const StoredLine line = readLine(stored.data() + at);
        if (line.north < wide.south * units || line.south > wide.north * units) continue;
        if (line.kind != kStoredLand && line.kind != kStoredBorder) continue;
        const double size = std::max(line.east - line.west, line.north - line.south);
        if (line.kind == kStoredLand && size / units < degreesPerPixel) continue;
        for (const double shift : {-360.0, 0.0, 360.0}) {
            const MapPoint southWest{line.west / units + shift, line.south / units};
            const MapPoint northEast{line.east / units + shift, line.north / units};
            if (!meetsBox(southWest, northEast, wide)) continue;
            std::vector<MapPoint> points =
                readPoints(data, line, units, shift, degreesPerPixel / 2);
            if (points.size() < 2) continue;
            if (line.kind == kStoredBorder) {
                addRuns(lines, MapLineKind::border, points, wide, shift);
                continue;
            }
            addRuns(lines, MapLineKind::coast, points, wide, shift);
            points = clip(std::move(points), wide);
            if (points.size() > 2) lines.push_back({MapLineKind::land, std::move(points)});
        }
    }
    if (data.isDamaged()) lines.clear();
    return lines;
}
