// The picture collection: real files of many cameras with the record that each must give, and
// damaged ones. It lies outside this tree, where PINORAMA_PICTURE_COLLECTION says.

#pragma once

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

namespace test {

struct CollectedPicture {
    std::string name;         // folder and file name within the collection
    std::string path;         // where it lies
    nlohmann::json expected;  // what expected.json says about it

    // Damaged files have no right answer: reading them must only end.
    bool isAdvisory() const { return expected.value("advisory", false); }

    // True when the value of a field is a matter of opinion.
    bool isAmbiguous(const std::string& field) const;
};

// The pictures that expected.json in `folder` names; empty when it cannot be read.
std::vector<CollectedPicture> picturesOf(const std::string& folder);

}  // namespace test
