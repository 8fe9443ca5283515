#include "cli/file_reporter.h"

#include "cli/batch_work.h"
#include "pictures/byte_source.h"
#include "reader/reader_client.h"
#include "reader/reader_service.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>
#include <sys/mman.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <optional>
#include <string>
#include <thread>
#include <vector>

using namespace pinorama;
using namespace std::chrono_literals;

namespace {
using Texts = std::vector<std::string>;

// Reads like the sandboxed process, except that some pictures crash it or never end.
std::optional<PictureProperties> readOrDie(ByteSource& source)
{
    const ByteView bytes = source.view(0, 5);
    const std::string beginning(bytes.begin(), bytes.end());
    if (beginning == "CRASH") abort();
    while (beginning == "LOOPS") pause();
    return readPictureProperties(source);
}

ReaderProcess forkFaultyReader()
{
    return forkReader([](int socket) {
        const rlimit none = {0, 0};
        setrlimit(RLIMIT_CORE, &none);
        serveReader(socket, {readOrDie, {}});
    });
}

// A reader that finds a position in every file.
ReaderProcess forkGenerousReader()
{
    return forkReader([](int socket) {
        const auto findAlways = [](ByteSource&) -> std::optional<PictureProperties> {
            PictureProperties properties;
            properties.hasGps = true;
            properties.latitude = 1.0;
            properties.longitude = 2.0;
            return properties;
        };
        serveReader(socket, {findAlways, {}});
    });
}

// Launches readers that show in shared memory that they have ended by themselves; they keep no
// descriptor but their socket.
class WatchedReaders {
public:
    ReaderLauncher launcher()
    {
        return [this] {
            launched_++;
            return forkReader([ended = ended_](int socket) {
                serveReader(socket, {readPictureProperties, {}});
                ended->store(true);
            });
        };
    }
    int launched() const { return launched_; }
    bool hasEnded(std::chrono::milliseconds limit) const
    {
        const auto end = std::chrono::steady_clock::now() + limit;
        while (!ended_->load() && std::chrono::steady_clock::now() < end) {
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        return ended_->load();
    }

private:
    using Flag = std::atomic<bool>;
    static_assert(Flag::is_always_lock_free, "works between processes");

    // Unmapped when the test program ends.
    Flag* ended_ =
        new (mmap(nullptr, sizeof(Flag), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0))
            Flag(false);
    int launched_ = 0;
};
}  // namespace

TEST(FileReporter, losesOnlyThePictureThatCrashesAReader)
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
    ReaderLimits limits;
    limits.properties.silence = std::chrono::seconds(1);
    FileReporter reporter({}, forkFaultyReader, limits);
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

TEST(FileReporter, readsPicturesOnly)
{
    const test::TemporaryFolder folder;
    const std::string namedLikeAPicture = folder.file("folder.jpg");
    ASSERT_EQ(mkdir(namedLikeAPicture.c_str(), 0700), 0);
    FileReporter reporter({}, forkGenerousReader);
    const std::vector<FileReport> reports =
        reporter.report(Texts{folder.write("a.txt", "a"), folder.write("b.jpg", "bb"),
                              folder.file("missing.jpg"), folder.path(), namedLikeAPicture});
    EXPECT_FALSE(reports[0].place);
    EXPECT_EQ(reports[0].size, 1u);
    EXPECT_EQ(reports[1].place->result, 0);
    EXPECT_EQ(reports[1].error, "");
    EXPECT_EQ(reports[2].place->result, -43);
    EXPECT_EQ(reports[2].error, "No such file or directory");
    EXPECT_EQ(reports[3].size, std::nullopt);
    EXPECT_FALSE(reports[3].place);
    EXPECT_EQ(reports[4].place->result, -1);
    EXPECT_EQ(reporter.report(Texts{}).size(), 0u);
}

TEST(FileReporter, startsTheReaderForPicturesAndDismissesItAfterTheOnlyOne)
{
    const test::TemporaryFolder folder;
    const std::string picture = folder.write("a.jpg", "a");
    const std::string text = folder.write("a.txt", "a");
    const struct {
        const char* name;
        Texts paths;
        int launched;  // before anything is read
        bool isDismissed;
    } rows[] = {{"one picture", {picture}, 1, true},
                {"two files", {text, picture}, 1, false},
                {"no picture", {text}, 0, false},
                {"nothing", {}, 0, false}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        WatchedReaders readers;
        FileReporter reporter({}, readers.launcher());
        reporter.expect(row.paths);
        EXPECT_EQ(readers.launched(), row.launched);
        EXPECT_EQ(reporter.report(row.paths).size(), row.paths.size());
        EXPECT_EQ(readers.launched(), row.launched);
        EXPECT_EQ(readers.hasEnded(row.isDismissed ? 10s : 50ms), row.isDismissed);
    }
}

TEST(FileReporter, reportsThatThereIsNoReader)
{
    const test::TemporaryFolder folder;
    FileReporter reporter({}, [] { return ReaderProcess(); });
    const std::string path = folder.write("a.jpg", "a");
    EXPECT_EQ(reporter.report(Texts{path}).front().error,
              "pictures cannot be read safely on this system");
}

TEST(FileReporter, fillsInWhatTheOptionsRequest)
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
        FileReporter reporter({.output = row.output, .placemarks = true});
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

TEST(BatchWork, countsTheFiles)
{
    const test::TemporaryFolder folder;
    BatchWork work({.output = Output::json});
    const BatchResult result =
        work.process(Texts{folder.write("a.jpg", test::pictureWithGps({.lat = 1, .lon = 2})),
                           folder.write("b.jpg", "no picture"), folder.file("missing.jpg")});
    EXPECT_EQ(result.files, 3u);
    EXPECT_EQ(result.located, 1u);
    EXPECT_EQ(result.failed, 1u);
    EXPECT_EQ(result.diagnostics,
              "pinorama-info: " + folder.file("missing.jpg") + ": No such file or directory\n");
    EXPECT_EQ(std::count(result.output.begin(), result.output.end(), '\n'), 3);
}
