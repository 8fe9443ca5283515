#include "app/copy_menu.h"

#include "app/shown_text.h"
#include "globe/web_services.h"
#include "lib/strings/string_holder.h"
#include "lib/ui/qt_text.h"
#include "location/coordinate_text.h"
#include "places/grids/grid_texts.h"
#include "places/position_texts.h"
#include "places/words/place_words.h"

#include <QClipboard>
#include <QGuiApplication>

#include <optional>
#include <string>

namespace pinorama {
namespace {
// A service that is a page on the web, by its title and the template of its address.
struct WebPage {
    StringHolder title{nullptr};
    StringHolder addressTemplate{nullptr};
};

// The first of the menu; both null if there is none.
WebPage firstWebPage()
{
    for (std::int32_t number = 1;; ++number) {
        StringHolder title(appCopyServiceTitle(number));
        if (!title) return {};
        StringHolder addressTemplate(appCopyServiceTemplate(title.get()));
        if (cuTextUnits(addressTemplate.get()).startsWith(QLatin1String("http")))
            return {std::move(title), std::move(addressTemplate)};
    }
}

QString unitsOf(const StringHolder& text)
{
    return cuTextUnits(text.get());
}
}  // namespace

CopyMenu::CopyMenu(const fileInfoRecord& info, const TovStringRef& path, QWidget* parent)
    //: The menu of the forms in which a place can be copied
    : QMenu(tr("Copy &It As"), parent), info_(info), path_(path)
{
    setObjectName(QStringLiteral("copyMenu"));
    const std::array<QString, kForms> titles = {
        //: Entry of the menu "Copy It As": the coordinate as the window shows it
        tr("As Shown"),
        //: Entry of the menu "Copy It As": copies "-54.80190, -68.30300"
        tr("Decimal Degrees"),
        //: Entry of the menu "Copy It As": copies "54° 48.114' S"
        tr("Degrees and Decimal Minutes"),
        //: An address that begins with "geo:", which map programs take
        tr("geo: Address"), QStringLiteral("Plus Code"), QStringLiteral("UTM"),
        QStringLiteral("MGRS"),
        //: Copies "Near Ushuaia, Argentina"
        tr("Place in Words"),
        QString(),  // the link, whose title names the map
    };
    for (std::size_t i = 0; i < kForms; ++i) {
        actions_[i] = new QAction(titles[i], this);
        connect(actions_[i], &QAction::triggered, this, [this, form = static_cast<Form>(i)] {
            const QString copied = text(form);
            if (!copied.isEmpty()) QGuiApplication::clipboard()->setText(copied);
        });
        // A screen reader finds entries that are not visible, too.
        if (!titles[i].isEmpty()) addAction(actions_[i]);
    }
    connect(this, &QMenu::aboutToShow, this, &CopyMenu::adapt);
    setHasPlace(false);
}

CopyMenu::~CopyMenu() = default;

void CopyMenu::setHasPlace(bool hasPlace)
{
    menuAction()->setEnabled(hasPlace);
    for (QAction* action : actions_) action->setEnabled(hasPlace);
}

// What can be copied of this place is known when somebody looks: the places file is not opened
// before.
void CopyMenu::adapt()
{
    if (!menuAction()->isEnabled()) return;
    for (std::size_t i = 0; i < kForms; ++i)
        actions_[i]->setEnabled(!text(static_cast<Form>(i)).isEmpty());
    action(Form::words)->setVisible(places_->data() != nullptr);

    QAction* const link = action(Form::mapLink);
    QString title = unitsOf(firstWebPage().title);
    if (title.isEmpty()) return removeAction(link);
    title = isolated(title.replace(QLatin1Char('&'), QLatin1String("&&")));
    //: %1 is a map service, such as OpenStreetMap
    link->setText(tr("Link to %1").arg(title));
    if (!actions().contains(link)) addAction(link);
}

QString CopyMenu::text(Form form)
{
    const double latitude = signedLatitude(info_);
    const double longitude = signedLongitude(info_);
    switch (form) {
    case Form::asShown: return unitsOf(StringHolder(gpsMakePositionText(info_)));
    case Form::decimalDegrees: return unitsOf(StringHolder(gpsMakeDecimalDegreesText(info_)));
    case Form::degreesMinutes:
        return QString::fromStdString(degreesMinutesText(latitude, longitude));
    case Form::geoAddress: return QString::fromStdString(geoAddress(latitude, longitude));
    case Form::plusCode: return QString::fromStdString(plusCode(latitude, longitude));
    case Form::utm: return QString::fromStdString(utmText(latitude, longitude));
    case Form::mgrs: return QString::fromStdString(mgrsText(latitude, longitude));
    case Form::words: return words();
    case Form::mapLink:
        return unitsOf(StringHolder(
            appMakeSafeWebServiceURL(firstWebPage().addressTemplate.get(), &info_, path_)));
    }
    return {};
}

QString CopyMenu::words()
{
    if (!places_) places_ = std::make_unique<PlaceFinder>(placesFile());
    const std::optional<Place> place = places_->find(signedLatitude(info_), signedLongitude(info_));
    return place ? unitsOf(StringHolder(createPlaceText(*place))) : QString();
}

}  // namespace pinorama
