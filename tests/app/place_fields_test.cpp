// What the window says of a place by itself, in a window of its own.

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
