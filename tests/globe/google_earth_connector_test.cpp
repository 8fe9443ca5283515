#include "globe/google_earth_connector.h"

#include "globe/kml_document.h"
#include "lib/files/path_text.h"
#include "tests/globe/places.h"
#include "tests/support/environment.h"
#include "tests/support/failing_memory.h"
#include "tests/support/other_process.h"
#include "tests/support/small_disk.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include <sys/stat.h>

using namespace pinorama;

namespace {
const fileInfoRecord kSomewhere = test::place(48.1, 'N', 11.5, 'E');

// Exports to `path`, which reports nothing whatever comes of it.
void exportTo(const std::string& path)
{
    EXPECT_EQ(GoogleEarthConnector::exportToKML(test::text(path).get(), &kSomewhere, nullptr), 0);
}

std::string documentOfSomewhere()
{
    return test::takeUTF8(gpsMakeKMLDocument(&kSomewhere, nullptr)).value_or("");
}

long openDescriptors()
{
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
}
}  // namespace

TEST(exportToKML, writesTheDocumentAsUTF8)
{
    const test::TemporaryFolder folder;
    const test::Text name = test::text("Z\xc3\xbcrich.jpg");
    const test::Text path = test::text(folder.file("out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(path.get(), &kSomewhere, name.get()), 0);
    EXPECT_EQ(test::readFile(folder.file("out.kml")),
              test::takeUTF8(gpsMakeKMLDocument(&kSomewhere, name.get())));
}

TEST(exportToKML, writesANameThatIsNoUTF8AsFarAsItIs)
{
    const test::TemporaryFolder folder;
    const test::Text name(createPathText("Z\xfcrich.jpg"));
    const test::Text shownName = test::text("Z\xef\xbf\xbdrich.jpg");
    const test::Text path = test::text(folder.file("out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(path.get(), &kSomewhere, name.get()), 0);
    EXPECT_EQ(test::readFile(folder.file("out.kml")),
              test::takeUTF8(gpsMakeKMLDocument(&kSomewhere, shownName.get())));
}

TEST(exportToKML, keepsTheTailOfALongerFile)
{
    const test::TemporaryFolder folder;
    const std::string longFile = folder.write("out.kml", std::string(5000, 'x'));
    const test::Text path = test::text(longFile);
    GoogleEarthConnector::exportToKML(path.get(), &kSomewhere, nullptr);
    const std::string document =
        test::takeUTF8(gpsMakeKMLDocument(&kSomewhere, nullptr)).value_or("");
    EXPECT_EQ(test::readFile(longFile), document + std::string(5000 - document.size(), 'x'));
}

TEST(exportToKML, reportsNothingWhenTheFileCannotBeMade)
{
    const test::TemporaryFolder folder;
    const test::Text path = test::text(folder.file("missing/out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(path.get(), &kSomewhere, nullptr), 0);
    EXPECT_FALSE(std::filesystem::exists(folder.file("missing")));
}

TEST(exportToKML, onAFullDiskWritesWhatFits)
{
    const test::TemporaryFolder folder;
    const int status = test::inChild([&folder] {
        if (!test::mountSmallDisk(folder.path())) return test::kCannotTest;
        const std::string neighbour = folder.write("other.kml", "kept");
        const std::string older = folder.write("older.kml", std::string(5000, 'o'));
        test::fillDisk(folder.path());
        const long before = openDescriptors();
        exportTo(folder.file("new.kml"));
        EXPECT_EQ(test::readFile(folder.file("new.kml")), "");
        // What is there needs no more room.
        exportTo(older);
        const std::string document = documentOfSomewhere();
        EXPECT_EQ(test::readFile(older), document + std::string(5000 - document.size(), 'o'));
        EXPECT_EQ(test::readFile(neighbour), "kept");
        EXPECT_EQ(openDescriptors(), before);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == test::kCannotTest) GTEST_SKIP() << "cannot mount a small disk here";
    EXPECT_EQ(status, 0);
}

TEST(exportToKML, inAReadOnlyFolderOverwritesAndMakesNothing)
{
    const test::TemporaryFolder folder;
    const std::string open = folder.write("open.kml", "");
    const std::string locked = folder.write("locked.kml", "kept");
    ASSERT_EQ(chmod(open.c_str(), 0666), 0);
    ASSERT_EQ(chmod(locked.c_str(), 0444), 0);
    ASSERT_EQ(chmod(folder.path().c_str(), 0555), 0);
    const int status = test::inChild([&] {
        if (!test::becomeNobody()) return test::kCannotTest;
        for (const std::string& path : {open, locked, folder.file("new.kml")}) exportTo(path);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    if (status == test::kCannotTest) GTEST_SKIP() << "cannot become another user";
    EXPECT_EQ(status, 0);
    EXPECT_EQ(test::readFile(open), documentOfSomewhere());
    EXPECT_EQ(test::readFile(locked), "kept");
    EXPECT_FALSE(std::filesystem::exists(folder.file("new.kml")));
}

TEST(exportToKML, intoAFolderThatVanishedMakesNoFolder)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("gone"));
    const std::string path = folder.file("gone/out.kml");
    exportTo(path);
    std::filesystem::remove_all(folder.file("gone"));
    exportTo(path);
    EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}

TEST(exportToKML, waitsForNoPipeAndNoFolder)
{
    const test::TemporaryFolder folder;
    const std::string pipe = folder.file("pipe.kml");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    std::filesystem::create_directory(folder.file("folder.kml"));
    const long before = openDescriptors();
    exportTo(pipe);
    exportTo(folder.file("folder.kml"));
    EXPECT_TRUE(std::filesystem::is_empty(folder.file("folder.kml")));
    EXPECT_EQ(openDescriptors(), before);
}

TEST(exportToKML, nullsWriteNothing)
{
    const test::TemporaryFolder folder;
    const test::Text path = test::text(folder.file("out.kml"));
    EXPECT_EQ(GoogleEarthConnector::exportToKML(nullptr, &kSomewhere, nullptr), 0);
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

TEST(appMakeKMLFileName, isNullWhenMemoryRunsOut)
{
    const test::Text name = test::text("A picture of the harbour.jpg");
    EXPECT_GT(test::failEachRequest([&] { return appMakeKMLFileName(name.get()); }), 2u);
}

TEST(exportToKML, writesAWholeDocumentOrNoneWhenMemoryRunsOut)
{
    const test::TemporaryFolder folder;
    const test::Text path = test::text(folder.file("export.kml"));
    const test::Text name = test::text("A picture of the harbour.jpg");
    fileInfoRecord info{};
    gpsPrepareInfoRecord(&info);
    std::string whole;
    for (std::uint64_t nth = 1;; nth++) {
        std::filesystem::remove(folder.file("export.kml"));
        baseFailAllocation(nth);
        const std::int32_t status =
            GoogleEarthConnector::exportToKML(path.get(), &info, name.get());
        const bool ranOut = baseAllocationHasFailed();
        baseFailAllocation(0);
        EXPECT_EQ(status, 0);
        whole = test::readFile(folder.file("export.kml"));
        if (!ranOut) break;
        ASSERT_EQ(whole, "") << "request " << nth;
    }
    EXPECT_TRUE(whole.ends_with("</Document></kml>"));
}
