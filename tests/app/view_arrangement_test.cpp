// Where the views of the window are, in every shape of it.

#include "tests/app/controller_fixture.h"

#include "app/map_view.h"
#include "app/view_arrangement.h"

#include <QPushButton>

#include <algorithm>

using namespace pinorama;

namespace {
constexpr int kWide = 1600;   // points, wide enough for every font
constexpr int kNarrow = 420;  // points

class ViewArrangementTest : public test::ControllerTest {
protected:
    void SetUp() override
    {
        test::ControllerTest::SetUp();
        // Fields that came late would change how narrow the window can be, in the middle of a test.
        controller.reading().setPatience(std::chrono::seconds(10));
        EXPECT_TRUE(showPicture("one.jpg", {.lat = 48.1,
                                            .latRef = "N",
                                            .lon = 11.5,
                                            .lonRef = "E",
                                            .city = "Munich",
                                            .caption = "A short caption."}));
        controller.showMainWindow();
    }

    // Waits until the window has settled in a size.
    void resize(int width, int height)
    {
        window.resize(width, height);
        EXPECT_TRUE(test::waitUntil([&] { return window.contentView->width() == width; }));
        for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    }

    // How high the texts are, and so what is left for the pictures, depends on the font.
    void makeNarrowAndLow()
    {
        resize(kNarrow, 800);
        resize(kNarrow, window.minimumSizeHint().height());
    }

    bool isWide() const { return window.placeField->x() > window.placeMap->geometry().right(); }

    int rowsOfButtons() const
    {
        return window.showInGEButton->y() == window.exportKMLButton->y() ? 1 : 2;
    }

    MainWindow& window = *controller.myWindow;
};
}  // namespace

TEST_F(ViewArrangementTest, putsThePicturesBesideTheTextsInAWideWindow)
{
    resize(kWide, 600);
    EXPECT_TRUE(isWide());
    EXPECT_GT(window.placeMap->y(), window.fileIconField->geometry().bottom());
    EXPECT_EQ(rowsOfButtons(), 1);
    EXPECT_LT(window.placeField->y(), window.gpsCoordinateField->y());
    EXPECT_GT(window.fileSizeField->y(), window.iptcDescriptionField->y());
}

TEST_F(ViewArrangementTest, putsThemAboveTheTextsInANarrowWindow)
{
    makeNarrowAndLow();
    EXPECT_FALSE(isWide());
    EXPECT_GT(window.placeMap->x(), window.fileIconField->geometry().right());
    EXPECT_GT(window.fileNameField->y(), window.placeMap->geometry().bottom());
    EXPECT_EQ(rowsOfButtons(), 2);
    resize(kWide, 800);
    EXPECT_TRUE(isWide()) << "and back";
    EXPECT_EQ(rowsOfButtons(), 1);
}

TEST_F(ViewArrangementTest, putsTheMapBelowThePreviewInANarrowAndHighWindow)
{
    resize(kNarrow, 1400);
    EXPECT_FALSE(isWide());
    EXPECT_GT(window.placeMap->y(), window.fileIconField->geometry().bottom());
    EXPECT_GT(window.fileNameField->y(), window.placeMap->geometry().bottom());
    EXPECT_GE(window.placeMap->width(), window.placeMap->height() * 2 / 3) << "no strip";
    EXPECT_GE(window.placeMap->height(), window.fileIconField->room().height());
    makeNarrowAndLow();
    EXPECT_GT(window.placeMap->x(), window.fileIconField->geometry().right()) << "and back";
    EXPECT_GE(window.placeMap->height(), window.placeMap->minimumSizeHint().height());
    resize(kNarrow, 1400);
    resize(kWide, 600);
    EXPECT_TRUE(isWide()) << "and from there";
    EXPECT_GE(window.placeMap->height(), window.placeMap->minimumSizeHint().height());
}

TEST_F(ViewArrangementTest, cutsNothingInAnySize)
{
    for (const auto& [width, height] :
         {std::pair(340, 400), std::pair(420, 900), std::pair(640, 300), std::pair(1400, 900)}) {
        SCOPED_TRACE(testing::Message() << width << " by " << height);
        resize(std::max(width, window.minimumSizeHint().width()), height);
        EXPECT_TRUE(test::waitUntil([this] {
            const auto views =
                window.contentView->findChildren<QWidget*>(Qt::FindDirectChildrenOnly);
            return std::all_of(views.begin(), views.end(), [this](const QWidget* view) {
                return window.contentView->rect().contains(view->geometry()) &&
                       view->height() >=
                           std::min(view->minimumSizeHint().height(), view->maximumHeight());
            });
        }));
        EXPECT_GE(window.placeMap->height(), window.placeMap->minimumSizeHint().height());
    }
}

TEST_F(ViewArrangementTest, letsTheMapGrowAndTheTextsKeepTheirMeasure)
{
    resize(800, 600);
    const QSize map = window.placeMap->size();
    resize(1400, 900);
    EXPECT_GT(window.placeMap->width(), map.width() + 400);
    EXPECT_GT(window.placeMap->height(), map.height() + 100) << "the preview has its share";
    EXPECT_GE(window.placeMap->height(), window.fileIconField->height());
    EXPECT_LT(window.placeField->width(), 75 * window.fontMetrics().averageCharWidth());
}

TEST_F(ViewArrangementTest, letsTheMapBeNoStripBesideLargeLetters)
{
    QFont large = window.font();
    large.setPixelSize(40);
    window.setFont(large);
    const int letter = window.fontMetrics().averageCharWidth();
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    resize(window.factsLayout->sizeHint().width() + 35 * letter, 40 * letter);
    EXPECT_TRUE(isWide());
    EXPECT_GE(window.placeMap->width(), 20 * letter);
}

// In points, whatever the font: a window of the usual size has the preview in its smallest size.
TEST_F(ViewArrangementTest, letsThePreviewGrowPointByPoint)
{
    const QSize usual = window.size();
    const QSize smallest(PictureField::kSmallest, PictureField::kSmallest);
    const PictureField& field = *window.fileIconField;
    EXPECT_EQ(field.room(), smallest);
    EXPECT_EQ(field.sizeHint(), smallest);

    resize(usual.width() + 20, usual.height());
    EXPECT_EQ(field.room(), smallest + QSize(20, 20));
    resize(usual.width() + 20, usual.height() + 10);
    EXPECT_EQ(field.room(), smallest + QSize(30, 30));
    resize(usual.width(), usual.height());
    EXPECT_EQ(field.room(), smallest) << "and back";
    resize(window.minimumSizeHint().width(), usual.height());
    EXPECT_EQ(field.room(), smallest);
}

TEST_F(ViewArrangementTest, sharesTheRoomBetweenPreviewAndMap)
{
    const PictureField& field = *window.fileIconField;
    resize(kWide, 1100);
    EXPECT_TRUE(isWide());
    EXPECT_GT(field.room().width(), 300);
    EXPECT_GT(field.room().height(), 300);
    EXPECT_LE(field.room().width(), ViewArrangement::kMaxPreview);
    EXPECT_LE(field.room().width(), window.placeMap->width());
    EXPECT_GE(window.placeMap->height(), field.height());
    EXPECT_EQ(field.room().height(), field.height());

    resize(kWide, 700);
    EXPECT_LT(field.room().height(), field.room().width()) << "wide and low";
    EXPECT_GE(window.placeMap->height(), field.height());

    resize(3000, 2400);
    EXPECT_EQ(field.room(), QSize(512, 512));

    resize(420, 1400);
    EXPECT_FALSE(isWide());
    EXPECT_GT(field.room().width(), 160);
    EXPECT_GE(window.placeMap->width(), field.width()) << "narrow and high";
    EXPECT_LE(field.room().height(), field.height());
    resize(420, 300);
    EXPECT_EQ(field.room().height(), PictureField::kSmallest);
}

TEST_F(ViewArrangementTest, letsTheWindowBecomeSmallAgain)
{
    const QSize usual = window.size();
    const int least = window.minimumSizeHint().height();
    resize(3000, 2400);
    EXPECT_LE(window.minimumSizeHint().height(), least);
    resize(usual.width(), usual.height());
    EXPECT_EQ(window.size(), usual);
    EXPECT_EQ(window.fileIconField->room().height(), PictureField::kSmallest);
}

TEST_F(ViewArrangementTest, letsNoRowMoveFromPictureToPicture)
{
    resize(kWide, 900);
    const auto places = [this] {
        std::vector<int> rows;
        for (const QWidget* row : {static_cast<QWidget*>(window.fileNameField),
                                   static_cast<QWidget*>(window.gpsCoordinateField),
                                   static_cast<QWidget*>(window.iptcCityField),
                                   static_cast<QWidget*>(window.fileSizeField),
                                   static_cast<QWidget*>(window.showInGEButton)})
            rows.push_back(row->y());
        return rows;
    };
    const auto show = [this](const char* name, const test::PictureFields& fields) {
        EXPECT_TRUE(showPicture(name, fields));
        EXPECT_TRUE(test::waitUntil([this] { return !controller.reading().isGoingOn(); }));
        for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    };
    show("bare.jpg", {});  // the foot of the window has something to say, and keeps its room
    const auto before = places();
    show("two.jpg", {.lat = 48.1, .latRef = "N", .lon = 11.5, .lonRef = "E", .city = "Munich"});
    EXPECT_EQ(places(), before);
    show("bare-too.jpg", {});
    EXPECT_EQ(places(), before);
}

// The place comes a moment after the window.
TEST(ViewArrangement, keepsTheHeightOfTheWindowWhenTheFirstPictureComes)
{
    AppController controller(nullptr, nullptr, MainWindow::showAhead());
    const MainWindow& window = *controller.myWindow;
    ASSERT_TRUE(controller.init());
    controller.awakeFromNib();
    controller.reading().setPatience(std::chrono::milliseconds(0));
    const test::TemporaryFolder folder;
    const int before = window.height();
    const test::Text path(createPathText(folder.write(
        "one.jpg", test::pictureWithGps({.lat = 48.1,
                                         .latRef = "N",
                                         .lon = 11.5,
                                         .lonRef = "E",
                                         .altitude = 520.0,
                                         .imgDirection = 271.26,
                                         .taken = "2026:05:03 14:03:22",
                                         .city = "Munich",
                                         .state = "Bavaria",
                                         .country = "Germany",
                                         .caption = "Little more than fits into one line, or two "
                                                    "where letters are large."}))));
    EXPECT_TRUE(controller.updateValuesForNewPath(path.get()));
    EXPECT_TRUE(test::waitUntil(
        [&] { return window.placeMap->isVisible() && !controller.reading().isGoingOn(); }));
    for (int i = 0; i < 10; ++i) QCoreApplication::processEvents();
    EXPECT_EQ(window.height(), before);
}

TEST_F(ViewArrangementTest, hasThePlaceInTheLargestLetters)
{
    for (const WrappedField* field : window.findChildren<WrappedField*>()) {
        if (field != window.placeField) {
            EXPECT_LT(field->font().pointSizeF(), window.placeField->font().pointSizeF());
        }
    }
}
