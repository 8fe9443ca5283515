// The picture collection: real files of many cameras, each with its expected record, and damaged
// files. It is not in this tree; PINORAMA_PICTURE_COLLECTION names its folder.

#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace test {

struct CollectedPicture {
    std::string name;         // folder and file name within the collection
    std::string path;         // where it lies
    nlohmann::json expected;  // what expected.json says about it

    // There is no correct result for a damaged file: reading it must only end.
    bool isAdvisory() const { return expected.value("advisory", false); }

    // True when the value of a field is a matter of opinion.
    bool isAmbiguous(const std::string& field) const;
};

// The pictures that expected.json in `folder` lists; empty if it cannot be read.
std::vector<CollectedPicture> picturesOf(const std::string& folder);

}  // namespace test
