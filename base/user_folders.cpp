#include "base/user_folders.h"

#include "base/item_path.h"
#include "base/whole_file.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <string_view>
#include <vector>

#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

namespace pinorama {
namespace {
constexpr std::size_t kMaxSettingsSize = 64 * 1024;  // bytes of user-dirs.dirs
constexpr std::string_view kBlanks = " \t\r";

std::string withoutLastSlashes(std::string path)
{
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    return path;
}

// The absolute path that a variable holds; empty when it holds none.
std::string folderInEnvironment(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value == '/' ? withoutLastSlashes(value) : std::string();
}

std::string belowHomeFolder(const char* name)
{
    std::string home = homeFolder();
    return home.empty() ? home : home + name;
}

std::string folderOfUser(const char* variable, const char* belowHome)
{
    std::string folder = folderInEnvironment(variable);
    return folder.empty() ? belowHomeFolder(belowHome) : folder;
}

std::string_view withoutBlanks(std::string_view text)
{
    const std::size_t start = text.find_first_not_of(kBlanks);
    if (start == text.npos) return {};
    return text.substr(start, text.find_last_not_of(kBlanks) - start + 1);
}

// The folder of a line XDG_DESKTOP_DIR="$HOME/Name"; empty for every other line. The value is
// quoted for the shell and begins with $HOME/ or a slash.
std::string desktopOfLine(std::string_view line)
{
    constexpr std::string_view kName = "XDG_DESKTOP_DIR=";
    constexpr std::string_view kHome = "$HOME";
    line = withoutBlanks(line);
    if (!line.starts_with(kName)) return {};
    line = withoutBlanks(line.substr(kName.size()));
    if (line.size() < 2 || !line.starts_with('"') || !line.ends_with('"')) return {};
    line = line.substr(1, line.size() - 2);

    std::string folder;
    if (line == kHome || line.starts_with("$HOME/")) {
        folder = homeFolder();
        line.remove_prefix(kHome.size());
    }
    for (std::size_t i = 0; i < line.size(); i++) {
        if (line[i] == '\\' && i + 1 < line.size()) i++;
        folder += line[i];
    }
    return folder.starts_with('/') ? withoutLastSlashes(folder) : std::string();
}

std::string desktopInSettings()
{
    const auto settings = readWholeFile(configFolder() + "/user-dirs.dirs", kMaxSettingsSize);
    if (!settings) return {};
    std::string found;
    std::string_view rest = *settings;
    while (!rest.empty()) {
        const std::size_t end = std::min(rest.find('\n'), rest.size());
        std::string folder = desktopOfLine(rest.substr(0, end));
        if (!folder.empty()) found = std::move(folder);  // the last one counts, as in a shell
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return found;
}
}  // namespace

std::string homeFolder()
{
    std::string home = folderInEnvironment("HOME");
    if (!home.empty()) return home;

    std::vector<char> texts(16 * 1024);
    passwd user = {};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &user, texts.data(), texts.size(), &found) != 0) return {};
    return found == nullptr ? std::string() : withoutLastSlashes(found->pw_dir);
}

std::string configFolder()
{
    return folderOfUser("XDG_CONFIG_HOME", "/.config");
}

std::string dataFolder()
{
    return folderOfUser("XDG_DATA_HOME", "/.local/share");
}

std::string cacheFolder()
{
    return folderOfUser("XDG_CACHE_HOME", "/.cache");
}

std::string stateFolder()
{
    return folderOfUser("XDG_STATE_HOME", "/.local/state");
}

std::string desktopFolder()
{
    std::string folder = desktopInSettings();
    return folder.empty() ? belowHomeFolder("/Desktop") : folder;
}

bool makeFolders(const std::string& path, mode_t mode)
{
    struct stat facts = {};
    if (stat(path.c_str(), &facts) == 0) {
        errno = ENOTDIR;
        return S_ISDIR(facts.st_mode);
    }
    const std::string above = folderOf(path);
    if (!above.empty() && !makeFolders(above, mode)) return false;
    // Another program may have made it in the meantime.
    if (mkdir(path.c_str(), mode) == 0) return true;
    return errno == EEXIST && stat(path.c_str(), &facts) == 0 && S_ISDIR(facts.st_mode);
}

}  // namespace pinorama
