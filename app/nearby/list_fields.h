// The list of pictures that pinorama-search prints (cli/list_entry.h), taken apart: six
// fields for each picture, every one followed by a zero byte. The bytes come in any pieces.

#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

// The fields of a picture by their numbers.
enum ListField : std::size_t {
    kListPath,       // in the bytes of the system
    kListLatitude,   // degrees, negative in the south; empty without a position
    kListLongitude,  // degrees, negative in the west
    kListMetres,     // from the place of a search; empty without one
    kListBearing,
    kListFile,
    kListFieldCount
};

class ListFields {
public:
    using Take = std::function<bool(const std::vector<std::string>& fields)>;

    // Takes the next bytes and calls `take` with the fields of each picture that they complete.
    // Returns false, and is not to be called again, for a field that is longer than any path, and
    // as soon as `take` does.
    bool read(std::string_view bytes, const Take& take);

    // True if the bytes so far end between two pictures.
    bool isComplete() const { return field_.empty() && fields_.empty(); }

private:
    std::string field_;                // the one that has not ended
    std::vector<std::string> fields_;  // of the picture that is not complete
};

// A finite number that is the whole field; nothing for any other text.
std::optional<double> numberOfField(std::string_view text);

}  // namespace pinorama
