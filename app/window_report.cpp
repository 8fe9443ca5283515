#include "app/window_report.h"

#include "app/main_window.h"
#include "app/reading_notice.h"
#include "lib/ui/view_texts.h"

#include <QFile>
#include <QPixmap>

namespace {
void appendLine(QString* report, const QObject* field, const QString& text)
{
    // Further lines of a text are moved in, so that every name begins a line.
    *report += field->objectName() + QLatin1String(": ") +
               QString(text).replace(QLatin1Char('\n'), QLatin1String("\n    ")) +
               QLatin1Char('\n');
}

QString stateOf(const QWidget* control)
{
    return control->isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled");
}
}  // namespace

std::string app::windowReport(const MainWindow& window)
{
    QString report;
    for (const QWidget* field : std::initializer_list<const QWidget*>{
             window.fileNameField, window.fileSizeField, window.fileModificationDateField,
             window.fileCreationDateField, window.gpsCoordinateField, window.gpsAltitudeField,
             window.gpsDirectionField, window.iptcCityField, window.iptcStateField,
             window.iptcCountryField, window.iptcDescriptionField}) {
        appendLine(&report, field, cuViewText(field, ViewText::value).value_or(QString()));
    }
    const bool hasPreview = !window.fileIconField->pixmap().isNull();
    const QString words = window.fileIconField->text();
    appendLine(&report, window.fileIconField,
               hasPreview        ? QStringLiteral("shown")
               : words.isEmpty() ? QStringLiteral("empty")
                                 : words);
    appendLine(
        &report, window.geoTagField,
        window.geoTagField->isVisible() ? QStringLiteral("shown") : QStringLiteral("hidden"));
    for (const QWidget* control :
         std::initializer_list<const QWidget*>{window.webServicesMenu, window.showInGEButton,
                                               window.searchInTovButton, window.exportKMLButton}) {
        appendLine(&report, control, stateOf(control));
    }
    appendLine(&report, window.syncCheckbox,
               window.syncCheckbox->isChecked() ? QStringLiteral("on") : QStringLiteral("off"));
    const auto* notice = window.findChild<ReadingNotice*>();
    if (notice != nullptr && !notice->isHidden()) appendLine(&report, notice, notice->text());
    return report.toStdString();
}

bool app::saveWindowPicture(MainWindow& window, const std::string& path)
{
    return window.grab().save(QFile::decodeName(path.c_str()));
}
