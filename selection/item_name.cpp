#include "selection/item_name.h"

#include <utility>

namespace pinorama {

std::optional<std::string> existingItem(KnownItems& items, std::string path)
{
    while (path.size() > 1 && path.ends_with('/')) path.pop_back();
    const ItemFacts* facts = items.item(path);
    if (facts == nullptr || !facts->isThere) return std::nullopt;
    if (facts->isFolder && path != "/") path += '/';
    return path;
}

std::optional<std::string> pathOfShownItem(KnownItems& items, const std::string& folder,
                                           const QString& shown)
{
    if (shown.isEmpty() || folder.empty()) return std::nullopt;
    const std::string prefix = folder.ends_with('/') ? folder : folder + '/';
    if (!shown.contains(u'/') && !shown.contains(QChar::Null) && shown != QLatin1String(".") &&
        shown != QLatin1String("..")) {
        const std::string path = prefix + shown.toStdString();
        if (items.item(path) == nullptr) return std::nullopt;
        auto item = existingItem(items, path);
        if (item) return item;
    }
    const std::optional<std::string>* name = items.nameShownAs(folder, shown);
    if (name == nullptr || !*name) return std::nullopt;
    return existingItem(items, prefix + **name);
}

Task<std::optional<std::vector<std::string>>> existingItems(DBusQuery& query,
                                                            std::vector<std::string> paths)
{
    const auto find = [paths](KnownItems& items) {
        std::optional<std::vector<std::string>> existing = std::vector<std::string>();
        for (const std::string& path : paths) {
            auto item = existingItem(items, path);
            if (!item && items.isComplete()) existing.reset();
            if (existing && item) existing->push_back(std::move(*item));
        }
        return existing;
    };
    auto existing = co_await withItems(query, find);
    co_return existing;
}

}  // namespace pinorama
