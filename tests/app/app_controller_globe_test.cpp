// Exporting the location and flying to it, from the window.

#include "app/file_saving.h"
#include "globe/fly_to.h"
#include "globe/kml_document.h"
#include "tests/app/controller_fixture.h"

#include <QFileDialog>
#include <QPushButton>

#include <optional>

using namespace pinorama;

namespace {
const test::PictureFields kCape = {.lat = 33.9, .latRef = "S", .lon = 18.4, .lonRef = "W"};
const test::PictureFields kMunich = {.lat = 48.1, .latRef = "N", .lon = 11.5, .lonRef = "E"};

class exportToKML : public test::ControllerTest {
protected:
    QFileDialog* dialog() { return controller.myWindow->findChild<QFileDialog*>(); }

    void choose(const std::string& path)
    {
        dialog()->selectFile(QString::fromStdString(path));
        static_cast<QDialog*>(dialog())->accept();
        test::waitUntil([this] { return dialog() == nullptr; });
        const auto* saving = controller.myWindow->findChild<FileSaving*>();
        EXPECT_TRUE(test::waitUntil([saving] { return !saving->isUnderWay(); }));
    }
};

using revealInGoogleEarth = test::ControllerTest;

// The document that belongs to a picture, as the library makes it.
std::string documentOf(const fileInfoRecord& info, const char* name)
{
    const test::Text title = test::text(name);
    return test::takeUTF8(gpsMakeKMLDocument(&info, title.get())).value_or("");
}
}  // namespace

TEST_F(exportToKML, asksWithItsFixedTextsAndProposesAName)
{
    showPicture("IMG_0001.JPG", kCape);
    controller.exportKMLButton->click();
    ASSERT_NE(dialog(), nullptr);
    EXPECT_EQ(dialog()->windowTitle(),
              QStringLiteral("Export to KML Format (for Google Earth...)"));
    EXPECT_EQ(dialog()->labelText(QFileDialog::Accept), QStringLiteral("Export"));
    EXPECT_EQ(dialog()->acceptMode(), QFileDialog::AcceptSave);
    EXPECT_EQ(dialog()->defaultSuffix(), QStringLiteral("kml"));
    EXPECT_TRUE(dialog()->nameFilters().constFirst().contains(QStringLiteral("*.kml")));
    ASSERT_EQ(dialog()->selectedFiles().size(), 1);
    EXPECT_TRUE(dialog()->selectedFiles().constFirst().endsWith(QStringLiteral("/IMG_0001.kml")));
    EXPECT_FALSE(dialog()->testOption(QFileDialog::DontConfirmOverwrite));
}

TEST_F(exportToKML, writesThePictureThatWasShownWhenItWasAskedFor)
{
    showPicture("cape.jpg", kCape);
    const fileInfoRecord cape = controller.info;
    controller.exportKMLButton->click();
    ASSERT_NE(dialog(), nullptr);
    showPicture("munich.jpg", kMunich);  // the selection goes on meanwhile
    choose(folder.file("out.kml"));
    EXPECT_EQ(test::readFile(folder.file("out.kml")), documentOf(cape, "cape.jpg"));
}

TEST_F(exportToKML, addsTheSuffixThatIsMissing)
{
    showPicture("cape.jpg", kCape);
    controller.exportKMLButton->click();
    ASSERT_NE(dialog(), nullptr);
    choose(folder.file("place"));
    EXPECT_EQ(test::readFile(folder.file("place.kml")), documentOf(controller.info, "cape.jpg"));
}

TEST_F(exportToKML, cancellingWritesNothing)
{
    showPicture("cape.jpg", kCape);
    controller.exportKMLButton->click();
    ASSERT_NE(dialog(), nullptr);
    dialog()->selectFile(QString::fromStdString(folder.file("out.kml")));
    dialog()->reject();
    test::waitUntil([this] { return dialog() == nullptr; });
    EXPECT_EQ(test::readFile(folder.file("out.kml")), "");
}

TEST_F(revealInGoogleEarth, sendsTheSignedPlaceAndTheView)
{
    showPicture("cape.jpg", kCape);
    controller.info.azimuth = 12.5;
    controller.info.tilt = 30.0;
    std::optional<GlobeView> sent;
    GlobeLink earlier = gpsSetGlobeLink([&](const GlobeView& view) { sent = view; });
    controller.showInGEButton->click();
    gpsSetGlobeLink(std::move(earlier));
    ASSERT_TRUE(sent);
    EXPECT_EQ(sent->latitude, -controller.info.latti);
    EXPECT_EQ(sent->longitude, -controller.info.longi);
    EXPECT_EQ(sent->azimuth, 12.5);
    EXPECT_EQ(sent->tilt, 30.0);
    EXPECT_EQ(sent->distance, 1000.0);
}
