#include "tests/support/collection.h"

#include <algorithm>
#include <fstream>

bool test::CollectedPicture::isAmbiguous(const std::string& field) const
{
    const nlohmann::json fields = expected.value("ambiguous", nlohmann::json::array());
    return std::find(fields.begin(), fields.end(), field) != fields.end();
}

std::vector<test::CollectedPicture> test::picturesOf(const std::string& folder)
{
    std::ifstream file(folder + "/expected.json");
    const nlohmann::json all = nlohmann::json::parse(file, nullptr, false);
    std::vector<CollectedPicture> pictures;
    if (!all.is_object()) return pictures;
    for (const auto& [name, expected] : all.items()) {
        pictures.push_back({name, folder + "/" + name, expected});
    }
    return pictures;
}
