// Names of files, told apart by their type fast: a folder of pictures has thousands of names and a
// handful of extensions.

#pragma once

#include <map>
#include <string>
#include <string_view>

namespace pinorama {

class AcceptedNames {
public:
    // True when gpsIsAcceptedPath is true for this name or path, in the bytes of the system.
    bool accepts(std::string_view path);

private:
    std::map<std::string, bool, std::less<>> known_;  // by extension, with its dot
};

}  // namespace pinorama
