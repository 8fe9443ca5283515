// What one can do with the place of the picture that is shown: open it in a map service or in the
// cataloguing program, fly a globe program to it, export it, and copy it. The buttons
// and menu items of the window lead here.

#pragma once

#include "app/export_dialog.h"
#include "app/file_saving.h"
#include "desktop/globe_programs.h"
#include "desktop/portal_chooser.h"
#include "desktop/url_opener.h"
#include "location/file_info_record.h"

#include <QObject>
#include <QString>

#include <cstdint>
#include <memory>
#include <string>

namespace pinorama {

class CopyMenu;
class MainWindow;
class NearbyWindow;

class PlaceActions : public QObject {
    Q_OBJECT

public:
    // What is shown at the moment of an action; kept up to date by whoever shows it.
    struct Shown {
        const fileInfoRecord& info;
        const TovStringRef& path;
    };

    // Connects the controls of the window, which has its views. All arguments, and what `shown`
    // refers to, live longer.
    PlaceActions(MainWindow& window, UrlOpener& opener, Shown shown);
    ~PlaceActions() override;

    // Enables or disables the controls, and shows or hides the marker of a place.
    void setEnabled(bool enabled);

    // Appends the services to the pop-up.
    void setupWebMenu();

public Q_SLOTS:
    // Opens the location in a service. `itemIndex` counts from 0 over the whole pop-up, its title
    // item included; an item that is no service does nothing.
    void openService(std::int32_t itemIndex);

    // Asks the cataloguing program for the pictures nearby; where there is none, shows them in a
    // window of its own.
    void openCatalogue();

    // Asks the user where to save the location as a KML file. What is written is the picture that
    // is shown now, even when another one is selected before the user has answered. The foot of the
    // window says when a file cannot be written, and when its disk does not answer.
    void exportKML();

    // Flies the globe program to the location.
    void flyGlobe();

    // Put the coordinate of this picture on the clipboard: in the form in which it is shown, and as
    // signed decimal degrees for other programs.
    void copyCoordinate();
    void copyDecimalDegrees();

Q_SIGNALS:
    // The user chose a picture in that window, or opened it, which brings the main window forward.
    void nearbyChosen(const std::string& path);
    void nearbyOpened(const std::string& path);

protected:
    // Says in the tool tips of buttons what they would need, when somebody comes to them.
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // What is to be exported, as it was when the user asked for that.
    struct Export {
        fileInfoRecord info{};  // its texts are null
        QString pictureName;
        QString proposedName;
    };

    void askWithTheToolkit();
    ExportEnds endsOf(const Export& exported);
    void save(const std::string& path, const Export& exported);
    void say(const std::string& path, int error);
    void connectControls();
    void connectCopying();
    void offerServices();
    QString needOf(const QObject* button) const;
    void findNearby();

    MainWindow& window_;
    FileSaving saving_;
    UrlOpener& opener_;
    Shown shown_;
    GlobePrograms globes_;
    PortalChooser portal_;
    CopyMenu* copyMenu_;                    // the window's
    Export export_;                         // what the portal asks about
    std::unique_ptr<NearbyWindow> nearby_;  // null until it is needed
};

}  // namespace pinorama
