// What the window says when a place was saved, and when it could not be.

#pragma once

#include <QFontMetrics>
#include <QString>

namespace pinorama {

class MainWindow;
class UrlOpener;

// Says at the foot of the window what became of the export to `file`, an absolute path, until the
// next picture is shown. An `error` of 0 is success; a button shows the file then, for which
// `opener`, which outlives the window, may be needed. Any other is an errno, as for
// wordsOfExportFailure.
void showExportResult(MainWindow& window, UrlOpener& opener, const QString& file, int error);

// Says that `file`, a path, could not be written, and why: an errno. ETIMEDOUT is a disk that does
// not answer.
//
//   letters  those that the words are shown in.
QString wordsOfExportFailure(const QString& file, int error, const QFontMetrics& letters);

}  // namespace pinorama
