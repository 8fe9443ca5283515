// What the window says of a place by itself, in a window of its own.

#include "app/compass_field.h"
#include "base/resource_folder.h"
#include "tests/app/controller_fixture.h"

#include <QAccessible>

#include <filesystem>

using namespace pinorama;

namespace {
using PlaceFieldsTest = test::ControllerTest;

const test::PictureFields kUshuaia = {
    .lat = 54.8019, .latRef = "S", .lon = 68.303, .lonRef = "W", .city = "A city of the picture"};
const test::PictureFields kGreenwich = {.lat = 51.4779, .latRef = "N", .lon = 0.0, .lonRef = "E"};
const test::PictureFields kNowhere = {.lat = 120.0, .latRef = "N", .lon = 10.0, .lonRef = "E"};

bool isPlacesFileMapped()
{
    return test::readFile("/proc/self/maps").find("places.bin") != std::string::npos;
}

// A folder with the program's texts and without its places.
void linkTexts(const std::string& folder)
{
    std::filesystem::create_directory_symlink(resourceFolder() + "/strings", folder + "/strings");
}
}  // namespace

TEST_F(PlaceFieldsTest, sayThePlaceOfAPictureInWords)
{
    EXPECT_EQ(shown(controller.myWindow->placeField), "");
    EXPECT_TRUE(showPicture("ushuaia.jpg", kUshuaia));
    EXPECT_EQ(shown(controller.myWindow->placeField), "Near Ushuaia, Argentina");
    EXPECT_EQ(shown(controller.iptcCityField), "A city of the picture");
    EXPECT_EQ(shown(controller.iptcCountryField), "");
}

TEST_F(PlaceFieldsTest, areEmptyForWhatHasNoPosition)
{
    for (const char* name : {"no position.jpg", "no picture.txt", "not on the Earth.jpg"}) {
        SCOPED_TRACE(name);
        EXPECT_TRUE(showPicture("ushuaia.jpg", kUshuaia));
        ASSERT_NE(shown(controller.myWindow->placeField), "");
        (void)showPicture(name, name[4] == 'o' ? kNowhere : test::PictureFields{});
        EXPECT_EQ(shown(controller.myWindow->placeField), "");
        controller.updateValuesForNewPath(test::text("/elsewhere").get());
    }
}

// The buttons work there as well, and lead to the same place.
TEST_F(PlaceFieldsTest, sayWhereAPictureFromTheMeridianIs)
{
    EXPECT_TRUE(showPicture("ushuaia.jpg", kUshuaia));
    EXPECT_TRUE(showPicture("greenwich.jpg", kGreenwich));
    expectLocationActions(true);
    const std::string words = shown(controller.myWindow->placeField);
    EXPECT_TRUE(words.ends_with(", United Kingdom")) << words;
}

TEST_F(PlaceFieldsTest, loadNothingBeforeTheFirstPlace)
{
    EXPECT_FALSE(isPlacesFileMapped());
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_FALSE(isPlacesFileMapped());
    EXPECT_TRUE(showPicture("ushuaia.jpg", kUshuaia));
    EXPECT_TRUE(isPlacesFileMapped());
}

TEST(PlaceFields, sayNothingWithoutTheFileOfPlaces)
{
    const test::TemporaryFolder folder;
    linkTexts(folder.path());
    const test::ScopedVariable resources("PINORAMA_RESOURCES", folder.path().c_str());
    AppController controller;
    ASSERT_TRUE(controller.init());
    controller.reading().setPatience(std::chrono::seconds(5));
    const test::Text path(test::text(folder.write("one.jpg", test::pictureWithGps(kUshuaia))));
    EXPECT_TRUE(controller.updateValuesForNewPath(path.get()));
    EXPECT_FALSE(controller.gpsCoordinateField->text().isEmpty());
    EXPECT_EQ(controller.myWindow->placeField->text(), QString());
    EXPECT_FALSE(controller.geoTagField->isHidden());
}

TEST_F(PlaceFieldsTest, areReadByAScreenReader)
{
    EXPECT_TRUE(showPicture("ushuaia.jpg", kUshuaia));
    QAccessibleInterface* words =
        QAccessible::queryAccessibleInterface(controller.myWindow->placeField);
    ASSERT_NE(words, nullptr);
    EXPECT_EQ(words->text(QAccessible::Name), QLatin1String("Place"));
    ASSERT_NE(words->textInterface(), nullptr);
    EXPECT_EQ(words->textInterface()->text(0, words->textInterface()->characterCount()),
              QLatin1String("Near Ushuaia, Argentina"));
}

TEST_F(PlaceFieldsTest, areNoStopOfTheTabKeyWhileTheyAreEmpty)
{
    const WrappedField* words = controller.myWindow->placeField;
    EXPECT_EQ(words->focusPolicy() & Qt::TabFocus, 0);
    EXPECT_TRUE(showPicture("ushuaia.jpg", kUshuaia));
    EXPECT_EQ(words->focusPolicy(), Qt::StrongFocus);
    EXPECT_TRUE(showPicture("none.jpg", {}));
    EXPECT_EQ(words->focusPolicy() & Qt::TabFocus, 0);
}

TEST_F(PlaceFieldsTest, sayTheDirectionAsPeopleDoBesideTheDegrees)
{
    const CompassField* compass = controller.myWindow->compassField;
    test::PictureFields fields = kUshuaia;
    const struct {
        const char* name;
        std::optional<double> direction;
        std::optional<std::string> reference;
        const char *degrees, *words;
    } rows[] = {{"true.jpg", 164.0, "T", "164.0", "SSE (true)"},
                {"magnetic.jpg", 271.26, "M", "271.3", "W (magnetic)"},
                {"unsaid.jpg", 359.9, std::nullopt, "359.9", "N"},
                {"zero.jpg", 0.0, "T", "", ""},
                {"none.jpg", std::nullopt, "T", "", ""},
                {"more than a turn.jpg", 400.0, "T", "400.0", ""}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        fields.imgDirection = row.direction;
        fields.imgDirectionRef = row.reference;
        EXPECT_TRUE(showPicture(row.name, fields));
        EXPECT_EQ(shown(controller.gpsDirectionField), row.degrees);
        EXPECT_EQ(compass->text().toStdString(), row.words);
        EXPECT_EQ(controller.gpsDirectionField->accessibleDescription().toStdString(), row.words);
    }
    fields.imgDirection = 90.0;
    EXPECT_TRUE(showPicture("east.jpg", fields));
    EXPECT_FALSE(compass->text().isEmpty());
    EXPECT_TRUE(showPicture("no position.jpg", {.imgDirection = 90.0}));
    EXPECT_EQ(compass->text(), QString());
    EXPECT_EQ(controller.gpsDirectionField->accessibleDescription(), QString());
}

TEST_F(PlaceFieldsTest, standRightBesideTheDegrees)
{
    test::PictureFields fields = kUshuaia;
    fields.imgDirection = 164.0;
    EXPECT_TRUE(showPicture("south.jpg", fields));
    controller.showMainWindow();
    const QWidget* compass = controller.myWindow->compassField;
    const QWidget* degrees = controller.gpsDirectionField;
    EXPECT_TRUE(test::waitUntil([&] { return compass->x() > degrees->x(); }));
    EXPECT_LT(compass->x(), degrees->geometry().right() + 20);
    EXPECT_LT(degrees->width(), degrees->fontMetrics().horizontalAdvance(QStringLiteral("164.00")));
    EXPECT_GE(degrees->width(), degrees->fontMetrics().horizontalAdvance(QStringLiteral("164.0")));
    EXPECT_EQ(degrees->height(), controller.gpsAltitudeField->height()) << "one line";
}

TEST_F(PlaceFieldsTest, sayWhenAPictureWasTakenAndByWhichClock)
{
    const WrappedField* taken = controller.myWindow->takenField;
    test::PictureFields fields = kUshuaia;
    fields.gpsDate = "2026:07:14";
    fields.gpsTime = {{17, 1}, {5, 1}, {0, 1}};
    EXPECT_TRUE(showPicture("satellites.jpg", fields));
    const std::string words = shown(taken);
    EXPECT_NE(words.find("Argentina Standard Time"), std::string::npos) << words;
    EXPECT_NE(words.find("2:05"), std::string::npos) << words;
    EXPECT_EQ(taken->toolTip(),
              QLatin1String("By the clock of the satellites, in the time of the place."));
    EXPECT_EQ(taken->accessibleDescription(), taken->toolTip());

    EXPECT_TRUE(showPicture("without a position.jpg", {.taken = "2026:07:14 14:05:00"}));
    EXPECT_NE(shown(taken).find("2:05"), std::string::npos) << shown(taken);
    EXPECT_EQ(shown(taken).find('('), std::string::npos) << shown(taken);
    EXPECT_EQ(taken->toolTip(),
              QLatin1String("By the camera's clock. Its time zone is not known."));

    EXPECT_TRUE(showPicture("undated.jpg", kUshuaia));
    EXPECT_EQ(shown(taken), "");
    EXPECT_EQ(taken->toolTip(), QString());
    EXPECT_TRUE(showPicture("dated.jpg", {.taken = "2026:07:14 14:05:00"}));
    EXPECT_NE(shown(taken), "");
    EXPECT_FALSE(show("/elsewhere/notes.txt"));
    EXPECT_EQ(shown(taken), "");
}
