// A program that a test puts in the place of pinorama-search.

#pragma once

#include "tests/support/environment.h"

#include <filesystem>
#include <optional>
#include <string>

namespace test {

class SearchProgram {
public:
    // Runs these lines of the shell. `$FOLDER` in them is folder().
    explicit SearchProgram(const std::string& lines)
    {
        const std::string path =
            folder_.write("search", "#!/bin/sh\nFOLDER='" + folder_.path() + "'\n" + lines + '\n');
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        set_.emplace("PINORAMA_SEARCH", path.c_str());
    }

    const TemporaryFolder& folder() const { return folder_; }

private:
    TemporaryFolder folder_;
    std::optional<ScopedVariable> set_;
};

// Lines that print a picture of a search.
inline std::string foundLine(const std::string& path, const std::string& metres)
{
    return "printf '%s\\0\\0\\0%s\\00045\\0\\0' '" + path + "' '" + metres + "'\n";
}

}  // namespace test
