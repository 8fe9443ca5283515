// The captions can be read on every background that a text can be read on.

#include "app/caption_colour.h"

#include <QPalette>

#include <gtest/gtest.h>

using namespace pinorama;

namespace {
// Colours as 0xRRGGBB.
struct ThemeRow {
    const char* name;
    QRgb window, text;                  // of an active window
    QRgb inactiveWindow, inactiveText;  // and of an inactive one
};

// Like those that Qt takes from these themes.
constexpr ThemeRow kThemes[] = {
    {"Adwaita", 0xF6F5F4, 0x2E3436, 0xFAF9F8, 0x929595},
    {"Adwaita, dark", 0x353535, 0xEEEEEC, 0x303030, 0x919190},
    {"Adwaita 4", 0xFAFAFA, 0x323232, 0xFAFAFA, 0x969696},
    {"Breeze", 0xEFF0F1, 0x232629, 0xEFF0F1, 0x232629},
    {"Breeze, dark", 0x2A2E32, 0xFCFCFC, 0x2A2E32, 0xFCFCFC},
    {"Breeze, that fades", 0xEFF0F1, 0x232629, 0xEFF0F1, 0x707D8A},
    {"high contrast", 0xFFFFFF, 0x000000, 0xFFFFFF, 0x000000},
    {"high contrast, dark", 0x000000, 0xFFFFFF, 0x000000, 0xFFFFFF},
    {"high contrast, that fades", 0x000000, 0xFFFFFF, 0x000000, 0x6A6A6A},
};

QPalette paletteOf(const ThemeRow& row)
{
    QPalette palette;
    palette.setColor(QPalette::Active, QPalette::Window, QColor(row.window));
    palette.setColor(QPalette::Active, QPalette::WindowText, QColor(row.text));
    palette.setColor(QPalette::Inactive, QPalette::Window, QColor(row.inactiveWindow));
    palette.setColor(QPalette::Inactive, QPalette::WindowText, QColor(row.inactiveText));
    return palette;
}
}  // namespace

TEST(contrastRatio, goesFromOneToTwentyOne)
{
    EXPECT_NEAR(contrastRatio(Qt::black, Qt::white), 21.0, 0.001);
    EXPECT_NEAR(contrastRatio(Qt::white, Qt::black), 21.0, 0.001);
    EXPECT_NEAR(contrastRatio(Qt::red, Qt::red), 1.0, 0.001);
    // A grey that is just enough on white, as every table of such colours has it.
    EXPECT_NEAR(contrastRatio(QColor(0x76, 0x76, 0x76), Qt::white), 4.54, 0.005);
}

TEST(captionColour, isQuietAndEasyToRead)
{
    const struct {
        const char* name;
        QColor background;
        QColor text;
    } rows[] = {
        {"light", QColor(0xEF, 0xF0, 0xF1), QColor(0x23, 0x26, 0x29)},
        {"dark", QColor(0x31, 0x36, 0x3B), QColor(0xFC, 0xFC, 0xFC)},
        {"high contrast", Qt::black, Qt::white},
        {"high contrast, turned round", Qt::white, Qt::black},
        {"yellow on black", Qt::black, Qt::yellow},
        {"warm and pale", QColor(0xFD, 0xF6, 0xE3), QColor(0x58, 0x6E, 0x75)},
        {"blue and grey", QColor(0x2E, 0x34, 0x40), QColor(0xB0, 0xB8, 0xC4)},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const QColor caption = captionColour(row.background, row.text);
        EXPECT_GE(contrastRatio(row.background, caption), 4.5);
        EXPECT_LT(contrastRatio(row.background, caption), contrastRatio(row.background, row.text));
    }
}

TEST(captionColour, isTheTextsOwnWhereThatIsHardToReadAlready)
{
    const QColor grey(0x90, 0x90, 0x90);
    EXPECT_EQ(captionColour(Qt::white, grey), grey);
}

TEST(captionColour, ofATranslucentTextIsOpaqueAndEasyToRead)
{
    for (const int alpha : {255, 204, 160, 140}) {
        const QColor caption = captionColour(Qt::white, QColor(0, 0, 0, alpha));
        EXPECT_EQ(caption.alpha(), 255);
        EXPECT_GE(contrastRatio(Qt::white, caption), 4.5) << alpha;
    }
}

TEST(captionColour, isEasyToReadInAnActiveAndInAnInactiveWindow)
{
    for (const ThemeRow& row : kThemes) {
        SCOPED_TRACE(row.name);
        const QPalette palette = paletteOf(row);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            const QColor background = palette.color(group, QPalette::Window);
            EXPECT_GE(contrastRatio(background, captionColour(palette, group)), 4.5) << group;
        }
    }
}

TEST(captionColour, followsAThemeThatFadesInactiveTextsALittle)
{
    QPalette palette = paletteOf(kThemes[0]);
    const QColor faded(0x50, 0x55, 0x57);
    palette.setColor(QPalette::Inactive, QPalette::WindowText, faded);
    const QColor background = palette.color(QPalette::Inactive, QPalette::Window);
    EXPECT_EQ(captionColour(palette, QPalette::Inactive), captionColour(background, faded));
}

TEST(captionColour, isTheMoreReadableOfTwoTextsThatAreHardToRead)
{
    QPalette palette;
    palette.setColor(QPalette::Window, Qt::white);
    palette.setColor(QPalette::Active, QPalette::WindowText, QColor(0xA0, 0xA0, 0xA0));
    palette.setColor(QPalette::Inactive, QPalette::WindowText, QColor(0x90, 0x90, 0x90));
    EXPECT_EQ(captionColour(palette, QPalette::Inactive), QColor(0x90, 0x90, 0x90));
    palette.setColor(QPalette::Active, QPalette::WindowText, QColor(0x80, 0x80, 0x80));
    EXPECT_EQ(captionColour(palette, QPalette::Inactive), QColor(0x80, 0x80, 0x80));
}
