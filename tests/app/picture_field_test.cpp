#include "app/picture_field.h"

#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QMimeData>
#include <QSignalSpy>

using pinorama::PictureField;

namespace {
constexpr QSize kSmall(PictureField::kSmallest, PictureField::kSmallest);

QPixmap pixmap(QSize size, QColor color = Qt::red, qreal ratio = 1)
{
    QPixmap picture(size * ratio);
    picture.setDevicePixelRatio(ratio);
    picture.fill(color);
    return picture;
}

// A field with so much room, shown in a window of its own.
void furnish(PictureField& field, QSize room)
{
    field.setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    field.setMinimumSize(kSmall);
    field.setRoom(room, room);
    field.resize(room);
    field.show();
}

// Where the field paints something of that color.
QRect placeOf(PictureField& field, QColor color)
{
    const QImage image = field.grab().toImage();
    QRect place;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixelColor(x, y) == color) place |= QRect(x, y, 1, 1);
        }
    }
    return place;
}

bool isBlank(PictureField& field)
{
    const QImage image = field.grab().toImage();
    const QRgb ground = image.pixel(0, 0);
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (image.pixel(x, y) != ground) return false;
        }
    }
    return true;
}
}  // namespace

TEST(PictureField, showsAPreviewInItsOwnSize)
{
    PictureField field;
    EXPECT_EQ(field.shownSize(), QSize(0, 0));
    EXPECT_EQ(field.room(), kSmall);
    furnish(field, {300, 200});
    EXPECT_EQ(field.room(), QSize(300, 200));
    field.showPreview(pixmap({128, 85}));
    EXPECT_EQ(field.shownSize(), QSize(128, 85));
    EXPECT_EQ(placeOf(field, Qt::red), QRect(86, 0, 128, 85));
}

TEST(PictureField, enlargesThePreviewWhileALargerOneIsAwaited)
{
    PictureField field;
    furnish(field, {300, 200});
    field.showPreview(pixmap({128, 64}));
    field.setAwaitsLarger(true);
    EXPECT_EQ(field.shownSize(), QSize(300, 150));
    EXPECT_EQ(placeOf(field, Qt::red), QRect(0, 0, 300, 150));
    field.setAwaitsLarger(false);
    EXPECT_EQ(field.shownSize(), QSize(128, 64)) << "it has not come";
}

TEST(PictureField, showsALargerOneInstead)
{
    PictureField field;
    furnish(field, {300, 200});
    field.showPreview(pixmap({128, 64}));
    field.setAwaitsLarger(true);
    field.showLarger(pixmap({512, 256}, Qt::blue));
    EXPECT_EQ(field.shownSize(), QSize(300, 150)) << "where it was awaited";
    field.setAwaitsLarger(false);
    EXPECT_EQ(field.shownSize(), QSize(300, 150));
    EXPECT_EQ(placeOf(field, Qt::blue), QRect(0, 0, 300, 150));
    EXPECT_EQ(field.pixmap().size(), QSize(128, 64)) << "the preview is the small one";

    field.setRoom(kSmall, kSmall);
    EXPECT_EQ(field.shownSize(), QSize(128, 64));
    EXPECT_TRUE(placeOf(field, Qt::blue).isNull());
    EXPECT_EQ(placeOf(field, Qt::red), QRect(86, 0, 128, 64));
}

TEST(PictureField, neverShowsMorePixelsThanThereAre)
{
    PictureField field;
    furnish(field, {400, 400});
    field.showPreview(pixmap({128, 64}));
    field.showLarger(pixmap({200, 100}, Qt::blue));
    EXPECT_EQ(placeOf(field, Qt::blue), QRect(100, 0, 200, 100));
}

TEST(PictureField, countsInPointsOnADenseScreen)
{
    PictureField field;
    furnish(field, {400, 400});
    field.showPreview(pixmap({128, 64}, Qt::red, 2));
    EXPECT_EQ(field.shownSize(), QSize(128, 64));
    field.showLarger(pixmap({256, 128}, Qt::blue, 2));
    EXPECT_EQ(field.shownSize(), QSize(256, 128));
}

TEST(PictureField, forgetsTheLargerOneWithItsPicture)
{
    PictureField field;
    furnish(field, {400, 400});
    field.showPreview(pixmap({128, 64}));
    field.setAwaitsLarger(true);
    field.showLarger(pixmap({400, 200}, Qt::blue));
    field.showPreview(pixmap({64, 128}, Qt::green));
    EXPECT_EQ(field.shownSize(), QSize(64, 128));
    EXPECT_EQ(placeOf(field, Qt::green), QRect(168, 0, 64, 128));

    field.showLarger(pixmap({200, 400}, Qt::blue));
    field.showNothing();
    EXPECT_EQ(field.shownSize(), QSize(0, 0));
    field.showPreview(pixmap({64, 128}, Qt::green));
    EXPECT_EQ(field.shownSize(), QSize(64, 128));
}

TEST(PictureField, hasAnOutlineWhileNoFileIsShown)
{
    PictureField field;
    furnish(field, {300, 200});
    EXPECT_FALSE(isBlank(field));
    field.setFile("/a.jpg");
    EXPECT_TRUE(isBlank(field)) << "its preview is there in a moment";
    field.showNothing();
    EXPECT_FALSE(isBlank(field));
    EXPECT_EQ(field.dragData(), nullptr);
}

TEST(PictureField, saysWhenItsRoomChanges)
{
    PictureField field;
    furnish(field, {300, 200});
    const QSignalSpy changes(&field, &PictureField::roomChanged);
    field.setRoom({300, 200}, {300, 200});
    EXPECT_EQ(changes.count(), 0);
    field.setRoom({250, 200}, {300, 200});
    EXPECT_EQ(changes.count(), 1);
    field.resize(240, 200);
    EXPECT_EQ(changes.count(), 2);
    EXPECT_EQ(field.room(), QSize(240, 200)) << "no more than the field itself has";
    field.hide();
    field.show();
    EXPECT_EQ(changes.count(), 3);
    field.resize(150, 150);
    field.setRoom(kSmall, {200, 190});
    EXPECT_EQ(field.sizeHint(), QSize(200, 190));
    EXPECT_EQ(field.room(), kSmall);
}
