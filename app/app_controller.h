// The controller of the one window. It holds what is shown, and brings the four objects together
// that do the work: PathIntake, through which every path comes in, FileFields, which show it,
// PictureReading, which says what is still to come of it, and PlaceActions, which use its place.
//
// The window may be closed while the program runs: it is hidden then, its fields go on being kept
// up to date, and whatever brings a path brings it back. Everything runs on the thread of the event
// loop.

#pragma once

#include "app/file_fields.h"
#include "app/more_kinds.h"
#include "app/path_intake.h"
#include "app/picture_reading.h"
#include "app/place_actions.h"
#include "app/place_fields.h"
#include "app/saying_opener.h"
#include "app/stale_fields.h"
#include "desktop/url_opener.h"
#include "lib/objects/collections.h"
#include "lib/objects/string.h"
#include "location/file_info_record.h"
#include "selection/selection_source.h"

#include <QObject>
#include <QTimer>

#include <chrono>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>

class QCheckBox;
class QLabel;
class QMimeData;
class QPushButton;

namespace pinorama {

class ElidedField;
class MainWindow;
class PictureField;
class PopUpMenu;
class WrappedField;

class AppController : public QObject {
    Q_OBJECT

public:
    // Makes the window, hidden, and connects the outlets.
    //
    //   selection  what is selected in the file manager; borrowed, null for nothing ever.
    //   opener     opens web addresses; borrowed, null for the desktop's own way.
    //   window     the window when it was shown ahead; it gets its views. Null for a new one.
    explicit AppController(SelectionSource* selection = nullptr, UrlOpener* opener = nullptr,
                           std::unique_ptr<MainWindow> window = nullptr);
    ~AppController() override;

    // The outlets: views of the window, made from its description. They live as long as the
    // controller.
    MainWindow* myWindow;
    PictureField* fileIconField;
    QLabel* geoTagField;  // the marker, visible while the shown file has a location
    ElidedField* fileNameField;
    WrappedField* fileCreationDateField;
    WrappedField* fileModificationDateField;
    WrappedField* fileSizeField;
    WrappedField* gpsCoordinateField;
    WrappedField* gpsAltitudeField;
    WrappedField* gpsDirectionField;
    WrappedField* iptcCityField;
    WrappedField* iptcStateField;
    WrappedField* iptcCountryField;
    WrappedField* iptcDescriptionField;
    PopUpMenu* webServicesMenu;
    QCheckBox* syncCheckbox;
    QPushButton* showInGEButton;
    QPushButton* searchInTovButton;
    QPushButton* exportKMLButton;

    QTimer* gUpdateTimer = nullptr;   // null until awakeFromNib, then never stopped
    TovStringRef lastPath = nullptr;  // owned copy of the path that is shown; null at first
    fileInfoRecord info{};  // of the accepted file that was shown last; its texts are null

    // Start-up, in this order. `init` makes the program's texts known and creates the formatters.
    // Always true: texts that are missing show by their keys.
    bool init();
    void applicationWillFinishLaunching();
    void awakeFromNib();

    // True when the path's type is one of the accepted picture types.
    bool acceptPath(TovStringRef path);

    // Shows a file: the only operation that changes what the window shows.
    //
    //   path  read only. Null and the path that is shown already do nothing at all.
    //
    // What a slow disk does not give at once is shown when it comes, unless another path is shown
    // by then. Until then the window says that it is still reading, or that the file does not
    // answer, leaves size and dates empty, and shows the picture as one without a position:
    // coordinate, altitude and direction are empty, the place texts those of the picture before.
    //
    // Returns true when the path is new and its type accepted, with or without a location.
    bool updateValuesForNewPath(TovStringRef path);

    // The same for a path in the bytes of the system.
    bool showPath(const std::string& path);

    // What is still to come of the file that is shown.
    PictureReading& reading() { return reading_; }

    // Brings the window forward and shows a file. Returns what updateValuesForNewPath does.
    // The file stays until the selection in the file manager changes.
    bool applicationOpenFile(TovStringRef path);

    // The same for a path in the bytes of the system.
    void openPath(const std::string& path);

    // Shows a file that another program reports as selected in it; the window stays where it is.
    // Nothing while the check box is off.
    void showReported(const std::string& path);

    // Brings the window forward and, when the pasteboard holds a plain text that is not empty,
    // shows the file whose path that text is, as it stands.
    void openFile(const QMimeData* pasteboard);

    // Always false: the program goes on without a window.
    bool applicationShouldTerminateAfterLastWindowClosed();

    // Shows the file that is selected in the file manager, when it is exactly one and the check box
    // is on. The timer calls it every 0.2 seconds.
    void updateSelection();

    // Returns a new array of the selected paths; null when there is none.
    [[nodiscard]] TovArrayRef getFinderSelection();

    // Appends the services to the pop-up.
    void setupWebMenu();

public Q_SLOTS:
    void showMainWindow();
    // Reads the file that is shown again; nothing if none is.
    void reload();
    void donate();
    void poweredBySkallion();

    // The actions on the place; PlaceActions says what they do.
    void webMenuHit(std::int32_t itemIndex);
    void searchInSkallion();
    void exportToKML();
    void revealInGoogleEarth();

    // Opens the manual that came with the program, else the home page.
    void showManual();
    void showAboutBox();

private:
    void connectOutlets();
    void connectMenu();
    bool reads(TovStringRef path);
    bool show(const std::string& path, TovStringRef text);
    void showNoPlaceYet();
    void showOpened();
    void showPlaceRead(std::int32_t status);
    bool hasPlace() const;
    QString nameInWords() const;
    void sayOfPicture(const QString& words);
    void sayIfNoPlace();

    std::unique_ptr<MainWindow> window_;
    std::string path_;     // the bytes of lastPath
    bool isRead_ = false;  // whether files of its type are read
    // When the turn of the event loop began that asks for the selection.
    std::optional<std::chrono::steady_clock::time_point> turnBegan_;
    DesktopUrlOpener desktopOpener_;
    SayingOpener opener_;
    FileFields fields_;
    StaleFields staleFields_;
    PlaceFields place_;
    PictureReading reading_;
    PlaceActions actions_;
    MoreKinds moreKinds_;
    PathIntake intake_;
};

}  // namespace pinorama
