// The small map by itself, with the file of places that comes with the program.

#include "app/map_view.h"

#include "tests/app/map_fixture.h"

#include <QAccessible>
#include <QLabel>
#include <QPalette>
#include <QTest>

#include <dirent.h>
#include <sys/socket.h>

#include <cstdlib>
#include <optional>

using namespace pinorama;
using namespace pinorama::tests;

namespace {
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
