#include "lib/ui/view_translation.h"

#include "lib/strings/string_holder.h"
#include "lib/ui/cocoa_utils.h"
#include "lib/ui/qt_text.h"
#include "lib/ui/view_texts.h"

#include <QLabel>
#include <QMovie>
#include <QPicture>
#include <QPixmap>

#include <exception>
#include <optional>

namespace {
QString translated(const QString& text)
{
    const StringHolder original(cuCreateText(text));
    TovStringRef replacement = cocoaUtils::translateADialogString(original.get());
    if (replacement == original.get()) return text;
    return cuTextUnits(StringHolder(replacement).get());
}

// Sets the translation of a text that the view shows, and passes on what the setter throws. A text
// that stays as it is is not set: what is read and set is plain text, so that links, forms, the
// selection and what can be undone would be lost.
void setTranslated(QWidget* view, ViewText kind, int item, const QString& text,
                   const QString& translation)
{
    if (translation != text) cuSetViewText(view, kind, item, translation);
}

// Translates a text when the view has it and it is not empty; true when the setter took it. What
// goes wrong in the translation itself is passed on.
bool translateGuarded(QWidget* view, ViewText kind, int item = 0)
{
    const std::optional<QString> text = cuViewText(view, kind, item);
    if (!text || text->isEmpty()) return false;
    const QString translation = translated(*text);
    try {
        setTranslated(view, kind, item, *text, translation);
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void translatePlaceholder(QWidget* view)
{
    try {
        if (const auto text = cuViewText(view, ViewText::placeholder))
            setTranslated(view, ViewText::placeholder, 0, *text, translated(*text));
    } catch (const std::exception&) {
        // The walk goes on: the placeholder stays as designed.
    }
}

bool isPictureLabel(const QWidget* view)
{
    const auto* label = qobject_cast<const QLabel*>(view);
    return label != nullptr &&
           (!label->pixmap().isNull() || !label->picture().isNull() || label->movie());
}
}  // namespace

void cuTranslateOwnTexts(QWidget* view)
{
    if (const auto toolTip = cuViewText(view, ViewText::toolTip))
        setTranslated(view, ViewText::toolTip, 0, *toolTip, translated(*toolTip));

    // A pop-up is done with its items: its own title is never taken for a button's.
    const std::optional<int> itemCount = cuPopUpItemCount(view);
    for (int item = 0; item < itemCount.value_or(0); ++item)
        translateGuarded(view, ViewText::item, item);
    translatePlaceholder(view);
    if (itemCount || translateGuarded(view, ViewText::title) || isPictureLabel(view)) return;

    // A button that refused its title gets a second chance as a control.
    translateGuarded(view, ViewText::value);
}
