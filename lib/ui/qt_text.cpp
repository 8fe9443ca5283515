#include "lib/ui/qt_text.h"

using namespace pinorama;

QString cuDisplayText(const TovString* string)
{
    QString text = cuTextUnits(string);
    for (qsizetype i = 0; i < text.size(); ++i) {
        if (!text[i].isSurrogate()) continue;
        const bool isPair =
            text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        if (isPair) {
            ++i;
        } else {
            text[i] = QChar::ReplacementCharacter;
        }
    }
    return text;
}

QString cuTextUnits(const TovString* string)
{
    const std::u16string_view units = unitsOf(string);
    return QString(reinterpret_cast<const QChar*>(units.data()),
                   static_cast<qsizetype>(units.size()));
}

TovStringRef cuCreateText(QStringView text)
{
    return createString({text.utf16(), static_cast<std::size_t>(text.size())});
}
