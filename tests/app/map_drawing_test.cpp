// The drawing of the small map, without the widget that shows it.

#include "app/map_drawing.h"

#include "tests/app/map_fixture.h"

#include <QPainter>
#include <QPalette>

#include <cmath>
#include <cstdlib>
#include <utility>

using namespace pinorama;
using namespace pinorama::tests;

namespace {
const MapColours kColours = {QColor(Qt::blue), QColor(Qt::yellow), QColor(Qt::black),
                             QColor(Qt::red)};

QImage mapImage(const PlaceData& data, const MapFrame& frame, double ratio = 1)
{
    QImage image(kSize * ratio, QImage::Format_RGB32);
    image.setDevicePixelRatio(ratio);
    image.fill(Qt::green);
    QPainter painter(&image);
    drawMap(painter, data, frame, kColours, ratio);
    return image;
}

QColor colourAt(const QImage& image, QPointF point)
{
    return image.pixelColor((point * image.devicePixelRatio()).toPoint());
}

using DrawMap = MapTest;
}  // namespace

TEST(MapFrame, hasThePointInItsMiddle)
{
    const MapFrame frame(48, 11, 28, kSize);
    EXPECT_EQ(frame.at(48, 11), QPointF(80, 70));
    EXPECT_NEAR(frame.box().north - frame.box().south, 28, 1e-9);
    EXPECT_NEAR(frame.box().north, 62, 1e-9);
    // A degree of longitude is shorter there.
    EXPECT_NEAR(frame.box().east - frame.box().west, 28.0 * 160 / 140 / std::cos(48 * M_PI / 180),
                1e-9);
    EXPECT_LT(frame.at(49, 11).y(), 70);
    EXPECT_GT(frame.at(48, 12).x(), 80);
}

TEST(MapFrame, staysOnTheGlobe)
{
    const struct {
        const char* name;
        double latitude, longitude, span;
    } rows[] = {{"north pole", 90, 0, 28},       {"south pole", -90, 180, 28},
                {"arctic", 78, 15, 130},         {"antimeridian", -17, 179.9, 28},
                {"whole world", 0, -180, 10000}, {"near the pole", 89.99, -120, 6}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const MapFrame frame(row.latitude, row.longitude, row.span, kSize);
        const MapBox box = frame.box();
        EXPECT_LE(box.north, 90 + 1e-9);
        EXPECT_GE(box.south, -90 - 1e-9);
        EXPECT_LT(box.west, box.east);
        EXPECT_LE(box.east - box.west, 360 + 1e-9);
        const QPointF place = frame.at(row.latitude, row.longitude);
        EXPECT_TRUE(QRectF(QPointF(0, 0), kSize).adjusted(-1, -1, 1, 1).contains(place));
    }
}

TEST_F(DrawMap, hasLandSeaCoastsAndBorders)
{
    const MapFrame frame(46, 13, 14, kSize);
    const QImage image = mapImage(*data, frame);
    EXPECT_EQ(colourAt(image, frame.at(kMunich.latitude, kMunich.longitude)), kColours.land);
    EXPECT_EQ(colourAt(image, frame.at(kAdriatic.latitude, kAdriatic.longitude)), kColours.sea);
    EXPECT_EQ(pixelsOf(image, QColor(Qt::green)), 0) << "all of it is drawn";
    int borders = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor colour = image.pixelColor(x, y);
            borders += colour.red() > 150 && colour.green() < 150 && colour.blue() < 80 ? 1 : 0;
        }
    }
    EXPECT_GT(borders, 50);
}

TEST_F(DrawMap, isDrawnOnBothSidesOfTheAntimeridian)
{
    const MapFrame frame(66, 180, 20, kSize);
    const QImage image = mapImage(*data, frame);
    EXPECT_EQ(colourAt(image, frame.at(68, 176)), kColours.land) << "Chukotka";
    EXPECT_EQ(colourAt(image, frame.at(67, 181)), kColours.land) << "east of it";
    EXPECT_EQ(colourAt(image, frame.at(60, 177)), kColours.sea);
    EXPECT_EQ(colourAt(image, frame.at(62.5, 183)), kColours.sea);
}

TEST_F(DrawMap, fillsTheFrameEverywhere)
{
    for (const double latitude : {-90.0, -60.0, 0.0, 75.0, 90.0}) {
        for (const double longitude : {-180.0, -90.0, 0.0, 179.99}) {
            for (const double span : {6.0, 28.0, 130.0}) {
                SCOPED_TRACE(testing::Message() << latitude << ' ' << longitude << ' ' << span);
                const QImage image = mapImage(*data, {latitude, longitude, span, kSize});
                EXPECT_EQ(pixelsOf(image, QColor(Qt::green)), 0);
            }
        }
    }
}

TEST_F(DrawMap, isSharpAtTwiceTheDensity)
{
    const MapFrame frame(46, 13, 14, kSize);
    const QImage sharp = mapImage(*data, frame, 2);
    EXPECT_EQ(sharp.size(), kSize * 2);
    // Lines are two pixels wide there, with edges that are no wider than before.
    const QImage enlarged =
        mapImage(*data, frame).scaled(kSize * 2, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const auto pure = [](const QImage& image) {
        return pixelsOf(image, kColours.land) + pixelsOf(image, kColours.sea);
    };
    EXPECT_GT(pure(sharp), pure(enlarged));
}

TEST(MapColours, tellLandFromSeaInLightAndDark)
{
    for (const auto& [window, text] :
         {std::pair<QColor, QColor>(Qt::white, Qt::black),
          std::pair<QColor, QColor>(Qt::black, Qt::white),
          std::pair<QColor, QColor>(QColor(0x31, 0x36, 0x3B), QColor(0xFC, 0xFC, 0xFC))}) {
        QPalette palette;
        palette.setColor(QPalette::Window, window);
        palette.setColor(QPalette::WindowText, text);
        const MapColours colours = MapColours::of(palette);
        EXPECT_GT(std::abs(colours.land.lightness() - colours.sea.lightness()), 12);
        EXPECT_GT(std::abs(colours.land.lightness() - colours.coast.lightness()), 50);
        const bool isDark = window.lightness() < text.lightness();
        EXPECT_EQ(colours.land.lightness() < 128, isDark);
    }
}
