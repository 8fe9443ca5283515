// Finds the item whose name a file manager shows. Mostly the two are the same bytes, but a name
// that is not UTF-8, contains control characters or has a hidden extension is shown differently.

#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace pinorama {

// The path of the item of `folder` (an absolute path in raw bytes) that is shown as `shown`. The
// path of a folder ends in a slash; so does that of a symbolic link to a folder. The rules are
// tried in this order. The first rule that matches any item decides; if it matches several, the
// result is nothing.
//
// - The item has exactly this name.
// - The name differs only in composed and decomposed letters.
// - The name is not UTF-8: each malformed byte, or each run of them, is shown as U+FFFD, possibly
//   with a remark in parentheses after the name.
// - The name contains control characters, which are shown as blanks or as control pictures, or left
//   out.
// - The name is shown without its extension.
//
// Reads the folder only if no item has exactly this name, and then at most 100,000 entries.
std::optional<std::string> pathOfShownItem(const std::string& folder, const QString& shown);

// The same rules without a file system: the one of `names` (raw bytes) that is shown as `shown`.
std::optional<std::string> nameOfShownItem(const std::vector<std::string>& names,
                                           const QString& shown);

// The number of items in a folder, without and with those whose names begin with a point. Counts at
// most 100,000.
std::pair<std::size_t, std::size_t> itemCounts(const std::string& folder);

// The path of an item, with a slash at its end if it is a folder or a link to one; nothing if there
// is no such item. Slashes at the end of `path` are ignored.
std::optional<std::string> existingItem(std::string path);

}  // namespace pinorama
