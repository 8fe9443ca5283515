#include "app/window_report.h"

#include "app/main_window.h"
#include "app/reading_notice.h"
#include "base/printable.h"
#include "lib/ui/view_texts.h"

#include <QFile>
#include <QPixmap>
#include <QStringList>

namespace pinorama {
namespace {
struct NamedField {
    const char* name;
    const QWidget* field;
};

void appendLine(std::string* report, const char* name, const QString& text)
{
    *report += name;
    *report += ": ";
    // Further lines of a text are indented, so that only a name begins a line.
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (qsizetype i = 0; i < lines.size(); i++) {
        if (i > 0) *report += "\n    ";
        appendPrintable(lines[i].toStdString(), report);
    }
    *report += '\n';
}

QString stateOf(const QWidget* control)
{
    return control->isEnabled() ? QStringLiteral("enabled") : QStringLiteral("disabled");
}
}  // namespace

std::string windowReport(const MainWindow& window)
{
    std::string report;
    for (const auto& [name, field] :
         std::initializer_list<NamedField>{{"Name", window.fileNameField},
                                           {"Place", window.placeField},
                                           {"Taken", window.takenField},
                                           {"Size", window.fileSizeField},
                                           {"Modified", window.fileModificationDateField},
                                           {"Created", window.fileCreationDateField},
                                           {"Coordinate", window.gpsCoordinateField},
                                           {"Altitude", window.gpsAltitudeField},
                                           {"Direction", window.gpsDirectionField},
                                           {"Compass", window.compassField},
                                           {"City", window.iptcCityField},
                                           {"State", window.iptcStateField},
                                           {"Country", window.iptcCountryField},
                                           {"Caption", window.iptcDescriptionField}}) {
        appendLine(&report, name, cuViewText(field, ViewText::value).value_or(QString()));
    }
    const bool hasPreview = !window.fileIconField->pixmap().isNull();
    const QString words = window.fileIconField->text();
    appendLine(&report, "Preview",
               hasPreview        ? QStringLiteral("shown")
               : words.isEmpty() ? QStringLiteral("empty")
                                 : words);
    appendLine(
        &report, "Marker",
        window.geoTagField->isVisible() ? QStringLiteral("shown") : QStringLiteral("hidden"));
    for (const auto& [name, control] :
         std::initializer_list<NamedField>{{"Map Services", window.webServicesMenu},
                                           {"Show in Globe", window.showInGEButton},
                                           {"Find in Skallion", window.searchInTovButton},
                                           {"Export as KML", window.exportKMLButton}}) {
        appendLine(&report, name, stateOf(control));
    }
    appendLine(&report, "Follow the selection",
               window.syncCheckbox->isChecked() ? QStringLiteral("on") : QStringLiteral("off"));
    const auto* notice = window.findChild<ReadingNotice*>();
    if (notice != nullptr && !notice->isHidden()) appendLine(&report, "Notice", notice->text());
    return report;
}

bool saveWindowPicture(MainWindow& window, const std::string& path)
{
    return window.grab().save(QFile::decodeName(path.c_str()));
}

}  // namespace pinorama
