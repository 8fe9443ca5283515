#include "app/export_notice.h"

#include "app/foot_line.h"
#include "app/main_window.h"
#include "app/shown_text.h"
#include "desktop/file_manager.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

namespace pinorama {
namespace {
struct ExportNotice {
    Q_DECLARE_TR_FUNCTIONS(pinorama::ExportNotice)
};

QString reasonOf(int error)
{
    switch (error) {
    case ENOSPC:
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case EDQUOT: return ExportNotice::tr("the disk is full.");
    case EACCES:
    case EPERM:
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case EROFS: return ExportNotice::tr("writing there is not allowed.");
    case ENOENT:
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case ENOTDIR: return ExportNotice::tr("there is no such folder.");
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case EISDIR: return ExportNotice::tr("a folder has that name.");
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case ETIMEDOUT: return ExportNotice::tr("the disk does not answer.");
    default: return isolated(QString::fromLocal8Bit(std::strerror(error))) + QLatin1Char('.');
    }
}
}  // namespace

void showExportResult(MainWindow& window, UrlOpener& opener, const QString& file, int error)
{
    FootLine& line = footLine(window);
    if (error != 0) {
        line.say(FootLine::Topic::action, wordsOfExportFailure(file, error, line.fontMetrics()));
        return;
    }
    const QString name = shownName(QFileInfo(file).fileName(), line.fontMetrics());
    const QString folder = shownFolder(QFileInfo(file).path(), line.fontMetrics());
    const auto showFile = [&line, &opener, path = QFile::encodeName(file).toStdString()] {
        showInFileManager(path, opener, &line);
    };
    line.say(FootLine::Topic::action,
             // Both at once: the name may hold a "%2".
             //: The foot of the window. %1 is the name of a file that was written, %2 the
             //: folder that it is in
             ExportNotice::tr("%1 was saved in %2.").arg(name, folder),
             //: A button: shows the file in the file manager
             {ExportNotice::tr("Show in Fo&lder"), showFile});
}

QString wordsOfExportFailure(const QString& file, int error, const QFontMetrics& letters)
{
    const QString name = shownName(QFileInfo(file).fileName(), letters);
    // Both at once: the name may hold a "%2".
    //: A notice in the window: %1 is the name of a file, %2 a reason, with its full stop
    return ExportNotice::tr("%1 could not be written: %2").arg(name, reasonOf(error));
}

}  // namespace pinorama
