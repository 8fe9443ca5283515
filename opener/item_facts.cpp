#include "opener/item_facts.h"

#include <algorithm>
#include <memory>

#include <dirent.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace pinorama {
namespace {
struct FolderCloser {
    void operator()(DIR* folder) const { closedir(folder); }
};

bool isPrintable(char c)
{
    return c >= ' ' && c <= '~';
}
}  // namespace

ItemFacts factsOfItem(std::string path)
{
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    ItemFacts facts{.isKnown = true};
    struct stat item = {};
    facts.isThere = lstat(path.c_str(), &item) == 0;
    if (!facts.isThere || (S_ISLNK(item.st_mode) && stat(path.c_str(), &item) != 0)) return facts;
    facts.isFolder = S_ISDIR(item.st_mode);
    facts.device = std::uint64_t{major(item.st_dev)} << 20 | minor(item.st_dev);
    facts.inode = item.st_ino;
    return facts;
}

void eachNameIn(const std::string& folder, const std::function<bool(std::string_view name)>& take)
{
    const std::unique_ptr<DIR, FolderCloser> stream(opendir(folder.c_str()));
    if (!stream) return;
    for (std::size_t count = 0; count < kMaxEntries;) {
        const dirent* entry = readdir(stream.get());
        if (entry == nullptr) return;
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        if (!take(name)) return;
        count++;
    }
}

FolderCount countItemsIn(const std::string& folder)
{
    FolderCount count;
    eachNameIn(folder, [&](std::string_view name) {
        count.all++;
        if (!name.starts_with('.')) count.shown++;
        return true;
    });
    return count;
}

bool mayBeShownAs(std::string_view name, std::string_view shown)
{
    if (!std::ranges::all_of(name, isPrintable)) return true;
    const std::size_t point = name.rfind('.');
    return name == shown || (point != name.npos && point > 0 && name.substr(0, point) == shown);
}

}  // namespace pinorama
