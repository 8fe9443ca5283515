// The ways in which paths come into the window: the selection in the file manager, files that are
// dropped or chosen in a dialog, and texts that other programs send. All of them end in one signal,
// with the path in the bytes of the system.

#pragma once

#include "lib/objects/collections.h"
#include "selection/selection_source.h"

#include <QObject>

#include <string>

class QMimeData;

namespace pinorama {

class MainWindow;

class PathIntake : public QObject {
    Q_OBJECT

public:
    // Connects the window, which has its views and lives longer; so does the selection, which may
    // be null for nothing ever.
    PathIntake(MainWindow& window, SelectionSource* selection);

    // Passes the file on that is selected in the file manager, when it is exactly one and the check
    // box is on.
    void passSelection();

    // Returns a new array of the selected paths as texts; null when there is none.
    [[nodiscard]] TovArrayRef copySelection();

    // Passes the path on that the plain text of a pasteboard is, as it stands: no file list and no
    // URL. An empty text and a null pasteboard are passed over.
    void passText(const QMimeData* pasteboard);

    // Asks the user for a picture.
    //
    //   folder  where the dialog begins: that of this path in the bytes of the system, at first (an
    //           empty path) the one for the user's pictures.
    void askForPicture(const std::string& beside);

Q_SIGNALS:
    // A path that was followed or sent, which leaves the window where it is, and one that the user
    // opened, which brings it forward.
    void pathFound(const std::string& path);
    void pathOpened(const std::string& path);

private:
    MainWindow& window_;
    SelectionSource* selection_;
};

}  // namespace pinorama
