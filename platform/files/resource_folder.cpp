#include "platform/files/resource_folder.h"

#include <climits>
#include <cstdlib>

#include <sys/stat.h>
#include <unistd.h>

namespace {
bool isFolder(const std::string& path)
{
    struct stat facts = {};
    return stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}
}  // namespace

std::string platform::programFolder()
{
    char program[PATH_MAX];
    const ssize_t length = readlink("/proc/self/exe", program, sizeof program);
    if (length <= 0) return {};
    std::string folder(program, static_cast<std::size_t>(length));
    folder.resize(folder.rfind('/'));
    return folder;
}

std::string platform::resourceFolder()
{
    const char* told = std::getenv("PINORAMA_RESOURCES");
    return told != nullptr && *told != '\0' ? told : resourceFolderOf(programFolder());
}

std::string platform::documentFolder()
{
    const std::string beside = programFolder() + "/../docs";
    return isFolder(beside) ? beside : programFolder() + "/../share/doc/pinorama";
}

std::string platform::resourceFolderOf(const std::string& programFolder)
{
    std::string beside = programFolder + "/../resources";
    // Some other "resources" may lie beside an installed program; ours has the texts in it.
    if (isFolder(beside + "/strings")) return beside;
    return programFolder + "/../share/pinorama";
}
