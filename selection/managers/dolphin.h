// Dolphin, tried with 22.12 (Qt 5), 25.04 and 26.08 (Qt 6).
//
// View: 22.12 has the Table interface only, and the states of the items tell what is
// selected. Those of Qt 6 have the Selection interface too, and report no selected rows.
//
// Selection: an interface of its own on the session bus tells whether exactly one item is selected,
// which saves asking all of them. It says so a moment late.
//
// Folder: from the location bar. A list with expanded folders holds the items of several folders,
// and does not say which belong to which.

#pragma once

#include <QDBusMessage>
#include <QString>

#include <sys/types.h>

#include <optional>
#include <vector>

#include "selection/manager_window.h"

namespace pinorama {

class DolphinWindow : public ManagerWindow {
public:
    using ManagerWindow::ManagerWindow;

    // Finds the object on the session bus that represents this window. It stays unknown if several
    // match.
    Task<Done> prepare(DBusQuery& query, Accessible frame) override;

    Task<SelectedItems> selectedItems(DBusQuery& query, ItemReader& reader, View view,
                                      std::vector<Accessible> likely) override;

private:
    Task<SelectedItems> readStates(DBusQuery& query, ItemReader& reader, View view,
                                   std::vector<Accessible> likely);
    Task<NamedItem> certain(DBusQuery& query, ItemReader& reader, View view, NamedItem item);

    // The call, for the session bus, that asks whether exactly one item is selected. Nothing if the
    // window is unknown.
    std::optional<QDBusMessage> isOneSelectedCall() const;

    QString service_;
    QString path_;  // of its object; empty if unknown
};

}  // namespace pinorama
