#include "selection/view_choice.h"

#include <optional>

namespace pinorama {
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

}  // namespace pinorama
