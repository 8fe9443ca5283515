#include "cli/folder_watch.h"

#include "tests/cli/running_program.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <atomic>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <thread>
#include <vector>

using namespace pinorama;

namespace {
using Texts = std::vector<std::string>;

const std::string kPicture =
    test::pictureWithGps({.lat = 1, .latRef = "N", .lon = 2, .lonRef = "E"});

class folderWatch : public testing::Test {
protected:
    folderWatch()
    {
        EXPECT_EQ(pipe(alarm_), 0);
        std::filesystem::create_directories(folder_.file("sub"));
        (void)folder_.write("old.jpg", kPicture);
    }
    ~folderWatch() override
    {
        for (const int end : alarm_) close(end);
    }

    // The names below the folder of what has arrived, up to "last.jpg".
    Texts arrived(FolderWatch* watch) const
    {
        Texts names;
        while (const auto path = watch->next(-1)) {
            names.push_back(path->substr(folder_.path().size() + 1));
            if (names.back() == "last.jpg") break;
        }
        return names;
    }

    FolderWatch watch(bool recursive)
    {
        FolderWatch watch(recursive, [this](const std::string& path, const std::string& why) {
            errors_.push_back(path + ": " + why);
        });
        watch.add(folder_.path());
        return watch;
    }

    const test::TemporaryFolder folder_;
    const test::TemporaryFolder other_;
    int alarm_[2] = {-1, -1};
    Texts errors_;
};
}  // namespace

TEST_F(folderWatch, returnsWhatIsWrittenOrMovedThere)
{
    FolderWatch watching = watch(false);
    const std::string elsewhere = other_.write("moved.jpg", kPicture);
    (void)folder_.write("new.jpg", kPicture);
    (void)folder_.write("notes.txt", "x");
    (void)folder_.write("sub/deep.jpg", kPicture);
    std::filesystem::rename(elsewhere, folder_.file("moved.jpg"));
    (void)folder_.write("last.jpg", kPicture);
    EXPECT_EQ(arrived(&watching), (Texts{"new.jpg", "moved.jpg", "last.jpg"}));
    EXPECT_EQ(errors_, Texts{});
}

TEST_F(folderWatch, followsNewFoldersAndReturnsNothingTwice)
{
    FolderWatch watching = watch(true);
    (void)folder_.write("sub/deep.jpg", kPicture);
    std::filesystem::create_directories(other_.file("card/dcim"));
    (void)other_.write("card/dcim/1.jpg", kPicture);
    std::filesystem::rename(other_.file("card"), folder_.file("card"));
    std::filesystem::create_directories(folder_.file("made"));
    (void)folder_.write("made/2.jpg", kPicture);
    (void)folder_.write("last.jpg", kPicture);
    Texts names = arrived(&watching);
    // Both in the listing of the new folder and reported by its new watch.
    EXPECT_EQ(names, (Texts{"sub/deep.jpg", "card/dcim/1.jpg", "made/2.jpg", "last.jpg"}));
    (void)folder_.write("card/dcim/3.jpg", kPicture);
    const auto path = watching.next(-1);
    ASSERT_TRUE(path);
    EXPECT_TRUE(path->ends_with("card/dcim/3.jpg")) << *path;
}

TEST_F(folderWatch, endsWithAnAlarmAndWithTheLastFolder)
{
    FolderWatch watching = watch(false);
    EXPECT_EQ(write(alarm_[1], "x", 1), 1);
    EXPECT_FALSE(watching.next(alarm_[0]));
    FolderWatch other(false, [this](const std::string& path, const std::string& why) {
        errors_.push_back(path + ": " + why);
    });
    other.add("/missing");
    other.add(folder_.file("old.jpg"));
    EXPECT_FALSE(other.next(-1));
    EXPECT_EQ(errors_, (Texts{"/missing: No such file or directory",
                              folder_.file("old.jpg") + ": Not a directory"}));
    const std::string gone = other_.file("gone");
    std::filesystem::create_directory(gone);
    other.add(gone);
    std::filesystem::remove(gone);
    EXPECT_FALSE(other.next(-1));
}

TEST_F(folderWatch, printsPicturesAsTheyArrive)
{
    test::RunningProgram program({"--watch", "--json", folder_.path()});
    std::atomic<bool> isOver = false;
    // Nobody says when the program has begun to watch, so pictures arrive until one is printed.
    std::thread camera([&] {
        for (int i = 0; !isOver; i++) {
            (void)folder_.write("shot" + std::to_string(i) + ".jpg", kPicture);
            std::this_thread::sleep_for(std::chrono::milliseconds(50));
        }
    });
    const std::string begin = program.read(1);
    isOver = true;
    camera.join();
    EXPECT_NE(begin, "");
    ASSERT_EQ(kill(program.process(), SIGINT), 0);
    EXPECT_EQ(program.finish(), 128 + SIGINT);
    const std::string line = program.out().substr(0, program.out().find('\n'));
    const auto object = nlohmann::json::parse(line);
    EXPECT_EQ(object["name"].get<std::string>().rfind("shot", 0), 0u);
    EXPECT_EQ(object["latitude"], 1.0);
    EXPECT_EQ(program.out().find("old.jpg"), std::string::npos);
    EXPECT_EQ(program.err(), "");
}
