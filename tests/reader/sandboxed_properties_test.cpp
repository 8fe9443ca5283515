// The sandboxed copy of a program that reads for it.

#include "reader/sandboxed_properties.h"

#include "pictures/more_properties.h"
#include "reader/reader_client.h"
#include "tests/reader/reader_fixture.h"
#include "tests/support/container_builder.h"
#include "tests/support/other_process.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <chrono>
#include <filesystem>
#include <sstream>
#include <string>

#include <fcntl.h>
#include <sys/prctl.h>
#include <unistd.h>

using namespace pinorama;

namespace {
using test::kHasSanitizers;
using Pictures = test::ReaderPictures;

TEST(forkPropertyReader, readsInASandboxedCopyOfTheProgram)
{
    const Pictures pictures;
    ReaderClient client(forkPropertyReader);
    const PictureFile good(pictures.good());
    for (int i = 0; i < 3; i++) {
        const PropertyResult result = client.readProperties(good.descriptor());
        ASSERT_EQ(result.outcome, ReadOutcome::found);
        EXPECT_EQ(result.properties.latitude, 48.5);
        EXPECT_EQ(result.properties.longitudeReference, u"E");
    }
    const PictureFile other(pictures.secret());
    EXPECT_EQ(client.readProperties(other.descriptor()).outcome, ReadOutcome::nothing);
}

TEST(forkPropertyReader, mayTakeLittleOfTheMachine)
{
    const Pictures pictures;
    ReaderClient client(forkPropertyReader);
    const PictureFile good(pictures.good());
    // It is sandboxed when it replies.
    ASSERT_EQ(client.readProperties(good.descriptor()).outcome, ReadOutcome::found);
    const auto hardLimitOf = [&client](const std::string& resource) {
        return test::hardLimitOf(client.processID(), resource);
    };
    if (!kHasSanitizers) {
        EXPECT_EQ(hardLimitOf("Max address space"), std::to_string(512u << 20));
        EXPECT_EQ(hardLimitOf("Max file size"), "0");
    }
    EXPECT_EQ(hardLimitOf("Max core file size"), "0");
    EXPECT_LT(std::stoi(hardLimitOf("Max open files")), 100);
}

TEST(forkPropertyReader, isClosedToOtherProgramsOfTheUser)
{
    const Pictures pictures;
    const PictureFile good(pictures.good());  // before the rights to it are gone
    const int status = test::inChild([&] {
        if (!test::becomeNobody()) return test::kCannotTest;
        // Being nobody has made this process one that may not be dumped, and its child with it.
        EXPECT_EQ(prctl(PR_SET_DUMPABLE, 1, 0, 0, 0), 0);
        ReaderClient client(forkPropertyReader);
        EXPECT_EQ(client.readProperties(good.descriptor()).outcome, ReadOutcome::found);
        const std::string secret = "/proc/" + std::to_string(client.processID()) + "/environ";
        const DescriptorHolder opened(openDescriptor(secret.c_str(), O_RDONLY));
        EXPECT_FALSE(opened);
        EXPECT_EQ(errno, EACCES);
        return testing::Test::HasFailure() ? 1 : 0;
    });
    if (status == test::kCannotTest) GTEST_SKIP() << "everything here runs as root";
    EXPECT_EQ(status, 0);
}

TEST(forkPropertyReader, agreesWithReadingInThisProcess)
{
    const std::optional<std::string> collection = test::pictureCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    ReaderClient client(forkPropertyReader);
    int found = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(*collection)) {
        const PictureFile file(entry.path().string());
        if (!file.isOpen()) continue;
        FileByteSource bytes(file.descriptor(), file.size());
        const std::optional<PictureProperties> here = readPictureProperties(bytes);
        const PropertyResult there = client.readProperties(file.descriptor());
        EXPECT_EQ(there.outcome, here ? ReadOutcome::found : ReadOutcome::nothing) << entry.path();
        if (here) {
            EXPECT_EQ(there.properties, *here) << entry.path();
        }
        if (here) found++;
    }
    EXPECT_GT(found, 300);
}

TEST(forkPropertyReader, readsMoreKindsOfFilesWhereItIsAskedTo)
{
    const test::TemporaryFolder folder;
    const std::string tiff = test::tiffWithGps({.lat = 48.5, .latRef = "N", .lon = 2.25});
    const std::string heic = test::heifFile({.items = {{"Exif", test::heifExif(tiff)}}});
    const PictureFile picture(folder.write("a.heic", heic));
    ReaderClient client(forkPropertyReader);
    EXPECT_EQ(client.readProperties(picture.descriptor()).outcome, ReadOutcome::nothing);
    client.setReadsMore(true);
    const PropertyResult more = client.readProperties(picture.descriptor());
    ASSERT_EQ(more.outcome, ReadOutcome::found);
    EXPECT_EQ(more.properties.latitude, 48.5);
    (void)client.startProperties(picture.descriptor());
    EXPECT_EQ(client.waitForProperties(std::chrono::seconds(20))->outcome, ReadOutcome::found);
    client.setReadsMore(false);
    EXPECT_EQ(client.readProperties(picture.descriptor()).outcome, ReadOutcome::nothing);
}

TEST(forkPropertyReader, readsTheFormatCollectionAsThisProcessDoes)
{
    const std::optional<std::string> collection = test::formatCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_FORMAT_COLLECTION is not set";
    const test::ScopedVariable language("LANGUAGE", "en");
    ReaderClient client(forkPropertyReader);
    client.setReadsMore(true);
    int found = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(*collection)) {
        const PictureFile file(entry.path().string());
        if (!file.isOpen()) continue;
        FileByteSource bytes(file.descriptor(), file.size());
        const std::optional<PictureProperties> here = readMoreProperties(bytes, "en");
        const PropertyResult there = client.readProperties(file.descriptor());
        EXPECT_EQ(there.outcome, here ? ReadOutcome::found : ReadOutcome::nothing) << entry.path();
        if (here) {
            EXPECT_EQ(there.properties, *here) << entry.path();
        }
        if (here) found++;
    }
    EXPECT_GT(found, 50);
}
}  // namespace
