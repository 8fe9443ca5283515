// What the window shows on a second screen of twice the density.

#include "app/larger_preview.h"
#include "app/map_view.h"
#include "app/picture_field.h"
#include "places/place_finder.h"
#include "previews/picture_reader.h"
#include "tests/previews/preview_fixture.h"
#include "tests/support/environment.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <memory>
#include <string>

using namespace pinorama;

namespace {
class TwoScreens final : public test::Toolkit {
public:
    void SetUp() override
    {
        folder_ = std::make_unique<test::TemporaryFolder>();
        const std::string file = folder_->write("screens.json", R"({"screens": [
            {"name": "usual", "x": 0, "y": 0, "width": 1200, "height": 900,
             "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1},
            {"name": "dense", "x": 1200, "y": 0, "width": 2400, "height": 1800,
             "logicalDpi": 192, "logicalBaseDpi": 96, "dpr": 1}]})");
        platform_ = QByteArray::fromStdString("offscreen:configfile=" + file);
        Toolkit::SetUp();
    }

private:
    std::unique_ptr<test::TemporaryFolder> folder_;
};

const auto* const toolkit = testing::AddGlobalTestEnvironment(new TwoScreens);

// A window on the usual screen.
class twoScreens : public test::PreviewTest {
protected:
    void SetUp() override
    {
        ASSERT_EQ(QGuiApplication::screens().size(), 2);
        window.resize(600, 600);
        window.show();
        moveTo("usual", 1);
    }

    void moveTo(const char* name, qreal ratio)
    {
        for (QScreen* screen : QGuiApplication::screens()) {
            if (screen->name() != QLatin1String(name)) continue;
            window.setScreen(screen);
            window.move(screen->geometry().topLeft());
        }
        ASSERT_TRUE(test::waitUntil([&] { return window.devicePixelRatioF() == ratio; }));
    }

    QWidget window;
};

class previewsOnTwoScreens : public twoScreens {
protected:
    ~previewsOnTwoScreens() override
    {
        larger.forget();
        cuPictureReader().stop();
    }

    // As if the window showed a file, whose thumbnails have one colour for each of their sizes, in
    // so much room.
    void follow(int side)
    {
        const std::string path = picture();
        const std::string address = "file://" + path;
        cache("large", 256, address, mtimeOf(path), Qt::cyan);
        cache("x-large", 512, address, mtimeOf(path), Qt::yellow);
        cache("xx-large", 1024, address, mtimeOf(path), Qt::green);
        QPixmap small(128, 64);
        small.fill(Qt::magenta);
        field.setAlignment(Qt::AlignLeft | Qt::AlignTop);
        field.setRoom({side, side}, {side, side});
        field.resize(side, side);
        field.show();
        field.showPreview(small);
        larger.follow(path, attributesOf(path).value_or(FileAttributes{}));
        rest();
    }

    // What must not happen could happen.
    void rest()
    {
        test::goOnFor(600);
        EXPECT_TRUE(test::waitUntil([this] { return !larger.isComing(); }));
    }

    QImage seen() { return field.grab(QRect(QPoint(0, 0), field.shownSize())).toImage(); }
    QColor colour() { return seen().pixelColor(100, 50); }

    PictureField field{&window};
    LargerPreview larger{field};
};
}  // namespace

TEST_F(previewsOnTwoScreens, areAsSharpAsTheScreenCanShow)
{
    follow(PictureField::kSmallest);
    EXPECT_EQ(larger.requests(), 0);
    EXPECT_EQ(colour(), QColor(Qt::magenta));

    moveTo("dense", 2);
    EXPECT_TRUE(test::waitUntil([this] { return colour() == QColor(Qt::cyan); }));
    EXPECT_EQ(field.shownSize(), QSize(128, 64)) << "in the same size";
    EXPECT_EQ(seen().size(), QSize(256, 128));
    rest();
    EXPECT_EQ(larger.requests(), 1);

    moveTo("usual", 1);
    rest();
    EXPECT_EQ(seen().size(), QSize(128, 64));
    EXPECT_EQ(colour(), QColor(Qt::magenta));
    moveTo("dense", 2);
    rest();
    EXPECT_EQ(colour(), QColor(Qt::cyan)) << "it is still there";
    EXPECT_EQ(larger.requests(), 1);
}

TEST_F(previewsOnTwoScreens, coverTheRoomInThePixelsOfTheScreen)
{
    follow(256);
    EXPECT_EQ(larger.requests(), 1);
    EXPECT_EQ(colour(), QColor(Qt::cyan));
    moveTo("dense", 2);
    EXPECT_TRUE(test::waitUntil([this] { return colour() == QColor(Qt::yellow); }));
    EXPECT_EQ(field.shownSize(), QSize(256, 128));
    EXPECT_EQ(seen().size(), QSize(512, 256));
    EXPECT_EQ(larger.requests(), 2);

    field.setRoom({300, 300}, {300, 300});
    field.resize(300, 300);
    EXPECT_TRUE(test::waitUntil([this] { return colour() == QColor(Qt::green); }));
    moveTo("usual", 1);
    rest();
    EXPECT_EQ(larger.requests(), 3) << "less is needed there";
    EXPECT_EQ(field.shownSize(), QSize(300, 150));
}

TEST_F(twoScreens, theMapIsDrawnAnewInTheDensityOfTheScreen)
{
    PlaceFinder finder(placesFile());
    ASSERT_NE(finder.data(), nullptr);
    auto* map = new MapView(&window);
    map->resize(160, 140);
    map->showPlace(finder.data(), {48.14, 11.58}, {});
    EXPECT_TRUE(test::waitUntil([&] { return map->drawings() == 1; }));
    const QImage usual = map->grab().toImage();
    EXPECT_EQ(usual.size(), QSize(160, 140));

    moveTo("dense", 2);
    EXPECT_TRUE(test::waitUntil([&] { return map->drawings() == 2; }));
    const QImage dense = map->grab().toImage();
    EXPECT_EQ(dense.size(), QSize(320, 280));
    // Lines that were merely enlarged would be pairs of equal pixels.
    int differing = 0;
    for (int y = 0; y < dense.height(); y += 2) {
        for (int x = 0; x < dense.width(); x += 2)
            differing += dense.pixel(x, y) != dense.pixel(x + 1, y + 1) ? 1 : 0;
    }
    EXPECT_GT(differing, 500);
}
