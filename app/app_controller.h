// The controller of the one window: every way that a path takes into the program ends here, and
// everything that the window shows is put there from here.
//
// The window may be closed while the program runs: it is hidden then, its fields go on being kept
// up to date, and whatever brings a path brings it back. Everything runs on the thread of the event
// loop.

#pragma once

#include "app/selection_script.h"
#include "desktop/address_opener.h"
#include "desktop/globe_programs.h"
#include "globe/web_services.h"
#include "lib/objects/collections.h"
#include "lib/objects/string.h"
#include "location/file_info_record.h"
#include "previews/preview_loader.h"
#include "selection/selection_source.h"

#include <QByteArray>
#include <QObject>
#include <QTimer>

#include <cstdint>
#include <memory>

class QCheckBox;
class QLabel;
class QMimeData;
class QPushButton;

namespace pinorama {

class ElidedField;
class MainWindow;
class PictureField;
class PopUpMenu;
class ReadingNotice;
class WrappedField;
struct PropertyResult;

class AppController : public QObject {
    Q_OBJECT

public:
    // Makes the window, hidden, and connects the outlets.
    //
    //   selection  tells what is selected in the file manager; borrowed, null for nothing ever.
    //   opener     opens web addresses; borrowed, null for the desktop's own way.
    //   window     the window when it was shown ahead; it gets its views. Null for a new one.
    explicit AppController(SelectionSource* selection = nullptr, AddressOpener* opener = nullptr,
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
    // A place that a slow disk does not give within half a second is shown when it comes, unless
    // another path is shown by then. Until then the window says that it is still reading, and shows
    // the picture as one without a position: coordinate, altitude and direction are empty, the
    // place texts those of the picture before.
    //
    // Returns true when the path is new and its type accepted, with or without a location.
    bool updateValuesForNewPath(TovStringRef path);

    // Whether the place or the preview of the file that is shown is still to come.
    bool isReading() const;

    // Brings the window forward and shows a file. Returns what updateValuesForNewPath does.
    bool applicationOpenFile(TovStringRef path);

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
    void donate();
    void poweredBySkallion();

    // Opens the location in a service. `itemIndex` counts from 0 over the whole pop-up, its title
    // item included; an item that is no service does nothing.
    void webMenuHit(std::int32_t itemIndex);
    void searchInSkallion();

    // Asks the user where to save the location as a KML file. What is written is the picture that
    // is shown now, even when another one is selected before the user has answered. A file that
    // cannot be written is told at the foot of the window.
    void exportToKML();

    // Flies the globe program to the location.
    void revealInGoogleEarth();

    // Put the coordinate on the clipboard: as it is shown, and as signed decimal degrees for other
    // programs.
    void copyCoordinate();
    void copyDecimalDegrees();

    // Asks the user for a picture and shows it.
    void openPicture();

    // Opens the manual that came with the program, else the home page.
    void showManual();
    void showAboutBox();

    // Puts the preview of `path`, in raw bytes, into the window. It is dropped when another path
    // has been shown since.
    void showPreview(const QByteArray& path, const QPixmap& preview);

    // Says in its place that pictures cannot be read, dropped in the same way. The general facts of
    // the file stay.
    void showReaderMissing(const QByteArray& path);

    // Says that the picture could not be read, dropped in the same way.
    void showReaderStuck(const QByteArray& path);

    // Shows a place that took its time. It is dropped unless it is the one that is waited for, that
    // of the path that is shown.
    //
    //   ticket  as of LateProperties.
    void showLateLocation(std::uint32_t ticket, const PropertyResult& result);

private:
    void connectOutlets();
    void connectActions();
    void connectReading();
    void showAttributes(TovStringRef path);
    void requestPreview();
    void showLocationFound(std::int32_t status);
    void showLocation();
    void clearLocation();
    void clearPlaceTexts();
    void setLocationActions(bool enabled);
    void forgetReading();
    void awaitLocation();
    void endReading();
    void sayStillReading();
    void sayNotRead();
    ReadingNotice* readingNotice();
    void openAddress(TovStringRef address);

    std::unique_ptr<MainWindow> window_;
    SelectionSource* selection_;
    DesktopAddressOpener desktopOpener_;
    AddressOpener* opener_;
    GlobePrograms globes_;
    PreviewLoader previews_;
    std::uint32_t awaitedLocation_ = 0;       // the ticket of the place that is to come; 0 for none
    QTimer slowPreview_;                      // runs out when a preview has taken long
    ReadingNotice* readingNotice_ = nullptr;  // the window's; null until it is needed
};

}  // namespace pinorama
