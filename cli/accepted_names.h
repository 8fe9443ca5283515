// Decides by their names which files are pictures, and remembers the answer for each extension: a
// folder has thousands of names and a handful of extensions.

#pragma once

#include <map>
#include <string>
#include <string_view>

namespace pinorama {

class AcceptedNames {
public:
    // What gpsIsAcceptedPath returns for this name or path, which is in the bytes of the system;
    // while more kinds of files are read (location/picture_source.h), they are accepted as well.
    bool accepts(std::string_view path);

private:
    std::map<std::string, bool, std::less<>> known_;  // by extension, with its dot
};

}  // namespace pinorama
