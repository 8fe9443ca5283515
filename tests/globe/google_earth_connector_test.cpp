#include "globe/google_earth_connector.h"

#include "globe/kml_document.h"
#include "platform/files/path_text.h"
#include "tests/support/environment.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace {
fileInfoRecord somewhere()
{
    fileInfoRecord info = {};
    info.latti = 48.1;
    info.refLatti = 'N';
    info.longi = 11.5;
    info.refLongi = 'E';
    return info;
}
}  // namespace

TEST(exportToKML, writesTheDocumentAsUTF8)
{
    const test::TemporaryFolder folder;
    const fileInfoRecord info = somewhere();
    const test::Text name = test::text("Z\xc3\xbcrich.jpg");
    const test::Text path = test::text(folder.file("out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(path.get(), &info, name.get()), 0);
    EXPECT_EQ(test::readFile(folder.file("out.kml")),
              test::takeUTF8(gpsMakeKMLDocument(&info, name.get())));
}

TEST(exportToKML, writesANameThatIsNoUTF8AsFarAsItIs)
{
    const test::TemporaryFolder folder;
    const fileInfoRecord info = somewhere();
    const test::Text name(platform::createPathText("Z\xfcrich.jpg"));
    const test::Text shownName = test::text("Z\xef\xbf\xbdrich.jpg");
    const test::Text path = test::text(folder.file("out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(path.get(), &info, name.get()), 0);
    EXPECT_EQ(test::readFile(folder.file("out.kml")),
              test::takeUTF8(gpsMakeKMLDocument(&info, shownName.get())));
}

TEST(exportToKML, keepsTheTailOfALongerFile)
{
    const test::TemporaryFolder folder;
    const std::string longFile = folder.write("out.kml", std::string(5000, 'x'));
    const fileInfoRecord info = somewhere();
    const test::Text path = test::text(longFile);
    GoogleEarthConnector::exportToKML(path.get(), &info, nullptr);
    const std::string document = test::takeUTF8(gpsMakeKMLDocument(&info, nullptr)).value_or("");
    EXPECT_EQ(test::readFile(longFile), document + std::string(5000 - document.size(), 'x'));
}

TEST(exportToKML, reportsNothingWhenTheFileCannotBeMade)
{
    const test::TemporaryFolder folder;
    const fileInfoRecord info = somewhere();
    const test::Text path = test::text(folder.file("missing/out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(path.get(), &info, nullptr), 0);
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing")));
}

TEST(exportToKML, nullsWriteNothing)
{
    const test::TemporaryFolder folder;
    const fileInfoRecord info = somewhere();
    const test::Text path = test::text(folder.file("out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(nullptr, &info, nullptr), 0);
    EXPECT_EQ(GoogleEarthConnector::exportToKML(path.get(), nullptr, nullptr), 0);
    EXPECT_FALSE(std::filesystem::exists(folder.file("out.kml")));
}

TEST(appMakeKMLFileName, replacesTheExtension)
{
    const struct {
        const char* name;
        const char* pictureName;
        const char* expected;
    } rows[] = {
        {"camera name", "IMG_0001.JPG", "IMG_0001.kml"},
        {"two dots", "a.b.nef", "a.b.kml"},
        {"no extension", "photo", "photo.kml"},
        {"a dot in front is no extension", ".jpg", ".jpg.kml"},
        {"umlauts and blanks", "Z\xc3\xbcrich 1.jpg", "Z\xc3\xbcrich 1.kml"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const test::Text pictureName = test::text(row.pictureName);
        EXPECT_EQ(test::takeUTF8(appMakeKMLFileName(pictureName.get())), row.expected);
    }
    EXPECT_EQ(appMakeKMLFileName(nullptr), nullptr);
}
