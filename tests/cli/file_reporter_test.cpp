#include "cli/file_reporter.h"

#include "cli/batch_work.h"
#include "pictures/byte_source.h"
#include "reader/reader_client.h"
#include "reader/reader_service.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using Texts = std::vector<std::string>;

// Reads as the locked-in process does, but some pictures do harm.
std::optional<PictureProperties> readOrDie(ByteSource& source)
{
    const ByteView bytes = source.view(0, 5);
    const std::string beginning(bytes.begin(), bytes.end());
    if (beginning == "CRASH") abort();
    while (beginning == "LOOPS") pause();
    return readPictureProperties(source);
}

PropertyReading makeFaultyReading()
{
    ReaderLimits limits;
    limits.properties.silence = std::chrono::seconds(1);
    const auto client = std::make_shared<ReaderClient>(
        [] {
            return forkReader([](int socket) {
                const rlimit none = {0, 0};
                setrlimit(RLIMIT_CORE, &none);
                serveReader(socket, {readOrDie, {}});
            });
        },
        limits);
    return {.prepare = [client] { client->start(); },
            .read = [client](std::span<const int> descriptors,
                             int alarm) { return client->readProperties(descriptors, alarm); },
            .finish = [client] { client->dismiss(); }};
}

// Reads nothing and counts.
PropertyReading makeReading(ReadOutcome outcome, int* asked)
{
    return {.prepare = [] {},
            .read =
                [outcome, asked](std::span<const int> descriptors, int /*alarm*/) {
                    *asked += static_cast<int>(descriptors.size());
                    std::vector<PropertyResult> results(descriptors.size());
                    for (auto& result : results) result.outcome = outcome;
                    return results;
                },
            .finish = [] {}};
}
}  // namespace

TEST(FileReporter, losesOnlyThePictureThatAReaderDiesOf)
{
    const test::TemporaryFolder folder;
    const std::string picture = test::pictureWithGps({.lat = 1, .latRef = "S", .lon = 2});
    Texts paths;
    for (const char* name : {"1", "2", "crash", "4", "loops", "6", "7"}) {
        const bool isGood = std::string(name).size() == 1;
        paths.push_back(folder.write(std::string(name) + ".jpg", isGood ? picture
                                                                 : std::string(name) == "crash"
                                                                     ? "CRASH..."
                                                                     : "LOOPS..."));
    }
    FileReporter reporter({}, makeFaultyReading());
    const auto start = std::chrono::steady_clock::now();
    const std::vector<FileReport> reports = reporter.report(paths);
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(40));
    ASSERT_EQ(reports.size(), paths.size());
    for (std::size_t i = 0; i < paths.size(); i++) {
        SCOPED_TRACE(paths[i]);
        const char* const error = i == 2   ? "reading the picture failed"
                                  : i == 4 ? "reading the picture took too long"
                                           : "";
        const bool isGood = *error == '\0';
        EXPECT_EQ(reports[i].path, paths[i]);
        EXPECT_EQ(reports[i].place->result, isGood ? 0 : -1);
        EXPECT_EQ(reports[i].error, error);
        EXPECT_EQ(reports[i].size, isGood ? picture.size() : 8u);
    }
}

TEST(FileReporter, asksForPicturesOnly)
{
    const test::TemporaryFolder folder;
    int asked = 0;
    FileReporter reporter({}, makeReading(ReadOutcome::nothing, &asked));
    const std::vector<FileReport> reports =
        reporter.report(Texts{folder.write("a.txt", "a"), folder.write("b.jpg", "bb"),
                              folder.file("missing.jpg"), folder.path()});
    EXPECT_EQ(asked, 1);
    EXPECT_FALSE(reports[0].place);
    EXPECT_EQ(reports[0].size, 1u);
    EXPECT_EQ(reports[1].place->result, -1);
    EXPECT_EQ(reports[1].error, "");
    EXPECT_EQ(reports[2].place->result, -43);
    EXPECT_EQ(reports[2].error, "No such file or directory");
    EXPECT_EQ(reports[3].size, std::nullopt);
    EXPECT_EQ(reporter.report(Texts{}).size(), 0u);
}

TEST(FileReporter, startsTheReaderForPicturesAndSaysWhenTheOnlyOneIsRead)
{
    const test::TemporaryFolder folder;
    const std::string picture = folder.write("a.jpg", "a");
    const std::string text = folder.write("a.txt", "a");
    const struct {
        Texts paths;
        int prepared;  // before anything is read
        int finished;
    } rows[] = {{{picture}, 1, 1}, {{text, picture}, 1, 0}, {{text}, 0, 1}, {{}, 0, 0}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.paths.size());
        int asked = 0;
        int prepared = 0;
        int finished = 0;
        PropertyReading reading = makeReading(ReadOutcome::nothing, &asked);
        reading.prepare = [&prepared] { prepared++; };
        reading.finish = [&] {
            finished++;
            EXPECT_EQ(asked, prepared > 0 ? 1 : 0);
        };
        FileReporter reporter({}, reading);
        reporter.expect(row.paths);
        EXPECT_EQ(prepared, row.prepared);
        EXPECT_EQ(reporter.report(row.paths).size(), row.paths.size());
        EXPECT_EQ(finished, row.finished);
    }
}

TEST(FileReporter, saysThatThereIsNoReader)
{
    const test::TemporaryFolder folder;
    int asked = 0;
    FileReporter reporter({}, makeReading(ReadOutcome::noReader, &asked));
    const std::string path = folder.write("a.jpg", "a");
    EXPECT_EQ(reporter.report(Texts{path}).front().error,
              "pictures cannot be read safely on this system");
}

TEST(FileReporter, makesWhatIsWishedFor)
{
    const test::TemporaryFolder folder;
    const Texts paths = {
        folder.write(
            "a & b.jpg",
            test::pictureWithGps(
                {.lat = 48.5, .latRef = "S", .lon = 11.25, .lonRef = "W", .imgDirection = 90})),
        folder.write("plain.jpg", test::jpegPicture({}))};
    const struct {
        Output output;
        const char* address;
    } rows[] = {
        {Output::catalogueAddress,
         "skallion://find/gps/&lat=-48.500000&long=-11.250000&distance=2000m"},
        {Output::script,
         "tell application \"Google Earth\" \r activate \r SetViewInfo {latitude:-48.500000, "
         "longitude:-11.250000, distance:1000.000000, tilt:44.000000, azimuth:90.000000} speed "
         "0.600000  \r  end tell"},
        {Output::text, ""},
    };
    for (const auto& row : rows) {
        FileReporter reporter({.output = row.output, .placemarks = true}, makePropertyReading());
        const std::vector<FileReport> reports = reporter.report(paths);
        EXPECT_EQ(reports[0].address, row.address);
        EXPECT_EQ(reports[0].placemark,
                  "<Placemark><name>a &amp; b.jpg</name><open>1</open>"
                  "<description>a &amp; b.jpg</description><styleUrl>#22370</styleUrl><Point>"
                  "<coordinates>-11.250000,-48.500000,0</coordinates></Point></Placemark>");
        EXPECT_EQ(reports[1].address, "");
        EXPECT_EQ(reports[1].placemark, "");
    }
}

TEST(BatchWork, countsWhatHasComeOfIt)
{
    const test::TemporaryFolder folder;
    BatchWork work({.output = Output::json}, makePropertyReading());
    const BatchResult result =
        work.process(Texts{folder.write("a.jpg", test::pictureWithGps({.lat = 1, .lon = 2})),
                           folder.write("b.jpg", "no picture"), folder.file("missing.jpg")});
    EXPECT_EQ(result.files, 3u);
    EXPECT_EQ(result.located, 1u);
    EXPECT_EQ(result.failed, 1u);
    EXPECT_EQ(result.complaints,
              "pinorama-info: " + folder.file("missing.jpg") + ": No such file or directory\n");
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 3);
}
