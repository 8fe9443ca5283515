#include "selection/item_reader.h"

#include "selection/item_name.h"
#include "selection/manager_window.h"

#include <algorithm>

namespace pinorama {

Task<NamedItem> ItemReader::named(DBusQuery& query, Accessible item, std::string folder)
{
    NamedItem named;
    if (item.isNull()) co_return named;
    const auto calls = callList(nameCall(item), statesCall(item));
    const auto replies = co_await query.replies(calls);
    const auto name = textIn(replies[0]);
    if (!name) co_return named;
    named.item = item;
    named.part = item;
    named.name = *name;
    named.reportsSelected = has(statesIn(replies[1]).value_or(0), State::selected);
    named.path = co_await pathOf(query, folder, *name);
    const std::vector<QString> shorter = window_.namesWithin(*name);
    const std::vector<std::string> others = co_await pathsOf(query, folder, shorter);
    const bool isAmbiguous =
        named.path && std::any_of(others.begin(), others.end(),
                                  [&](const std::string& path) { return path != named.path; });
    if (isAmbiguous) named.path.reset();
    if (!named.path) named = co_await namedInside(query, named, folder);
    if (!named.path && !named.hasParts && !isAmbiguous && others.size() == 1)
        named.path = others.front();
    co_return named;
}

// An item that consists of several objects has its name in one of them.
Task<NamedItem> ItemReader::namedInside(DBusQuery& query, NamedItem item, std::string folder)
{
    constexpr int kMaxDepth = 6;
    constexpr std::size_t kMaxParts = 16;  // on one level
    std::vector<Accessible> level = {item.item};
    for (int depth = 0; depth < kMaxDepth && !level.empty(); depth++) {
        const auto childCalls = callsFor(level, childrenCall);
        const auto childLists = co_await query.replies(childCalls);
        level.clear();
        for (const QDBusMessage& list : childLists) {
            for (Accessible& child : objectsIn(list, kMaxParts).value_or(std::vector<Accessible>{}))
                if (!child.isNull() && level.size() < kMaxParts) level.push_back(std::move(child));
        }
        item.hasParts = item.hasParts || !level.empty();
        const auto nameCalls = callsFor(level, nameCall);
        query.sendAhead(callsFor(level, childrenCall));  // in case that none of the names will do
        const auto names = co_await query.replies(nameCalls);
        for (std::size_t i = 0; i < level.size(); i++) {
            const auto name = textIn(names[i]);
            if (!name || name->isEmpty()) continue;
            auto path = co_await pathOf(query, folder, *name);
            if (!path) continue;
            item.part = level[i];
            item.name = *name;
            item.path = std::move(path);
            co_return item;
        }
    }
    co_return item;
}

Task<std::optional<std::string>> ItemReader::pathOf(DBusQuery& query, std::string folder,
                                                    QString name)
{
    std::optional<std::string> path;
    if (folder.empty()) {
        path = co_await folder_.pathOf(query, name);
    } else {
        const auto find = [folder, name](KnownItems& items) {
            return pathOfShownItem(items, folder, name);
        };
        path = co_await withItems(query, find);
    }
    co_return path;
}

// The items that have one of these names, without repetition.
Task<std::vector<std::string>> ItemReader::pathsOf(DBusQuery& query, std::string folder,
                                                   std::vector<QString> names)
{
    std::vector<std::string> paths;
    for (const QString& name : names) {
        const auto path = co_await pathOf(query, folder, name);
        if (path && std::find(paths.begin(), paths.end(), *path) == paths.end())
            paths.push_back(*path);
    }
    co_return paths;
}

}  // namespace pinorama
