#include "selection/view_choice.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {

constexpr int kMaxItemDepth = 12;  // steps from a part of an item up to the view

// Whether an object is the view or one of the few containers around it that hold nothing else, such
// as its scrolled window. The containers further up hold all tabs.
bool isCloseAround(const View& view, const Accessible& object)
{
    constexpr std::size_t kClose = 4;
    if (view.object == object) return true;
    const std::size_t count = std::min(kClose, view.ancestors.size());
    return std::find(view.ancestors.end() - static_cast<long>(count), view.ancestors.end(),
                     object) != view.ancestors.end();
}
}  // namespace

Task<bool> haveFoundSizes(DBusQuery& query, std::vector<View> views)
{
    const auto calls = callsFor(views, [](const View& view) { return sizeCall(view.object); });
    const auto replies = co_await query.replies(calls);
    for (std::size_t i = 0; i < replies.size(); i++) {
        if (sizeIn(replies[i]) != views[i].size) co_return false;
    }
    co_return true;
}

Task<std::size_t> paneInUse(DBusQuery& query, std::vector<View> views, Accessible touched,
                            std::size_t before)
{
    std::vector<QDBusMessage> calls;
    for (const View& view : views) {
        for (const Accessible& object : view.focusIndicators) calls.push_back(statesCall(object));
    }
    if (!touched.isNull()) calls.push_back(parentCall(touched));
    const auto replies = co_await query.replies(calls);

    std::optional<std::size_t> focusedPane;
    std::optional<std::size_t> touchedPane;
    const auto holder = touched.isNull() ? std::nullopt : objectIn(replies.back());
    auto reply = replies.begin();
    for (std::size_t i = 0; i < views.size(); i++) {
        for (std::size_t j = 0; j < views[i].focusIndicators.size(); j++, ++reply) {
            if (has(statesIn(*reply).value_or(0), State::focused)) focusedPane = i;
        }
        if (views[i].object == touched || holder == views[i].object) touchedPane = i;
    }
    co_return focusedPane.value_or(touchedPane.value_or(before));
}

Task<std::optional<std::size_t>> viewInFront(DBusQuery& query, Accessible frame,
                                             std::vector<View> views, std::size_t before)
{
    auto calls =
        callsFor(views, [](const View& view) { return childCountCall(view.ancestors.back()); });
    calls.push_back(statesCall(frame));
    calls.push_back(extentsCall(views.front().object));
    const auto replies = co_await query.replies(calls);
    // Newer versions of GTK 4 say what is showing. They find no children in the container of a view
    // that is behind another tab, and may find that container at a point where the other tab is.
    if (has(statesIn(replies[views.size()]).value_or(0), State::showing)) {
        for (std::size_t i = 0; i < views.size(); i++) {
            if (numberIn(replies[i]).value_or(0) > 0) co_return i;
        }
        co_return std::nullopt;
    }
    const auto extents = extentsIn(replies.back());
    if (!extents || extents->size.area() == 0) co_return std::nullopt;
    // GTK 4 creates the object of an item only when a client first asks for it, and finds nothing
    // at its place before. The edges of the view are mostly free of items, so they are tried first.
    const int right = extents->left + extents->size.width;
    const int bottom = extents->top + extents->size.height;
    const std::vector<std::pair<int, int>> points = {
        {extents->left + 6, extents->top + 6},
        {right - 6, bottom - 6},
        {(extents->left + right) / 2, bottom - 6},
        {(extents->left + right) / 2, (extents->top + bottom) / 2}};
    for (const auto& [x, y] : points) {
        const QDBusMessage getObjectAtPoint = objectAtPointCall(frame, x, y);
        std::optional<Accessible> object = objectIn(co_await query.reply(getObjectAtPoint));
        if (!object) continue;
        for (int steps = 0; object && steps < kMaxItemDepth; steps++) {
            for (std::size_t i = 0; i < views.size(); i++) {
                if (isCloseAround(views[i], *object)) co_return i;
            }
            const QDBusMessage getParent = parentCall(*object);
            object = objectIn(co_await query.reply(getParent));
        }
        co_return std::nullopt;
    }
    co_return before;
}

}  // namespace pinorama
