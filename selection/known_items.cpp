#include "selection/known_items.h"

#include <algorithm>

namespace pinorama {
namespace {
// No item has another path.
bool isPath(const std::string& path)
{
    return !path.empty() && path.size() <= kMaxOpenPath && path.find('\0') == path.npos;
}
}  // namespace

const ItemFacts* KnownItems::item(const std::string& path)
{
    static constexpr ItemFacts kNothing = {.isKnown = true};
    if (!isPath(path)) return &kNothing;
    const auto found = items_.find(path);
    if (found != items_.end()) return &found->second;
    wantedItems_.insert(path);
    isWanting_ = true;
    return nullptr;
}

const std::optional<std::string>* KnownItems::nameShownAs(const std::string& folder,
                                                          const QString& shown)
{
    static const std::optional<std::string> kNone;
    if (!isPath(folder)) return &kNone;
    ShownNameFinder finder(shown);
    if (finder.composedBytes().size() > kMaxShownName) return &kNone;
    const NamesKey key = {folder, finder.composedBytes()};
    const auto found = names_.find(key);
    if (found != names_.end()) return &found->second.found;
    wantedNames_.emplace(key, Names{std::move(finder)});
    isWanting_ = true;
    return nullptr;
}

const FolderCount* KnownItems::count(const std::string& folder)
{
    static constexpr FolderCount kNone = {};
    if (!isPath(folder)) return &kNone;
    const auto found = counts_.find(folder);
    if (found != counts_.end()) return &found->second;
    wantedCounts_.insert(folder);
    isWanting_ = true;
    return nullptr;
}

std::optional<OpenRequest> KnownItems::nextRequest() const
{
    if (!wantedItems_.empty()) {
        OpenRequest request{.task = OpenTask::facts};
        std::size_t size = 0;
        for (const std::string& path : wantedItems_) {
            size += path.size() + 1;
            if (size > kMaxPathBytes || request.paths.size() == kMaxOpenPaths) break;
            request.paths.push_back(path);
        }
        return request;
    }
    if (!wantedNames_.empty()) {
        const auto& [folder, shown] = wantedNames_.begin()->first;
        return OpenRequest{.task = OpenTask::names, .paths = {folder}, .shown = shown};
    }
    if (!wantedCounts_.empty())
        return OpenRequest{.task = OpenTask::count, .paths = {*wantedCounts_.begin()}};
    return std::nullopt;
}

void KnownItems::takeFacts(const OpenRequest& request, const std::vector<ItemFacts>& facts)
{
    for (std::size_t i = 0; i < request.paths.size(); i++) {
        items_[request.paths[i]] = facts[i];
        wantedItems_.erase(request.paths[i]);
        isCertain_ = isCertain_ && facts[i].isKnown;
    }
    isWanting_ = false;
}

void KnownItems::takeNames(const OpenRequest& request, const std::vector<std::string>& names)
{
    const auto wanted = wantedNames_.find({request.paths.front(), request.shown});
    if (wanted == wantedNames_.end()) return;
    for (const std::string& name : names) wanted->second.finder.take(name);
}

void KnownItems::endNames(const OpenRequest& request)
{
    auto wanted = wantedNames_.extract({request.paths.front(), request.shown});
    if (wanted) {
        wanted.mapped().found = wanted.mapped().finder.name();
        names_.insert(std::move(wanted));
    }
    isWanting_ = false;
}

void KnownItems::takeCount(const OpenRequest& request, const FolderCount& count)
{
    counts_[request.paths.front()] = count;
    wantedCounts_.erase(request.paths.front());
    isWanting_ = false;
}

void KnownItems::takeNone(const OpenRequest& request)
{
    isCertain_ = false;
    switch (request.task) {
    case OpenTask::facts: return takeFacts(request, std::vector<ItemFacts>(request.paths.size()));
    case OpenTask::names: {
        const auto wanted = wantedNames_.find({request.paths.front(), request.shown});
        // Those that have come are not all.
        if (wanted != wantedNames_.end()) wanted->second.finder = ShownNameFinder({});
        return endNames(request);
    }
    default: return takeCount(request, {});
    }
}

Task<Done> lookAtItems(DBusQuery& query, std::shared_ptr<KnownItems> items)
{
    const std::optional<OpenRequest> request = items->nextRequest();
    if (!request) co_return {};
    const OpenerQuestion::TakeNames takeNames = [items, request](const auto& names) {
        items->takeNames(*request, names);
    };
    const OpenerQuestion& answer = co_await query.look(*request, takeNames);
    if (answer.stage() != OpenStage::done) {
        items->takeNone(*request);
    } else if (request->task == OpenTask::facts) {
        items->takeFacts(*request, answer.facts());
    } else if (request->task == OpenTask::names) {
        items->endNames(*request);
    } else {
        items->takeCount(*request, answer.count());
    }
    co_return {};
}

}  // namespace pinorama
