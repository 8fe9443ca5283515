// The dialogs that ask where to save a place: that of the desktop's portal, else one of the
// toolkit. The file that comes out of them ends in ".kml", and the user has agreed to replace
// whatever has that name.

#pragma once

#include "desktop/portal_chooser.h"

#include <QFileDialog>
#include <QString>

#include <functional>
#include <string>

namespace pinorama {

// What the portal is to ask, with `fileName` as its proposal; the texts are those of the dialog.
PortalQuestion exportQuestion(const QString& fileName);

// Saves under a name that a dialog of another process has given, which has asked about replacing
// what has that very name.
//
//   path    in the bytes of the system; gets the suffix if that is missing, and then the user is
//           asked again if there is such a file.
//   window  of a question; it outlives that.
void saveAsChosen(const std::string& path, QWidget* window,
                  const std::function<void(const std::string& path)>& save);

class ExportDialog : public QFileDialog {
    Q_OBJECT

public:
    // Proposes `fileName` in a folder of its own choice. It deletes itself when it closes.
    //
    //   save  receives the path that the user has chosen, once at most. The dialog may be gone by
    //         then; its parent is not.
    ExportDialog(const QString& fileName, std::function<void(const QString& file)> save,
                 QWidget* parent);

protected:
    void accept() override;

private:
    std::function<void(const QString& file)> save_;
};

}  // namespace pinorama
