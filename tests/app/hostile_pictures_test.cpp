// Damaged and hostile pictures through the real window, with the real reader.

#include "lib/ui/picture_reader.h"
#include "platform/files/resource_folder.h"
#include "platform/pictures/picture_source.h"
#include "tests/app/controller_fixture.h"
#include "tests/support/damaged_pictures.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <sys/stat.h>
#include <unistd.h>
#include <csignal>

namespace {
using namespace std::chrono_literals;
namespace fs = std::filesystem;
using Clock = std::chrono::steady_clock;

#if defined(__SANITIZE_ADDRESS__)
constexpr bool kHasSanitizers = true;
#else
constexpr bool kHasSanitizers = false;
#endif

const auto* const toolkit = testing::AddGlobalTestEnvironment(new test::Toolkit);

class hostilePictures : public test::ControllerTest {
protected:
    void SetUp() override
    {
        ControllerTest::SetUp();
        cuReadPicturesElsewhere();
        good_ = folder.write(
            "good.jpg",
            test::pictureWithGps(
                {.lat = 48.5, .latRef = "N", .lon = 11.25, .lonRef = "E", .altitude = 520.0}));
        other_ = folder.write(
            "other.jpg",
            test::pictureWithGps(
                {.lat = 10.0, .latRef = "S", .lon = 20.0, .lonRef = "W", .altitude = 7.0}));
    }
    void TearDown() override
    {
        platform::installPropertySource({});
        cuPictureReader().stop();
    }

    // Shows a file and waits for its picture. True when both kept to their deadlines: half a second
    // for the properties and three for each preview, and as much again for a reader to start.
    bool showsInTime(const std::string& path, const std::string& what = {})
    {
        const pid_t before = cuPictureReader().processID();
        const auto start = Clock::now();
        (void)show(path);
        const bool isQuick = Clock::now() - start < 2500ms;
        const bool hasPicture = test::waitUntil(
            [this] { return !controller.fileIconField->pixmap(Qt::ReturnByValue).isNull(); });
        if (cuPictureReader().processID() != before) {
            readersLost_++;
            std::printf("a reader was lost with %s (%s)\n", path.c_str(), what.c_str());
        }
        return isQuick && hasPicture;
    }

    // A good picture shows as if nothing had happened.
    void expectGoodPicture()
    {
        EXPECT_TRUE(showsInTime(other_));
        EXPECT_EQ(shown(controller.gpsAltitudeField), "7 m");
        EXPECT_TRUE(showsInTime(good_));
        EXPECT_EQ(shown(controller.gpsAltitudeField), "520 m");
        EXPECT_EQ(controller.fileIconField->pixmap(Qt::ReturnByValue).deviceIndependentSize(),
                  QSizeF(8, 8));
    }

    // Lets everything come to its end that goes on after a picture is shown.
    static void rest()
    {
        const auto end = Clock::now() + 300ms;
        (void)test::waitUntil([end] { return Clock::now() >= end; });
    }

    std::string good_;
    std::string other_;
    int readersLost_ = 0;
};

// Kilobytes of memory that are in use now.
long residentMemory()
{
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

long openDescriptors()
{
    const fs::directory_iterator entries("/proc/self/fd");
    return std::distance(begin(entries), end(entries));
}

// The processes that this one has started and that are still there.
int childProcesses()
{
    int count = 0;
    for (const auto& entry : fs::directory_iterator("/proc/self/task")) {
        std::ifstream file(entry.path() / "children");
        for (int child = 0; file >> child;) count++;
    }
    return count;
}

// How often something is to be done: as many times as the environment says, else `usual` times.
int countFrom(const char* variable, int usual)
{
    const char* told = std::getenv(variable);
    return told == nullptr ? usual : std::max(1, std::atoi(told));
}

TEST_F(hostilePictures, ofTheCollectionDoNoHarm)
{
    const auto collection = test::pictureCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    expectGoodPicture();
    int count = 0;
    for (const auto& entry : fs::directory_iterator(*collection + "/hostile")) {
        SCOPED_TRACE(entry.path().filename().string());
        EXPECT_TRUE(showsInTime(entry.path().string()));
        expectGoodPicture();
        count++;
    }
    EXPECT_GT(count, 20);
    std::printf("%d hostile pictures, %d readers lost\n", count, readersLost_);
}

TEST_F(hostilePictures, twoThousandDamagedOnesDoNoHarm)
{
    const int count = countFrom("PINORAMA_DAMAGED_PICTURES", 2000);
    const std::vector<test::NamedPicture> sound = test::soundPictures();
    expectGoodPicture();
    readersLost_ = 0;
    for (int i = 0; i < count; i++) {
        const test::NamedPicture& picture = sound[static_cast<std::size_t>(i) % sound.size()];
        SCOPED_TRACE(picture.name + ", seed " + std::to_string(i));
        const std::string path =
            folder.write(std::to_string(i % 2) + picture.name,
                         test::damaged(picture.bytes, static_cast<std::uint32_t>(i)));
        ASSERT_TRUE(showsInTime(path));
        if (i % 100 == 0) expectGoodPicture();
    }
    expectGoodPicture();
    // None of them gets so far: the reader's own faults would show here, and those that the
    // sanitizers find in it.
    EXPECT_EQ(readersLost_, 0);
}

TEST_F(hostilePictures, damagedOnesOfTheCollectionDoNoHarm)
{
    const auto collection = test::pictureCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    std::vector<fs::path> pictures;
    for (const char* kind : {"jpeg-gps", "jpeg-iptc", "jpeg-plain", "raw", "raw-derived"}) {
        for (const auto& entry : fs::directory_iterator(*collection + "/" + kind)) {
            if (entry.is_regular_file() && entry.file_size() < 2'000'000) {
                pictures.push_back(entry.path());
            }
        }
    }
    ASSERT_FALSE(pictures.empty());
    std::sort(pictures.begin(), pictures.end());
    const int count = countFrom("PINORAMA_DAMAGED_PICTURES", 400);
    for (int i = 0; i < count; i++) {
        const fs::path& picture = pictures[static_cast<std::size_t>(i * 7) % pictures.size()];
        SCOPED_TRACE(picture.filename().string() + ", seed " + std::to_string(i));
        const std::string path = folder.write(
            std::to_string(i % 2) + picture.extension().string(),
            test::damaged(test::readFile(picture.string()), static_cast<std::uint32_t>(i)));
        ASSERT_TRUE(showsInTime(path, picture.string() + ", seed " + std::to_string(i)));
        if (i % 100 == 0) expectGoodPicture();
    }
    expectGoodPicture();
    std::printf("%d damaged pictures, %d readers lost\n", count, readersLost_);
}

TEST_F(hostilePictures, aReaderThatDiesShowsAsAnEmptyFieldAndNoMore)
{
    expectGoodPicture();
    for (int i = 0; i < 3; i++) {
        kill(cuPictureReader().processID(), SIGKILL);
        expectGoodPicture();
    }
}

TEST_F(hostilePictures, noFaultOfTheReaderHarmsTheWindow)
{
    const test::ScopedVariable reader("PINORAMA_READER",
                                      (platform::programFolder() + "/faulty-reader").c_str());
    cuPictureReader().stop();
    const std::string secret = folder.write("secret", "treasure");
    const std::string harm = folder.file("harm");
    for (const std::string& fault :
         {"open-file " + secret, "write-file " + harm, "start-program " + harm,
          std::string("open-socket"), std::string("allocate"), std::string("make-executable"),
          std::string("crash"), std::string("exit"), std::string("garbage"),
          std::string("too-much"), std::string("twice"), std::string("large-preview"),
          std::string("nan"), std::string("die-afterwards"), std::string("late 900"),
          std::string("half"), std::string("loop")}) {
        SCOPED_TRACE(fault);
        EXPECT_TRUE(showsInTime(folder.write("fault.jpg", "FAULT " + fault + "\n")));
        expectLocationActions(false);
        expectGoodPicture();
    }
    EXPECT_FALSE(fs::exists(harm));
}

TEST_F(hostilePictures, itemsThatAreNoFilesAreNotWaitedFor)
{
    const std::string pipe = folder.file("pipe.jpg");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    fs::create_directory(folder.file("folder.jpg"));
    fs::create_symlink("/nowhere/at/all.jpg", folder.file("dangling.jpg"));
    fs::create_symlink(folder.file("loop.jpg"), folder.file("loop.jpg"));
    fs::create_symlink("/dev/zero", folder.file("device.jpg"));
    const std::string longName = std::string(251, 'n') + ".jpg";
    const std::string sparse = folder.write("sparse.nef", "II*");
    std::error_code error;
    fs::resize_file(sparse, std::uintmax_t{8} << 40, error);  // where the file system allows it
    const std::string paths[] = {pipe,
                                 folder.file("folder.jpg"),
                                 folder.file("folder.jpg/"),
                                 folder.file("dangling.jpg"),
                                 folder.file("loop.jpg"),
                                 folder.file("device.jpg"),
                                 folder.file("missing.jpg"),
                                 folder.write(longName, "no picture"),
                                 folder.file(std::string(300, 'n') + ".jpg"),
                                 "/" + std::string(1'000'000, 'n') + ".jpg",
                                 sparse};
    for (const std::string& path : paths) {
        SCOPED_TRACE(path.substr(0, 300));
        EXPECT_TRUE(showsInTime(path));
        expectLocationActions(false);
        expectGoodPicture();
    }
}

TEST_F(hostilePictures, aPictureThatChangesWhileItIsReadDoesNoHarm)
{
    const std::string bytes = test::soundPictures()[1].bytes;
    const std::string path = folder.write("changing.jpg", bytes);
    for (int i = 0; i < 30; i++) {
        (void)show(path);
        switch (i % 4) {
        case 0: fs::resize_file(path, 100); break;
        case 1: fs::remove(path); break;
        case 2:
            folder.write("changing.jpg", test::damaged(bytes, static_cast<std::uint32_t>(i)));
            break;
        default: fs::resize_file(path, 50'000'000);
        }
        EXPECT_TRUE(showsInTime(i % 2 == 0 ? good_ : other_));
        folder.write("changing.jpg", bytes);
    }
    expectGoodPicture();
}

// Good and bad pictures by turns, for as long as one likes.
TEST_F(hostilePictures, endurance)
{
    const int count = countFrom("PINORAMA_ENDURANCE_SELECTIONS", 500);
    const int settled = std::min(count / 5, 1000);  // by then everything has been made that stays
    std::vector<std::string> paths = {good_};
    for (const test::NamedPicture& picture : test::soundPictures()) {
        for (std::uint32_t seed = 0; seed < 6; seed++) {
            paths.push_back(
                folder.write(std::to_string(seed) + picture.name,
                             seed == 0 ? picture.bytes : test::damaged(picture.bytes, seed)));
        }
    }
    if (const auto collection = test::pictureCollection()) {
        for (const char* kind : {"hostile", "raw", "raw-derived"}) {
            for (const auto& entry : fs::directory_iterator(*collection + "/" + kind)) {
                paths.push_back(entry.path().string());
            }
        }
    }
    long memory = 0;
    long descriptors = 0;
    for (int i = 0; i < count; i++) {
        const std::string& path = paths[static_cast<std::size_t>(i) % paths.size()];
        SCOPED_TRACE(path);
        ASSERT_TRUE(showsInTime(path));
        ASSERT_LE(childProcesses(), 1) << "more than one reader";
        if (i == settled) {
            rest();
            memory = residentMemory();
            descriptors = openDescriptors();
        }
    }
    ASSERT_TRUE(showsInTime(other_));
    rest();
    EXPECT_EQ(openDescriptors(), descriptors);
    const long growth = residentMemory() - memory;
    EXPECT_TRUE(kHasSanitizers || growth <= 2048) << growth << " kilobytes";
    std::printf(
        "%d selections, memory %ld kB after %d and %+ld kB since, %ld descriptors, "
        "%d readers lost\n",
        count, memory, settled, growth, descriptors, readersLost_);
}

TEST(pinoramaInfo, readsTwoThousandDamagedPictures)
{
    const int count = countFrom("PINORAMA_DAMAGED_PICTURES", 2000);
    const test::TemporaryFolder folder;
    const std::vector<test::NamedPicture> sound = test::soundPictures();
    std::vector<std::string> command = {PINORAMA_INFO, "--json"};
    for (int i = 0; i < count; i++) {
        const test::NamedPicture& picture = sound[static_cast<std::size_t>(i) % sound.size()];
        command.push_back(
            folder.write(std::to_string(i) + picture.name,
                         test::damaged(picture.bytes, static_cast<std::uint32_t>(i))));
    }
    command.push_back(folder.write("good.jpg", test::pictureWithGps({.lat = 48.5, .latRef = "N"})));
    const auto start = Clock::now();
    const test::ProgramResult result = test::runProgram({.command = command});
    EXPECT_LT(Clock::now() - start, 60s);
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), count + 1);
    const std::string last = result.out.substr(result.out.rfind('\n', result.out.size() - 2) + 1);
    EXPECT_NE(last.find("\"latti\":48.5"), std::string::npos) << last;
}
}  // namespace
