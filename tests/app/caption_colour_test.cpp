// The captions can be read on every background that a text can be read on.

#include "app/caption_colour.h"

#include <gtest/gtest.h>

using namespace pinorama;

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
