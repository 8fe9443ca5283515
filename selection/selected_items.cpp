#include "selection/selected_items.h"

#include "selection/status_text.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kMaxSelected = 64;      // items whose paths are reported
constexpr std::size_t kMaxScanned = 20000;    // items of a view that are asked one by one
constexpr std::size_t kMaxPendingCalls = 64;  // that wait for a reply at the same time

Validator nameValidator(const Accessible& object, const QString& name)
{
    return {nameCall(object), [name](const QDBusMessage& reply) { return textIn(reply) == name; }};
}

Validator countValidator(const QDBusMessage& call, std::uint32_t count)
{
    return {call, [count](const QDBusMessage& reply) { return numberIn(reply) == count; }};
}

// Whether `item` still has its name and is still the selected one.
Validators validatorsOf(const NamedItem& item, const View& view)
{
    if (item.item.isNull()) return {};
    Validators validators = {nameValidator(item.part, item.name)};
    if (item.reportsSelected) {
        validators.push_back({statesCall(item.item), [](const QDBusMessage& reply) {
                                  return has(statesIn(reply).value_or(0), State::selected);
                              }});
    } else {
        // The icons of Nemo do not have that state; the view knows.
        validators.push_back(
            {selectedChildCall(view.object, 0), [object = item.item](const QDBusMessage& reply) {
                 return objectIn(reply) == object;
             }});
    }
    return validators;
}
}  // namespace

Task<SelectedItems> SelectedItemsReader::read(DBusQuery& query, View view,
                                              std::vector<Accessible> likely)
{
    SelectedItems selected;
    switch (view.access) {
    case ViewAccess::selection: selected = co_await readSelection(query, view); break;
    case ViewAccess::table: selected = co_await readTable(query, view); break;
    case ViewAccess::states: selected = co_await readStates(query, view, likely); break;
    case ViewAccess::opaque: selected = co_await readStatus(query); break;
    }
    if (selected.items.size() == 1) {
        for (Validator& validator : validatorsOf(selected.items.front(), view))
            selected.validators.push_back(std::move(validator));
    }
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readSelection(DBusQuery& query, View view)
{
    SelectedItems selected;
    const std::vector<QDBusMessage> firstCalls = callList(
        selectedCountCall(view.object), selectedChildCall(view.object, 0), statesCall(view.object));
    const auto replies = co_await query.replies(firstCalls);
    const auto count = numberIn(replies[0]);
    const auto states = statesIn(replies[2]);
    const State shown = isGtk4Object(view.object) ? State::visible : State::showing;
    if (!count || !states || !has(*states, shown)) co_return selected;
    selected.isKnown = true;
    // Nautilus (the only one with GTK 4) iterates over the whole folder to count, every time.
    if (!isGtk4Object(view.object))
        selected.validators.push_back(countValidator(selectedCountCall(view.object), *count));
    if (*count == 0) co_return selected;

    std::vector<QDBusMessage> calls;
    for (std::size_t i = 1; i < std::min<std::size_t>(*count, kMaxSelected); i++)
        calls.push_back(selectedChildCall(view.object, static_cast<int>(i)));
    std::vector<QDBusMessage> children = co_await query.replies(calls);
    children.insert(children.begin(), replies[1]);
    for (const QDBusMessage& child : children) {
        // Some programs return the right count and yet no object for all but the first item.
        const Accessible object = objectIn(child).value_or(Accessible{});
        NamedItem item = co_await named(query, object);
        selected.items.push_back(std::move(item));
    }
    if (*count == 1 && !selected.items.front().path) {
        // The item has no name of its own; the status bar may have it.
        SelectedItems named = co_await readStatus(query);
        named.validators.insert(named.validators.end(), selected.validators.begin(),
                                selected.validators.end());
        if (named.path) co_return named;
    }
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readTable(DBusQuery& query, View view)
{
    SelectedItems selected;
    const QDBusMessage getSelectedRows = selectedRowsCall(view.object);
    const auto rows = numbersIn(co_await query.reply(getSelectedRows), kMaxSelected);
    const QDBusMessage getStates = statesCall(view.object);
    const auto states = statesIn(co_await query.reply(getStates));
    if (!rows || !states || !has(*states, State::showing)) co_return selected;
    selected.isKnown = true;
    if (rows->size() < kMaxSelected) {
        selected.validators.push_back(countValidator(selectedRowCountCall(view.object),
                                                     static_cast<std::uint32_t>(rows->size())));
    }
    for (const int row : *rows) {
        std::optional<NamedItem> cell;
        // The names are not always in the first column; others hold icons, sizes and dates.
        for (int column = 0; column < 4; column++) {
            const QDBusMessage getCell = cellCall(view.object, row, column);
            const auto object = objectIn(co_await query.reply(getCell));
            if (!object) continue;
            NamedItem candidate = co_await named(query, *object);
            const bool isItem = candidate.path.has_value();
            if (!cell || isItem) cell = std::move(candidate);
            if (isItem) break;
        }
        selected.items.push_back(cell.value_or(NamedItem{}));
    }
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readStatus(DBusQuery& query)
{
    SelectedItems selected;
    selected.isKnown = true;
    const auto calls = callsFor(layout_->statusTexts, nameCall);
    const auto replies = co_await query.replies(calls);
    for (std::size_t i = 0; i < replies.size(); i++) {
        const auto text = textIn(replies[i]);
        if (!text) {
            selected.isKnown = false;
            continue;
        }
        selected.validators.push_back(nameValidator(layout_->statusTexts[i], *text));
        for (const QString& name : quotedNames(*text)) {
            if (!selected.path) selected.path = folder_.pathOf(name);
        }
    }
    co_return selected;
}

Task<SelectedItems> SelectedItemsReader::readStates(DBusQuery& query, View view,
                                                    std::vector<Accessible> likely)
{
    SelectedItems selected;
    if (!layout_->statusTexts.empty()) {
        selected = co_await readStatus(query);
        co_return selected;
    }
    // Dolphin's view has the state "showing" in every tab, its parent only in the tab in front.
    const QDBusMessage getStates = statesCall(view.ancestors.back());
    const auto isShowing = statesIn(co_await query.reply(getStates));
    if (!isShowing || !has(*isShowing, State::showing)) co_return selected;
    selected.isKnown = true;
    const auto getIsOne = dolphin_.isOneSelectedCall();
    if (getIsOne) {
        const std::vector<QDBusMessage> calls = callList(*getIsOne);
        const auto replies = co_await query.repliesFrom(QDBusConnection::sessionBus(), calls);
        const auto isOne = DolphinWindow::boolIn(replies.front());
        selected.validators.push_back(
            {*getIsOne,
             [isOne](const QDBusMessage& reply) { return DolphinWindow::boolIn(reply) == isOne; },
             true});
        if (isOne == false) co_return selected;
        // The selected item nearly always has the focus as well.
        for (const Accessible& candidate : likely) {
            if (candidate.isNull() || !isOne) continue;
            const std::vector<QDBusMessage> itsCalls =
                callList(statesCall(candidate), parentCall(candidate));
            const auto itsReplies = co_await query.replies(itsCalls);
            // The focus may be in another window of the same program.
            if (objectIn(itsReplies[1]) != view.object) continue;
            if (!has(statesIn(itsReplies[0]).value_or(0), State::selected)) continue;
            NamedItem item = co_await named(query, candidate);
            selected.items.push_back(std::move(item));
            co_return selected;
        }
    }
    const std::vector<Accessible> found = co_await scan(query, view);
    for (const Accessible& object : found) {
        NamedItem item = co_await named(query, object);
        selected.items.push_back(std::move(item));
    }
    co_return selected;
}

Task<std::vector<Accessible>> SelectedItemsReader::scan(DBusQuery& query, View view)
{
    std::vector<Accessible> selected;
    const QDBusMessage getChildren = childrenCall(view.object);
    auto children = objectsIn(co_await query.reply(getChildren), kMaxScanned);
    if (!children) co_return selected;
    std::size_t step = 1;
    if (manager_ == FileManager::pcmanfmQt) {
        // Every item has one child per column, shown or not; the first of them has the name.
        const QDBusMessage getColumnCount = columnCountCall(view.object);
        const auto columns = numberIn(co_await query.reply(getColumnCount));
        step = std::max<std::size_t>(columns.value_or(1), 1);
    }
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

Task<NamedItem> SelectedItemsReader::named(DBusQuery& query, Accessible item)
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
    named.path = folder_.pathOf(*name);
    if (!named.path) named = co_await namedInside(query, named);
    co_return named;
}

// An item that consists of several objects has its name in one of them.
Task<NamedItem> SelectedItemsReader::namedInside(DBusQuery& query, NamedItem item)
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
        const auto nameCalls = callsFor(level, nameCall);
        const auto names = co_await query.replies(nameCalls);
        for (std::size_t i = 0; i < level.size(); i++) {
            const auto name = textIn(names[i]);
            if (!name || name->isEmpty()) continue;
            auto path = folder_.pathOf(*name);
            if (!path) continue;
            item.part = level[i];
            item.name = *name;
            item.path = std::move(path);
            co_return item;
        }
    }
    co_return item;
}

}  // namespace pinorama
