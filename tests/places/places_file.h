// Small places files, made in memory.

#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

struct BuiltTown {
    std::string country, name;
    double latitude, longitude;  // degrees
    double population;
    std::string zone;
};

class PlacesFile {
public:
    using Outline = std::vector<std::pair<double, double>>;  // longitude and latitude, degrees

    // An area with one ring; further rings of the same area follow with `hole`.
    PlacesFile& area(const std::string& country, const Outline& outline,
                     const std::string& islands = {});
    PlacesFile& hole(const Outline& outline);
    PlacesFile& sea(const std::string& name, const Outline& outline);
    PlacesFile& town(const BuiltTown& town);

    // One scale of the map and a line in it, in units of `units` to the degree. Kind 0 is land.
    PlacesFile& mapLevel(std::uint32_t units);
    PlacesFile& mapLine(std::uint16_t kind, const std::vector<std::pair<int, int>>& points);

    // Gives the blocks of the file their own checksums, as the file that is shipped has them.
    PlacesFile& blockSums();

    // The bytes of the file. Sections may be replaced by `other`, to damage one.
    std::vector<std::uint8_t> build() const { return build({}); }
    std::vector<std::uint8_t> build(const std::map<std::string, std::string>& other) const;

private:
    void ring(const Outline& outline, std::uint16_t owner, std::string& rings,
              std::string& vertices);
    void addTowns(std::map<std::string, std::string>& sections) const;

    std::map<std::string, std::string> sections_;
    bool hasSums_ = false;
    std::vector<BuiltTown> towns_;
};

// Writes the right checksums into a file whose bytes were changed.
void sealPlacesFile(std::vector<std::uint8_t>& bytes);
