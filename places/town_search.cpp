#include "places/town_search.h"

#include "places/bearing.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>
#include <vector>

using namespace pinorama;

namespace {
constexpr double kVectorUnit = 1 << 30;  // of the stored unit vectors
constexpr std::uint32_t kAngleSteps = (1 << 24) - 1;
constexpr double kPeoplePerSquareKilometre = 4000;

using Vector = std::array<double, 3>;

Vector unitVector(double latitude, double longitude)
{
    const double a = latitude * std::numbers::pi / 180;
    const double b = longitude * std::numbers::pi / 180;
    return {std::cos(a) * std::cos(b), std::cos(a) * std::sin(b), std::sin(a)};
}

double squareOfChord(const Vector& a, const Vector& b)
{
    const double x = a[0] - b[0], y = a[1] - b[1], z = a[2] - b[2];
    return x * x + y * y + z * z;
}

// Kilometres along the surface between two points whose unit vectors are `chord` apart.
double arc(double chord)
{
    return 2 * kEarthRadius * std::asin(std::min(1.0, chord / 2));
}

// The square of the chord of an arc, in kilometres: below zero for less than nothing, and more than
// any chord has for more than half of the Earth.
double squareOfChord(double kilometres)
{
    if (kilometres < 0) return -1;
    if (kilometres > kEarthRadius * std::numbers::pi) return 5;
    const double chord = 2 * std::sin(kilometres / (2 * kEarthRadius));
    return chord * chord;
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

struct StoredTown {
    std::uint32_t latitude, longitude;  // steps from the south pole and from 180 degrees west
    std::uint32_t name;
    std::uint8_t size;  // of the population
    std::uint8_t zone;
};

double degrees(std::uint32_t steps)
{
    return steps / static_cast<double>(kAngleSteps) * 360;
}

struct Turn {
    double cosine, sine;
};

// The cosine and the sine of a stored angle. A search asks for hundreds of them, so most of the
// angle is looked up, and a short series is exact for the rest.
Turn turnOf(std::uint32_t steps)
{
    constexpr std::uint32_t kParts = 256;
    constexpr std::uint32_t kPart = (kAngleSteps + 1) / kParts;
    constexpr double kStep = 2 * std::numbers::pi / kAngleSteps;
    static const std::array<Turn, kParts> coarse = [] {
        std::array<Turn, kParts> all{};
        for (std::uint32_t index = 0; index < kParts; ++index) {
            const double angle = kStep * (index * kPart + kPart / 2);
            all[index] = {std::cos(angle), std::sin(angle)};
        }
        return all;
    }();
    const Turn& part = coarse[steps / kPart % kParts];
    const double rest = kStep * (static_cast<double>(steps % kPart) - kPart / 2);
    const double square = rest * rest;
    const double cosine = 1 - square / 2 * (1 - square / 12 * (1 - square / 30));
    const double sine = rest * (1 - square / 6 * (1 - square / 20));
    return {part.cosine * cosine - part.sine * sine, part.sine * cosine + part.cosine * sine};
}

// The unit vector of a town. The steps begin at the south pole and at 180 degrees west.
Vector vectorOf(const Turn& upwards, const Turn& eastwards)
{
    return {-upwards.sine * eastwards.cosine, -upwards.sine * eastwards.sine, -upwards.cosine};
}

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

StoredTown readTown(const std::uint8_t* item)
{
    return {load24(item), load24(item + 3), load24(item + 6), item[9], item[10]};
}

// One search through the trees. The towns of a tree are a k-d tree over x, y and z in turn: the
// middle one of a range divides it. Chords are compared by their squares, and an arc is computed
// for a town only that could be the best one.
class Search {
public:
    Search(const PlaceData& data, const Vector& from, double limit)
        : data_(data), from_(from), limit_(limit)
    {
    }

    // Not more kilometres than from the point to the nearest town that the tree could have, less
    // what the largest one extends.
    double lowerBound(const Tree& tree) const
    {
        const double nearest = std::sqrt(squareOfChord(from_, tree.centre)) - tree.reach;
        return std::max(nearest, 0.0) * kEarthRadius - tree.largestRadius;
    }

    bool canImprove(double bound) const { return bound <= limit_ && bound < best_; }

    void searchTree(const Tree& tree)
    {
        if (!data_.towns.has(tree.first, tree.count)) return;
        tree_ = tree;
        setReach();
        searchRange(tree.first, tree.count, 0, {});
    }

    bool hasFound() const { return hasFound_; }
    const StoredTown& town() const { return town_; }
    const Tree& tree() const { return bestTree_; }
    double distance() const { return distance_; }

private:
    // Searches a range whose towns all lie at least `apart` from the point on each axis. As deep as
    // the logarithm of the count.
    void searchRange(std::uint32_t first, std::uint32_t count, int axis, const Vector& apart)
    {
        if (count == 0) return;
        const std::uint32_t before = count / 2;
        const std::uint8_t* item = data_.towns.item(first + before);
        if (item == nullptr) return;
        const StoredTown town = readTown(item);
        const Turn upwards = turnOf(town.latitude);
        const double north = from_[2] + upwards.cosine;
        // Half of the towns divide nothing, and most of them are too far north or south.
        if (count == 1 && north * north > reach_) return;
        const Vector where = vectorOf(upwards, turnOf(town.longitude));
        const double square = squareOfChord(from_, where);
        if (square <= reach_) consider(town, arc(std::sqrt(square)));
        if (count == 1) return;

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
        if (squareOfChord(beyond, {}) > reach_) return;
        search(!isBefore, beyond);
    }

    void consider(const StoredTown& town, double distance)
    {
        const double score = townScore(distance, radiusOf(town.size));
        if (distance > limit_ || score >= best_) return;
        best_ = score;
        hasFound_ = true;
        town_ = town;
        bestTree_ = tree_;
        distance_ = distance;
        setReach();
    }

    // No town of the tree that lies beyond can be better than the best one so far.
    void setReach() { reach_ = squareOfChord(std::min(limit_, best_ + tree_.largestRadius)); }

    const PlaceData& data_;
    const Vector from_;
    const double limit_;
    Tree tree_{};
    double reach_ = 0;  // the square of a chord
    double best_ = std::numeric_limits<double>::infinity();
    bool hasFound_ = false;
    StoredTown town_{};
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
    struct Candidate {
        double bound;
        std::size_t tree;
    };
    std::vector<Candidate> candidates;
    const std::size_t count = data.trees.count();
    for (std::size_t index = 0; index < count; ++index) {
        const std::uint8_t* item = data.trees.item(index);
        if (item == nullptr) return std::nullopt;
        if (!isIn(item, country)) continue;
        const double bound = search.lowerBound(readTree(item));
        if (search.canImprove(bound)) candidates.push_back({bound, index});
    }
    // The tree that could have the nearest town is searched first: what it gives rules out others.
    while (!candidates.empty()) {
        const auto nearest = std::min_element(
            candidates.begin(), candidates.end(),
            [](const Candidate& a, const Candidate& b) { return a.bound < b.bound; });
        search.searchTree(readTree(data.trees.item(nearest->tree)));
        candidates.erase(nearest);
        std::erase_if(candidates,
                      [&](const Candidate& rest) { return !search.canImprove(rest.bound); });
    }
    if (!search.hasFound()) return std::nullopt;

    const StoredTown& town = search.town();
    FoundTown found;
    found.latitude = degrees(town.latitude) - 90;
    found.longitude = degrees(town.longitude) - 180;
    found.town = {data.name(town.name), std::string(search.tree().country), search.distance(),
                  initialBearing(found.latitude, found.longitude, latitude, longitude),
                  radiusOf(town.size)};
    found.zone = zoneName(data, search.tree(), town.zone);
    if (found.town.name.empty()) return std::nullopt;
    return found;
}
