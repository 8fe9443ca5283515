#include "app/export_dialog.h"

#include "app/shown_text.h"
#include "opener/events/item_look.h"

#include <QFile>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>

#include <utility>

namespace pinorama {
namespace {
const QString kSuffix = QStringLiteral("kml");
// The title and the button have the same texts in every language.
const QString kTitle = QStringLiteral("Export to KML Format (for Google Earth...)");
const QString kButton = QStringLiteral("Export");

// "trip 2009.jpg" -> "trip 2009.jpg.kml"; "trip.KML" stays.
QString withSuffix(const QString& name)
{
    const QString suffix = QLatin1Char('.') + kSuffix;
    return name.endsWith(suffix, Qt::CaseInsensitive) ? name : name + suffix;
}

// Asks whether to replace a file, and calls `replace` if the user says yes.
void ask(const QString& file, QWidget* parent, const std::function<void()>& replace)
{
    // In the toolkit's words, which it has in every language; a constant, because they are none of
    // the window's texts.
    constexpr const char* kQuestion = "%1 already exists.\nDo you want to replace it?";
    auto* question = new QMessageBox(
        QMessageBox::Warning, parent->windowTitle(),
        QFileDialog::tr(kQuestion).arg(isolated(shownText(QFileInfo(file).fileName()))),
        QMessageBox::Yes | QMessageBox::No, parent);
    question->setAttribute(Qt::WA_DeleteOnClose);
    question->setDefaultButton(QMessageBox::No);
    question->setTextFormat(Qt::PlainText);
    QObject::connect(question, &QMessageBox::finished, question, [replace](int choice) {
        if (choice == QMessageBox::Yes) replace();
    });
    question->open();
}
}  // namespace

PortalQuestion exportQuestion(const QString& fileName)
{
    // The name of the filter without the patterns.
    //: Kind of files in a file dialog; "(*.kml)" stays
    const QString filter = ExportDialog::tr("KML files (*.kml)");
    return {.title = kTitle,
            .isForSaving = true,
            .acceptLabel = kButton,
            .name = fileName,
            .filterName = filter.left(filter.lastIndexOf(QLatin1Char('('))).trimmed(),
            .filterPattern = QStringLiteral("*.kml")};
}

void saveAsChosen(const std::string& path, QWidget* window, const ExportEnds& ends)
{
    const QString name = QFile::decodeName(path.c_str());
    const QString wholeName = withSuffix(name);
    if (wholeName == name) return ends.save(path);
    const std::string whole = path + wholeName.mid(name.size()).toStdString();
    cuLookAtItems({whole}, window, [=](const std::vector<ItemFacts>& items, int error) {
        if (error != 0) return ends.fail(whole, error);
        if (!items.front().isThere) return ends.save(whole);
        ask(wholeName, window, [=] { ends.save(whole); });
    });
}

ExportDialog::ExportDialog(const QString& fileName, ExportEnds ends, QWidget* parent)
    : QFileDialog(parent, kTitle), ends_(std::move(ends))
{
    setAttribute(Qt::WA_DeleteOnClose);
    setAcceptMode(QFileDialog::AcceptSave);
    setLabelText(QFileDialog::Accept, kButton);
    //: Kind of files in a file dialog; "(*.kml)" stays
    setNameFilter(tr("KML files (*.kml)"));
    setDefaultSuffix(kSuffix);
    selectFile(fileName);
    // A dialog of the desktop's own reports its end like this, and only this; it has asked about
    // the name that it gives.
    connect(this, &QFileDialog::fileSelected, this, [this](const QString& file) {
        // This dialog closes now.
        saveAsChosen(QFile::encodeName(file).toStdString(), parentWidget(), ends_);
    });
}

// The toolkit's dialog adds its suffix only to names without any, and asks about the name that it
// has then. So both are done here, and what is no file is left to the toolkit.
void ExportDialog::accept()
{
    const auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QStringList files = field != nullptr ? selectedFiles() : QStringList();
    if (files.size() != 1) return QFileDialog::accept();
    if (std::exchange(isLooking_, true)) return;
    const QString chosen = files.constFirst();
    const QString typed = directory().filePath(field->text());
    std::vector<std::string> paths;
    for (const QString& path : {chosen, typed, withSuffix(chosen)}) {
        paths.push_back(QFile::encodeName(path).toStdString());
    }
    cuLookAtItems(paths, this, [=, this](const std::vector<ItemFacts>& items, int error) {
        isLooking_ = false;
        if (isHidden()) return;  // the user does not want it any more
        if (error == 0) return acceptKnown(chosen, typed, items);
        ends_.fail(paths.back(), error);
        done(QDialog::Rejected);
    });
}

// What `items` says of the file that was chosen, of what was typed and of the file with its suffix.
void ExportDialog::acceptKnown(const QString& chosen, const QString& typed,
                               const std::vector<ItemFacts>& items)
{
    if (items[0].isFolder) return QFileDialog::accept();
    if (items[1].isFolder) return setDirectory(typed);
    const QString whole = withSuffix(chosen);
    const auto finish = [this, whole] {
        ends_.save(QFile::encodeName(whole).toStdString());
        done(QDialog::Accepted);
    };
    items[2].isThere ? ask(whole, this, finish) : finish();
}

}  // namespace pinorama
