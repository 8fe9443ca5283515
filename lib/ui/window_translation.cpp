#include "lib/strings/string_holder.h"
#include "lib/strings/tov_bytes.h"
#include "lib/strings/tov_string.h"
#include "lib/ui/cocoa_utils.h"
#include "lib/ui/qt_text.h"
#include "lib/ui/string_tables.h"
#include "lib/ui/view_texts.h"

#include <QLabel>
#include <QMovie>
#include <QPicture>
#include <QPixmap>
#include <QWidget>

#include <exception>

namespace {
constexpr std::int16_t kDialogTable = 1100;  // texts marked "##"
constexpr std::int16_t kWordTable = 1001;    // texts marked "+#"

// The table that the marker at the beginning of `text` names; 0 when there is none.
std::int16_t tableOfMarker(TovStringRef text)
{
    // The marker is looked for in the UTF-8 form, so a text that has none is no placeholder.
    if (TovStringGetLength(text) < 3 || TovStringGetUTF8Size(text) < 2) return 0;
    if (TovStringGetUniChar(text, 1) != u'#') return 0;
    switch (TovStringGetUniChar(text, 0)) {
    case u'#': return kDialogTable;
    case u'+': return kWordTable;
    default: return 0;
    }
}

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

void translateOwnTexts(QWidget* view)
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

QList<QWidget*> subviewsOf(const QWidget* view)
{
    QList<QWidget*> subviews;
    for (QObject* child : view->children()) {
        if (!child->isWidgetType()) continue;
        auto* subview = static_cast<QWidget*>(child);
        if (!subview->isWindow()) subviews.append(subview);
    }
    return subviews;
}
}  // namespace

TovStringRef cocoaUtils::translateADialogString(TovStringRef text)
{
    const std::int16_t table = tableOfMarker(text);
    if (table == 0) return text;

    const StringHolder digits(TovStringCreateWithSubstring(text, 2, TovStringGetLength(text) - 2));
    const std::int32_t number = TovStringGetIntValue(digits.get());
    if (number == 0) return text;
    // Tested before it is narrowed, so 65536 asks for text 0.
    return iuGetIndCFString(table, static_cast<std::int16_t>(number));
}

void cocoaUtils::translateOneView(QWidget* view)
{
    if (view == nullptr) return;
    translateOwnTexts(view);
    // Setting a text may add or remove views, so the list is taken anew each time.
    for (int i = 0; i < subviewsOf(view).size(); ++i) translateOneView(subviewsOf(view).at(i));
}

void cocoaUtils::translateWindow(QWidget* window, std::uint8_t setTitle)
{
    (void)setTitle;  // the title is never changed
    translateOneView(window);
}
