#include "app/app_controller.h"

#include "app/about_box.h"
#include "app/file_dialogs.h"
#include "app/finder_sync.h"
#include "app/foot_line.h"
#include "app/main_window.h"
#include "app/picture_words.h"
#include "app/reading_notice.h"
#include "app/shown_text.h"
#include "base/file_uri.h"
#include "base/resource_folder.h"
#include "base/status.h"
#include "lib/conv/time_conversions.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_display.h"
#include "lib/strings/tov_string.h"
#include "lib/ui/application_bundle.h"
#include "lib/ui/string_tables.h"
#include "location/accepted_types.h"
#include "location/metadata_reader.h"

#include <QApplication>
#include <QFile>
#include <QSignalBlocker>

#include <filesystem>
#include <utility>

namespace pinorama {
namespace {
constexpr int kSelectionInterval = 200;  // milliseconds

// A window with its views in it.
std::unique_ptr<MainWindow> furnished(std::unique_ptr<MainWindow> window)
{
    if (!window) window = std::make_unique<MainWindow>();
    window->furnish();
    return window;
}
}  // namespace

AppController::AppController(SelectionSource* selection, UrlOpener* opener,
                             std::unique_ptr<MainWindow> window)
    : window_(furnished(std::move(window))),
      opener_(*window_, opener != nullptr ? *opener : desktopOpener_),
      fields_(*window_),
      staleFields_(*window_),
      place_(*window_),
      reading_(*window_),
      actions_(*window_, opener_, {info, lastPath}),
      moreKinds_(*window_),
      intake_(*window_, selection)
{
    connectOutlets();
    connectMenu();
    connect(&intake_, &PathIntake::pathFound, this, &AppController::showPath);
    connect(&intake_, &PathIntake::pathOpened, this, [this](const std::string& path) {
        showMainWindow();
        showPath(path);
    });
    connect(&actions_, &PlaceActions::nearbyChosen, this, [this](const std::string& path) {
        if (!myWindow->isVisible()) showMainWindow();
        intake_.keepOpened();
        showPath(path);
    });
    connect(&actions_, &PlaceActions::nearbyOpened, this, &AppController::openPath);
    connect(&intake_, &PathIntake::severalSelected, this, [this](bool areSeveral) {
        if (areSeveral)
            footLine(*window_).say(FootLine::Topic::selection, wordsOfSeveral());
        else if (auto* line = window_->findChild<FootLine*>())
            line->takeBack(FootLine::Topic::selection);
    });
    connect(&reading_, &PictureReading::looked, this, [this](const PictureFile& file) {
        fields_.showItem(path_, file.item());
        if (!file.item()) return;
        // What could be read is offered instead.
        const bool isReadable = isRead_ || moreKinds_.isOffering();
        sayOfPicture(wordsOfKind(*file.item(), nameInWords(), isReadable));
    });
    connect(&reading_, &PictureReading::opened, this, &AppController::showOpened);
    connect(&reading_, &PictureReading::openerMissing, this, [this] {
        showNoPlaceYet();
        const QString words =
            //: The foot of the window. pinorama-opener is the name of a program and stays
            tr("Files cannot be opened: the program pinorama-opener does not start.");
        fields_.showInsteadOfPreview(words);
        sayOfPicture(words);
    });
    connect(&reading_, &PictureReading::previewRead, this,
            [this](const QPixmap& preview) { fields_.showPreview(preview); });
    connect(&reading_, &PictureReading::ended, this, &AppController::sayIfNoPlace);
    connect(&reading_, &PictureReading::readerMissing, this, [this] {
        const QString words =
            //: The foot of the window. pinorama-reader is the name of a program and stays
            tr("Pictures cannot be read: the program pinorama-reader does not start.");
        fields_.showInsteadOfPreview(words);
        sayOfPicture(words);
    });
    connect(&reading_, &PictureReading::placeRead, this,
            [this](const PictureProperties& properties) {
                gpsPrepareInfoRecord(&info);
                showPlaceRead(fillInfoRecord(properties, &info));
            });
    connect(&moreKinds_, &MoreKinds::switched, this, &AppController::reload);
}

AppController::~AppController()
{
    gpsReleaseInfoRecord(&info);
    TovStringRelease(&lastPath);
}

bool AppController::init()
{
    refuseForeignDialogs();
    QApplication::setQuitOnLastWindowClosed(applicationShouldTerminateAfterLastWindowClosed());
    iuRegisterApplicationBundle();
    const StringHolder identifier(createString(kApplicationIdentifier));
    initStringBundle(identifier.get());
    tovStringInitString();
    convInit();
    info = {};
    return true;
}

void AppController::applicationWillFinishLaunching()
{
    appRegisterFinderSyncDefault();
    moreKinds_.load();
    // The default may show only now. It is shown and not stored.
    const QSignalBlocker blocker(syncCheckbox);
    syncCheckbox->setChecked(appLoadFinderSync());
}

void AppController::awakeFromNib()
{
    // The check box mirrors the preference: it starts with what is stored and stores what is set.
    syncCheckbox->setChecked(appLoadFinderSync());
    connect(syncCheckbox, &QCheckBox::toggled, this, &appStoreFinderSync);

    gUpdateTimer = new QTimer(this);
    connect(gUpdateTimer, &QTimer::timeout, this, &AppController::updateSelection);
    gUpdateTimer->start(kSelectionInterval);
    setupWebMenu();
}

bool AppController::acceptPath(TovStringRef path)
{
    return gpsIsAcceptedPath(path);
}

bool AppController::applicationOpenFile(TovStringRef path)
{
    showMainWindow();
    if (path != nullptr) intake_.keepOpened();
    return updateValuesForNewPath(path);
}

void AppController::openPath(const std::string& path)
{
    intake_.open(path);
}

void AppController::showReported(const std::string& path)
{
    intake_.passReported(path);
}

void AppController::openFile(const QMimeData* pasteboard)
{
    showMainWindow();
    intake_.passText(pasteboard);
}

bool AppController::applicationShouldTerminateAfterLastWindowClosed()
{
    return false;
}

void AppController::showMainWindow()
{
    myWindow->setWindowState(myWindow->windowState() & ~Qt::WindowMinimized);
    myWindow->show();
    myWindow->raise();
    myWindow->activateWindow();
}

void AppController::updateSelection()
{
    turnBegan_ = std::chrono::steady_clock::now();
    intake_.passSelection();
    turnBegan_.reset();
}

TovArrayRef AppController::getFinderSelection()
{
    return intake_.copySelection();
}

bool AppController::updateValuesForNewPath(TovStringRef path)
{
    if (path == nullptr || equalUnits(path, lastPath)) return false;
    return show(pathBytes(path), TovStringGetCopy(path));
}

bool AppController::showPath(const std::string& path)
{
    if (lastPath != nullptr && path == path_) return false;
    return show(path, createPathText(path));
}

void AppController::reload()
{
    if (lastPath != nullptr) (void)show(std::string(path_), TovStringGetCopy(lastPath));
}

// True for the accepted types, and for more of them if the user has asked for that.
bool AppController::reads(TovStringRef path)
{
    return acceptPath(path) || moreKinds_.reads(path);
}

// Shows the file at `path`; `text` is the same as a text, which becomes lastPath. The picture is
// opened once: its facts, its place and its preview are those of one file.
bool AppController::show(const std::string& path, TovStringRef text)
{
    TovStringRelease(&lastPath);
    lastPath = text;
    path_ = path;
    fields_.showName(text);
    forgetPicture(*window_);
    moreKinds_.offerFor(text);
    const bool isAccepted = reads(text);
    isRead_ = isAccepted;
    if (!isAccepted) {
        fields_.clearPosition();
        fields_.clearPlaceTexts();
        moreKinds_.showSources(nullptr);
        place_.clear();
        staleFields_.takeFresh(window_->fileNameField->text());
        actions_.setEnabled(false);
    }
    // Nearly always the file is opened, and showOpened called, before this returns.
    const auto now = std::chrono::steady_clock::now();
    reading_.begin(path, now - turnBegan_.value_or(now));
    if (!reading_.hasLooked()) fields_.clearItem();
    if (reading_.isOpening()) showNoPlaceYet();
    return isAccepted;
}

// Shows the file, whose place is not known, as one without a position.
void AppController::showNoPlaceYet()
{
    if (!reads(lastPath)) return;
    gpsPrepareInfoRecord(&info);
    showPlaceRead(kErrNothingUsable);
}

// The file that is shown has been opened, or cannot be.
void AppController::showOpened()
{
    const int error = reading_.openError();
    if (error != 0) sayOfPicture(wordsOfOpenError(error, nameInWords()));
    if (reads(lastPath)) {
        gpsPrepareInfoRecord(&info);
        showPlaceRead(reading_.readPlace(&info));
    }
    // It comes through the event loop: the texts are there at once, and while the selection moves
    // on quickly only the last picture is drawn.
    reading_.requestPreview();
}

// Shows what reading the place has come to, `status`, which has filled the record.
void AppController::showPlaceRead(std::int32_t status)
{
    if (status == 0) {
        staleFields_.takeFresh(window_->fileNameField->text());
        fields_.showPlace(info);
        moreKinds_.showSources(&reading_.properties().sources);
        gpsReleaseInfoRecord(&info);
    }
    // Without a place its texts stay as they are: they may be those of the picture before. With one
    // coordinate of zero the actions are there although nothing new was shown.
    if (hasPlace()) {
        place_.show(info, reading_.properties());
    } else {
        fields_.clearPosition();
        moreKinds_.showSources(nullptr);
        place_.showWithoutPosition(reading_.properties());
    }
    if (status != 0) staleFields_.takeKept(hasPlace());
    actions_.setEnabled(hasPlace());
}

// Whether the accepted file that was shown last has a place.
bool AppController::hasPlace() const
{
    return info.latti != 0.0 || info.longi != 0.0;
}

QString AppController::nameInWords() const
{
    return shownName(window_->fileNameField->text(), window_->fontMetrics());
}

// Says something of the file that is shown; nothing if the words are empty.
void AppController::sayOfPicture(const QString& words)
{
    if (!words.isEmpty()) footLine(*window_).say(FootLine::Topic::picture, words);
}

// Everything has come of the file that is shown: says that it has no place, or is no picture,
// unless it has been said why there is none.
void AppController::sayIfNoPlace()
{
    if (!isRead_ || hasPlace() || reading_.hasFailed()) return;
    const auto* line = window_->findChild<FootLine*>();
    if (line != nullptr && line->says(FootLine::Topic::picture)) return;
    sayOfPicture(reading_.isPicture() ? wordsOfNoPlace()
                                      : ReadingNotice::wordsOfNotRead(nameInWords()));
}

void AppController::setupWebMenu()
{
    actions_.setupWebMenu();
}

void AppController::webMenuHit(std::int32_t itemIndex)
{
    actions_.openService(itemIndex);
}

void AppController::searchInSkallion()
{
    actions_.openCatalogue();
}

void AppController::exportToKML()
{
    actions_.exportKML();
}

void AppController::revealInGoogleEarth()
{
    actions_.flyGlobe();
}

void AppController::donate()
{
    opener_.open(QByteArrayLiteral(PINORAMA_DONATION_URL));
}

void AppController::poweredBySkallion()
{
    opener_.open(QByteArrayLiteral(PINORAMA_HOME_URL));
}

void AppController::showManual()
{
    const std::string manual =
        std::filesystem::path(documentFolder() + "/manual.md").lexically_normal();
    if (!QFile::exists(QFile::decodeName(manual.c_str()))) {
        poweredBySkallion();
        return;
    }
    opener_.open(QByteArray::fromStdString(fileURIOfPath(manual)));
}

void AppController::showAboutBox()
{
    appShowAboutBox(myWindow);
}

}  // namespace pinorama
