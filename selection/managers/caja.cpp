// Caja, tried with 1.26 (GTK 3).
//
// View: the icons and the compact list have the Selection interface, the list has the Table
// interface, with the rows above a row in its relations.
//
// Folder: from the location entry or the path buttons. Results of a search do not say where they
// are; in the Trash a column has the path from which an item was deleted.
//
// Desktop: a window of the same process that says so in its attributes.

#include "selection/manager_window.h"
#include "selection/managers/kinds.h"

namespace pinorama {

constinit const FileManagerKind kCaja = {
    .process = "caja",
    .name = "Caja",
    .toolkit = Toolkit::gtk,
    .makeWindow = makeManagerWindow,
    .isDesktop =
        [](Role role, const QDBusMessage& attributes) {
            return isDesktopOfGtk3(role, attributes) ||
                   hasAttribute(attributes, QStringLiteral("is-desktop"), QStringLiteral("true"));
        },
};

}  // namespace pinorama
