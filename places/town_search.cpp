#include "places/town_search.h"

#include "places/bearing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

using namespace pinorama;

namespace {
constexpr double kVectorUnit = 1 << 30;  // of the stored unit vectors
constexpr double kAngleSteps = (1 << 24) - 1;
constexpr double kPeoplePerSquareKilometre = 4000;

using Vector = std::array<double, 3>;

Vector unitVector(double latitude, double longitude)
{
    const double a = latitude * std::numbers::pi / 180;
    const double b = longitude * std::numbers::pi / 180;
    return {std::cos(a) * std::cos(b), std::cos(a) * std::sin(b), std::sin(a)};
}

double chord(const Vector& a, const Vector& b)
{
    const double x = a[0] - b[0], y = a[1] - b[1], z = a[2] - b[2];
    return std::sqrt(x * x + y * y + z * z);
}

// Kilometres along the surface between two points whose unit vectors are `length` apart.
double arc(double length)
{
    return 2 * kEarthRadius * std::asin(std::min(1.0, length / 2));
}

struct Tree {
    std::string_view country;
    std::uint16_t firstZone;
    std::uint16_t zoneCount;
    double largestRadius;  // kilometres
    std::uint32_t first;
    std::uint32_t count;
    Vector centre;
    double reach;  // the greatest chord from the centre to a town
};

struct Record {
    double latitude, longitude;
    std::uint32_t name;
    double radius;
    std::uint8_t zone;
};

// The radius of a town by the stored size of its population.
double radiusOf(std::uint8_t size)
{
    static const std::array<double, 256> radii = [] {
        std::array<double, 256> all{};
        for (std::size_t index = 0; index < all.size(); ++index) {
            all[index] = townRadius(std::exp2(static_cast<double>(index) / 10));
        }
        return all;
    }();
    return radii[size];
}

bool isIn(const std::uint8_t* tree, std::string_view country)
{
    return country.empty() || country == std::string_view(reinterpret_cast<const char*>(tree), 2);
}

Tree readTree(const std::uint8_t* item)
{
    const auto coordinate = [item](int at) { return loadSigned32(item + at) / kVectorUnit; };
    return {{reinterpret_cast<const char*>(item), 2},
            load16(item + 2),
            load16(item + 4),
            radiusOf(item[6]),
            load32(item + 8),
            load32(item + 12),
            {coordinate(16), coordinate(20), coordinate(24)},
            load32(item + 28) / kVectorUnit};
}

Record readRecord(const std::uint8_t* item)
{
    return {load24(item) / kAngleSteps * 360 - 90, load24(item + 3) / kAngleSteps * 360 - 180,
            load24(item + 6), radiusOf(item[9]), item[10]};
}

// One search through the trees. The towns of a tree are a k-d tree over x, y and z in turn: the
// middle one of a range divides it.
class Search {
public:
    Search(const PlaceData& data, const Vector& from, double limit)
        : data_(data), from_(from), limit_(limit)
    {
    }

    // Kilometres from the point to the nearest town that the tree could have, less what the
    // largest one extends.
    double lowerBound(const Tree& tree) const
    {
        const double nearest = chord(from_, tree.centre) - tree.reach;
        return (nearest <= 0 ? 0 : arc(nearest)) - tree.largestRadius;
    }

    double distanceToCentre(const Tree& tree) const { return chord(from_, tree.centre); }

    bool canImprove(double bound) const { return bound < best_; }

    void searchTree(const Tree& tree)
    {
        if (!data_.towns.has(tree.first, tree.count)) return;
        tree_ = tree;
        searchRange(tree.first, tree.count, 0, {});
    }

    bool hasFound() const { return hasFound_; }
    const Record& record() const { return record_; }
    const Tree& tree() const { return bestTree_; }
    double distance() const { return distance_; }

private:
    // Searches a range whose towns all lie at least `apart` from the point on each axis. As deep as
    // the logarithm of the count.
    void searchRange(std::uint32_t first, std::uint32_t count, int axis, const Vector& apart)
    {
        if (count == 0) return;
        const std::uint32_t before = count / 2;
        const Record town = readRecord(data_.towns.item(first + before));
        const Vector where = unitVector(town.latitude, town.longitude);
        consider(town, arc(chord(from_, where)));

        const std::uint32_t after = count - before - 1;
        const int next = (axis + 1) % 3;
        const double past = from_[axis] - where[axis];
        const bool isBefore = past < 0;
        Vector beyond = apart;
        beyond[axis] = past;
        const auto search = [&](bool inFirstHalf, const Vector& distances) {
            inFirstHalf ? searchRange(first, before, next, distances)
                        : searchRange(first + before + 1, after, next, distances);
        };
        search(isBefore, apart);
        const double bound = arc(chord(beyond, {}));
        if (bound > limit_ || !canImprove(bound - tree_.largestRadius)) return;
        search(!isBefore, beyond);
    }

    void consider(const Record& town, double distance)
    {
        const double score = townScore(distance, town.radius);
        if (distance > limit_ || score >= best_) return;
        best_ = score;
        hasFound_ = true;
        record_ = town;
        bestTree_ = tree_;
        distance_ = distance;
    }

    const PlaceData& data_;
    const Vector from_;
    const double limit_;
    Tree tree_{};
    double best_ = std::numeric_limits<double>::infinity();
    bool hasFound_ = false;
    Record record_{};
    Tree bestTree_{};
    double distance_ = 0;
};

std::string zoneName(const PlaceData& data, const Tree& tree, std::uint8_t zone)
{
    if (zone >= tree.zoneCount) return {};
    const std::uint8_t* number =
        data.zoneLists.item(static_cast<std::size_t>(tree.firstZone + zone));
    return number == nullptr ? std::string()
                             : std::string(PlaceData::fixedText(data.zones, load16(number)));
}
}  // namespace

double pinorama::townRadius(double population)
{
    return std::sqrt(population / kPeoplePerSquareKilometre / std::numbers::pi);
}

double pinorama::townScore(double distance, double radius)
{
    if (distance >= radius) return distance - radius;
    return (distance - radius) / std::sqrt(std::max(1.0, radius));
}

std::optional<FoundTown> pinorama::findTown(const PlaceData& data, double latitude,
                                            double longitude, std::string_view country,
                                            double limit)
{
    Search search(data, unitVector(latitude, longitude), limit);
    const std::size_t count = data.trees.count();
    // The tree around the nearest centre first: what it gives rules out most of the others.
    std::size_t nearest = count;
    double nearestCentre = std::numeric_limits<double>::infinity();
    for (std::size_t index = 0; index < count; ++index) {
        const std::uint8_t* item = data.trees.item(index);
        if (!isIn(item, country)) continue;
        const Tree tree = readTree(item);
        const double centre = search.distanceToCentre(tree);
        if (centre >= nearestCentre) continue;
        nearestCentre = centre;
        nearest = index;
    }
    if (nearest == count) return std::nullopt;
    search.searchTree(readTree(data.trees.item(nearest)));
    for (std::size_t index = 0; index < count; ++index) {
        const std::uint8_t* item = data.trees.item(index);
        if (index == nearest || !isIn(item, country)) continue;
        const Tree tree = readTree(item);
        const double bound = search.lowerBound(tree);
        if (bound <= limit && search.canImprove(bound)) search.searchTree(tree);
    }
    if (!search.hasFound()) return std::nullopt;

    const Record& record = search.record();
    FoundTown found;
    found.town = {data.name(record.name), std::string(search.tree().country), search.distance(),
                  initialBearing(record.latitude, record.longitude, latitude, longitude),
                  record.radius};
    found.latitude = record.latitude;
    found.longitude = record.longitude;
    found.zone = zoneName(data, search.tree(), record.zone);
    if (found.town.name.empty()) return std::nullopt;
    return found;
}
