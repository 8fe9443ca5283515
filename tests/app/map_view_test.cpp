// The small map by itself, with the file of places that comes with the program.

#include "app/map_view.h"
#include "app/map_drawing.h"
#include "places/place_finder.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QImage>
#include <QLabel>
#include <QPainter>
#include <QPalette>
#include <QTest>

#include <dirent.h>
#include <sys/socket.h>

#include <cmath>
#include <cstdlib>
#include <set>

using namespace pinorama;

namespace {
struct Point {
    double latitude, longitude;
};

constexpr QSize kSize(160, 140);
constexpr Point kMunich = {48.14, 11.58};
constexpr Point kAdriatic = {43.2, 15.0};
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

int pixelsOf(const QImage& image, const QColor& colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) count += image.pixelColor(x, y) == colour ? 1 : 0;
    }
    return count;
}

// How many sockets of the process can reach another machine.
int networkSockets()
{
    int count = 0;
    DIR* descriptors = opendir("/proc/self/fd");
    while (const dirent* entry = descriptors != nullptr ? readdir(descriptors) : nullptr) {
        int family = 0;
        socklen_t length = sizeof family;
        const int descriptor = std::atoi(entry->d_name);
        if (getsockopt(descriptor, SOL_SOCKET, SO_DOMAIN, &family, &length) != 0) continue;
        if (family == AF_INET || family == AF_INET6) ++count;
    }
    if (descriptors != nullptr) closedir(descriptors);
    return count;
}

class MapTest : public testing::Test {
protected:
    void SetUp() override
    {
        data = finder.data();
        ASSERT_NE(data, nullptr);
    }

    PlaceFinder finder{placesFile()};
    const PlaceData* data = nullptr;
};

using DrawMap = MapTest;

// A map in a window of its own, with a marker.
class MapViewTest : public MapTest {
protected:
    void SetUp() override
    {
        MapTest::SetUp();
        marker->setMinimumSize(32, 32);
        view.setMarker(marker);
        view.resize(kSize);
    }

    void showMunich(std::optional<double> direction = {})
    {
        view.showPlace(data, {kMunich.latitude, kMunich.longitude, false, direction},
                       QStringLiteral("Near Munich, Germany"));
    }

    // What is painted together with the texts.
    QImage painted() { return view.grab().toImage(); }

    // What is there after that.
    QImage shown()
    {
        (void)painted();
        QCoreApplication::processEvents();
        return painted();
    }

    MapView view;
    QLabel* marker = new QLabel(&view);
};
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

TEST_F(MapViewTest, showsNothingWithoutALocation)
{
    EXPECT_TRUE(view.isHidden());
    showMunich();
    EXPECT_FALSE(view.isHidden());
    EXPECT_EQ(view.accessibleName(), QLatin1String("Near Munich, Germany"));
    view.showNothing();
    EXPECT_TRUE(view.isHidden());
    EXPECT_EQ(view.accessibleName(), QString());
}

TEST_F(MapViewTest, showsOnlyTheMarkerWithoutTheFileOfPlaces)
{
    view.showPlace(nullptr, {48, 11}, QString());
    EXPECT_FALSE(view.isHidden());
    EXPECT_FALSE(marker->isHidden());
    EXPECT_EQ(view.focusPolicy(), Qt::NoFocus);
    const QImage image = shown();
    EXPECT_EQ(pixelsOf(image, image.pixelColor(0, 0)), image.width() * image.height());
    view.click();
    EXPECT_EQ(view.scale(), 0);
}

TEST_F(MapViewTest, hasTheFootOfTheMarkerOnThePlace)
{
    showMunich();
    const QPoint foot(marker->x() + 16, marker->y() + 28);
    EXPECT_EQ(foot, QPoint(80, 70));
    view.resize(300, 200);
    EXPECT_EQ(QPoint(marker->x() + 16, marker->y() + 28), QPoint(150, 100));
}

TEST_F(MapViewTest, aClickWalksThroughThreeScales)
{
    showMunich();
    std::vector<QImage> images;
    for (int scale = 0; scale < MapView::kScales; ++scale) {
        EXPECT_EQ(view.scale(), scale);
        images.push_back(shown());
        for (int earlier = 0; earlier < scale; ++earlier)
            EXPECT_NE(images[std::size_t(earlier)], images.back());
        QTest::mouseClick(&view, Qt::LeftButton, {}, QPoint(20, 20));
    }
    EXPECT_EQ(view.scale(), 0);
    EXPECT_EQ(shown(), images.front());
    QTest::keyClick(&view, Qt::Key_Space);
    EXPECT_EQ(view.scale(), 1) << "as the space bar does";
    QTest::mouseClick(marker, Qt::LeftButton);
    EXPECT_EQ(view.scale(), 2) << "and a click on the marker";
}

TEST_F(MapViewTest, hasAWedgeInTheDirectionOfView)
{
    showMunich();
    const QImage without = shown();
    const struct {
        const char* name;
        double direction;
        QPoint inIt, opposite;
    } rows[] = {{"north", 360, {80, 45}, {80, 95}},
                {"east", 90, {105, 70}, {55, 70}},
                {"south-west", 225, {62, 88}, {98, 52}}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        showMunich(row.direction);
        const QImage with = shown();
        EXPECT_NE(with.pixelColor(row.inIt), without.pixelColor(row.inIt));
        EXPECT_EQ(with.pixelColor(row.opposite), without.pixelColor(row.opposite));
    }
}

TEST_F(MapViewTest, keepsTheMapOfPlacesThatLieHardlyApart)
{
    showMunich();
    const QImage without = shown();
    EXPECT_EQ(view.drawings(), 1);
    view.showPlace(data, {kMunich.latitude + 0.002, kMunich.longitude - 0.002, false, {}}, {});
    EXPECT_EQ(shown(), without);
    showMunich(90.0);
    EXPECT_NE(shown(), without) << "the direction is drawn for each";
    view.showNothing();
    showMunich();
    EXPECT_EQ(shown(), without);
    EXPECT_EQ(view.drawings(), 1);

    view.showPlace(data, {kMunich.latitude + 1, kMunich.longitude, false, {}}, {});
    EXPECT_NE(shown(), without);
    EXPECT_EQ(view.drawings(), 2);
    view.resize(kSize * 2);
    (void)shown();
    EXPECT_EQ(view.drawings(), 3);
}

TEST_F(MapViewTest, isDrawnAfterTheWindowHasBeenPainted)
{
    showMunich();
    const QImage ground = painted();
    EXPECT_EQ(view.drawings(), 0);
    EXPECT_GT(pixelsOf(ground, ground.pixelColor(80, 20)), ground.width() * ground.height() * 0.99);
    const QImage munich = shown();
    EXPECT_EQ(view.drawings(), 1);
    EXPECT_NE(munich, ground);

    view.showPlace(data, {kAdriatic.latitude, kAdriatic.longitude, true}, {});
    EXPECT_EQ(painted(), ground) << "not the map of the place before";
    EXPECT_EQ(view.drawings(), 1);
    showMunich();
    EXPECT_EQ(painted(), munich) << "which is at once there again";
    EXPECT_EQ(view.drawings(), 1);
}

TEST_F(MapViewTest, isNotDrawnOfAPlaceThatIsGone)
{
    for (const Point place : {kAdriatic, kMunich, Point{-54.8, -68.3}}) {
        view.showPlace(data, {place.latitude, place.longitude}, {});
        (void)painted();
    }
    view.showNothing();
    QCoreApplication::processEvents();
    EXPECT_EQ(view.drawings(), 0);
    for (const Point place : {kAdriatic, kMunich, Point{-54.8, -68.3}}) {
        view.showPlace(data, {place.latitude, place.longitude}, {});
        (void)painted();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(view.drawings(), 1) << "only the last one";
}

TEST_F(MapViewTest, isAtOnceDrawnAnewOfTheSamePlace)
{
    showMunich();
    (void)shown();
    int drawings = 1;
    const auto isDrawn = [&] {
        (void)painted();
        return view.drawings() == ++drawings;
    };
    view.click();
    EXPECT_TRUE(isDrawn()) << "in another scale";
    view.resize(kSize * 2);
    EXPECT_TRUE(isDrawn()) << "in another size";
    view.setPalette(Qt::darkGray);
    EXPECT_TRUE(isDrawn()) << "in other colours";
}

TEST_F(MapViewTest, followsThePalette)
{
    showMunich();
    const QImage light = shown();
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    view.setPalette(dark);
    EXPECT_LT(shown().pixelColor(100, 60).lightness(), light.pixelColor(100, 60).lightness());
}

TEST_F(MapViewTest, isAButtonWithTheWordsToAScreenReader)
{
    showMunich();
    QAccessibleInterface* interface = QAccessible::queryAccessibleInterface(&view);
    ASSERT_NE(interface, nullptr);
    EXPECT_EQ(interface->role(), QAccessible::Button);
    EXPECT_EQ(interface->text(QAccessible::Name), QLatin1String("Near Munich, Germany"));
    ASSERT_NE(interface->actionInterface(), nullptr);
    interface->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_TRUE(test::waitUntil([this] { return view.scale() == 1; }));
}

TEST_F(MapViewTest, opensNoConnection)
{
    const int before = networkSockets();
    EXPECT_EQ(before, 0);
    for (int scale = 0; scale < MapView::kScales; ++scale) {
        showMunich(45);
        (void)shown();
        view.click();
    }
    EXPECT_EQ(networkSockets(), before);
}
