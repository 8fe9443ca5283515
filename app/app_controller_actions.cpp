// What the window's controls and menus do, and how they are connected.

#include "app/about_box.h"
#include "app/app_controller.h"
#include "app/export_dialog.h"
#include "app/export_notice.h"
#include "app/main_window.h"
#include "app/pop_up_menu.h"
#include "app/wrapped_field.h"
#include "base/file_uri.h"
#include "base/resource_folder.h"
#include "globe/fly_to.h"
#include "globe/google_earth_connector.h"
#include "globe/kml_file.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"
#include "location/coordinate_text.h"
#include "location/file_name.h"

#include <QApplication>
#include <QClipboard>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include <cerrno>
#include <filesystem>
#include <memory>

namespace pinorama {

void AppController::connectOutlets()
{
    myWindow = window_.get();
    fileIconField = myWindow->fileIconField;
    geoTagField = myWindow->geoTagField;
    fileNameField = myWindow->fileNameField;
    fileCreationDateField = myWindow->fileCreationDateField;
    fileModificationDateField = myWindow->fileModificationDateField;
    fileSizeField = myWindow->fileSizeField;
    gpsCoordinateField = myWindow->gpsCoordinateField;
    gpsAltitudeField = myWindow->gpsAltitudeField;
    gpsDirectionField = myWindow->gpsDirectionField;
    iptcCityField = myWindow->iptcCityField;
    iptcStateField = myWindow->iptcStateField;
    iptcCountryField = myWindow->iptcCountryField;
    iptcDescriptionField = myWindow->iptcDescriptionField;
    webServicesMenu = myWindow->webServicesMenu;
    syncCheckbox = myWindow->syncCheckbox;
    showInGEButton = myWindow->showInGEButton;
    searchInTovButton = myWindow->searchInTovButton;
    exportKMLButton = myWindow->exportKMLButton;
}

void AppController::connectActions()
{
    const MainWindow* window = myWindow;
    connect(showInGEButton, &QPushButton::clicked, this, &AppController::revealInGoogleEarth);
    connect(window->showInGEAction, &QAction::triggered, this, &AppController::revealInGoogleEarth);
    connect(searchInTovButton, &QPushButton::clicked, this, &AppController::searchInSkallion);
    connect(window->searchInTovAction, &QAction::triggered, this, &AppController::searchInSkallion);
    connect(exportKMLButton, &QPushButton::clicked, this, &AppController::exportToKML);
    connect(window->exportKMLAction, &QAction::triggered, this, &AppController::exportToKML);
    connect(webServicesMenu, &PopUpMenu::chosen, this, &AppController::webMenuHit);
    connect(window->webServicesAction, &QAction::triggered, webServicesMenu, &PopUpMenu::showPopup);

    connect(window->copyCoordinateAction, &QAction::triggered, this,
            &AppController::copyCoordinate);
    connect(window->copyDecimalAction, &QAction::triggered, this,
            &AppController::copyDecimalDegrees);
    for (QAction* action : {window->copyCoordinateAction, window->copyDecimalAction}) {
        gpsCoordinateField->addAction(action);
        connect(gpsCoordinateField, &WrappedField::textChanged, action,
                [this, action] { action->setEnabled(!gpsCoordinateField->text().isEmpty()); });
    }

    connect(window->openAction, &QAction::triggered, this, &AppController::openPicture);
    connect(window->closeAction, &QAction::triggered, window_.get(), &QWidget::close);
    connect(window->quitAction, &QAction::triggered, qApp, &QCoreApplication::quit);
    connect(window->manualAction, &QAction::triggered, this, &AppController::showManual);
    connect(window->homePageAction, &QAction::triggered, this, &AppController::poweredBySkallion);
    connect(window->donateAction, &QAction::triggered, this, &AppController::donate);
    connect(window->aboutAction, &QAction::triggered, this, &AppController::showAboutBox);
    connect(&globes_, &GlobePrograms::busyChanged, this, [this](bool isBusy) {
        if (isBusy) {
            myWindow->setCursor(Qt::BusyCursor);
        } else {
            myWindow->unsetCursor();
        }
    });
    gpsSetGlobeLink([this](const GlobeView& view) { globes_.show(view); });

    connect(window, &MainWindow::fileDropped, this, [this](const QByteArray& path) {
        const StringHolder text(createPathText(path.toStdString()));
        applicationOpenFile(text.get());
    });
}

void AppController::setupWebMenu()
{
    for (std::int32_t number = 1;; ++number) {
        const StringHolder title(appCopyServiceTitle(number));
        if (!title) return;
        webServicesMenu->addItem(cuTextUnits(title.get()));
    }
}

void AppController::webMenuHit(std::int32_t itemIndex)
{
    if (itemIndex < 0 || itemIndex >= webServicesMenu->count()) return;
    const StringHolder title(cuCreateText(webServicesMenu->itemText(itemIndex)));
    const StringHolder urlTemplate(appCopyServiceTemplate(title.get()));
    const StringHolder address(appMakeWebServiceURL(urlTemplate.get(), &info, lastPath));
    openAddress(address.get());
}

void AppController::searchInSkallion()
{
    const StringHolder address(appMakeCatalogueURL(&info));
    openAddress(address.get());
}

void AppController::exportToKML()
{
    const StringHolder name(gpsCopyFileName(lastPath));
    const StringHolder proposed(appMakeKMLFileName(name.get()));
    // The dialog leaves the event loop running, so the selection may move on behind it.
    auto* dialog = new ExportDialog(
        cuDisplayText(proposed.get()),
        [this, location = info, pictureName = cuTextUnits(name.get())](const QString& file) {
            const StringHolder title(cuCreateText(pictureName));
            const bool isSaved =
                gpsSaveKML(QFile::encodeName(file).toStdString(), location, title.get());
            showExportResult(*myWindow, file, isSaved ? 0 : errno);
        },
        myWindow);
    dialog->open();
}

void AppController::revealInGoogleEarth()
{
    const double latitude = info.refLatti == 'S' ? -info.latti : info.latti;
    const double longitude = info.refLongi == 'W' ? -info.longi : info.longi;
    (void)gpsFlyGoogleEarthToLocation(latitude, longitude, info.azimuth, info.tilt, info.distance);
}

void AppController::donate()
{
    opener_->open(QByteArrayLiteral(PINORAMA_DONATION_URL));
}

void AppController::poweredBySkallion()
{
    opener_->open(QByteArrayLiteral(PINORAMA_HOME_URL));
}

void AppController::openAddress(TovStringRef address)
{
    if (address != nullptr) opener_->open(cuTextUnits(address).toUtf8());
}

void AppController::copyCoordinate()
{
    QGuiApplication::clipboard()->setText(gpsCoordinateField->text());
}

void AppController::copyDecimalDegrees()
{
    const StringHolder degrees(gpsMakeDecimalDegreesText(info));
    QGuiApplication::clipboard()->setText(cuTextUnits(degrees.get()));
}

void AppController::openPicture()
{
    // Beside the picture that is shown, and at first among the user's pictures.
    const QString folder = lastPath != nullptr
                               ? QFileInfo(QFile::decodeName(pathBytes(lastPath).c_str())).path()
                               : QStandardPaths::writableLocation(QStandardPaths::PicturesLocation);
    auto* dialog = new QFileDialog(myWindow, tr("Open Picture"), folder);
    dialog->setAttribute(Qt::WA_DeleteOnClose);
    dialog->setFileMode(QFileDialog::ExistingFile);
    connect(dialog, &QFileDialog::fileSelected, this, [this](const QString& file) {
        const StringHolder path(createPathText(QFile::encodeName(file).toStdString()));
        applicationOpenFile(path.get());
    });
    dialog->open();
}

void AppController::showManual()
{
    const std::string manual =
        std::filesystem::path(documentFolder() + "/manual.md").lexically_normal();
    if (!QFile::exists(QFile::decodeName(manual.c_str()))) {
        poweredBySkallion();
        return;
    }
    opener_->open(QByteArray::fromStdString(fileURIOfPath(manual)));
}

void AppController::showAboutBox()
{
    appShowAboutBox(myWindow);
}

}  // namespace pinorama
