// The colour of the captions: quieter than the texts beside them, and always easy to read.

#pragma once

#include <QColor>
#include <QPalette>

namespace pinorama {

// What a text needs to be easy to read: level AA of the Web Content Accessibility Guidelines 2.1.
inline constexpr double kReadableContrast = 4.5;

// The contrast between two opaque colours, from 1 for none to 21 for black on white.
// Source: the same guidelines, "contrast ratio".
double contrastRatio(const QColor& one, const QColor& other);

// An opaque colour between `background` and `text`: nearer to the text, and as near as it takes for
// kReadableContrast. `text` itself, as it looks on the background, when even that has less. The
// background is opaque; the text may be translucent.
QColor captionColour(const QColor& background, const QColor& text);

// What stands beside a caption.
enum class Captioned {
    text,
    nothing,  // the caption is quieter still, and as easy to read
};

// The colour of the captions in a window with this palette, while it is in the state that `group`
// stands for. Some themes fade the texts of an inactive window so far that nothing quieter can be
// read; there the texts of the active window are the measure.
QColor captionColour(const QPalette& palette, QPalette::ColorGroup group,
                     Captioned captioned = Captioned::text);

}  // namespace pinorama
