#include "base/resource_folder.h"

#include <algorithm>
#include <bit>
#include <climits>
#include <cstdlib>

#include <sys/auxv.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
bool isFolder(const std::string& path)
{
    struct stat facts = {};
    return stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}
// The path of the program's file, free of links. The system's own answer in /proc comes second: it
// takes a thirtieth of the time that pinorama-info needs for a picture.
std::string pathOfProgram()
{
    char path[PATH_MAX];
    const auto* started = std::bit_cast<const char*>(getauxval(AT_EXECFN));
    if (started != nullptr && realpath(started, path) != nullptr) return path;
    const ssize_t length = readlink("/proc/self/exe", path, sizeof path);
    return {path, length > 0 ? static_cast<std::size_t>(length) : 0};
}
}  // namespace

std::string programFolder()
{
    std::string folder = pathOfProgram();
    folder.resize(std::min(folder.rfind('/'), folder.size()));
    return folder;
}

std::string resourceFolder()
{
    const char* set = std::getenv("PINORAMA_RESOURCES");
    return set != nullptr && *set != '\0' ? set : resourceFolderOf(programFolder());
}

std::string documentFolder()
{
    const std::string beside = programFolder() + "/../docs";
    return isFolder(beside) ? beside : programFolder() + "/../share/doc/pinorama";
}

std::string resourceFolderOf(const std::string& programFolder)
{
    std::string beside = programFolder + "/../resources";
    // Some other "resources" may lie beside an installed program; ours has the texts in it.
    if (isFolder(beside + "/strings")) return beside;
    return programFolder + "/../share/pinorama";
}

}  // namespace pinorama
