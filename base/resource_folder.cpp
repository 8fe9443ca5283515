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

// What an environment variable says; empty when it is not set.
std::string valueOf(const char* variable)
{
    const char* set = variable == nullptr ? nullptr : std::getenv(variable);
    return set == nullptr ? "" : set;
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
    const std::string set = valueOf("PINORAMA_RESOURCES");
    return set.empty() ? resourceFolderOf(programFolder()) : set;
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

std::string helperProgram(const std::string& name, const char* variable)
{
    const std::string set = valueOf(variable);
    return set.empty() ? helperProgramOf(programFolder(), name) : set;
}

std::string helperProgramOf(const std::string& programFolder, const std::string& name)
{
    std::string beside = programFolder + "/" + name;
    if (access(beside.c_str(), X_OK) == 0) return beside;
    return programFolder + "/../" PINORAMA_LIBEXEC_DIR "/" + name;
}

}  // namespace pinorama
