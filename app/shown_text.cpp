#include "app/shown_text.h"

#include "base/printable.h"

#include <QGuiApplication>
#include <QList>
#include <QStringList>
#include <QTextBoundaryFinder>

#include <algorithm>
#include <utility>

namespace pinorama {
namespace {
constexpr QChar kEllipsis(0x2026);
constexpr qsizetype kMaxCharacterLength = 64;
constexpr int kMaxNameLetters = 30;
constexpr int kMaxFolderLetters = 45;
constexpr QChar kLeftToRightIsolate(0x2066);
constexpr QChar kFirstStrongIsolate(0x2068);
constexpr QChar kPopDirectionalIsolate(0x2069);

// Where to cut a text that is longer than kMaxShownLength.
qsizetype lastBoundary(const QString& text)
{
    // The finder looks at all that it is given: what may be shown, and one code point more.
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text.constData(),
                               std::min(text.size(), kMaxShownLength + 2));
    finder.setPosition(kMaxShownLength);
    if (finder.isAtBoundary()) return kMaxShownLength;
    const qsizetype boundary = finder.toPreviousBoundary();
    if (boundary >= kMaxShownLength - kMaxCharacterLength) return boundary;
    return text[kMaxShownLength].isLowSurrogate() ? kMaxShownLength - 1 : kMaxShownLength;
}

// Line breaks and tabs are laid out and do no harm.
bool mayBeShown(QChar unit)
{
    return !isDisplayControl(unit.unicode()) || unit == QLatin1Char('\n') ||
           unit == QLatin1Char('\r') || unit == QLatin1Char('\t');
}

QString withoutControls(QString text)
{
    for (qsizetype i = 0; i < text.size(); i++) {
        if (!mayBeShown(std::as_const(text)[i])) text[i] = QChar::ReplacementCharacter;
    }
    return text;
}

bool hasRightToLeftLetters(const QString& text)
{
    const QList<uint> characters = text.toUcs4();
    return std::ranges::any_of(characters, [](uint character) {
        const QChar::Direction direction = QChar::direction(character);
        return direction == QChar::DirR || direction == QChar::DirAL || direction == QChar::DirAN;
    });
}

bool needsIsolation(const QString& text)
{
    return !text.isEmpty() && (QGuiApplication::isRightToLeft() || hasRightToLeftLetters(text));
}

QString elided(const QString& text, int maxLetters, const QFontMetrics& letters)
{
    return letters.elidedText(shownText(text), Qt::ElideMiddle,
                              maxLetters * letters.averageCharWidth());
}
}  // namespace

QString shownText(const QString& text)
{
    if (text.size() <= kMaxShownLength) return withoutControls(text);
    return withoutControls(text.first(lastBoundary(text))) + kEllipsis;
}

QString isolated(const QString& shown)
{
    if (!needsIsolation(shown)) return shown;
    return kFirstStrongIsolate + shown + kPopDirectionalIsolate;
}

QString isolatedPath(const QString& shown)
{
    if (!needsIsolation(shown)) return shown;
    QStringList names = shown.split(QLatin1Char('/'));
    for (QString& name : names) name = isolated(name);
    return kLeftToRightIsolate + names.join(QLatin1Char('/')) + kPopDirectionalIsolate;
}

QString withoutIsolation(QString text)
{
    return text.removeIf(
        [](QChar unit) { return unit >= kLeftToRightIsolate && unit <= kPopDirectionalIsolate; });
}

QString shownName(const QString& name, const QFontMetrics& letters)
{
    return isolated(elided(name, kMaxNameLetters, letters));
}

QString shownFolder(const QString& path, const QFontMetrics& letters)
{
    return isolatedPath(elided(path, kMaxFolderLetters, letters));
}

}  // namespace pinorama
