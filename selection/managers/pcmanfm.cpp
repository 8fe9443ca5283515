// PCManFM, tried with 1.3 (GTK 2, on the accessibility bus only with a module) and 1.4 (GTK 3).
//
// View: in 1.3 every view has the Selection interface, and the icons have no names. In 1.4 the
// icons and the compact list are a panel without any object in it, directly in a scroll pane; the
// detailed list has the Table interface.
//
// Selection: the status bar quotes the name of the selected file, and counts several.
//
// Folder: from the location entry or the path buttons.

#include "selection/manager_window.h"
#include "selection/managers/kinds.h"

namespace pinorama {
namespace {

class PCManFMWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    Opaqueness opaqueness(Role role, Role container) const override
    {
        const bool isBare = role == Role::panel && container == Role::scrollPane;
        return isBare ? Opaqueness::ifEmpty : Opaqueness::no;
    }
};
}  // namespace

constinit const FileManagerKind kPCManFM = {
    .process = "pcmanfm",
    .name = "PCManFM",
    .toolkit = Toolkit::gtk,
    .makeWindow = [](pid_t process) -> std::unique_ptr<ManagerWindow> {
        return std::make_unique<PCManFMWindow>(process);
    },
    .isDesktop = isDesktopOfGtk3,
};

}  // namespace pinorama
