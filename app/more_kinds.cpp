#include "app/more_kinds.h"

#include "app/foot_line.h"
#include "app/main_window.h"
#include "app/shown_text.h"
#include "app/wrapped_field.h"
#include "lib/prefs/preferences.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "lib/ui/qt_text.h"
#include "location/accepted_types.h"
#include "location/file_name.h"
#include "location/picture_source.h"

#include <QAction>
#include <QSignalBlocker>

namespace pinorama {
namespace {
constexpr std::u16string_view kKey = u"readMoreKinds";
}  // namespace

bool appLoadReadMoreKinds()
{
    std::uint32_t isOn = 0;
    (void)prefLoadUInt32(createString(kKey), &isOn);  // consumes the key; 0 stays without it
    return isOn != 0;
}

void appStoreReadMoreKinds(bool isOn)
{
    (void)prefStoreUInt32(createString(kKey), isOn ? 1 : 0);  // consumes the key
}

MoreKinds::MoreKinds(MainWindow& window) : window_(window)
{
    connect(window_.readMoreAction, &QAction::toggled, this, &MoreKinds::setOn);
}

void MoreKinds::load()
{
    isOn_ = appLoadReadMoreKinds();
    setReadsMoreKinds(isOn_);
    const QSignalBlocker blocker(window_.readMoreAction);
    window_.readMoreAction->setChecked(isOn_);
}

bool MoreKinds::reads(TovStringRef path) const
{
    return isOn_ && isPathOfMoreKinds(path);
}

void MoreKinds::setOn(bool isOn)
{
    if (isOn == isOn_) return;
    isOn_ = isOn;
    setReadsMoreKinds(isOn);
    appStoreReadMoreKinds(isOn);
    showSources(nullptr);
    Q_EMIT switched();
}

void MoreKinds::offerFor(TovStringRef path)
{
    if (isOn_ || !isPathOfMoreKinds(path)) {
        if (auto* line = window_.findChild<FootLine*>()) line->takeBack(FootLine::Topic::kind);
        return;
    }
    const StringHolder name(gpsCopyFileName(path));
    const StringHolder extension(TovStringGetExtension(name.get()));
    //: At the foot of the window; %1 is the name of a kind, such as "HEIC", and no number
    QString words = tr("%1 pictures can be read, too.");
    //: At the foot of the window; %1 is the name of a kind, such as "MP4", and no number
    if (isPathOfVideo(path)) words = tr("%1 videos can be read, too.");
    //: Button beside "... pictures can be read, too": has them read from now on
    const QString button = tr("Read Them");
    footLine(window_).say(
        FootLine::Topic::kind,
        words.arg(isolated(shownText(cuDisplayText(extension.get()).toUpper()))),
        {button, [action = window_.readMoreAction] { action->setChecked(true); }});
}

bool MoreKinds::isOffering() const
{
    const auto* line = window_.findChild<FootLine*>();
    return line != nullptr && line->says(FootLine::Topic::kind);
}

QString MoreKinds::textOf(ValueSource source)
{
    switch (source) {
    //: Tool tip: the part of the file that has the value. Exif is a name and stays
    case ValueSource::exif: return tr("From Exif");
    //: Tool tip: the part of the file that has the value. IPTC is a name and stays
    case ValueSource::iptc: return tr("From IPTC");
    //: Tool tip: the part of the file that has the value. XMP is a name and stays
    case ValueSource::xmp: return tr("From XMP in the file");
    //: Tool tip: the value stands in the video itself
    case ValueSource::quickTime: return tr("From the video");
    //: Tool tip: the value stands in another file in the same folder. XMP is a name and stays
    case ValueSource::sidecar: return tr("From the XMP file beside it");
    }
    return {};
}

void MoreKinds::showSources(const ValueSources* sources)
{
    if (!isOn_) sources = nullptr;
    const struct {
        WrappedField* field;
        ValueSource ValueSources::*source;
    } rows[] = {{window_.gpsCoordinateField, &ValueSources::position},
                {window_.gpsAltitudeField, &ValueSources::altitude},
                {window_.gpsDirectionField, &ValueSources::direction},
                {window_.iptcCityField, &ValueSources::city},
                {window_.iptcStateField, &ValueSources::state},
                {window_.iptcCountryField, &ValueSources::country},
                {window_.iptcDescriptionField, &ValueSources::caption}};
    for (const auto& row : rows) {
        const bool hasSource = sources != nullptr && !row.field->text().isEmpty();
        row.field->setToolTip(hasSource ? textOf(sources->*row.source) : QString());
    }
}

}  // namespace pinorama
