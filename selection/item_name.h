// From the name that a file manager shows to the item that it means. Mostly they are the same
// bytes; a name that is no UTF-8, one with control characters in it and one whose extension is
// hidden are shown otherwise.

#pragma once

#include <QString>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace pinorama {

// The path of the item of `folder` (an absolute path in raw bytes) that is shown as `shown`. A
// folder's path ends in a slash; a symbolic link counts as what it leads to. Looked for in this
// order, and nothing when the first kind that fits anything fits several items:
//
// - the item with exactly this name,
// - one that differs in composed and decomposed letters only,
// - one whose name is no UTF-8: the bytes at fault are shown as U+FFFD each or in runs, with or
//   without a remark in brackets after the name,
// - one with control characters, shown as blanks or as their pictures or left out,
// - one whose name without its extension is shown.
//
// Reads the folder only when there is no item with exactly this name, and at most 100,000 entries.
std::optional<std::string> pathOfShownItem(const std::string& folder, const QString& shown);

// The choice on its own: the entry among `names` (raw bytes) that is shown as `shown`.
std::optional<std::string> nameOfShownItem(const std::vector<std::string>& names,
                                           const QString& shown);

// The path with a slash at its end when it leads to a folder; nothing when there is no such item.
std::optional<std::string> existingItem(std::string path);

}  // namespace pinorama
