// The form in which the window shows a text that somebody else wrote: one of a picture, the name of
// a file, what another program sent. Laying a text out takes time that grows with the square of its
// length, and every byte of it may be hostile. Lengths are UTF-16 units.

#pragma once

#include <QFontMetrics>
#include <QString>

namespace pinorama {

// No text of the window is shown with more; IPTC allows 2,000 bytes for its longest one.
inline constexpr qsizetype kMaxShownLength = 2000;

// `text` itself if it may be shown as it stands. A longer text ends in an ellipsis after its last
// whole character (grapheme) within kMaxShownLength; only one that has more than 64 units itself
// may be cut. A control character, and one that overrides, embeds or isolates a direction
// (isDisplayControl), is shown as U+FFFD, so that a name reads as it is written; line breaks and
// tabs stay.
QString shownText(const QString& text);

// A text that somebody else wrote, as a part of a sentence of the window: neither its direction of
// reading nor that of the words around it changes the order in which the other is shown (Unicode
// Standard Annex 9, isolates). `shown` may be shown as it stands. Comes back unchanged where
// everything is read from left to right, the window and the text. Only for what the window shows:
// what is copied or handed to another program has no such characters.
QString isolated(const QString& shown);

// The same for a path: its folders follow each other from left to right in every language.
QString isolatedPath(const QString& shown);

// The text without the characters that the two above have put in.
QString withoutIsolation(QString text);

// The name of a file within a sentence: isolated, and elided in the middle if it has more than
// about 30 letters, so that it does not widen the window.
QString shownName(const QString& name, const QFontMetrics& letters);

// The path of a folder within a sentence: the same with about 45 letters.
QString shownFolder(const QString& path, const QFontMetrics& letters);

}  // namespace pinorama
