#include "tests/places/known_places.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <sstream>

namespace {
std::vector<std::string> split(const std::string& text, char separator)
{
    std::vector<std::string> pieces;
    std::istringstream stream(text);
    for (std::string piece; std::getline(stream, piece, separator);) pieces.push_back(piece);
    return pieces;
}

// The fields of each line that is no comment; lines with another number of them end the program.
std::vector<std::vector<std::string>> readRows(const std::string& path, std::size_t fields)
{
    std::vector<std::vector<std::string>> rows;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        if (line.starts_with('#')) continue;
        rows.push_back(split(line, ';'));
        if (rows.back().size() != fields) std::abort();
    }
    return rows;
}
}  // namespace

std::vector<KnownPlace> readKnownPlaces(const std::string& path)
{
    std::vector<KnownPlace> places;
    for (const auto& row : readRows(path, 6)) {
        places.push_back({std::stod(row[0]), std::stod(row[1]), split(row[2], '|'),
                          split(row[3], '|'), split(row[4], '|'), row[5]});
    }
    return places;
}

std::vector<BorderPoint> readBorderPoints(const std::string& path)
{
    std::vector<BorderPoint> points;
    for (const auto& row : readRows(path, 4)) {
        points.push_back({std::stod(row[0]), std::stod(row[1]), row[2], row[3]});
    }
    return points;
}

bool isOneOf(const std::string& text, const std::vector<std::string>& answers)
{
    return std::find(answers.begin(), answers.end(), text) != answers.end();
}

bool isDisputedBySources(const BorderPoint& point)
{
    return point.latitude == -10.74852 && point.longitude == -68.06201;
}
