// Damaged and hostile pictures through the real window, with the real reader.

#include "tests/app/hostile_window.h"
#include "tests/support/damaged_pictures.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>

#include <unistd.h>

using namespace pinorama;

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

using hostilePictures = test::HostileWindowTest;

// Kilobytes of memory that are in use now.
long residentMemory()
{
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return resident * (sysconf(_SC_PAGESIZE) / 1024);
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
        ASSERT_LE(childProcesses(), 2) << "more than one reader and one opener";
        if (i % 50 == 0) expectGoodPicture();
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
