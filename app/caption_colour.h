// The colour of the captions: quieter than the texts beside them, and always easy to read.

#pragma once

#include <QColor>

namespace pinorama {

// The contrast between two opaque colours, from 1 for none to 21 for black on white.
// Source: Web Content Accessibility Guidelines 2.1, "contrast ratio".
double contrastRatio(const QColor& one, const QColor& other);

// A colour between `background` and `text`: nearer to the text, and as near as it takes for a
// contrast of 4.5 (level AA of the same guidelines). `text` itself when even that has less.
QColor captionColour(const QColor& background, const QColor& text);

}  // namespace pinorama
