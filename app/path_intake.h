// The ways in which paths come into the window: the selection in the file manager, files that are
// dropped or chosen in a dialog, and texts that other programs send. All of them end in one signal,
// with the path in the bytes of the system.

#pragma once

#include "desktop/portal_chooser.h"
#include "lib/objects/collections.h"
#include "selection/selection_source.h"

#include <QObject>

#include <optional>
#include <string>
#include <vector>

class QMimeData;

namespace pinorama {

class MainWindow;

class PathIntake : public QObject {
    Q_OBJECT

public:
    // Connects the window, which has its views and lives longer; so does the selection, which may
    // be null for nothing ever.
    PathIntake(MainWindow& window, SelectionSource* selection);
    ~PathIntake() override;

    // Passes the file on that is selected in the file manager, when it is exactly one and the check
    // box is on. From then on, and as long as the box is on, a change that a file manager reports
    // is passed on at once.
    void passSelection();

    // Returns a new array of the selected paths as texts; null when there is none.
    [[nodiscard]] TovArrayRef copySelection();

    // A file was opened on purpose. Until the selection changes, both of the above find nothing, so
    // that the file stays in the window. Several and none are changes; a selection that is not
    // known is none, nor is the first one that becomes known. Checking the box ends it too.
    void keepOpened();

    // Passes a path on as opened by the user, and keeps it.
    void open(const std::string& path);

    // Passes a path on that another program reports as selected in it, unless the check box is off.
    // It is kept like a file that was opened, and leaves the window where it is.
    void passReported(const std::string& path);

    // Passes the path on that the plain text of a pasteboard is, as it stands: no file list and no
    // URL. It is kept like a file that was opened. An empty text and a null pasteboard are passed
    // over.
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

    // Whether several files are selected now, of which none is passed on. Comes with every look at
    // the selection.
    void severalSelected(bool areSeveral);

private:
    bool follows() const;
    void listen(bool listens);
    std::vector<std::string> selectedPaths();
    std::vector<std::string> unlessKept(const std::vector<std::string>& selected);
    void passOne(const std::vector<std::string>& paths);
    void askWithTheToolkit();

    MainWindow& window_;
    SelectionSource* selection_;
    PortalChooser portal_;
    std::string folder_;  // in which the portal begins
    bool listens_ = false;
    bool keepsOpened_ = false;
    std::optional<std::vector<std::string>> seen_;  // the last selection that was known
};

}  // namespace pinorama
