// The finished package, taken apart into a folder of its own, on the program's main way. The
// picture lies in a folder and has a name beyond ASCII, each longer than what an optimised loop
// takes at once.

#include "tests/cli/collection_through_program.h"
#include "tests/support/environment.h"
#include "tests/support/golden.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <QCryptographicHash>
#include <QImage>
#include <QString>

#include <cstdlib>
#include <filesystem>
#include <memory>
#include <string>

namespace {
namespace fs = std::filesystem;

constexpr const char* kPictureName =
    "\u00e9t\u00e9 \u00e0 la plage \u00e9\u00e9\u00e9\u00e9\u00e9.jpg";

// Where the packages are: PINORAMA_PACKAGES, or where the build has just made them.
std::string packageFolder()
{
    const char* chosen = std::getenv("PINORAMA_PACKAGES");
    return chosen != nullptr ? chosen : PINORAMA_PACKAGE_FOLDER;
}

std::string theProgramsPackage()
{
    std::string package;
    for (const auto& entry : fs::directory_iterator(packageFolder())) {
        const std::string name = entry.path().filename();
        if (!name.starts_with("pinorama_") || !name.ends_with(".deb")) continue;
        EXPECT_EQ(package, "") << "more than one package of the program";
        package = entry.path();
    }
    return package;
}

class Package : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        installed_ = std::make_unique<test::TemporaryFolder>();
        const test::ProgramResult result =
            test::runProgram({.command = {PINORAMA_DPKG_DEB, "--extract", theProgramsPackage(),
                                          installed_->path()}});
        ASSERT_EQ(result.status, 0) << result.err;
    }
    static void TearDownTestSuite() { installed_.reset(); }

    void SetUp() override
    {
        const fs::path folder = folder_.file("Ausfl\u00fcge \u00fcber \u00c4cker und H\u00fcgel");
        fs::create_directory(folder);
        picture_ = folder / kPictureName;
        fs::copy_file(PINORAMA_SAMPLE, picture_);
    }

    static std::string program(const std::string& name)
    {
        return installed_->file("usr/bin/" + name);
    }
    test::ProgramResult run(std::vector<std::string> command) const
    {
        command.front() = program(command.front());
        // Nothing of the build tree takes the place of what is in the package.
        const test::ScopedVariable strings("PINORAMA_RESOURCES", nullptr);
        const test::ScopedVariable reader("PINORAMA_READER", nullptr);
        return test::runProgram({.command = command,
                                 .variables = {{"QT_QPA_PLATFORM", "offscreen"},
                                               {"XDG_CACHE_HOME", folder_.file("cache")}}});
    }

    static std::unique_ptr<test::TemporaryFolder> installed_;
    test::TemporaryFolder folder_;
    fs::path picture_;
};
std::unique_ptr<test::TemporaryFolder> Package::installed_;
}  // namespace

TEST_F(Package, showsAPictureInAFolderBeyondASCII)
{
    const test::ProgramResult result =
        run({"pinorama", "--print-and-save", folder_.file("window.png"), picture_});
    EXPECT_EQ(result.status, 0) << result.err;
    for (const char* line :
         {"Name: \u00e9t\u00e9 \u00e0 la plage \u00e9\u00e9\u00e9\u00e9\u00e9.jpg\n",
          "\nSize: 8.9 KB\n", "\nAltitude: 2962 m\n",
          "\nCoordinate: N 47\u00b0 25' 15.5\"   E 10\u00b0 59' 7.0\"\n", "\nCity: Grainau\n",
          "\nPreview: shown\n", "\nMarker: shown\n"}) {
        EXPECT_NE(result.out.find(line), std::string::npos) << line << "in\n" << result.out;
    }
    const std::string modified = result.out.substr(result.out.find("Modified: "));
    EXPECT_EQ(modified.substr(0, modified.find('\n')).find("1904"), std::string::npos) << modified;
}

TEST_F(Package, keepsTheThumbnailOfAPictureBeyondASCII)
{
    ASSERT_EQ(run({"pinorama", "--print-and-save", folder_.file("window.png"), picture_}).status,
              0);
    std::vector<fs::path> thumbnails;
    for (const auto& entry : fs::recursive_directory_iterator(folder_.file("cache")))
        if (entry.path().extension() == ".png") thumbnails.push_back(entry.path());
    ASSERT_EQ(thumbnails.size(), 1u);
    const QImage thumbnail(QString::fromStdString(thumbnails[0]));
    const QString uri = thumbnail.text(QStringLiteral("Thumb::URI"));
    EXPECT_TRUE(
        uri.endsWith(QStringLiteral("/%C3%A9t%C3%A9%20%C3%A0%20la%20plage%20"
                                    "%C3%A9%C3%A9%C3%A9%C3%A9%C3%A9.jpg")))
        << uri.toStdString();
    const QByteArray hash = QCryptographicHash::hash(uri.toUtf8(), QCryptographicHash::Md5);
    EXPECT_EQ(thumbnails[0].stem().string(), hash.toHex().toStdString());
}

TEST_F(Package, tellsTheSessionBusWhereItsProgramIs)
{
    const std::string service =
        test::readFile(installed_->file("usr/share/dbus-1/services/org.pinorama.Pinorama.service"));
    EXPECT_NE(service.find("\nExec=/usr/bin/pinorama --service\n"), std::string::npos) << service;
}

TEST_F(Package, exportsTheGoldenPlacemark)
{
    const std::string exported = folder_.file("out.kml");
    const test::ProgramResult result = run({"pinorama-info", "--kml", exported, picture_});
    EXPECT_EQ(result.status, 0) << result.err;
    test::expectGolden(GOLDEN_FOLDER "/beach.kml", test::readFile(exported));
}

TEST_F(Package, tellsWhatIsExpectedOfEveryPictureOfTheCollection)
{
    const std::optional<std::string> folder = test::pictureCollection();
    if (!folder) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    test::expectTheCollectionThrough(program("pinorama-info"), *folder);
}
