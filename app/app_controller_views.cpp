// The part of the controller that finds its views in the window and connects the menu.

#include "app/app_controller.h"

#include "app/closing_words.h"
#include "app/main_window.h"

#include <QAction>
#include <QApplication>
#include <QMenu>

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

// The items of the menu bar that are no actions on a place.
void AppController::connectMenu()
{
    connect(myWindow->openAction, &QAction::triggered, this,
            [this] { intake_.askForPicture(path_); });
    //: Reads the file again that is shown
    auto* reloadAction = new QAction(tr("Re&load"), myWindow);
    reloadAction->setObjectName(QStringLiteral("reloadAction"));
    reloadAction->setShortcut(QKeySequence(Qt::Key_F5));
    const QList<QAction*> items = myWindow->pictureMenu->actions();
    myWindow->pictureMenu->insertAction(items.value(items.indexOf(myWindow->openAction) + 1),
                                        reloadAction);
    connect(reloadAction, &QAction::triggered, this, &AppController::reload);
    new ClosingWords(*myWindow);  // the window's child
    connect(myWindow->closeAction, &QAction::triggered, myWindow, &QWidget::close);
    connect(myWindow->quitAction, &QAction::triggered, qApp, &QCoreApplication::quit);
    connect(myWindow->manualAction, &QAction::triggered, this, &AppController::showManual);
    connect(myWindow->homePageAction, &QAction::triggered, this, &AppController::poweredBySkallion);
    connect(myWindow->donateAction, &QAction::triggered, this, &AppController::donate);
    connect(myWindow->aboutAction, &QAction::triggered, this, &AppController::showAboutBox);
    // A build without such a page offers none.
    myWindow->homePageAction->setVisible(PINORAMA_SHOWS_HOME);
    myWindow->donateAction->setVisible(PINORAMA_SHOWS_DONATION);
}

}  // namespace pinorama
