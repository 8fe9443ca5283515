#include "lib/ui/zip_archive.h"

#include "platform/files/path_text.h"
#include "platform/objects/object_holder.h"
#include "platform/objects/string.h"
#include "platform/system/child_process.h"
#include "platform/text/utf8.h"

#include <algorithm>
#include <optional>
#include <system_error>
#include <vector>

namespace {
namespace fs = std::filesystem;

bool isUTF8(const std::string& bytes)
{
    const ObjectHolder<TovStringRef> text(platform::createPathText(bytes));
    return platform::displayUTF8(platform::unitsOf(text.get())) == bytes;
}

struct Tree {
    std::ptrdiff_t items = 1;  // the outermost one included
    bool isUTF8 = true;        // all names in it
};

// Nothing when not all of it can be looked at.
std::optional<Tree> look(const fs::path& item)
{
    Tree tree = {.isUTF8 = isUTF8(item.filename().string())};
    std::error_code error;
    if (!fs::is_directory(fs::symlink_status(item, error))) return tree;
    fs::recursive_directory_iterator inside(item, error);
    while (!error && inside != fs::recursive_directory_iterator()) {
        tree.items++;
        tree.isUTF8 = tree.isUTF8 && isUTF8(inside->path().filename().string());
        inside.increment(error);
    }
    if (error) return std::nullopt;
    return tree;
}

// In a UTF-8 locale the archiver marks names as UTF-8, which every program understands. One that is
// no UTF-8 would make an archive that cannot be read; without a locale its bytes stay as they are.
std::string localeFor(const Tree& tree)
{
    return tree.isUTF8 ? "LC_ALL=C.UTF-8" : "LC_ALL=C";
}

// Runs the archiver over an item. The list of names ends each with a zero byte: without that, a
// line feed would divide a name and "-C" would mean a folder.
std::int32_t archive(std::vector<std::string> arguments, const fs::path& item,
                     const std::string& locale, std::string* output = nullptr)
{
    arguments.insert(arguments.end(), {"-C", item.parent_path().string(), "--null", "-T", "-"});
    std::string names = item.filename().string() + '\0';
    // Without any slash beside it, readers take a backslash for one.
    if (names.find('\\') != names.npos) names.insert(0, "./");
    return platform::runAndWait(arguments, {locale}, {.input = names, .output = output});
}

// The words that ask for a list of what something consists of, one line for each item.
std::vector<std::string> listing()
{
    return {"bsdtar", "--format=mtree", "--options=!all,type,size,cksum,sha256,link", "-cf", "-"};
}
}  // namespace

std::int32_t cuPackIntoZIP(const fs::path& item, const std::string& archivePath)
{
    const Tree tree = look(item).value_or(Tree());
    return archive({"bsdtar", "--format=zip", "-cf", archivePath}, item, localeFor(tree));
}

bool cuIsWholeInZIP(const fs::path& item, const std::string& archivePath)
{
    const std::optional<Tree> tree = look(item);
    if (!tree) return false;
    const std::string locale = localeFor(*tree);
    std::string wanted;
    if (archive(listing(), item, locale, &wanted) != 0) return false;
    std::string packed;
    std::vector<std::string> arguments = listing();
    arguments.push_back("@" + archivePath);
    if (platform::runAndWait(arguments, {locale}, {.output = &packed}) != 0) return false;

    // The first line names the format. Counted as well, so that an archiver which overlooks the
    // same items twice is not believed.
    const std::ptrdiff_t lines = std::count(packed.begin(), packed.end(), '\n');
    return lines == tree->items + 1 && packed == wanted;
}
