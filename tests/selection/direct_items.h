// Finds items without openers: on a disk that is known to answer.

#pragma once

#include "opener/item_facts.h"
#include "selection/known_items.h"

#include <string>
#include <string_view>
#include <vector>

namespace test {

// The value of `find`, a function of a KnownItems&, when nothing is missing. Asks for at most
// `maxRequests` things, so that a test ends.
template <typename Find>
auto directly(Find find, int maxRequests = 1000)
{
    using namespace pinorama;
    KnownItems items;
    while (true) {
        auto value = find(items);
        if (items.isComplete() || --maxRequests < 0) return value;
        const std::optional<OpenRequest> request = items.nextRequest();
        if (!request) return value;
        const std::string& first = request->paths.front();
        if (request->task == OpenTask::count) {
            items.takeCount(*request, countItemsIn(first));
        } else if (request->task == OpenTask::names) {
            eachNameIn(first, [&](std::string_view name) {
                if (mayBeShownAs(name, request->shown))
                    items.takeNames(*request, {std::string(name)});
                return true;
            });
            items.endNames(*request);
        } else {
            std::vector<ItemFacts> facts;
            for (const std::string& path : request->paths) facts.push_back(factsOfItem(path));
            items.takeFacts(*request, facts);
        }
    }
}

}  // namespace test
