#include "selection/qt_views.h"

#include "selection/table_rows.h"

#include <algorithm>
#include <utility>

namespace pinorama {

Task<SelectedItems> readRowsOrSelection(DBusQuery& query, ItemReader& reader, View view)
{
    SelectedItems selected = co_await readTable(query, reader, view);
    if (selected.isKnown && selected.items.empty())
        selected = co_await readSelection(query, reader, view);
    co_return selected;
}

Task<bool> isQtViewShowing(DBusQuery& query, View view)
{
    const QDBusMessage getStates = statesCall(view.ancestors.back());
    const auto states = statesIn(co_await query.reply(getStates));
    co_return states&& has(*states, State::showing);
}

Task<std::vector<Accessible>> itemsThatReportSelected(DBusQuery& query, View view, std::size_t step)
{
    std::vector<Accessible> selected;
    const QDBusMessage getChildren = childrenCall(view.object);
    auto children = objectsIn(co_await query.reply(getChildren), kMaxScanned);
    if (!children) co_return selected;
    std::vector<Accessible> items;
    for (std::size_t i = 0; i < children->size(); i += step) items.push_back((*children)[i]);
    for (std::size_t first = 0; first < items.size(); first += kMaxPendingCalls) {
        const std::size_t end = std::min(first + kMaxPendingCalls, items.size());
        std::vector<QDBusMessage> calls;
        for (std::size_t i = first; i < end; i++) calls.push_back(statesCall(items[i]));
        const auto replies = co_await query.replies(calls);
        for (std::size_t i = first; i < end; i++) {
            if (has(statesIn(replies[i - first]).value_or(0), State::selected) &&
                selected.size() < kMaxSelected)
                selected.push_back(items[i]);
        }
    }
    co_return selected;
}

}  // namespace pinorama
