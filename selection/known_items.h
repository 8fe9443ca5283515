// What is known of files and folders while somebody works out where a selected item is. A disk may
// not answer, so whoever works that out asks no disk: it asks this, which has the answers of an
// opener (opener/opener_client.h) and notes what is wanted beyond them. Then an opener is asked for
// all of that at once, and the work is done again from its beginning.
//
//     const auto find = [folder, shown](KnownItems& items) {
//         return pathOfShownItem(items, folder, shown);
//     };
//     const std::optional<std::string> path = co_await withItems(query, find);
//
// The result counts only if nothing was missing, so whoever gets null may return whatever it likes.

#pragma once

#include <QString>

#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "opener/opener_protocol.h"
#include "selection/dbus_query.h"
#include "selection/shown_name.h"

namespace pinorama {

class KnownItems {
public:
    // Each of them returns null as long as that is not known.

    // What is at a path (absolute, in raw bytes).
    const ItemFacts* item(const std::string& path);

    // The name of the item of `folder` that is shown as `shown` (shown_name.h), inside the outer
    // pointer; nothing if there is none, or more than one.
    const std::optional<std::string>* nameShownAs(const std::string& folder, const QString& shown);

    // How many items a folder has.
    const FolderCount* count(const std::string& folder);

    // Whether nothing was missing since the last answer.
    bool isComplete() const { return !isWanting_; }

    // Whether everything could be found out. A file system that hangs has nothing to say about its
    // items: they count as missing.
    bool isCertain() const { return isCertain_; }

    // What to ask an opener for. Nothing if nothing is missing.
    std::optional<OpenRequest> nextRequest() const;

    // The answers to such a request: the facts of all its paths; a part of the names, and when all
    // have come; the count. Or that there is none.
    void takeFacts(const OpenRequest& request, const std::vector<ItemFacts>& facts);
    void takeNames(const OpenRequest& request, const std::vector<std::string>& names);
    void endNames(const OpenRequest& request);
    void takeCount(const OpenRequest& request, const FolderCount& count);
    void takeNone(const OpenRequest& request);

private:
    struct Names {
        ShownNameFinder finder;
        std::optional<std::string> found{};
    };
    using NamesKey =
        std::pair<std::string, std::string>;  // folder, what its names are matched with

    bool isWanting_ = false;
    bool isCertain_ = true;
    std::map<std::string, ItemFacts> items_;
    std::set<std::string> wantedItems_;
    std::map<NamesKey, Names> names_;
    std::map<NamesKey, Names> wantedNames_;
    std::map<std::string, FolderCount> counts_;
    std::set<std::string> wantedCounts_;
};

// Has an opener answer what is missing; not necessarily all of it.
Task<Done> lookAtItems(DBusQuery& query, std::shared_ptr<KnownItems> items);

// The value of `find`, a function of a KnownItems&, when nothing is missing.
template <typename Find>
Task<std::invoke_result_t<Find&, KnownItems&>> withItems(DBusQuery& query, Find find)
{
    const auto items = std::make_shared<KnownItems>();
    while (true) {
        auto value = find(*items);
        if (items->isComplete()) co_return value;
        co_await lookAtItems(query, items);
    }
}

}  // namespace pinorama
