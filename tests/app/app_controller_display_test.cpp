// What the window shows of files, with real files in a real window.

#include "lib/files/path_text.h"
#include "location/file_facts.h"
#include "tests/app/controller_fixture.h"

#include <QPixmap>

#include <filesystem>

#include <fcntl.h>
#include <sys/stat.h>

using namespace pinorama;

namespace {
namespace fs = std::filesystem;
using updateValuesForNewPath = test::ControllerTest;

const test::PictureFields kMunich = {
    .lat = 48.1, .latRef = "N", .lon = 11.5, .lonRef = "E", .altitude = 520.0};

// Sets when a file was changed last: seconds since 1970.
void setModified(const std::string& path, time_t seconds)
{
    const timespec times[2] = {{seconds, 0}, {seconds, 0}};
    ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
}
// A date text with every kind of blank as a plain one: what stands before "PM" differs between
// versions of the date library.
std::string withPlainBlanks(std::string text)
{
    constexpr std::string_view kNarrowBlank = "\xE2\x80\xAF";
    for (std::size_t at; (at = text.find(kNarrowBlank)) != std::string::npos;)
        text.replace(at, kNarrowBlank.size(), " ");
    return text;
}
}  // namespace

TEST_F(updateValuesForNewPath, showsAPictureWithItsLocation)
{
    EXPECT_TRUE(showPicture("a.jpg", kMunich));
    EXPECT_EQ(shown(controller.fileNameField), "a.jpg");
    EXPECT_EQ(controller.fileNameField->toolTip().toStdString(), folder.file("a.jpg"));
    EXPECT_EQ(shown(controller.gpsCoordinateField),
              "N 48\xC2\xB0 6' 0.0\"   E 11\xC2\xB0 30' 0.0\"");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_EQ(shown(controller.gpsDirectionField), "");
    expectLocationActions(true);
}

TEST_F(updateValuesForNewPath, showsDirectionAndAltitudeRounded)
{
    const struct {
        double direction, altitude;
        int altitudeRef;
        const char *shownDirection, *shownAltitude;
    } rows[] = {
        {271.26, 3.6, 1, "271.3", "-4 m"}, {0.0, 0.0, 0, "", ""}, {0.04, 0.4, 1, "0.0", "-0 m"},
        {359.99, 2.5, 0, "360.0", "2 m"},  {0.0, 0.0, 1, "", ""},
    };
    int number = 0;
    for (const auto& row : rows) {
        SCOPED_TRACE(row.direction);
        test::PictureFields fields = kMunich;
        fields.imgDirection = row.direction;
        fields.altitude = row.altitude;
        fields.altitudeRef = static_cast<std::uint8_t>(row.altitudeRef);
        EXPECT_TRUE(showPicture(std::to_string(++number) + ".jpg", fields));
        EXPECT_EQ(shown(controller.gpsDirectionField), row.shownDirection);
        EXPECT_EQ(shown(controller.gpsAltitudeField), row.shownAltitude);
    }
}

TEST_F(updateValuesForNewPath, showsThePlaceTextsAndKeepsOnlyNumbers)
{
    test::PictureFields fields = kMunich;
    fields.city = "M\xC3\xBCnchen";
    fields.state = "Bayern";
    fields.country = "Germany";
    fields.caption = "First line\nsecond <b>line</b>";
    EXPECT_TRUE(showPicture("a.jpg", fields));
    EXPECT_EQ(shown(controller.iptcCityField), "M\xC3\xBCnchen");
    EXPECT_EQ(shown(controller.iptcStateField), "Bayern");
    EXPECT_EQ(shown(controller.iptcCountryField), "Germany");
    EXPECT_EQ(shown(controller.iptcDescriptionField), "First line\nsecond <b>line</b>");

    EXPECT_DOUBLE_EQ(controller.info.latti, 48.1);
    EXPECT_EQ(controller.info.refLongi, 'E');
    EXPECT_EQ(controller.info.altitude, 520.0);
    EXPECT_EQ(controller.info.distance, 1000.0);
    EXPECT_EQ(controller.info.city, nullptr);
    EXPECT_EQ(controller.info.description, nullptr);
}

TEST_F(updateValuesForNewPath, aMissingPlaceTextShowsEmptyAfterAPictureThatHadIt)
{
    test::PictureFields fields = kMunich;
    fields.city = "Rome";
    EXPECT_TRUE(showPicture("a.jpg", fields));
    EXPECT_TRUE(showPicture("b.jpg", kMunich));
    EXPECT_EQ(shown(controller.iptcCityField), "");
}

TEST_F(updateValuesForNewPath, theSamePathAgainDoesNothingAtAll)
{
    const std::string path = folder.write("a.jpg", test::pictureWithGps(kMunich));
    EXPECT_TRUE(show(path));
    const std::string modified = shown(controller.fileModificationDateField);
    setModified(path, 86400);
    controller.gpsAltitudeField->setText(QStringLiteral("untouched"));
    EXPECT_FALSE(show(path));
    EXPECT_EQ(shown(controller.fileModificationDateField), modified);
    EXPECT_EQ(shown(controller.gpsAltitudeField), "untouched");
}

TEST_F(updateValuesForNewPath, pathsAreComparedUnitByUnit)
{
    (void)folder.write("a.jpg", "");
    EXPECT_TRUE(show(folder.file("a.jpg")));
    EXPECT_TRUE(show(folder.file("./a.jpg"))) << "another path, if to the same file";
    EXPECT_TRUE(show(folder.file("\xC3\xA4.jpg")));
    EXPECT_TRUE(show(folder.file("a\xCC\x88.jpg"))) << "canonically equivalent is not equal";
    EXPECT_FALSE(show(folder.file("a\xCC\x88.jpg")));
}

TEST_F(updateValuesForNewPath, nullDoesNothing)
{
    EXPECT_TRUE(showPicture("a.jpg", kMunich));
    EXPECT_FALSE(controller.updateValuesForNewPath(nullptr));
    EXPECT_EQ(test::utf8(controller.lastPath), folder.file("a.jpg"));
    expectLocationActions(true);
}

TEST_F(updateValuesForNewPath, keepsACopyOfThePath)
{
    const test::Text path = test::mutableText(folder.file("a.jpg"));
    EXPECT_TRUE(controller.updateValuesForNewPath(path.get()));
    appendUnits(path.get(), u"x");
    EXPECT_EQ(test::utf8(controller.lastPath), folder.file("a.jpg"));
    EXPECT_EQ(uCFGetRetainCount(path.get()), 1);
}

TEST_F(updateValuesForNewPath, sizeIsOfRegularFilesAtTheEndOfLinks)
{
    fs::create_directory(folder.file("folder.jpg"));
    (void)folder.write("two.jpg", std::string(2048, 'x'));
    (void)folder.write("empty.jpg", "");
    fs::create_symlink("two.jpg", folder.file("link.jpg"));
    fs::create_symlink("missing", folder.file("dangling.jpg"));
    ASSERT_EQ(mkfifo(folder.file("pipe.jpg").c_str(), 0600), 0);
    const struct {
        const char *name, *expected;
    } rows[] = {
        {"two.jpg", "2.0 KB"},  {"empty.jpg", "0.0 KB"},  {"link.jpg", "2.0 KB"},
        {"folder.jpg", "n.a."}, {"dangling.jpg", "n.a."}, {"missing.jpg", "n.a."},
        {"pipe.jpg", "n.a."},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_TRUE(show(folder.file(row.name)));
        EXPECT_EQ(shown(controller.fileSizeField), row.expected);
    }
}

TEST_F(updateValuesForNewPath, showsDatesInTheLocalZoneOfThatDate)
{
    const std::string path = folder.write("a.jpg", "");
    setModified(path, 1705320000);  // 2024-01-15 12:00 UTC
    EXPECT_TRUE(show(path));
    EXPECT_EQ(withPlainBlanks(shown(controller.fileModificationDateField)),
              "Jan 15, 2024, 12:00 PM");
    // It was made now, if its file system keeps that.
    EXPECT_EQ(shown(controller.fileCreationDateField),
              test::takeUTF8(gpsMakeCreatedText(gpsReadFileFacts(test::text(path).get()))));
    EXPECT_NE(shown(controller.fileCreationDateField), shown(controller.fileModificationDateField));
    {
        const test::ScopedVariable berlin("TZ", "Europe/Berlin");
        EXPECT_TRUE(show(folder.file("./a.jpg")));
        EXPECT_EQ(withPlainBlanks(shown(controller.fileModificationDateField)),
                  "Jan 15, 2024, 1:00 PM");
    }
}

TEST_F(updateValuesForNewPath, aMissingFileHasNoSizeAndTheFirstDate)
{
    EXPECT_TRUE(show(folder.file("missing.jpg")));
    EXPECT_EQ(shown(controller.fileNameField), "missing.jpg");
    EXPECT_EQ(shown(controller.fileSizeField), "n.a.");
    EXPECT_EQ(withPlainBlanks(shown(controller.fileModificationDateField)),
              "Jan 1, 1904, 12:00 AM");
    EXPECT_EQ(withPlainBlanks(shown(controller.fileCreationDateField)), "Jan 1, 1904, 12:00 AM");
    expectLocationActions(false);
    EXPECT_FALSE(show(folder.file("missing.txt")));
}

TEST_F(updateValuesForNewPath, aRefusedTypeClearsTheLocationAndKeepsTheRecord)
{
    test::PictureFields fields = kMunich;
    fields.city = "Rome";
    fields.state = "Lazio";
    fields.country = "Italy";
    fields.caption = "x";
    fields.imgDirection = 5.0;
    EXPECT_TRUE(showPicture("a.jpg", fields));
    EXPECT_FALSE(show(folder.write("notes.txt", "abc")));
    EXPECT_EQ(shown(controller.fileNameField), "notes.txt");
    EXPECT_EQ(shown(controller.fileSizeField), "0.0 KB");
    for (const WrappedField* field :
         {controller.gpsCoordinateField, controller.gpsDirectionField, controller.gpsAltitudeField,
          controller.iptcCityField, controller.iptcCountryField, controller.iptcStateField,
          controller.iptcDescriptionField}) {
        EXPECT_EQ(shown(field), "") << field->objectName().toStdString();
    }
    expectLocationActions(false);
    EXPECT_DOUBLE_EQ(controller.info.latti, 48.1);
    EXPECT_EQ(test::utf8(controller.lastPath), folder.file("notes.txt"));
}

TEST_F(updateValuesForNewPath, aPictureWithoutAPositionKeepsThePlaceTextsOfTheOneBefore)
{
    test::PictureFields fields = kMunich;
    fields.city = "Rome";
    fields.imgDirection = 5.0;
    EXPECT_TRUE(showPicture("a.jpg", fields));
    EXPECT_TRUE(showPicture("b.jpg", {}));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "");
    EXPECT_EQ(shown(controller.gpsDirectionField), "");
    EXPECT_EQ(shown(controller.iptcCityField), "Rome");
    expectLocationActions(false);
}

TEST_F(updateValuesForNewPath, placeTextsOfAPictureWithoutAPositionAreNotShown)
{
    EXPECT_TRUE(showPicture("a.jpg", {.city = "Rome"}));
    EXPECT_EQ(shown(controller.iptcCityField), "");
    // The record holds them until it is prepared for the next picture, which shows its own.
    test::PictureFields fields = kMunich;
    EXPECT_TRUE(showPicture("b.jpg", fields));
    EXPECT_EQ(shown(controller.iptcCityField), "");
    EXPECT_EQ(controller.info.city, nullptr);
}

TEST_F(updateValuesForNewPath, oneCoordinateOfZeroEnablesTheActionsAndShowsNothingNew)
{
    test::PictureFields fields = kMunich;
    fields.city = "Rome";
    EXPECT_TRUE(showPicture("a.jpg", fields));
    const std::string coordinate = shown(controller.gpsCoordinateField);

    EXPECT_TRUE(
        showPicture("equator.jpg", {.lat = 0.0, .latRef = "N", .lon = 11.5, .lonRef = "E"}));
    EXPECT_EQ(shown(controller.gpsCoordinateField), coordinate);
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_EQ(shown(controller.iptcCityField), "Rome");
    expectLocationActions(true);
    EXPECT_EQ(controller.info.latti, 0.0);
    EXPECT_EQ(controller.info.longi, 11.5);

    EXPECT_TRUE(showPicture("null.jpg", {.lat = 0.0, .latRef = "N", .lon = 0.0, .lonRef = "E"}));
    EXPECT_EQ(shown(controller.gpsCoordinateField), "");
    expectLocationActions(false);
}

TEST_F(updateValuesForNewPath, aFolderNamedLikeAPictureIsAcceptedWithoutALocation)
{
    fs::create_directory(folder.file("x.jpg"));
    EXPECT_TRUE(show(folder.file("x.jpg/")));  // as file managers write a folder
    EXPECT_EQ(shown(controller.fileNameField), "x.jpg");
    EXPECT_EQ(controller.fileNameField->toolTip().toStdString(), folder.file("x.jpg/"));
    EXPECT_EQ(shown(controller.fileSizeField), "n.a.");
    expectLocationActions(false);
}

TEST_F(updateValuesForNewPath, aNameThatIsNoUTF8IsFoundAndShown)
{
    const std::string path = folder.write("a\xff.jpg", test::pictureWithGps(kMunich));
    const test::Text text(createPathText(path));
    EXPECT_TRUE(controller.updateValuesForNewPath(text.get()));
    EXPECT_EQ(shown(controller.fileNameField), "a\xEF\xBF\xBD.jpg");
    EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
    EXPECT_TRUE(test::waitUntil([&] { return !controller.fileIconField->pixmap().isNull(); }));
}

TEST_F(updateValuesForNewPath, thePreviewComesThroughTheEventLoop)
{
    EXPECT_TRUE(showPicture("a.jpg", kMunich));
    const auto preview = [&] { return controller.fileIconField->pixmap(); };
    EXPECT_TRUE(preview().isNull()) << "the field is cleared at once";
    ASSERT_TRUE(test::waitUntil([&] { return !preview().isNull(); }));
    const QSizeF size = preview().deviceIndependentSize();
    EXPECT_LE(size.width(), 128.0);
    EXPECT_LE(size.height(), 128.0);

    EXPECT_TRUE(showPicture("b.jpg", kMunich));
    EXPECT_TRUE(preview().isNull());
}

TEST_F(updateValuesForNewPath, onlyTheLastOfManyPathsGetsItsPreview)
{
    (void)folder.write("last.txt", "x");
    for (int i = 0; i < 20; ++i) showPicture(std::to_string(i) + ".jpg", kMunich);
    EXPECT_FALSE(show(folder.file("last.txt")));
    const auto preview = [&] { return controller.fileIconField->pixmap(); };
    ASSERT_TRUE(test::waitUntil([&] { return !preview().isNull(); }));
    // The icon of a text fills its place, the pictures are 8 points wide.
    EXPECT_EQ(preview().deviceIndependentSize(), QSizeF(128, 128));
}

TEST_F(updateValuesForNewPath, showsEveryPictureOfTheCollection)
{
    const auto collection = test::pictureCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    int count = 0;
    for (const char* kind : {"jpeg-gps", "raw", "raw-derived", "hostile"}) {
        for (const auto& item : fs::directory_iterator(*collection + "/" + kind)) {
            SCOPED_TRACE(item.path().string());
            const bool accepted = show(item.path().string());
            EXPECT_EQ(accepted, controller.acceptPath(controller.lastPath));
            EXPECT_EQ(shown(controller.fileNameField), item.path().filename().string());
            const bool hasLocation =
                accepted && (controller.info.latti != 0.0 || controller.info.longi != 0.0);
            expectLocationActions(hasLocation);
            ++count;
        }
    }
    EXPECT_GT(count, 0);
}
