#include "app/export_notice.h"

#include "app/main_window.h"
#include "app/shown_text.h"

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
    case EDQUOT: reason = tr("the disk is full."); break;
    case EACCES:
    case EPERM:
    case EROFS: reason = tr("writing there is not allowed."); break;
    case ENOENT:
    case ENOTDIR: reason = tr("there is no such folder."); break;
    case EISDIR: reason = tr("a folder has that name."); break;
    default: reason = QString::fromLocal8Bit(std::strerror(error)) + QLatin1Char('.');
    }
    // Both at once: the name may hold a "%2".
    say(tr("%1 could not be written: %2").arg(name, reason));
}

void showExportResult(MainWindow& window, const QString& file, int error)
{
    auto* notice = window.findChild<ExportNotice*>();
    if (error == 0) {
        if (notice != nullptr) remove(notice);
        return;
    }
    if (notice == nullptr) {
        notice = new ExportNotice(&window);
        QObject::connect(notice, &Notice::dismissed, notice, [notice] { remove(notice); });
        window.windowLayout->addWidget(notice);
    }
    notice->sayFailure(file, error);
}

}  // namespace pinorama
