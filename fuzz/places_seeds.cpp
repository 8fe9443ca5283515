// Writes the seeds of fuzz_places: places_seeds FOLDER.

#include "tests/places/places_file.h"

#include <cstdio>
#include <fstream>
#include <string>

namespace {
void write(const std::string& path, const std::vector<std::uint8_t>& bytes)
{
    std::ofstream(path, std::ios::binary)
        .write(reinterpret_cast<const char*>(bytes.data()),
               static_cast<std::streamsize>(bytes.size()));
}
}  // namespace

int main(int argc, char** argv)
{
    if (argc != 2) {
        std::fputs("usage: places_seeds FOLDER\n", stderr);
        return 2;
    }
    const std::string folder = argv[1];
    PlacesFile land;
    land.area("AA", {{0, 0}, {10, 0}, {10, 10}, {0, 10}})
        .hole({{2, 2}, {4, 2}, {4, 4}, {2, 4}})
        .area("BB", {{20, 0}, {30, 0}, {30, 10}, {20, 10}}, "BI");
    for (int i = 0; i < 20; ++i) {
        land.town({i % 2 == 0 ? "AA" : "BB", "Town " + std::to_string(i), i * 0.5,
                   i % 2 == 0 ? 5.0 : 25.0, 1000.0 * i, "Europe/Berlin"});
    }
    write(folder + "/land", land.build());
    write(folder + "/blocks", land.blockSums().build());
    write(folder + "/sea", PlacesFile()
                               .sea("Wide Sea", {{-200, -50}, {200, -50}, {200, 65}, {-200, 65}})
                               .town({"BB", "Harbour", 0, 0, 10, ""})
                               .build());
    write(folder + "/map", PlacesFile()
                               .mapLevel(100)
                               .mapLine(0, {{0, 0}, {1000, 0}, {1000, 1000}, {0, 1000}})
                               .mapLine(1, {{500, 0}, {500, 1000}})
                               .mapLevel(1000)
                               .mapLine(0, {{170000, 0}, {185000, 0}, {185000, 10000}})
                               .build());
    return 0;
}
