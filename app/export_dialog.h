// The dialogs that ask where to save a place: that of the desktop's portal, else one of the
// toolkit. The file that comes out of them ends in ".kml", and the user has agreed to replace
// whatever has that name.

#pragma once

#include "desktop/portal_chooser.h"
#include "opener/item_facts.h"

#include <QFileDialog>
#include <QString>

#include <functional>
#include <string>
#include <vector>

namespace pinorama {

// What comes out of a dialog, once at most. The dialog may be gone by then; its parent is not.
struct ExportEnds {
    // Saves under this path, in the bytes of the system.
    std::function<void(const std::string& path)> save;
    // Nobody knows what has that path, and so nothing is saved: an errno.
    std::function<void(const std::string& path, int error)> fail;
};

// What the portal is to ask, with `fileName` as its proposal; the texts are those of the dialog.
PortalQuestion exportQuestion(const QString& fileName);

// Saves under a name that a dialog of another process has given, which has asked about replacing
// what has that very name.
//
//   path    in the bytes of the system; gets the suffix if that is missing, and then the user is
//           asked again if there is such a file.
//   window  of a question; it outlives that. Nothing comes of it when the window is gone.
void saveAsChosen(const std::string& path, QWidget* window, const ExportEnds& ends);

class ExportDialog : public QFileDialog {
    Q_OBJECT

public:
    // Proposes `fileName` in a folder of its own choice. It deletes itself when it closes.
    ExportDialog(const QString& fileName, ExportEnds ends, QWidget* parent);

protected:
    void accept() override;

private:
    void acceptKnown(const QString& chosen, const QString& typed,
                     const std::vector<ItemFacts>& items);

    ExportEnds ends_;
    bool isLooking_ = false;  // whether an answer about what was typed is to come
};

}  // namespace pinorama
