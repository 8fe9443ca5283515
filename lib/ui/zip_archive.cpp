#include "lib/ui/zip_archive.h"

#include "base/child_process.h"
#include "base/utf8.h"
#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "lib/objects/string.h"

#include <algorithm>
#include <optional>
#include <string_view>
#include <system_error>
#include <vector>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;

bool isUTF8(const std::string& bytes)
{
    const ObjectHolder<TovStringRef> text(createPathText(bytes));
    return displayUTF8(unitsOf(text.get())) == bytes;
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

// In a UTF-8 locale the archiver flags names as UTF-8, which every program understands. One that is
// no UTF-8 would make an archive that cannot be read; without a locale its bytes stay as they are.
std::string localeFor(const Tree& tree)
{
    return tree.isUTF8 ? "LC_ALL=C.UTF-8" : "LC_ALL=C";
}

// The names of items end each with a zero byte in the archiver's list: without that, a line feed
// would divide a name and "-C" would mean a folder.
struct Selection {
    explicit Selection(const fs::path& item)
        : arguments({"-C", item.parent_path().string(), "--null", "-T", "-"}),
          names(item.filename().string() + '\0')
    {
        // Without any slash beside it, readers take a backslash for one.
        if (names.find('\\') != names.npos) names.insert(0, "./");
    }

    std::vector<std::string> arguments;
    std::string names;  // for standard input
};

// What the archiver finds in a selection or an archive: a line for each item, after one that names
// the format. Nothing when it fails.
std::optional<std::string> listOf(const std::vector<std::string>& selected,
                                  const std::string& locale, std::string_view input = {})
{
    std::vector<std::string> arguments = {"bsdtar", "--format=mtree",
                                          "--options=!all,type,size,cksum,sha256,link", "-cf", "-"};
    arguments.insert(arguments.end(), selected.begin(), selected.end());
    std::string output;
    if (runAndWait(arguments, {locale}, {.input = input, .output = &output}) != 0) {
        return std::nullopt;
    }
    return output;
}
}  // namespace

std::int32_t cuPackIntoZIP(const fs::path& item, const std::string& archive)
{
    const Selection selection(item);
    std::vector<std::string> arguments = {"bsdtar", "--format=zip", "-cf", archive};
    arguments.insert(arguments.end(), selection.arguments.begin(), selection.arguments.end());
    return runAndWait(arguments, {localeFor(look(item).value_or(Tree()))},
                      {.input = selection.names});
}

bool cuIsWholeInZIP(const fs::path& item, const std::string& archive)
{
    const std::optional<Tree> tree = look(item);
    if (!tree) return false;
    const std::string locale = localeFor(*tree);
    const Selection selection(item);
    const auto wanted = listOf(selection.arguments, locale, selection.names);
    const auto packed = listOf({"@" + archive}, locale);

    // Counted as well, so that an archiver which overlooks the same items twice is not believed.
    return wanted && packed && *wanted == *packed &&
           std::count(packed->begin(), packed->end(), '\n') == tree->items + 1;
}
