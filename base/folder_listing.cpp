#include "base/folder_listing.h"

#include <memory>
#include <string_view>

#include <dirent.h>

namespace pinorama {
namespace {
struct CloseFolder {
    void operator()(DIR* folder) const { closedir(folder); }
};
}  // namespace

std::vector<std::string> namesInFolder(const std::string& path)
{
    std::vector<std::string> names;
    const std::unique_ptr<DIR, CloseFolder> folder(opendir(path.c_str()));
    if (!folder) return names;
    while (const dirent* item = readdir(folder.get())) {
        const std::string_view name = item->d_name;
        if (name != "." && name != "..") names.emplace_back(name);
    }
    return names;
}

}  // namespace pinorama
