#include "app/path_intake.h"

#include "app/main_window.h"
#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMimeData>
#include <QStandardPaths>

namespace pinorama {

PathIntake::PathIntake(MainWindow& window, SelectionSource* selection)
    : window_(window), selection_(selection)
{
    connect(&window_, &MainWindow::fileDropped, this, &PathIntake::pathOpened);
}

void PathIntake::passSelection()
{
    if (selection_ == nullptr || window_.syncCheckbox->checkState() != Qt::Checked) return;
    const std::vector<std::string> selected = selection_->selectedPaths();
    if (selected.size() == 1) Q_EMIT pathFound(selected.front());
}

TovArrayRef PathIntake::copySelection()
{
    if (selection_ == nullptr) return nullptr;
    const std::vector<std::string> selected = selection_->selectedPaths();
    if (selected.empty()) return nullptr;
    ObjectHolder<TovArrayRef> paths(TovArrayCreate());
    for (const std::string& path : selected) {
        const StringHolder text(createPathText(path));
        TovArrayAppend(paths.get(), text.get());
    }
    return paths.take();
}

void PathIntake::passText(const QMimeData* pasteboard)
{
    // QMimeData::hasText would make a text of a list of files too.
    if (pasteboard == nullptr || !pasteboard->hasFormat(QStringLiteral("text/plain"))) return;
    const QString text = pasteboard->text();
    if (text.isEmpty()) return;
    const StringHolder path(cuCreateText(text));
    Q_EMIT pathFound(pathBytes(path.get()));
}

void PathIntake::askForPicture(const std::string& beside)
{
    const QString folder = beside.empty()
                               ? QStandardPaths::writableLocation(QStandardPaths::PicturesLocation)
                               : QFileInfo(QFile::decodeName(beside.c_str())).path();
    auto* dialog = new QFileDialog(&window_, tr("Open Picture"), folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        Q_EMIT pathOpened(QFile::encodeName(file).toStdString());
    });
    dialog->open();
}

}  // namespace pinorama
