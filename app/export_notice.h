// What the window says when a place could not be saved.

#pragma once

#include "app/notice.h"

namespace pinorama {

class MainWindow;

class ExportNotice : public Notice {
    Q_OBJECT

public:
    explicit ExportNotice(QWidget* parent = nullptr);

    // Says that `file`, a path, could not be written, and why: an errno.
    void sayFailure(const QString& file, int error);
};

// Tells in the window what became of the export to `file`. An `error` of 0 is success, which shows
// by itself: what was said of an earlier export goes away.
void showExportResult(MainWindow& window, const QString& file, int error);

}  // namespace pinorama
