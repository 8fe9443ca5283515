#include "selection/manager_window.h"

#include "selection/table_rows.h"
#include "selection/view_choice.h"

#include <utility>

namespace pinorama {

ManagerWindow::Opaqueness ManagerWindow::opaqueness(Role, Role) const
{
    return Opaqueness::no;
}

std::vector<QString> ManagerWindow::namesWithin(const QString&) const
{
    return {};
}

Task<Done> ManagerWindow::prepare(DBusQuery&, Accessible)
{
    co_return {};
}

Task<std::optional<std::vector<std::string>>> ManagerWindow::publishedFolders(DBusQuery&, QString)
{
    co_return std::nullopt;
}

Task<std::optional<std::size_t>> ManagerWindow::viewInUse(DBusQuery& query, Situation situation)
{
    if (situation.views.size() == 1) co_return 0;
    co_return co_await paneInUse(query, situation.views, situation.touched, situation.before);
}

Task<SelectedItems> ManagerWindow::selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                                 std::vector<Accessible>)
{
    SelectedItems selected;
    switch (view.access) {
    case ViewAccess::selection: selected = co_await readSelection(query, reader, view); break;
    case ViewAccess::table: selected = co_await readTable(query, reader, view); break;
    case ViewAccess::states:
    case ViewAccess::opaque: selected = co_await readStatus(query, reader); break;
    }
    co_return selected;
}

std::unique_ptr<ManagerWindow> makeManagerWindow(pid_t process)
{
    return std::make_unique<ManagerWindow>(process);
}

bool isNoDesktop(Role, const QDBusMessage&)
{
    return false;
}

bool isDesktopOfGtk3(Role, const QDBusMessage& attributes)
{
    return hasAttribute(attributes, QStringLiteral("window-type"), QStringLiteral("desktop"));
}

}  // namespace pinorama
