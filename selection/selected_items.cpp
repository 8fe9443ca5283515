#include "selection/selected_items.h"

#include "selection/item_name.h"
#include "selection/status_text.h"

#include <QDBusConnection>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr std::size_t kMaxSelected = 64;      // items whose paths are reported
constexpr std::size_t kMaxScanned = 20000;    // items of a view that are asked one by one
constexpr std::size_t kMaxPendingCalls = 64;  // that wait for a reply at the same time
constexpr std::uint32_t kMaxColumns = 24;     // of a list

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
    case ViewAccess::table: {
        selected = co_await readTable(query, view);
        const bool isQt = manager_ == FileManager::dolphin || manager_ == FileManager::pcmanfmQt;
        if (isQt && selected.isKnown && selected.items.empty())
            selected = co_await readQt6(query, view);
        break;
    }
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

// The views of Qt 6 report no selected rows, but have the Selection interface. Some of them count
// each cell of a row, of which one has a name that is an item of the folder.
Task<SelectedItems> SelectedItemsReader::readQt6(DBusQuery& query, View view)
{
    SelectedItems selected = co_await readSelection(query, view);
    const QDBusMessage getColumnCount = columnCountCall(view.object);
    const auto columnCount = numberIn(co_await query.reply(getColumnCount));
    const auto isItem = [](const NamedItem& item) { return item.path.has_value(); };
    if (selected.items.size() > 1 && selected.items.size() == columnCount &&
        std::count_if(selected.items.begin(), selected.items.end(), isItem) == 1)
        std::erase_if(selected.items, [&](const NamedItem& item) { return !isItem(item); });
    if (selected.items.size() == 1) {
        NamedItem item = co_await certain(query, view, selected.items.front());
        selected.items = {std::move(item)};
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
    if (rows->empty()) co_return selected;
    const QDBusMessage getColumnCount = columnCountCall(view.object);
    const auto columnCount = numberIn(co_await query.reply(getColumnCount));
    for (const int row : *rows) {
        NamedItem item = co_await rowItem(
            query, view, row, static_cast<int>(std::min(columnCount.value_or(1), kMaxColumns)));
        selected.items.push_back(std::move(item));
    }
    co_return selected;
}

// The item of a row. In a tree it is in the folder of the row above it in the tree, and among the
// results of a search in the folder that another of its cells names.
Task<NamedItem> SelectedItemsReader::rowItem(DBusQuery& query, View view, int row, int columnCount)
{
    std::vector<QDBusMessage> cellCalls;
    for (int column = 0; column < columnCount; column++)
        cellCalls.push_back(cellCall(view.object, row, column));
    const auto cells = co_await query.replies(cellCalls);
    std::vector<Accessible> objects;
    std::vector<QDBusMessage> calls;
    for (const QDBusMessage& cell : cells) {
        objects.push_back(objectIn(cell).value_or(Accessible{}));
        calls.push_back(nameCall(objects.back()));
        calls.push_back(relationsCall(objects.back()));
    }
    const auto replies = co_await query.replies(calls);
    std::optional<std::string> folder;
    std::optional<Accessible> parent;
    bool isElsewhere = false;
    for (std::size_t i = 0; i < objects.size(); i++) {
        WindowFolder::Cell cell = folder_.cell(textIn(replies[2 * i]).value_or(QString()));
        if (cell.kind == WindowFolder::CellKind::location) folder = std::move(cell.folder);
        if (cell.kind == WindowFolder::CellKind::elsewhere) isElsewhere = true;
        if (!parent) parent = treeParentIn(replies[2 * i + 1]);
    }
    if (!folder && parent && *parent != view.object) {
        folder = co_await folderOfRow(query, view, *parent);
        isElsewhere = isElsewhere || !folder;
    }
    std::optional<NamedItem> found;
    // The names are not always in the first column; others hold icons, sizes and dates.
    for (std::size_t i = 0; i < std::min<std::size_t>(objects.size(), 4); i++) {
        NamedItem candidate = co_await named(query, objects[i], folder.value_or(std::string()));
        const bool isItem = candidate.path.has_value();
        if (!found || isItem) found = std::move(candidate);
        if (isItem) break;
    }
    NamedItem item = found.value_or(NamedItem{});
    if (isElsewhere) item.path.reset();
    co_return item;
}

// The folder of the rows below `parent`, itself a row; nothing if it cannot be told.
Task<std::optional<std::string>> SelectedItemsReader::folderOfRow(DBusQuery& query, View view,
                                                                  Accessible parent)
{
    constexpr std::size_t kMaxLevels = 32;
    std::vector<Accessible> parents;
    while (parent != view.object) {
        if (parents.size() == kMaxLevels) co_return std::nullopt;
        parents.push_back(parent);
        const QDBusMessage getRelations = relationsCall(parent);
        const auto next = treeParentIn(co_await query.reply(getRelations));
        if (!next) co_return std::nullopt;
        parent = *next;
    }
    std::string folder;
    for (std::size_t i = parents.size(); i > 0; i--) {
        const NamedItem item = co_await named(query, parents[i - 1], folder);
        if (!item.path || !item.path->ends_with('/')) co_return std::nullopt;
        folder = item.path->substr(0, item.path->size() - 1);
    }
    co_return folder;
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
        // The selected item nearly always has the focus as well. Dolphin says only a moment after a
        // second one was added that there are several, so the item before it is asked too.
        for (std::size_t i = 0; isOne && i < likely.size(); i++) {
            const Accessible candidate = likely[i];
            if (candidate.isNull() || (i > 0 && candidate == likely.front())) continue;
            const std::vector<QDBusMessage> itsCalls =
                callList(statesCall(candidate), parentCall(candidate));
            const auto itsReplies = co_await query.replies(itsCalls);
            // The focus may be in another window of the same program.
            if (objectIn(itsReplies[1]) != view.object) continue;
            if (!has(statesIn(itsReplies[0]).value_or(0), State::selected)) continue;
            NamedItem item = co_await named(query, candidate);
            selected.items.push_back(std::move(item));
        }
        if (selected.items.size() == 1) {
            NamedItem item = co_await certain(query, view, selected.items.front());
            selected.items = {std::move(item)};
        }
        if (!selected.items.empty()) co_return selected;
    }
    const std::vector<Accessible> found = co_await scan(query, view);
    for (const Accessible& object : found) {
        NamedItem item = co_await named(query, object);
        if (found.size() == 1) item = co_await certain(query, view, item);
        selected.items.push_back(std::move(item));
    }
    co_return selected;
}

// Dolphin does not say which items belong to an expanded folder. If the view has not as many items
// as the folder, one that has its name for itself and is in the folder is the right one; of two
// with one name nobody can say.
Task<NamedItem> SelectedItemsReader::certain(DBusQuery& query, View view, NamedItem item)
{
    if (manager_ != FileManager::dolphin || !item.path) co_return item;
    const auto counts = folder_.itemCounts();
    const QDBusMessage getCount = childCountCall(view.object);
    const auto count = numberIn(co_await query.reply(getCount));
    if (counts && (count == counts->first || count == counts->second)) co_return item;

    item.path = folder_.pathInFirst(item.name);
    const QDBusMessage getChildren = childrenCall(view.object);
    const auto items = objectsIn(co_await query.reply(getChildren), kMaxScanned);
    if (!items) item.path.reset();
    std::size_t namesakes = 0;
    for (std::size_t first = 0; item.path && first < items->size(); first += kMaxPendingCalls) {
        std::vector<QDBusMessage> calls;
        for (std::size_t i = first; i < std::min(first + kMaxPendingCalls, items->size()); i++)
            calls.push_back(nameCall((*items)[i]));
        const auto replies = co_await query.replies(calls);
        for (const QDBusMessage& reply : replies) namesakes += textIn(reply) == item.name ? 1 : 0;
        if (namesakes > 1) item.path.reset();
    }
    co_return item;
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

Task<NamedItem> SelectedItemsReader::named(DBusQuery& query, Accessible item, std::string folder)
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
    named.path = pathOf(folder, *name);
    if (!named.path) named = co_await namedInside(query, named, folder);
    co_return named;
}

// An item that consists of several objects has its name in one of them.
Task<NamedItem> SelectedItemsReader::namedInside(DBusQuery& query, NamedItem item,
                                                 std::string folder)
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
            auto path = pathOf(folder, *name);
            if (!path) continue;
            item.part = level[i];
            item.name = *name;
            item.path = std::move(path);
            co_return item;
        }
    }
    co_return item;
}

std::optional<std::string> SelectedItemsReader::pathOf(const std::string& folder,
                                                       const QString& name)
{
    return folder.empty() ? folder_.pathOf(name) : pathOfShownItem(folder, name);
}

}  // namespace pinorama
