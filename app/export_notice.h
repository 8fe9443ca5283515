// What the window says when a place was saved, and when it could not be.

#pragma once

#include "app/notice.h"

namespace pinorama {

class MainWindow;
class UrlOpener;

class ExportNotice : public Notice {
    Q_OBJECT

public:
    explicit ExportNotice(QWidget* parent = nullptr);

    // Says that `file`, a path, could not be written, and why: an errno. ETIMEDOUT is a disk that
    // does not answer.
    void sayFailure(const QString& file, int error);
};

// Says in the window what became of the export to `file`, an absolute path, until the next picture
// is shown. An `error` of 0 is success; a button shows the file then, for which `opener`, which
// outlives the window, may be needed.
void showExportResult(MainWindow& window, UrlOpener& opener, const QString& file, int error);

// Takes back that an export has failed, as another picture is shown.
void forgetExport(MainWindow& window);

}  // namespace pinorama
