// What the tests of the column share: one session bus, the application, its texts, and a file of
// places in which most of the world is one country.

#pragma once

#include "lib/ui/application_bundle.h"
#include "tests/app/nearby/search_program.h"
#include "tests/places/places_file.h"
#include "tests/support/environment.h"
#include "tests/support/event_loop.h"
#include "tests/support/picture_builder.h"

#include <cerrno>
#include <csignal>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace test {

// Where the texts of the programs and a file of places with one town are, until the end of the
// scope: at latitude and longitude 10 it is "Near Anywhere, Italy".
class ColumnResources {
public:
    explicit ColumnResources(bool hasPlaces = true)
    {
        std::filesystem::create_directory_symlink(PINORAMA_STRINGS, folder_.file("strings"));
        if (hasPlaces) {
            std::filesystem::create_directory(folder_.file("places"));
            const auto bytes = PlacesFile()
                                   .area("IT", {{-20, -20}, {20, -20}, {20, 20}, {-20, 20}})
                                   .town({"IT", "Anywhere", 10, 10, 5000, "Europe/Rome"})
                                   .build();
            (void)folder_.write("places/places.bin", std::string(bytes.begin(), bytes.end()));
        }
        resources_.emplace("PINORAMA_RESOURCES", folder_.path().c_str());
        (void)iuRegisterApplicationBundle();
    }

private:
    TemporaryFolder folder_;
    ScopedVariable language_{"LANGUAGE", nullptr};
    ScopedVariable locale_{"LC_ALL", "C.UTF-8"};
    std::optional<ScopedVariable> resources_;
};

// A line of the shell that prints a picture with a position.
inline std::string located(const std::string& path, const std::string& position = "10\\00010")
{
    return "printf '%s\\000" + position + "\\0\\0\\0\\0' '" + path + "'\n";
}

inline bool isGone(qint64 process)
{
    return kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

}  // namespace test
