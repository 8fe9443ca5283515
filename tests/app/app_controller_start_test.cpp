// How the controller starts and what it leaves as it was.

#include "app/finder_sync.h"
#include "lib/strings/tov_display.h"
#include "lib/ui/string_tables.h"
#include "tests/app/controller_fixture.h"

#include <QCheckBox>
#include <QTimer>

#include <filesystem>

using namespace pinorama;

namespace {
const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

using start = test::ControllerTest;
}  // namespace

TEST(AppController, beginsWithNothingShownAndNothingToDo)
{
    AppController controller;
    EXPECT_EQ(controller.lastPath, nullptr);
    EXPECT_EQ(controller.gUpdateTimer, nullptr);
    EXPECT_EQ(controller.info.latti, 0.0);
    EXPECT_EQ(controller.info.refLatti, 0);
    EXPECT_EQ(controller.info.distance, 0.0);
    EXPECT_EQ(controller.info.city, nullptr);
    EXPECT_FALSE(controller.myWindow->isVisible());
    EXPECT_FALSE(controller.showInGEButton->isEnabled());
    EXPECT_FALSE(controller.webServicesMenu->isEnabled());
    EXPECT_TRUE(controller.geoTagField->isHidden());
}

TEST(AppController, everyOutletHasItsName)
{
    AppController controller;
    EXPECT_EQ(controller.myWindow->objectName(), QLatin1String("myWindow"));
    for (const char* name :
         {"fileIconField", "geoTagField", "fileNameField", "fileCreationDateField",
          "fileModificationDateField", "fileSizeField", "gpsCoordinateField", "gpsAltitudeField",
          "gpsDirectionField", "iptcCityField", "iptcStateField", "iptcCountryField",
          "iptcDescriptionField", "webServicesMenu", "syncCheckbox", "showInGEButton",
          "searchInTovButton", "exportKMLButton"}) {
        EXPECT_NE(controller.myWindow->findChild<QWidget*>(QString::fromLatin1(name)), nullptr)
            << name;
    }
}

TEST(AppController, startsWithoutItsTextsAndShowsTheirKeys)
{
    const test::TemporaryFolder folder;
    const test::ScopedVariable none("PINORAMA_RESOURCES", folder.path().c_str());
    AppController controller;
    EXPECT_TRUE(controller.init());
    EXPECT_NE(gThousandFormatter, nullptr);
    controller.awakeFromNib();
    EXPECT_EQ(controller.webServicesMenu->count(), 1) << "no service has a name";

    const test::Text path = test::text(folder.write("one.jpg", "x"));
    EXPECT_TRUE(controller.updateValuesForNewPath(path.get()));
    EXPECT_EQ(controller.fileNameField->text(), QLatin1String("one.jpg"));
    EXPECT_FALSE(controller.fileSizeField->text().isEmpty());
}

TEST_F(start, makesTheTextsAndFormattersReady)
{
    EXPECT_NE(gCFBundleRef, nullptr);
    EXPECT_NE(gThousandFormatter, nullptr);
    EXPECT_FALSE(QApplication::quitOnLastWindowClosed());
    EXPECT_FALSE(controller.applicationShouldTerminateAfterLastWindowClosed());
}

TEST_F(start, startsARepeatingTimerOfOneFifthOfASecond)
{
    controller.awakeFromNib();
    EXPECT_TRUE(controller.gUpdateTimer->isActive());
    EXPECT_EQ(controller.gUpdateTimer->interval(), 200);
    EXPECT_FALSE(controller.gUpdateTimer->isSingleShot());
}

TEST_F(start, followsTheSelectionUnlessTheUserSaidOtherwise)
{
    EXPECT_TRUE(controller.syncCheckbox->isChecked());
    controller.syncCheckbox->setChecked(false);
    {
        AppController second;
        second.applicationWillFinishLaunching();
        second.awakeFromNib();
        EXPECT_FALSE(second.syncCheckbox->isChecked());
        second.syncCheckbox->setChecked(true);
    }
    EXPECT_TRUE(appLoadFinderSync());
}

TEST(AppController, mirrorsTheDefaultInEitherOrderAndStoresNothing)
{
    const test::TemporaryFolder config;
    const test::ScopedVariable variable("XDG_CONFIG_HOME", config.path().c_str());
    AppController controller;
    ASSERT_TRUE(controller.init());
    controller.awakeFromNib();
    controller.applicationWillFinishLaunching();
    EXPECT_TRUE(controller.syncCheckbox->isChecked());
    EXPECT_TRUE(std::filesystem::is_empty(config.path()));
}
