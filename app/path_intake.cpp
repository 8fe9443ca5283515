#include "app/path_intake.h"

#include "app/main_window.h"
#include "base/item_path.h"
#include "lib/files/path_text.h"
#include "lib/objects/object_holder.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"

#include <QCheckBox>
#include <QFile>
#include <QFileDialog>
#include <QMimeData>
#include <QStandardPaths>

#include <utility>

namespace pinorama {

PathIntake::PathIntake(MainWindow& window, SelectionSource* selection)
    : window_(window), selection_(selection)
{
    connect(&portal_, &PortalChooser::chosen, this, &PathIntake::open);
    connect(&portal_, &PortalChooser::unavailable, this, &PathIntake::askWithTheToolkit);
    connect(&window_, &MainWindow::fileDropped, this, &PathIntake::open);
    connect(window_.syncCheckbox, &QCheckBox::toggled, this, [this] {
        keepsOpened_ = false;
        if (!follows()) {
            listen(false);
            Q_EMIT severalSelected(false);
        }
    });
}

PathIntake::~PathIntake()
{
    listen(false);
}

bool PathIntake::follows() const
{
    return window_.syncCheckbox->checkState() == Qt::Checked;
}

void PathIntake::listen(bool listens)
{
    if (selection_ == nullptr || std::exchange(listens_, listens) == listens) return;
    selection_->setListener(!listens ? SelectionSource::Listener()
                                     : [this](const std::vector<std::string>& selected) {
                                           // Nobody toggles a box that becomes mixed.
                                           if (follows()) passOne(unlessKept(selected));
                                       });
}

void PathIntake::keepOpened()
{
    keepsOpened_ = true;
    // A selection that was seen before the box was unchecked says nothing about the one of now.
    if (!follows()) seen_.reset();
}

void PathIntake::open(const std::string& path)
{
    keepOpened();
    Q_EMIT pathOpened(path);
}

// The selection; empty as long as it is the one beside which a file was opened.
std::vector<std::string> PathIntake::selectedPaths()
{
    if (selection_ == nullptr) return {};
    const std::vector<std::string> selected = selection_->selectedPaths();
    return selection_->isKnown() ? unlessKept(selected) : std::vector<std::string>();
}

std::vector<std::string> PathIntake::unlessKept(const std::vector<std::string>& selected)
{
    if (keepsOpened_) keepsOpened_ = !seen_ || *seen_ == selected;
    seen_ = selected;
    return keepsOpened_ ? std::vector<std::string>() : selected;
}

void PathIntake::passSelection()
{
    listen(follows());
    if (follows()) passOne(selectedPaths());
}

void PathIntake::passOne(const std::vector<std::string>& paths)
{
    Q_EMIT severalSelected(paths.size() > 1);
    if (paths.size() == 1) Q_EMIT pathFound(paths.front());
}

TovArrayRef PathIntake::copySelection()
{
    const std::vector<std::string> selected = selectedPaths();
    if (selected.empty()) return nullptr;
    ObjectHolder<TovArrayRef> paths(TovArrayCreate());
    for (const std::string& path : selected) {
        const StringHolder text(createPathText(path));
        TovArrayAppend(paths.get(), text.get());
    }
    return paths.take();
}

void PathIntake::passReported(const std::string& path)
{
    if (!follows()) return;
    keepOpened();
    Q_EMIT pathFound(path);
}

void PathIntake::passText(const QMimeData* pasteboard)
{
    // QMimeData::hasText would make a text of a list of files too.
    if (pasteboard == nullptr || !pasteboard->hasFormat(QStringLiteral("text/plain"))) return;
    const QString text = pasteboard->text();
    if (text.isEmpty()) return;
    const StringHolder path(cuCreateText(text));
    keepOpened();
    Q_EMIT pathFound(pathBytes(path.get()));
}

void PathIntake::askForPicture(const std::string& beside)
{
    folder_ =
        beside.empty()
            ? QFile::encodeName(QStandardPaths::writableLocation(QStandardPaths::PicturesLocation))
                  .toStdString()
            : folderOf(beside);
    portal_.ask(
        //: Title of the file dialog
        {.title = tr("Open Picture"), .parent = portalParent(window_.winId()), .folder = folder_});
}

void PathIntake::askWithTheToolkit()
{
    auto* dialog =
        //: Title of the file dialog
        new QFileDialog(&window_, tr("Open Picture"), QFile::decodeName(folder_.c_str()));
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this,
            [this](const QString& file) { open(QFile::encodeName(file).toStdString()); });
    dialog->open();
}

}  // namespace pinorama
