// Nemo, tried with 5.6, 6.4 and 6.6 (GTK 3).
//
// View: the icons and the compact list have the Selection interface, and their items do not say
// that they are selected; the list has the Table interface, with the rows above a row in its
// relations. 6.6 opens folders in its list only if a setting says so.
//
// Folder: from the location entry or the path buttons. A split window has a path bar for each pane,
// of which only that of the pane with the focus is visible. Results of a search have their location
// in a column, as a whole path; in the Trash that column has the path from which the item was
// deleted.
//
// Desktop: a process of its own.

#include "selection/manager_window.h"
#include "selection/managers/kinds.h"

namespace pinorama {
namespace {

class NemoWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    LocationColumn locationColumn() const override { return LocationColumn::wholePath; }
};

std::unique_ptr<ManagerWindow> makeNemoWindow(pid_t process)
{
    return std::make_unique<NemoWindow>(process);
}
}  // namespace

constinit const FileManagerKind kNemo = {
    .process = "nemo",
    .name = "Nemo",
    .toolkit = Toolkit::gtk,
    .makeWindow = makeNemoWindow,
    .isDesktop = isDesktopOfGtk3,
};

constinit const FileManagerKind kNemoDesktop = {
    .process = "nemo-desktop",
    .name = "Nemo",
    .toolkit = Toolkit::gtk,
    .makeWindow = makeNemoWindow,
    .isDesktop = [](Role, const QDBusMessage&) { return true; },
};

}  // namespace pinorama
