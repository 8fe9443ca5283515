#include "places/outlines.h"

#include <cmath>
#include <limits>

using namespace pinorama;

namespace {
constexpr std::int32_t kFullTurn = 36000000;  // 360 degrees
constexpr std::size_t kRingSize = 28;         // bytes

struct Ring {
    std::int32_t west, south, east, north;
    std::uint32_t first, count;  // vertices
    std::uint16_t owner;         // the number of an area or a sea
};

Ring readRing(const std::uint8_t* item)
{
    return {loadSigned32(item),      loadSigned32(item + 4), loadSigned32(item + 8),
            loadSigned32(item + 12), load32(item + 16),      load32(item + 20),
            load16(item + 24)};
}

// Most rings are far away: their boxes are looked at before anything else of them.
bool isInBox(const std::uint8_t* item, StoredPoint point)
{
    return point.y >= loadSigned32(item + 4) && point.y <= loadSigned32(item + 12) &&
           point.x >= loadSigned32(item) && point.x <= loadSigned32(item + 8);
}

// Counts the sides that a line from the point to the east crosses. Differences and products of
// damaged vertices are computed in 64 bits and in floating point, where nothing overflows.
bool isInside(const Ring& ring, const PlaceSection& vertices, StoredPoint point)
{
    const std::span<const std::uint8_t> items = vertices.items(ring.first, ring.count);
    if (ring.count < 3 || items.empty()) return false;
    const std::uint8_t* vertex = items.data();
    const std::uint8_t* last = vertex + static_cast<std::size_t>(ring.count - 1) * 8;
    std::int64_t x = loadSigned32(last);
    std::int64_t y = loadSigned32(last + 4);
    bool inside = false;
    for (std::uint32_t index = 0; index < ring.count; ++index, vertex += 8) {
        const std::int64_t nextX = loadSigned32(vertex);
        const std::int64_t nextY = loadSigned32(vertex + 4);
        if ((y > point.y) != (nextY > point.y)) {
            const auto along = static_cast<double>(point.y - y) / static_cast<double>(nextY - y);
            const double crossing = static_cast<double>(x) + along * static_cast<double>(nextX - x);
            if (point.x < crossing) inside = !inside;
        }
        x = nextX;
        y = nextY;
    }
    return inside;
}

double boxSize(const Ring& ring)
{
    return (static_cast<double>(ring.east) - ring.west) *
           (static_cast<double>(ring.north) - ring.south);
}
}  // namespace

StoredPoint pinorama::storedPoint(double latitude, double longitude)
{
    return {static_cast<std::int32_t>(std::lround(longitude * kStoredUnit)),
            static_cast<std::int32_t>(std::lround(latitude * kStoredUnit))};
}

std::optional<std::uint16_t> pinorama::areaAt(const PlaceData& data, StoredPoint point)
{
    std::optional<std::uint16_t> found;
    double smallest = std::numeric_limits<double>::infinity();
    const std::span<const std::uint8_t> rings = data.rings.items(0, data.rings.count());
    const std::size_t count = rings.size() / kRingSize;
    // The rings of an area stand together.
    for (std::size_t index = 0; index < count;) {
        const std::uint16_t owner = load16(rings.data() + index * kRingSize + 24);
        bool inside = false;
        double size = 0;
        for (; index < count; ++index) {
            const std::uint8_t* item = rings.data() + index * kRingSize;
            if (load16(item + 24) != owner) break;
            if (!isInBox(item, point)) continue;
            const Ring ring = readRing(item);
            if (!isInside(ring, data.vertices, point)) continue;
            inside = !inside;
            if (inside) size = boxSize(ring);
        }
        if (inside && size < smallest) {
            smallest = size;
            found = owner;
        }
    }
    return found;
}

std::optional<std::uint16_t> pinorama::seaAt(const PlaceData& data, StoredPoint point)
{
    const StoredPoint turned{point.x + kFullTurn, point.y};
    for (std::size_t index = 0; index < data.seaRings.count(); ++index) {
        const std::uint8_t* item = data.seaRings.item(index);
        if (item == nullptr) break;
        for (const StoredPoint candidate : {point, turned}) {
            if (!isInBox(item, candidate)) continue;
            const Ring ring = readRing(item);
            if (isInside(ring, data.seaVertices, candidate)) return ring.owner;
        }
    }
    return std::nullopt;
}
