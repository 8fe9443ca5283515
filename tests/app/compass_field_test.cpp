#include "app/compass_field.h"

#include "tests/support/mirrored.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QImage>

using namespace pinorama;

namespace {
QImage shown(CompassField& field)
{
    field.resize(200, 40);
    return field.grab().toImage();
}

// The middle of what is drawn in the arrow's place.
QPointF middleOfArrow(const QImage& image, int width)
{
    const QColor ground = image.pixelColor(image.width() - 1, image.height() - 1);
    double x = 0, y = 0;
    int count = 0;
    for (int row = 0; row < image.height(); ++row) {
        for (int column = 0; column < width; ++column) {
            if (image.pixelColor(column, row) == ground) continue;
            x += column;
            y += row;
            ++count;
        }
    }
    return count == 0 ? QPointF(-1, -1) : QPointF(x / count, y / count);
}
}  // namespace

TEST(CompassField, pointsItsArrowInTheDirection)
{
    CompassField field;
    const int width = field.contentsMargins().left();
    const auto middleOf = [&](double degrees) {
        field.setDirection(degrees, QStringLiteral("x"));
        return middleOfArrow(shown(field), width);
    };
    // The arrow is heavier at its back.
    const QPointF north = middleOf(360), east = middleOf(90), south = middleOf(180),
                  west = middleOf(270);
    EXPECT_GT(north.y(), south.y());
    EXPECT_LT(east.x(), west.x());
    EXPECT_NEAR(north.x(), south.x(), 0.8);
    EXPECT_NEAR(east.y(), west.y(), 0.8);
}

TEST(CompassField, hasItsArrowBeforeTheWordsInAMirroredWindow)
{
    CompassField usual;
    const int room = usual.contentsMargins().left();
    usual.setDirection(90, QStringLiteral(" "));
    const QPointF nothing(-1, -1);
    EXPECT_NE(middleOfArrow(shown(usual), room), nothing);
    const test::Mirrored mirrored;
    CompassField field;
    EXPECT_EQ(field.contentsMargins().left(), 0);
    EXPECT_EQ(field.contentsMargins().right(), room);
    field.setDirection(90, QStringLiteral(" "));
    const QImage image = shown(field);
    const int width = image.width();
    EXPECT_EQ(middleOfArrow(image, width - room), nothing);
    // The arrow itself is the same: east is on the right of every map.
    const QPointF east = middleOfArrow(image.copy(width - room, 0, room, 40), room);
    field.setDirection(270, QStringLiteral(" "));
    const QPointF west = middleOfArrow(shown(field).copy(width - room, 0, room, 40), room);
    EXPECT_LT(east.x(), west.x());
}

TEST(CompassField, showsNothingWithoutADirection)
{
    CompassField field;
    const QImage empty = shown(field);
    field.setDirection(45, QStringLiteral("NE"));
    EXPECT_NE(shown(field), empty);
    EXPECT_GT(field.sizeHint().width(), field.fontMetrics().horizontalAdvance(field.text()));
    field.clearDirection();
    EXPECT_EQ(shown(field), empty);
    EXPECT_EQ(field.sizeHint().width(), 0);
}
