#include "app/export_notice.h"

#include "app/foot_line.h"
#include "app/main_window.h"
#include "app/shown_text.h"
#include "desktop/file_manager.h"

#include <QFile>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

namespace pinorama {
namespace {
void remove(ExportNotice* notice)
{
    notice->hide();
    notice->deleteLater();
}
}  // namespace

ExportNotice::ExportNotice(QWidget* parent) : Notice(QStringLiteral("exportNotice"), parent) {}

void ExportNotice::sayFailure(const QString& file, int error)
{
    const QString name = shownName(QFileInfo(file).fileName(), fontMetrics());
    QString reason;
    switch (error) {
    case ENOSPC:
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case EDQUOT: reason = tr("the disk is full."); break;
    case EACCES:
    case EPERM:
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case EROFS: reason = tr("writing there is not allowed."); break;
    case ENOENT:
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case ENOTDIR: reason = tr("there is no such folder."); break;
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case EISDIR: reason = tr("a folder has that name."); break;
    //: A reason; stands in the place of %2 in "%1 could not be written: %2"
    case ETIMEDOUT: reason = tr("the disk does not answer."); break;
    default: reason = isolated(QString::fromLocal8Bit(std::strerror(error))) + QLatin1Char('.');
    }
    // Both at once: the name may hold a "%2".
    //: A notice in the window: %1 is the name of a file, %2 a reason, with its full stop
    say(tr("%1 could not be written: %2").arg(name, reason));
}

void showExportResult(MainWindow& window, UrlOpener& opener, const QString& file, int error)
{
    auto* notice = window.findChild<ExportNotice*>();
    if (error == 0) {
        forgetExport(window);
        FootLine& line = footLine(window);
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
        return;
    }
    if (auto* line = window.findChild<FootLine*>()) line->takeBack(FootLine::Topic::action);
    if (notice == nullptr) {
        notice = new ExportNotice(&window);
        QObject::connect(notice, &Notice::dismissed, notice, [notice] { remove(notice); });
        window.windowLayout->addWidget(notice);
    }
    notice->sayFailure(file, error);
}

void forgetExport(MainWindow& window)
{
    if (auto* notice = window.findChild<ExportNotice*>()) remove(notice);
}

}  // namespace pinorama
