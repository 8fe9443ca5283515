#include "app/place_actions.h"

#include "app/copy_menu.h"
#include "app/export_notice.h"
#include "app/foot_line.h"
#include "app/globe_notice.h"
#include "app/main_window.h"
#include "app/nearby/nearby_window.h"
#include "app/shown_text.h"
#include "globe/fly_to.h"
#include "globe/google_earth_connector.h"
#include "globe/kml_file.h"
#include "globe/web_services.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"
#include "location/coordinate_text.h"
#include "location/file_name.h"

#include <QAction>
#include <QClipboard>
#include <QEvent>
#include <QFile>
#include <QGuiApplication>

#include <cerrno>
#include <utility>

namespace pinorama {
namespace {
constexpr const char* kToolTip = "usualToolTip";  // a property of buttons
const QByteArray kCatalogue = QByteArrayLiteral("skallion:");
}  // namespace

PlaceActions::PlaceActions(MainWindow& window, UrlOpener& opener, Shown shown)
    : window_(window),
      saving_(&window),
      opener_(opener),
      shown_(shown),
      globes_(opener),
      copyMenu_(new CopyMenu(shown.info, shown.path, &window))
{
    connectControls();
    connectCopying();
    sayOfGlobes(globes_, window_);
    connect(&portal_, &PortalChooser::unavailable, this, &PlaceActions::askWithTheToolkit);
    connect(&portal_, &PortalChooser::chosen, this,
            [this](const std::string& path) { saveAsChosen(path, &window_, endsOf(export_)); });
    connect(&saving_, &FileSaving::saved, this, &PlaceActions::say);
    gpsSetGlobeLink([this](const GlobeView& view) { globes_.show(view); });
}

PlaceActions::~PlaceActions()
{
    gpsSetGlobeLink({});
}

void PlaceActions::connectControls()
{
    connect(window_.showInGEButton, &QPushButton::clicked, this, &PlaceActions::flyGlobe);
    connect(window_.showInGEAction, &QAction::triggered, this, &PlaceActions::flyGlobe);
    connect(window_.searchInTovButton, &QPushButton::clicked, this, &PlaceActions::openCatalogue);
    connect(window_.searchInTovAction, &QAction::triggered, this, &PlaceActions::openCatalogue);
    connect(window_.exportKMLButton, &QPushButton::clicked, this, &PlaceActions::exportKML);
    connect(window_.exportKMLAction, &QAction::triggered, this, &PlaceActions::exportKML);
    connect(window_.webServicesMenu, &PopUpMenu::chosen, this, &PlaceActions::openService);
    connect(window_.webServicesAction, &QAction::triggered, window_.webServicesMenu,
            &PopUpMenu::showPopup);
    connect(window_.webServicesMenu, &PopUpMenu::aboutToShow, this, &PlaceActions::offerServices);
    for (QPushButton* button : {window_.showInGEButton, window_.searchInTovButton}) {
        button->setProperty(kToolTip, button->toolTip());
        button->installEventFilter(this);
    }
}

// The first line is always there; the second one depends on what is installed by then.
bool PlaceActions::eventFilter(QObject* watched, QEvent* event)
{
    auto* button = qobject_cast<QPushButton*>(watched);
    if (button != nullptr &&
        (event->type() == QEvent::ToolTip || event->type() == QEvent::FocusIn)) {
        QString toolTip = button->property(kToolTip).toString();
        const QString need = needOf(button);
        if (!need.isEmpty()) toolTip += QLatin1Char('\n') + need;
        button->setToolTip(toolTip);
    }
    return QObject::eventFilter(watched, event);
}

// What a button does not do, or does in another way, for lack of a program; empty if nothing is
// missing.
QString PlaceActions::needOf(const QObject* button) const
{
    if (button == window_.showInGEButton) {
        return globes_.areInstalled()
                   ? QString()
                   //: The second line of a tool tip
                   : tr("Needs Marble, Google Earth or another program that opens KML files");
    }
    //: The second line of a tool tip
    return opener_.isTaken(kCatalogue) ? QString()
                                       : tr("Without Skallion, pictures nearby are looked for in "
                                            "the folders around this one");
}

void PlaceActions::connectCopying()
{
    connect(window_.copyCoordinateAction, &QAction::triggered, this, &PlaceActions::copyCoordinate);
    connect(window_.copyDecimalAction, &QAction::triggered, this,
            &PlaceActions::copyDecimalDegrees);
    window_.gpsCoordinateField->addActions(
        {window_.copyCoordinateAction, window_.copyDecimalAction, copyMenu_->menuAction()});
    const QList<QAction*> items = window_.pictureMenu->actions();
    window_.pictureMenu->insertMenu(items.value(items.indexOf(window_.copyDecimalAction) + 1),
                                    copyMenu_);
}

void PlaceActions::setEnabled(bool enabled)
{
    for (QWidget* control :
         std::initializer_list<QWidget*>{window_.showInGEButton, window_.searchInTovButton,
                                         window_.exportKMLButton, window_.webServicesMenu}) {
        control->setEnabled(enabled);
    }
    for (QAction* action :
         {window_.showInGEAction, window_.searchInTovAction, window_.exportKMLAction,
          window_.webServicesAction, window_.copyCoordinateAction, window_.copyDecimalAction}) {
        action->setEnabled(enabled);
    }
    copyMenu_->setHasPlace(enabled);
    window_.geoTagField->setVisible(enabled);
}

void PlaceActions::setupWebMenu()
{
    for (std::int32_t number = 1;; ++number) {
        const StringHolder title(appCopyServiceTitle(number));
        if (!title) return;
        window_.webServicesMenu->addItem(cuTextUnits(title.get()));
    }
}

// A map program of this computer is in the list only while there is one.
void PlaceActions::offerServices()
{
    PopUpMenu* menu = window_.webServicesMenu;
    for (int i = 1; i < menu->count(); ++i) {
        const StringHolder title(cuCreateText(menu->itemText(i)));
        const StringHolder address(appCopyServiceTemplate(title.get()));
        const QByteArray url = cuTextUnits(address.get()).toUtf8();
        menu->setOffered(i, !url.startsWith("geo:") || opener_.isTaken(url));
    }
}

void PlaceActions::openService(std::int32_t itemIndex)
{
    const PopUpMenu* menu = window_.webServicesMenu;
    if (itemIndex < 0 || itemIndex >= menu->count()) return;
    const StringHolder title(cuCreateText(menu->itemText(itemIndex)));
    const StringHolder urlTemplate(appCopyServiceTemplate(title.get()));
    if (!urlTemplate) return;
    const StringHolder url(appMakeSafeWebServiceURL(urlTemplate.get(), &shown_.info, shown_.path));
    if (url) {
        opener_.open(cuTextUnits(url.get()).toUtf8());
        return;
    }
    // The table of services is the user's to change.
    footLine(window_).say(
        FootLine::Topic::action,
        //: The foot of the window. %1 is the title of a map service that the user has added
        tr("The address of %1 has no room for latitude and longitude.")
            .arg(shownName(menu->itemText(itemIndex), window_.fontMetrics())));
}

void PlaceActions::openCatalogue()
{
    const StringHolder url(appMakeCatalogueURL(&shown_.info));
    if (!url) return;
    const QByteArray address = cuTextUnits(url.get()).toUtf8();
    if (opener_.isTaken(address)) {
        opener_.open(address);
    } else {
        findNearby();
    }
}

void PlaceActions::findNearby()
{
    if (!nearby_) {
        nearby_ = std::make_unique<NearbyWindow>(opener_);
        connect(nearby_.get(), &NearbyWindow::chosen, this, &PlaceActions::nearbyChosen);
        connect(nearby_.get(), &NearbyWindow::opened, this, &PlaceActions::nearbyOpened);
    }
    nearby_->search(pathBytes(shown_.path),
                    {signedLatitude(shown_.info), signedLongitude(shown_.info)});
}

void PlaceActions::exportKML()
{
    const StringHolder name(gpsCopyFileName(shown_.path));
    const StringHolder proposed(appMakeKMLFileName(name.get()));
    // The dialog leaves the event loop running, so the selection may move on meanwhile: copies.
    export_ = {shown_.info, cuTextUnits(name.get()), cuDisplayText(proposed.get())};
    PortalQuestion question = exportQuestion(export_.proposedName);
    question.parent = portalParent(window_.winId());
    portal_.ask(question);
}

void PlaceActions::askWithTheToolkit()
{
    auto* dialog = new ExportDialog(export_.proposedName, endsOf(export_), &window_);
    dialog->open();
}

ExportEnds PlaceActions::endsOf(const Export& exported)
{
    return {[this, exported](const std::string& path) { save(path, exported); },
            [this](const std::string& path, int error) { say(path, error); }};
}

void PlaceActions::save(const std::string& path, const Export& exported)
{
    const StringHolder title(cuCreateText(exported.pictureName));
    DescriptorHolder document = gpsMakeKMLInMemory(exported.info, title.get());
    if (!document) return say(path, errno);
    saving_.save(path, std::move(document));
}

void PlaceActions::say(const std::string& path, int error)
{
    showExportResult(window_, opener_, QFile::decodeName(path.c_str()), error);
}

void PlaceActions::flyGlobe()
{
    const fileInfoRecord& info = shown_.info;
    (void)gpsFlyGoogleEarthToLocation(signedLatitude(info), signedLongitude(info), info.azimuth,
                                      info.tilt, info.distance);
}

void PlaceActions::copyCoordinate()
{
    // Not the text of the field, which may be that of the picture before.
    const StringHolder position(gpsMakePositionText(shown_.info));
    QGuiApplication::clipboard()->setText(cuTextUnits(position.get()));
}

void PlaceActions::copyDecimalDegrees()
{
    const StringHolder degrees(gpsMakeDecimalDegreesText(shown_.info));
    QGuiApplication::clipboard()->setText(cuTextUnits(degrees.get()));
}

}  // namespace pinorama
