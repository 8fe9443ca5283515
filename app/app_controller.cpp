#include "app/app_controller.h"

#include "app/finder_sync.h"
#include "app/main_window.h"
#include "globe/fly_to.h"
#include "lib/conv/time_conversions.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_display.h"
#include "lib/strings/tov_string.h"
#include "lib/ui/application_bundle.h"
#include "lib/ui/qt_text.h"
#include "lib/ui/string_tables.h"
#include "location/accepted_types.h"

#include <QApplication>
#include <QMimeData>
#include <QSignalBlocker>
#include <QTimer>

#include <string>

namespace pinorama {
namespace {
constexpr int kSelectionInterval = 200;  // milliseconds
}  // namespace

AppController::AppController(SelectionSource* selection, AddressOpener* opener,
                             std::unique_ptr<MainWindow> window)
    : window_(window ? std::move(window) : std::make_unique<MainWindow>()),
      selection_(selection),
      opener_(opener != nullptr ? opener : &desktopOpener_),
      globes_(*opener_)
{
    window_->furnish();
    connectOutlets();
    connectActions();
    connect(&previews_, &PreviewLoader::previewReady, this, &AppController::showPreview);
    connect(&previews_, &PreviewLoader::readerMissing, this, &AppController::showReaderMissing);
    connectReading();
}

AppController::~AppController()
{
    gpsSetGlobeLink({});
    gpsReleaseInfoRecord(&info);
    TovStringRelease(&lastPath);
}

bool AppController::init()
{
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
    return updateValuesForNewPath(path);
}

void AppController::openFile(const QMimeData* pasteboard)
{
    showMainWindow();
    // QMimeData::hasText would make a text of a list of files too.
    if (pasteboard == nullptr || !pasteboard->hasFormat(QStringLiteral("text/plain"))) return;
    const QString text = pasteboard->text();
    if (text.isEmpty()) return;
    const StringHolder path(cuCreateText(text));
    updateValuesForNewPath(path.get());
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
    if (syncCheckbox->checkState() != Qt::Checked) return;
    const ObjectHolder<TovArrayRef> selection(getFinderSelection());
    if (TovArrayGetCount(selection.get()) != 1) return;
    updateValuesForNewPath(asString(TovArrayGetValue(selection.get(), 0)));
}

TovArrayRef AppController::getFinderSelection()
{
    if (selection_ == nullptr) return nullptr;
    const std::vector<std::string> selected = selection_->selectedPaths();
    if (selected.empty()) return nullptr;
    ObjectHolder<TovArrayRef> paths(TovArrayCreate());
    for (const std::string& path : selected) {
        const StringHolder text(createPathText(path));
        TovArrayAppend(paths.get(), text.get());
    }
    return paths.take();
}

}  // namespace pinorama
