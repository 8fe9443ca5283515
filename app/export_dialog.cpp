#include "app/export_dialog.h"

#include "app/shown_text.h"
#include "base/item_path.h"

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
    auto* question =
        new QMessageBox(QMessageBox::Warning, parent->windowTitle(),
                        QFileDialog::tr(kQuestion).arg(shownText(QFileInfo(file).fileName())),
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

void saveAsChosen(const std::string& path, QWidget* window,
                  const std::function<void(const std::string& path)>& save)
{
    const QString name = QFile::decodeName(path.c_str());
    const QString wholeName = withSuffix(name);
    const std::string whole =
        wholeName == name ? path : path + wholeName.mid(name.size()).toStdString();
    if (whole == path || !itemExists(whole)) {
        save(whole);
    } else {
        ask(wholeName, window, [save, whole] { save(whole); });
    }
}

ExportDialog::ExportDialog(const QString& fileName, std::function<void(const QString& file)> save,
                           QWidget* parent)
    : QFileDialog(parent, kTitle), save_(std::move(save))
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
        saveAsChosen(
            QFile::encodeName(file).toStdString(), parentWidget(),
            [save = save_](const std::string& path) { save(QFile::decodeName(path.c_str())); });
    });
}

// The toolkit's dialog adds its suffix only to names without any, and asks about the name that it
// has then. So both are done here, and what is no file is left to the toolkit.
void ExportDialog::accept()
{
    const auto* field = findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
    const QStringList files = field != nullptr ? selectedFiles() : QStringList();
    if (files.size() != 1 || QFileInfo(files.constFirst()).isDir()) {
        QFileDialog::accept();
        return;
    }
    const QString typed = directory().filePath(field->text());
    if (QFileInfo(typed).isDir()) {
        setDirectory(typed);
        return;
    }
    const QString whole = withSuffix(files.constFirst());
    const auto finish = [this, whole] {
        save_(whole);
        done(QDialog::Accepted);
    };
    if (QFileInfo::exists(whole)) {
        ask(whole, this, finish);
    } else {
        finish();
    }
}

}  // namespace pinorama
