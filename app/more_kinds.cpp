#include "app/more_kinds.h"

#include "app/elided_field.h"
#include "app/main_window.h"
#include "app/wrapped_field.h"
#include "lib/prefs/preferences.h"
#include "lib/strings/string_holder.h"
#include "lib/strings/tov_search.h"
#include "lib/ui/qt_text.h"
#include "location/accepted_types.h"
#include "location/file_name.h"
#include "location/picture_source.h"

#include <QAction>
#include <QPushButton>
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

MoreKindsNotice::MoreKindsNotice(QWidget* parent)
    : Notice(QStringLiteral("moreKindsNotice"), parent)
{
    //: Button of the notice "... pictures can be read, too": has them read from now on
    auto* button = new QPushButton(tr("Read Them"), this);
    button->setObjectName(QStringLiteral("readMoreKindsButton"));
    addButton(button);
    connect(button, &QPushButton::clicked, this, &MoreKindsNotice::wanted);
}

void MoreKindsNotice::offer(TovStringRef path)
{
    const StringHolder name(gpsCopyFileName(path));
    const StringHolder extension(TovStringGetExtension(name.get()));
    const QString kind = cuDisplayText(extension.get()).toUpper();
    //: A notice in the window; %1 is the name of a kind, such as "HEIC", and no number
    QString words = tr("%1 pictures can be read, too.");
    //: A notice in the window; %1 is the name of a kind, such as "MP4", and no number
    if (isPathOfVideo(path)) words = tr("%1 videos can be read, too.");
    words = words.arg(kind);
    // Of many such files in a row a screen reader reads it out once.
    if (words != accessibleName()) say(words);
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
    const bool isWanted = !isOn_ && !isDismissed_ && isPathOfMoreKinds(path);
    if (notice_ == nullptr && isWanted) {
        notice_ = new MoreKindsNotice(window_.centralWidget());
        connect(notice_, &MoreKindsNotice::wanted, window_.readMoreAction,
                [this] { window_.readMoreAction->setChecked(true); });
        connect(notice_, &MoreKindsNotice::dismissed, this, [this] {
            isDismissed_ = true;
            notice_->hide();
        });
        window_.windowLayout->addWidget(notice_);
    }
    if (isWanted) notice_->offer(path);
    if (notice_ != nullptr) notice_->setVisible(isWanted);
}

bool MoreKinds::isOffering() const
{
    return notice_ != nullptr && !notice_->isHidden();
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
