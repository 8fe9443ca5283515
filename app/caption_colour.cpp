#include "app/caption_colour.h"

#include <algorithm>
#include <cmath>

namespace pinorama {
namespace {
// Percent of the way from the background to the text.
constexpr int kQuietest = 72;
constexpr int kQuietestOfNothing = 40;
constexpr int kStep = 4;

double linear(float channel)
{
    return channel <= 0.04045F ? channel / 12.92 : std::pow((channel + 0.055) / 1.055, 2.4);
}

double luminance(const QColor& colour)
{
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) +
           0.0722 * linear(colour.blueF());
}

QColor between(const QColor& background, const QColor& text, float strength)
{
    const auto mixed = [strength](float a, float b) { return a + (b - a) * strength; };
    return QColor::fromRgbF(mixed(background.redF(), text.redF()),
                            mixed(background.greenF(), text.greenF()),
                            mixed(background.blueF(), text.blueF()));
}

// The first colour on the way from the background to the text that is easy to read.
QColor colourOnTheWay(const QColor& background, const QColor& text, int percent)
{
    const QColor seen = between(background, text, text.alphaF());
    for (; percent < 100; percent += kStep) {
        const QColor colour = between(background, seen, static_cast<float>(percent) / 100.0F);
        if (contrastRatio(background, colour) >= kReadableContrast) return colour;
    }
    return seen;
}
}  // namespace

double contrastRatio(const QColor& one, const QColor& other)
{
    const auto [darker, brighter] = std::minmax({luminance(one), luminance(other)});
    return (brighter + 0.05) / (darker + 0.05);
}

QColor captionColour(const QColor& background, const QColor& text)
{
    return colourOnTheWay(background, text, kQuietest);
}

QColor captionColour(const QPalette& palette, QPalette::ColorGroup group, Captioned captioned)
{
    const QColor background = palette.color(group, QPalette::Window);
    if (captioned == Captioned::nothing) {
        return colourOnTheWay(background, palette.color(QPalette::Active, QPalette::WindowText),
                              kQuietestOfNothing);
    }
    const QColor own = captionColour(background, palette.color(group, QPalette::WindowText));
    const QColor other =
        captionColour(background, palette.color(QPalette::Active, QPalette::WindowText));
    const double contrast = contrastRatio(background, own);
    return contrast >= kReadableContrast || contrast >= contrastRatio(background, other) ? own
                                                                                         : other;
}

}  // namespace pinorama
