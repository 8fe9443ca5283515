// Thunar, tried with 4.18 and 4.20 (GTK 3).
//
// View: a directory pane. The icons and the compact list in it expose no items; the detailed list
// is a view with the Table interface inside it, which counts instead of the pane.
//
// Selection: the status bar quotes the name of the selected file, and counts several. A name that
// is not UTF-8 is in no text: in Debian 13 the status bar is empty then. It changes 50 ms after the
// selection. Nothing names the file earlier: in the pane of icons is one panel without objects, and
// its events have the name of the view.
//
// Folder: from the location entry or the path buttons. Results of a search have their location in a
// column, as a path below the parent of the folder in which the search began.
//
// Extensions are called before the change that they ought to report.

#include "selection/manager_window.h"
#include "selection/managers/kinds.h"

namespace pinorama {
namespace {

class ThunarWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    Opaqueness opaqueness(Role role, Role) const override
    {
        return role == Role::directoryPane ? Opaqueness::yes : Opaqueness::no;
    }

    LocationColumn locationColumn() const override { return LocationColumn::belowParent; }
};
}  // namespace

constinit const FileManagerKind kThunar = {
    .process = "thunar",
    .name = "Thunar",
    .toolkit = Toolkit::gtk,
    .makeWindow = [](pid_t process) -> std::unique_ptr<ManagerWindow> {
        return std::make_unique<ThunarWindow>(process);
    },
    .isDesktop = isNoDesktop,
    // In the view of icons a change of the status bar's name is the only event that Thunar sends.
    .reportsByNames = true,
    .pushesTooEarly = true,
};

}  // namespace pinorama
