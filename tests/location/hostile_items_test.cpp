// Items that are no pictures, and pictures that are hard to get at, through the metadata reader.

#include "tests/support/hostile_items.h"
#include "base/status.h"
#include "lib/files/path_text.h"
#include "location/file_facts.h"
#include "location/metadata_reader.h"
#include "tests/support/other_process.h"
#include "tests/support/picture_builder.h"
#include "tests/support/restless_file.h"
#include "tests/support/texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>

#include <sys/stat.h>

using namespace pinorama;

namespace {
// The status of reading a path into a record that holds something already.
std::int32_t read(const std::string& path, fileInfoRecord* record)
{
    gpsPrepareInfoRecord(record);
    record->latti = 7;
    const test::Text text(createPathText(path));
    const std::int32_t status = gpsGetCoordinatesFromFilePath(text.get(), record);
    gpsReleaseInfoRecord(record);
    return status;
}

const test::PictureFields kPlace = {.lat = 48.5, .latRef = "N", .lon = 11.25, .lonRef = "E"};
}  // namespace

TEST(gpsGetCoordinatesFromFilePath, tellsTheStatusOfEveryHostileItem)
{
    const test::TemporaryFolder folder;
    const auto before = std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
    for (const test::HostileItem& item : test::hostileItems(folder)) {
        SCOPED_TRACE(item.what);
        fileInfoRecord record{};
        const std::int32_t expected = item.status == kErrNone ? kErrNothingUsable : item.status;
        EXPECT_EQ(read(item.path, &record), expected);
        EXPECT_EQ(record.latti, 7.0) << "untouched";

        const test::Text text(createPathText(item.path));
        const fileFacts facts = gpsReadFileFacts(text.get());
        EXPECT_EQ(facts.size.has_value(), item.isRegular);
        EXPECT_EQ(facts.modified == 0, item.error != nullptr);
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}), before);
}

TEST(gpsGetCoordinatesFromFilePath, readsPicturesWithDifficultNames)
{
    const test::TemporaryFolder folder;
    std::string deep = folder.path();
    for (int i = 0; i < 14; i++) deep += "/" + std::string(255, 'd');
    std::filesystem::create_directories(deep);
    for (const std::string& path :
         {folder.file(test::longestName()), folder.file("\xff\xc3(.jpg"), folder.file("a\nb.jpg"),
          folder.file(" .jpg"), folder.file("%s%n.jpg"), deep + "/deep.jpg"}) {
        SCOPED_TRACE(path);
        std::filesystem::copy_file(folder.write("picture", test::pictureWithGps(kPlace)), path);
        fileInfoRecord record{};
        EXPECT_EQ(read(path, &record), 0);
        EXPECT_EQ(record.latti, 48.5);
    }
}

TEST(gpsGetCoordinatesFromFilePath, findsNothingInWhatMayNotBeRead)
{
    const test::TemporaryFolder folder;
    std::filesystem::create_directory(folder.file("locked"));
    const std::string inside = folder.write("locked/a.jpg", test::pictureWithGps(kPlace));
    const std::string locked = folder.write("locked.jpg", test::pictureWithGps(kPlace));
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(locked.c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.file("locked").c_str(), 0), 0);
    const int status = test::inChild([&] {
        if (!test::becomeNobody()) return test::kCannotTest;
        fileInfoRecord record{};
        EXPECT_EQ(read(locked, &record), kErrNothingUsable);
        EXPECT_EQ(record.latti, 7.0);
        // Of what lies in a locked folder nobody can tell whether it is there.
        EXPECT_EQ(read(inside, &record), kErrNoPermission);
        EXPECT_EQ(record.latti, 7.0);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    ASSERT_EQ(chmod(folder.file("locked").c_str(), 0755), 0);
    if (status == test::kCannotTest) GTEST_SKIP() << "cannot become another user";
    EXPECT_EQ(status, 0);
}

TEST(gpsGetCoordinatesFromFilePath, ofAFileThatIsBeingChangedIsAStatusOfTheList)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("restless.jpg");
    const test::RestlessFile other(path, test::pictureWithGps(kPlace));
    int found = 0;
    for (int i = 0; i < 3000; i++) {
        fileInfoRecord record{};
        const std::int32_t status = read(path, &record);
        EXPECT_TRUE(status == 0 || status == kErrNothingUsable || status == kErrNotFound) << status;
        if (status == 0 && record.latti == 48.5 && record.longi == 11.25) found++;
    }
    EXPECT_GT(found, 0);
}
