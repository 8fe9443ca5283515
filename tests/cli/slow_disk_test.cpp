// pinorama-info with pictures on a slow disk.

#include "tests/support/slow_disk.h"

#include "tests/cli/info_run.h"
#include "tests/cli/running_program.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include <sys/wait.h>

using namespace pinorama;

namespace {
using namespace std::chrono_literals;
using test::run;
using Clock = std::chrono::steady_clock;

class pinoramaInfoOnASlowDisk : public testing::Test {
protected:
    void SetUp() override
    {
        const std::string bytes = test::pictureWithGps(
            {.lat = 48.125, .latRef = "N", .lon = 11.5, .lonRef = "E", .altitude = 520});
        near_ = folder_.write("near.jpg", bytes);
        const std::string place = folder_.file("disk" + std::to_string(++disks_));
        std::filesystem::create_directory(place);
        disk_ = std::make_unique<test::SlowDisk>(
            place, std::vector<test::SlowDisk::File>{
                       {"slow.jpg", bytes, 1500},
                       {"slower.jpg", bytes, 2500},
                       {"dead.jpg", bytes, test::SlowDisk::kNever},
                       {"shut.jpg", bytes, test::SlowDisk::kNever, test::SlowDisk::Step::open}});
        if (!disk_->isUsable()) GTEST_SKIP() << "no disk may be mounted here";
    }

    // Waits until the program has a worker, and gives that the time to come to the disk.
    static void letAWorkerBegin(const test::RunningProgram& program)
    {
        const std::string id = std::to_string(program.process());
        pid_t worker = 0;
        for (int i = 0; i < 1000 && worker == 0; i++) {
            std::ifstream("/proc/" + id + "/task/" + id + "/children") >> worker;
            std::this_thread::sleep_for(10ms);
        }
        EXPECT_NE(worker, 0);
        std::this_thread::sleep_for(500ms);
    }

    test::TemporaryFolder folder_;
    int disks_ = 0;
    std::string near_;
    std::unique_ptr<test::SlowDisk> disk_;
};
}  // namespace

TEST_F(pinoramaInfoOnASlowDisk, waitsForPictures)
{
    const auto start = Clock::now();
    const test::ProgramResult result = run({disk_->file("slow.jpg"), disk_->file("slower.jpg")});
    EXPECT_GE(Clock::now() - start, 3900ms) << "the disk is not slow";
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const std::size_t first = result.out.find("520 m");
    ASSERT_NE(first, std::string::npos) << result.out;
    EXPECT_NE(result.out.find("520 m", first + 1), std::string::npos) << result.out;
}

TEST_F(pinoramaInfoOnASlowDisk, waitsForThePictureToExport)
{
    const std::string kml = folder_.file("a.kml");
    const test::ProgramResult result = run({"--kml", kml, disk_->file("slow.jpg")});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(test::readFile(kml).find("<Placemark>"), std::string::npos);
}

TEST_F(pinoramaInfoOnASlowDisk, reportsAPictureThatNeverArrivesAndContinues)
{
    const std::string dead = disk_->file("dead.jpg");
    const test::ProgramResult result = run({"--json", dead, near_});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "pinorama-info: " + dead + ": reading the picture took too long\n");
    EXPECT_NE(result.out.find("near.jpg"), std::string::npos);
    EXPECT_NE(result.out.find("48.125"), std::string::npos) << result.out;
}

TEST_F(pinoramaInfoOnASlowDisk, canBeStoppedWhileItWaits)
{
    for (const int signal : {SIGINT, SIGTERM}) {
        if (!disk_) SetUp();
        test::RunningProgram program({"--json", near_, disk_->file("dead.jpg"), near_});
        const std::string line = program.read(1);
        EXPECT_NE(line, "");
        const auto start = Clock::now();
        ASSERT_EQ(kill(program.process(), signal), 0);
        siginfo_t end = {};
        ASSERT_EQ(waitid(P_PID, static_cast<id_t>(program.process()), &end, WEXITED | WNOWAIT), 0);
        EXPECT_LT(Clock::now() - start, 20s) << "it waited for the disk";
        // A sanitizer's reports keep standard error open in the process that the disk keeps.
        disk_.reset();
        EXPECT_EQ(program.finish(), 128 + signal);
        EXPECT_EQ(program.err(), "") << "an interrupted read is not a failure";
    }
}

TEST_F(pinoramaInfoOnASlowDisk, canBeStoppedWhileItsWorkersWait)
{
    for (const char* name : {"dead.jpg", "shut.jpg"}) {
        SCOPED_TRACE(name);
        if (!disk_) SetUp();
        const std::string list = folder_.write("list", near_ + '\n' + disk_->file(name) + '\n');
        test::RunningProgram program({"--json", "--files-from", list});
        letAWorkerBegin(program);
        const auto start = Clock::now();
        ASSERT_EQ(kill(program.process(), SIGINT), 0);
        siginfo_t end = {};
        ASSERT_EQ(waitid(P_PID, static_cast<id_t>(program.process()), &end, WEXITED | WNOWAIT), 0);
        EXPECT_LT(Clock::now() - start, 20s) << "it waited for the disk";
        disk_.reset();
        EXPECT_EQ(program.finish(), 128 + SIGINT) << program.err();
        EXPECT_EQ(program.out(), "") << "nothing had to wait for the disk";
    }
}
