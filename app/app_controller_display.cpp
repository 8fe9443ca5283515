// What the window shows of a file.

#include "app/app_controller.h"
#include "app/elided_field.h"
#include "app/main_window.h"
#include "app/picture_field.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_string.h"
#include "lib/ui/cocoa_utils.h"
#include "lib/ui/qt_text.h"
#include "location/coordinate_text.h"
#include "location/file_facts.h"
#include "location/file_name.h"
#include "location/metadata_reader.h"

#include <QAction>

namespace pinorama {
namespace {
constexpr QSizeF kPreviewSize(128, 128);  // points

// Shows a text that is the caller's to release, and releases it.
void showOwned(QWidget* field, TovStringRef text)
{
    cocoaUtils::setStringValue(field, StringHolder(text).get());
}

}  // namespace

bool AppController::updateValuesForNewPath(TovStringRef path)
{
    if (path == nullptr || equalUnits(path, lastPath)) return false;
    TovStringRelease(&lastPath);
    lastPath = TovStringGetCopy(path);
    forgetReading();

    showOwned(fileNameField, gpsCopyFileName(path));
    fileNameField->setToolTip(cuDisplayText(path));
    requestPreview();
    showAttributes(path);
    if (!acceptPath(path)) {
        clearLocation();
        clearPlaceTexts();
        setLocationActions(false);
        return false;
    }

    gpsPrepareInfoRecord(&info);
    showLocationFound(gpsGetCoordinatesFromFilePath(path, &info));
    awaitLocation();
    return true;
}

// Shows what reading the place has come to, `status`, which has filled the record.
void AppController::showLocationFound(std::int32_t status)
{
    if (status == 0) showLocation();
    if (info.latti == 0.0 && info.longi == 0.0) {
        // The place texts stay as they are: they may be those of the picture before.
        clearLocation();
        setLocationActions(false);
    } else {
        // Also with one coordinate of zero, when nothing new was shown.
        setLocationActions(true);
    }
}

void AppController::showAttributes(TovStringRef path)
{
    const fileFacts facts = gpsReadFileFacts(path);
    showOwned(fileSizeField, gpsMakeFileSizeText(facts));
    showOwned(fileModificationDateField, gpsMakeModifiedText(facts));
    showOwned(fileCreationDateField, gpsMakeCreatedText(facts));
}

void AppController::requestPreview()
{
    // It comes through the event loop: the texts are there at once, and while the selection moves
    // on quickly only the last picture is drawn.
    fileIconField->clear();
    fileIconField->setFile(QByteArray::fromStdString(pathBytes(lastPath)));
    previews_.request(lastPath, kPreviewSize, myWindow->devicePixelRatioF());
}

void AppController::showPreview(const QByteArray& path, const QPixmap& preview)
{
    if (path.toStdString() != pathBytes(lastPath)) return;
    fileIconField->setPixmap(preview);
    endReading();
}

void AppController::showReaderMissing(const QByteArray& path)
{
    if (path.toStdString() != pathBytes(lastPath)) return;
    fileIconField->setText(
        tr("Pictures cannot be read: the program pinorama-reader does not start."));
    endReading();
}

void AppController::showLocation()
{
    showOwned(gpsCoordinateField, gpsMakePositionText(info));
    showOwned(gpsDirectionField, gpsMakeDirectionText(info));
    showOwned(gpsAltitudeField, gpsMakeAltitudeText(info));
    cocoaUtils::setStringValue(iptcCityField, info.city);
    cocoaUtils::setStringValue(iptcCountryField, info.country);
    cocoaUtils::setStringValue(iptcStateField, info.state);
    cocoaUtils::setStringValue(iptcDescriptionField, info.description);
    gpsReleaseInfoRecord(&info);
}

void AppController::clearLocation()
{
    for (QWidget* field : {gpsCoordinateField, gpsDirectionField, gpsAltitudeField})
        cocoaUtils::setStringValue(field, nullptr);
}

void AppController::clearPlaceTexts()
{
    for (QWidget* field : {iptcCityField, iptcCountryField, iptcStateField, iptcDescriptionField})
        cocoaUtils::setStringValue(field, nullptr);
}

void AppController::setLocationActions(bool enabled)
{
    for (QWidget* control :
         {static_cast<QWidget*>(showInGEButton), static_cast<QWidget*>(searchInTovButton),
          static_cast<QWidget*>(exportKMLButton), static_cast<QWidget*>(webServicesMenu)}) {
        control->setEnabled(enabled);
    }
    for (QAction* action : {myWindow->showInGEAction, myWindow->searchInTovAction,
                            myWindow->exportKMLAction, myWindow->webServicesAction}) {
        action->setEnabled(enabled);
    }
    geoTagField->setVisible(enabled);
}

}  // namespace pinorama
