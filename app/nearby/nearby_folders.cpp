#include "app/nearby/nearby_folders.h"

#include "base/item_path.h"

#include <algorithm>
#include <string_view>

namespace pinorama {
namespace {
std::string withSlash(std::string path)
{
    if (!path.ends_with('/')) path += '/';
    return path;
}

bool isInsideOrSame(const std::string& path, const std::string& folder)
{
    return withSlash(path).starts_with(withSlash(folder));
}

std::ptrdiff_t depthOf(const std::string& path)
{
    return path == "/" ? 0 : std::count(path.begin(), path.end(), '/');
}

// "/media", "/media/anna", "/run/media/anna": what is in such a folder are disks.
bool holdsDisks(const std::string& folder)
{
    constexpr std::string_view kFolders[] = {"/media", "/run/media"};
    return std::any_of(std::begin(kFolders), std::end(kFolders), [&](std::string_view disks) {
        return folder == disks || folderOf(folder) == disks;
    });
}

bool keepsNeighbours(const std::string& folder, const std::string& home)
{
    const bool holdsHome = !home.empty() && isInsideOrSame(home, folder);
    return depthOf(folder) > 1 && !holdsHome && !holdsDisks(folder);
}

void add(const std::string& folder, std::vector<std::string>* folders)
{
    const bool isThere =
        std::any_of(folders->begin(), folders->end(),
                    [&](const std::string& other) { return isInsideOrSame(folder, other); });
    if (isThere) return;
    std::erase_if(*folders,
                  [&](const std::string& other) { return isInsideOrSame(other, folder); });
    folders->push_back(folder);
}
}  // namespace

std::vector<std::string> foldersAround(const std::string& picture, const std::string& home,
                                       const std::string& pictures)
{
    std::vector<std::string> folders;
    const std::string own = folderOf(picture);
    if (!own.empty() && own != "/") {
        const std::string above = folderOf(own);
        add(!above.empty() && keepsNeighbours(above, home) ? above : own, &folders);
    }
    const bool isFolderForPictures = pictures.starts_with('/') && pictures != "/" &&
                                     (home.empty() || !isInsideOrSame(home, pictures));
    if (isFolderForPictures) add(pictures, &folders);
    return folders;
}

}  // namespace pinorama
