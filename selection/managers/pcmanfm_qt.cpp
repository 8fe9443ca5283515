// PCManFM-Qt, tried with 1.2 (Qt 5), 2.1 and 2.4 (Qt 6).
//
// View: 1.2 has the Table interface only. Its detailed list reports the selected rows; of icons,
// the states of the items tell what is selected. In those of Qt 6 the icons report no selected rows
// but a selection, and the detailed list reports rows, while its selection counts every cell.
//
// Selection: in 1.2 the status bar quotes the name of the selected file, and counts several, half a
// second after the change.
//
// Folder: from the location entry or the path buttons.
//
// Desktop: a window that is a filler, without a frame.

#include "selection/manager_window.h"
#include "selection/managers/kinds.h"
#include "selection/qt_views.h"
#include "selection/table_rows.h"

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {

constexpr std::size_t kMaxAsked = 128;  // items of a view with a status bar

class PCManFMQtWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    Task<SelectedItems> selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                      std::vector<Accessible>) override
    {
        SelectedItems selected;
        if (view.access == ViewAccess::states) {
            selected = co_await readTable(query, reader, view);
            if (!selected.items.empty()) viewOfRows_ = view.object;
            // Icons never report a row, so only a view that has reported one can have none.
            if (!selected.isKnown || viewOfRows_ != view.object)
                selected = co_await readStates(query, reader, view);
        } else {
            selected = co_await readRowsOrSelection(query, reader, view);
            if (selected.items.size() > 1) selected = co_await withoutCells(query, view, selected);
        }
        co_return selected;
    }

private:
    // If each cell of one row is counted, keeps the one whose name is an item of the folder.
    static Task<SelectedItems> withoutCells(DBusQuery& query, View view, SelectedItems selected)
    {
        const QDBusMessage getColumnCount = columnCountCall(view.object);
        const auto columnCount = numberIn(co_await query.reply(getColumnCount));
        const auto isItem = [](const NamedItem& item) { return item.path.has_value(); };
        const auto isMissing = [](const NamedItem& item) { return item.item.isNull(); };
        std::vector<NamedItem>& items = selected.items;
        if (items.size() == columnCount && std::none_of(items.begin(), items.end(), isMissing) &&
            std::count_if(items.begin(), items.end(), isItem) == 1)
            std::erase_if(items, [&](const NamedItem& item) { return !isItem(item); });
        co_return selected;
    }

    // The status bar tells half a second late, so the items of a folder that is not large are asked
    // themselves. If none of them says that it is selected, the status bar decides.
    static Task<SelectedItems> readStates(DBusQuery& query, ItemReader& reader, View view)
    {
        SelectedItems told;
        const bool hasStatusBar = !reader.layout()->statusTexts.empty();
        if (hasStatusBar) told = co_await readStatus(query, reader);
        if (hasStatusBar && !told.isKnown) co_return told;
        // Every item has one child per column, shown or not; the first of them has the name.
        const std::vector<QDBusMessage> calls =
            callList(columnCountCall(view.object), childCountCall(view.object));
        const auto counts = co_await query.replies(calls);
        const std::size_t step = std::max<std::size_t>(numberIn(counts[0]).value_or(1), 1);
        const std::size_t count = numberIn(counts[1]).value_or(0) / step;
        if (hasStatusBar && count > kMaxAsked) co_return told;
        SelectedItems selected;
        if (!co_await isQtViewShowing(query, view)) co_return hasStatusBar ? told : selected;
        selected.isKnown = true;
        selected.validators = told.validators;
        const std::vector<Accessible> found = co_await itemsThatReportSelected(query, view, step);
        if (found.empty() && hasStatusBar) co_return told;
        for (const Accessible& object : found) {
            NamedItem item = co_await reader.named(query, object);
            selected.items.push_back(std::move(item));
        }
        co_return selected;
    }

    Accessible viewOfRows_;  // the last view that has reported selected rows, or null
};
}  // namespace

constinit const FileManagerKind kPCManFMQt = {
    .process = "pcmanfm-qt",
    .name = "PCManFM-Qt",
    .toolkit = Toolkit::qt,
    .makeWindow = [](pid_t process) -> std::unique_ptr<ManagerWindow> {
        return std::make_unique<PCManFMQtWindow>(process);
    },
    .isDesktop = [](Role role, const QDBusMessage&) { return role == Role::filler; },
    // The status bar changes half a second after the selection.
    .reportsByNames = true,
};

}  // namespace pinorama
