#include "selection/table_rows.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {

constexpr std::uint32_t kMaxColumns = 24;  // of a list

// The folder of the rows below `parent`, itself a row; nothing if it cannot be told.
Task<std::optional<std::string>> folderOfRow(DBusQuery& query, ItemReader& reader, View view,
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
        const NamedItem item = co_await reader.named(query, parents[i - 1], folder);
        if (!item.path || !item.path->ends_with('/')) co_return std::nullopt;
        folder = item.path->substr(0, item.path->size() - 1);
    }
    co_return folder;
}

// The item of a row. In a tree it is in the folder of the row above it in the tree, and among the
// results of a search in the folder that another of its cells names.
Task<NamedItem> rowItem(DBusQuery& query, ItemReader& reader, View view, int row, int columnCount)
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
    std::optional<Accessible> parent;
    std::vector<QString> texts;
    for (std::size_t i = 0; i < objects.size(); i++) {
        texts.push_back(textIn(replies[2 * i]).value_or(QString()));
        if (!parent) parent = treeParentIn(replies[2 * i + 1]);
    }
    const auto readCells = [texts, &windowFolder = reader.folder()](KnownItems& items) {
        std::vector<WindowFolder::Cell> read;
        for (const QString& text : texts) read.push_back(windowFolder.cell(items, text));
        return read;
    };
    const std::vector<WindowFolder::Cell> facts = co_await withItems(query, readCells);
    std::optional<std::string> folder;
    bool isElsewhere = false;
    for (const WindowFolder::Cell& cell : facts) {
        if (cell.kind == WindowFolder::CellKind::location) folder = cell.folder;
        if (cell.kind == WindowFolder::CellKind::elsewhere) isElsewhere = true;
    }
    if (!folder && parent && *parent != view.object) {
        folder = co_await folderOfRow(query, reader, view, *parent);
        isElsewhere = isElsewhere || !folder;
    }
    std::optional<NamedItem> found;
    // The names are not always in the first column; others hold icons, sizes and dates.
    for (std::size_t i = 0; i < std::min<std::size_t>(objects.size(), 4); i++) {
        NamedItem candidate =
            co_await reader.named(query, objects[i], folder.value_or(std::string()));
        const bool isItem = candidate.path.has_value();
        if (!found || isItem) found = std::move(candidate);
        if (isItem) break;
    }
    NamedItem item = found.value_or(NamedItem{});
    if (isElsewhere) item.path.reset();
    co_return item;
}
}  // namespace

Task<SelectedItems> readTable(DBusQuery& query, ItemReader& reader, View view)
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
        NamedItem item =
            co_await rowItem(query, reader, view, row,
                             static_cast<int>(std::min(columnCount.value_or(1), kMaxColumns)));
        selected.items.push_back(std::move(item));
    }
    co_return selected;
}

}  // namespace pinorama
