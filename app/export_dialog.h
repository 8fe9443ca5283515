// The dialog that asks where to save a place. The file that comes out of it ends in ".kml", and the
// user has agreed to replace whatever has that name.

#pragma once

#include <QFileDialog>
#include <QString>

#include <functional>

namespace pinorama {

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
