#include "app/stale_fields.h"

#include "app/caption_colour.h"
#include "app/main_window.h"
#include "app/shown_text.h"

#include <QEvent>

#include <initializer_list>

namespace pinorama {

StaleFields::StaleFields(MainWindow& window) : window_(window)
{
    window_.installEventFilter(this);
}

void StaleFields::takeFresh(const QString& name)
{
    origin_ = name;
    while (!stale_.empty()) mark(*stale_.begin(), false);
}

void StaleFields::takeKept(bool keepsPosition)
{
    for (WrappedField* field : {window_.iptcCityField, window_.iptcStateField,
                                window_.iptcCountryField, window_.iptcDescriptionField})
        mark(field, !field->text().isEmpty());
    for (WrappedField* field :
         {window_.gpsCoordinateField, window_.gpsAltitudeField, window_.gpsDirectionField})
        mark(field, keepsPosition && !field->text().isEmpty());
}

bool StaleFields::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        for (WrappedField* field : stale_) dim(field);
    }
    return QObject::eventFilter(watched, event);
}

void StaleFields::mark(WrappedField* field, bool isStale)
{
    if (!isStale && !stale_.contains(field)) return;
    QFont font;  // says nothing but what is set here, so that the rest follows the desktop
    QString words;
    if (isStale) {
        stale_.insert(field);
        font.setItalic(true);
        dim(field);
        //: Of a text that belongs to an earlier picture; %1 is the name of that
        words = tr("from %1").arg(isolated(shownText(origin_)));
    } else {
        stale_.erase(field);
        field->setPalette(QPalette());
    }
    field->setFont(font);
    // Markup in a name is part of it.
    field->setToolTip(words.isEmpty() ? words
                                      : QLatin1String("<p style='white-space:pre-wrap'>") +
                                            words.toHtmlEscaped() + QLatin1String("</p>"));
    field->setAccessibleDescription(words);
}

void StaleFields::dim(WrappedField* field)
{
    QPalette palette;
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
        palette.setColor(group, QPalette::Text, captionColour(window_.palette(), group));
    }
    field->setPalette(palette);
}

}  // namespace pinorama
