// What a search for pictures nearby finds, as pinorama-search prints it (list_fields.h). The bytes
// come in any pieces; nothing in them is trusted.

#pragma once

#include "app/nearby/list_fields.h"

#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

struct NearbyPicture {
    std::string path;    // absolute, in the bytes of the system
    double metres;       // from the place of the search, not negative
    double bearing;      // degrees clockwise from north, in which it lies from there
    std::string file{};  // the same for all paths of one file, links among them; empty if unknown
};

class NearbyListReader {
public:
    // Takes the next bytes and appends the pictures that they complete.
    //
    // Returns false for what no search prints: a field that is too long, a path that is not
    // absolute, a number that is none. Nothing more is to be expected then.
    bool read(std::string_view bytes, std::vector<NearbyPicture>* pictures);

    // True if the bytes so far end between two pictures.
    bool isComplete() const { return fields_.isComplete(); }

private:
    ListFields fields_;
};

}  // namespace pinorama
