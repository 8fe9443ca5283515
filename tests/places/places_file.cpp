#include "tests/places/places_file.h"

#include "places/place_data.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <numbers>
#include <set>

using namespace pinorama;

namespace {
std::string number(std::uint64_t value, int bytes)
{
    std::string text;
    for (int i = 0; i < bytes; ++i) text.push_back(static_cast<char>(value >> 8 * i));
    return text;
}

std::string signedNumber(double value)
{
    return number(static_cast<std::uint32_t>(static_cast<std::int32_t>(std::lround(value))), 4);
}

std::string padded(std::string text, std::size_t size)
{
    text.resize(size, '\0');
    return text;
}

std::array<double, 3> vectorOf(const BuiltTown& town)
{
    const double a = town.latitude * std::numbers::pi / 180;
    const double b = town.longitude * std::numbers::pi / 180;
    return {std::cos(a) * std::cos(b), std::cos(a) * std::sin(b), std::sin(a)};
}

using Iterator = std::vector<BuiltTown>::iterator;

void balance(Iterator first, Iterator last, int axis)
{
    if (last - first < 2) return;
    const Iterator middle = first + (last - first) / 2;
    std::nth_element(first, middle, last, [axis](const BuiltTown& a, const BuiltTown& b) {
        return vectorOf(a)[axis] < vectorOf(b)[axis];
    });
    balance(first, middle, (axis + 1) % 3);
    balance(middle + 1, last, (axis + 1) % 3);
}

std::string steps24(double degrees)
{
    return number(static_cast<std::uint64_t>(std::lround(degrees / 360 * ((1 << 24) - 1))), 3);
}

int sizeByte(double population)
{
    return static_cast<int>(std::lround(10 * std::log2(std::max(1.0, population))));
}

std::string varint(int value)
{
    std::uint32_t rest =
        static_cast<std::uint32_t>(value) << 1 ^ static_cast<std::uint32_t>(value >> 31);
    std::string text;
    for (; rest > 127; rest >>= 7) text.push_back(static_cast<char>((rest & 127) | 128));
    text.push_back(static_cast<char>(rest));
    return text;
}
}  // namespace

void PlacesFile::ring(const Outline& outline, std::uint16_t owner, std::string& rings,
                      std::string& vertices)
{
    double west = 1e9, south = 1e9, east = -1e9, north = -1e9;
    const std::size_t first = vertices.size() / 8;
    for (const auto& [x, y] : outline) {
        west = std::min(west, x);
        south = std::min(south, y);
        east = std::max(east, x);
        north = std::max(north, y);
        vertices += signedNumber(x * kStoredUnit) + signedNumber(y * kStoredUnit);
    }
    for (const double side : {west, south, east, north}) rings += signedNumber(side * kStoredUnit);
    rings += number(first, 4) + number(outline.size(), 4) + number(owner, 2) + number(0, 2);
}

PlacesFile& PlacesFile::area(const std::string& country, const Outline& outline,
                             const std::string& islands)
{
    sections_["AREA"] += padded(country, 2) + padded(islands, 2);
    return hole(outline);
}

PlacesFile& PlacesFile::hole(const Outline& outline)
{
    const auto owner = static_cast<std::uint16_t>(sections_["AREA"].size() / 4 - 1);
    ring(outline, owner, sections_["RING"], sections_["VERT"]);
    return *this;
}

PlacesFile& PlacesFile::sea(const std::string& name, const Outline& outline)
{
    ring(outline, static_cast<std::uint16_t>(sections_["SEAS"].size() / 32), sections_["SRNG"],
         sections_["SVRT"]);
    sections_["SEAS"] += padded(name, 32);
    return *this;
}

PlacesFile& PlacesFile::town(const BuiltTown& town)
{
    towns_.push_back(town);
    return *this;
}

PlacesFile& PlacesFile::blockSums()
{
    hasSums_ = true;
    return *this;
}

PlacesFile& PlacesFile::mapLevel(std::uint32_t units)
{
    sections_["MLVL"] += number(units, 4) + number(sections_["MLIN"].size() / 28, 4) + number(0, 4);
    return *this;
}

PlacesFile& PlacesFile::mapLine(std::uint16_t kind, const std::vector<std::pair<int, int>>& points)
{
    int west = 1 << 30, south = 1 << 30, east = -west, north = -west;
    std::string& bytes = sections_["MPTS"];
    const std::size_t first = bytes.size();
    int x = 0, y = 0;
    for (const auto& [nextX, nextY] : points) {
        west = std::min(west, nextX);
        south = std::min(south, nextY);
        east = std::max(east, nextX);
        north = std::max(north, nextY);
        bytes += varint(nextX - x) + varint(nextY - y);
        x = nextX;
        y = nextY;
    }
    std::string& lines = sections_["MLIN"];
    for (const int side : {west, south, east, north}) lines += signedNumber(side);
    lines += number(first, 4) + number(points.size(), 4) + number(kind, 2) + number(0, 2);
    // The last scale has one line more.
    std::string& levels = sections_["MLVL"];
    const std::size_t last = levels.size() - 4;
    const auto count = static_cast<unsigned char>(levels[last]) + 1;
    levels.replace(last, 4, number(static_cast<std::uint64_t>(count), 4));
    return *this;
}

void PlacesFile::addTowns(std::map<std::string, std::string>& sections) const
{
    std::set<std::string> countries, names, zones;
    for (const BuiltTown& town : towns_) {
        countries.insert(town.country);
        names.insert(town.name);
        if (!town.zone.empty()) zones.insert(town.zone);
    }
    std::string previous;
    for (std::size_t index = 0; const std::string& name : names) {
        if (index++ % 16 == 0) {
            sections["NBLK"] += number(sections["NAME"].size(), 4);
            previous.clear();
        }
        std::size_t shared = 0;
        while (shared < std::min(previous.size(), name.size()) &&
               previous[shared] == name[shared]) {
            ++shared;
        }
        sections["NAME"] +=
            number(shared, 1) + number(name.size() - shared, 1) + name.substr(shared);
        previous = name;
    }
    // One list of zones for all countries.
    for (std::size_t index = 0; const std::string& zone : zones) {
        sections["ZONE"] += padded(zone, 32);
        sections["ZLST"] += number(index++, 2);
    }

    for (const std::string& country : countries) {
        std::vector<BuiltTown> towns;
        std::copy_if(towns_.begin(), towns_.end(), std::back_inserter(towns),
                     [&](const BuiltTown& town) { return town.country == country; });
        balance(towns.begin(), towns.end(), 0);
        const std::array<double, 3> centre = vectorOf(towns.front());
        double reach = 0;
        int largest = 0;
        std::string records;
        for (const BuiltTown& town : towns) {
            const auto at = vectorOf(town);
            reach = std::max(reach,
                             std::hypot(at[0] - centre[0], at[1] - centre[1], at[2] - centre[2]));
            largest = std::max(largest, sizeByte(town.population));
            const auto name = std::distance(names.begin(), names.find(town.name));
            const auto zone =
                town.zone.empty() ? 255 : std::distance(zones.begin(), zones.find(town.zone));
            records += steps24(town.latitude + 90) + steps24(town.longitude + 180) +
                       number(static_cast<std::uint64_t>(name), 3) +
                       number(static_cast<std::uint64_t>(sizeByte(town.population)), 1) +
                       number(static_cast<std::uint64_t>(zone), 1);
        }
        sections["TREE"] += padded(country, 2) + number(0, 2) + number(zones.size(), 2) +
                            number(static_cast<std::uint64_t>(largest), 1) + number(0, 1) +
                            number(sections["TOWN"].size() / 11, 4) + number(towns.size(), 4);
        for (const double coordinate : centre)
            sections["TREE"] += signedNumber(coordinate * (1 << 30));
        sections["TREE"] += number(static_cast<std::uint64_t>(reach * (1 << 30)) + 4, 4);
        sections["TOWN"] += records;
    }
}

std::vector<std::uint8_t> PlacesFile::build(const std::map<std::string, std::string>& other) const
{
    std::map<std::string, std::string> sections = sections_;
    addTowns(sections);
    for (const auto& [name, content] : other) sections[name] = content;

    std::string table, body;
    const std::size_t tableEnd = 32 + 12 * (sections.size() + (hasSums_ ? 1 : 0));
    if (hasSums_) {
        // Sums for one block more than the file may have without them.
        std::size_t length = tableEnd;
        for (const auto& [name, content] : sections) length += content.size();
        const std::size_t blocks = BlockSums::blocksOf(length + length / 1000 + 64);
        body.resize(8 * (blocks + 1));
        table = "SUMS" + number(tableEnd, 4) + number(body.size(), 4);
    }
    for (const auto& [name, content] : sections) {
        table += name + number(tableEnd + body.size(), 4) + number(content.size(), 4);
        body += content;
    }
    const std::string file = "PnPlaces" + number(1, 4) + number(0, 4) + number(0, 8) +
                             number(tableEnd + body.size(), 4) +
                             number(sections.size() + (hasSums_ ? 1 : 0), 4) + table + body;
    std::vector<std::uint8_t> bytes(file.begin(), file.end());
    sealPlacesFile(bytes);
    return bytes;
}

void sealPlacesFile(std::vector<std::uint8_t>& bytes)
{
    if (bytes.size() < 32) return;
    const auto store = [&](std::size_t at, std::uint64_t sum) {
        for (int i = 0; i < 8; ++i) bytes[at + i] = static_cast<std::uint8_t>(sum >> 8 * i);
    };
    const std::size_t entries = std::min<std::size_t>(load32(bytes.data() + 28), 64);
    for (std::size_t entry = 32; entry < 32 + 12 * entries && entry + 12 <= bytes.size();
         entry += 12) {
        const std::size_t first = load32(bytes.data() + entry + 4);
        const std::size_t end = first + load32(bytes.data() + entry + 8);
        const std::size_t blocks = BlockSums::blocksOf(bytes.size());
        const bool isSums = std::memcmp(bytes.data() + entry, "SUMS", 4) == 0;
        if (!isSums || first < 32 || end > bytes.size() || end - first != 8 * (blocks + 1))
            continue;
        for (std::size_t block = 0; block < blocks; ++block) {
            store(first + 8 * block, placesChecksum(BlockSums::summed(bytes, block, end)));
        }
        store(end - 8, placesChecksum(std::span(bytes).subspan(24, end - 8 - 24)));
    }
    store(kPlacesChecksumAt, placesChecksum(std::span(bytes).subspan(kPlacesChecksumAt + 8)));
}
