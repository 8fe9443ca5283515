// Searches through folders that remember what they find out.

#include "nearby/folder_block.h"
#include "nearby/picture_index.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using Texts = std::vector<std::string>;

const std::string kHere =
    test::pictureWithGps({.lat = 0.5, .latRef = "N", .lon = 10, .lonRef = "E"});
const std::string kThere =
    test::pictureWithGps({.lat = 40.5, .latRef = "N", .lon = 10, .lonRef = "E"});

class folderSearch : public testing::Test {
protected:
    folderSearch()
    {
        std::filesystem::create_directories(tree_.file("b/deep"));
        std::filesystem::create_directories(tree_.file("empty"));
        for (const char* name : {"a.jpg", "b/1.jpg", "b/deep/2.jpg", "c.jpg"}) write(name, kHere);
        write("b/far.jpg", kThere);
        write("plain.jpg", test::jpegPicture({}));
    }

    // Writes a picture that was changed an hour ago, or a little later.
    void write(const std::string& name, const std::string& bytes, int later = 0) const
    {
        const std::string path = tree_.write(name, bytes);
        const time_t time = anHourAgo_ + later;
        const timespec times[2] = {{time, 0}, {time, 0}};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), times, 0), 0);
    }

    test::ProgramResult run(Texts arguments) const
    {
        Texts command = {PINORAMA_INFO, "-r", "-q", "--json", "--index", index_, tree_.path()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return test::runProgram({.command = command});
    }

    // The names of the pictures found, below the folder.
    Texts find(Texts arguments) const
    {
        const test::ProgramResult result = run(std::move(arguments));
        EXPECT_EQ(result.status, 0) << result.err;
        Texts names;
        std::istringstream lines(result.out);
        for (std::string line; std::getline(lines, line);) {
            const std::string path = ordered_json::parse(line)["path"];
            names.push_back(path.substr(tree_.path().size() + 1));
        }
        return names;
    }

    const time_t anHourAgo_ = std::time(nullptr) - 3600;
    const test::TemporaryFolder tree_;
    const test::TemporaryFolder cache_;
    const std::string index_ = cache_.file("index.sqlite");
    const Texts all_ = {"a.jpg", "b/1.jpg", "b/deep/2.jpg", "c.jpg"};
};
}  // namespace

TEST_F(folderSearch, findsTheSameTheSecondTime)
{
    for (int i = 0; i < 2; i++) {
        EXPECT_EQ(find({"--near", "0.5,10"}), all_);
        EXPECT_EQ(find({"--no-position"}), Texts{"plain.jpg"});
        EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"b/far.jpg"});
    }
    EXPECT_EQ(run({"--near", "0.5,10"}).out, run({"--near", "0.5,10", "--no-index"}).out);
}

TEST_F(folderSearch, readsAgainWhatHasChanged)
{
    EXPECT_EQ(find({"--near", "0.5,10"}), all_);
    write("b/far.jpg", kHere, 1);  // the same size and another time
    write("plain.jpg", kThere);    // another size
    write("new.jpg", kHere);
    ASSERT_EQ(unlink(tree_.file("a.jpg").c_str()), 0);
    std::filesystem::rename(tree_.file("b/1.jpg"), tree_.file("b/moved.jpg"));
    const Texts expected = {"b/deep/2.jpg", "b/far.jpg", "b/moved.jpg", "c.jpg", "new.jpg"};
    EXPECT_EQ(find({"--near", "0.5,10"}), expected);
    EXPECT_EQ(find({"--near", "0.5,10"}), expected);
    EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"plain.jpg"});
    EXPECT_EQ(find({"--no-position"}), Texts{});
}

TEST_F(folderSearch, readsNothingThatHasNotChanged)
{
    EXPECT_EQ(find({"--near", "0.5,10"}), all_);
    // Other bytes with the same size and time are the proof that nobody looks at them.
    write("b/far.jpg", kHere);
    ASSERT_EQ(kHere.size(), kThere.size());
    EXPECT_EQ(find({"--near", "0.5,10"}), all_);
    EXPECT_EQ(find({"--near", "0.5,10", "--no-index"}).size(), all_.size() + 1);
}

TEST_F(folderSearch, writesNothingIfNothingHasChanged)
{
    // What cannot be read, and what is from the future, is not remembered.
    ASSERT_EQ(symlink("nowhere", tree_.file("b/link.jpg").c_str()), 0);
    write("b/future.jpg", kThere, 100'000);
    EXPECT_EQ(run({"--near", "0.5,10"}).status, 1);
    // An SQLite file counts its changes.
    const std::string before = test::readFile(index_);
    ASSERT_GT(before.size(), 4096u);
    for (const char* place : {"0.5,10", "40.5,10"}) {
        EXPECT_EQ(run({"--near", place}).status, 1);
        EXPECT_TRUE(test::readFile(index_) == before) << place;
    }
    write("c.jpg", kThere, 1);
    EXPECT_EQ(run({"--near", "0.5,10"}).status, 1);
    EXPECT_FALSE(test::readFile(index_) == before);
}

TEST_F(folderSearch, seesEveryOtherTime)
{
    EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"b/far.jpg"});
    ASSERT_EQ(kHere.size(), kThere.size());
    // A clock that was set right, or wrong; the same second, one nanosecond later; and no time.
    const timespec times[] = {{anHourAgo_ + 1, 0},
                              {anHourAgo_ - 100'000'000, 0},
                              {anHourAgo_ + 1'000'000'000, 0},
                              {anHourAgo_, 0},
                              {anHourAgo_, 1},
                              {0, 0},
                              {-1, 0}};
    bool isHere = false;
    for (const timespec& time : times) {
        SCOPED_TRACE(std::to_string(time.tv_sec) + "." + std::to_string(time.tv_nsec));
        isHere = !isHere;
        const std::string path = tree_.write("b/far.jpg", isHere ? kHere : kThere);
        const timespec both[2] = {time, time};
        ASSERT_EQ(utimensat(AT_FDCWD, path.c_str(), both, 0), 0);
        for (int i = 0; i < 2; i++) {
            EXPECT_EQ(find({"--near", "40.5,10"}), isHere ? Texts{} : Texts{"b/far.jpg"});
        }
    }
}

TEST_F(folderSearch, readsAlwaysWhatIsFromTheFuture)
{
    constexpr int kTomorrow = 100'000;
    write("b/far.jpg", kThere, kTomorrow);
    EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"b/far.jpg"});
    write("b/far.jpg", kHere, kTomorrow);
    EXPECT_EQ(find({"--near", "40.5,10"}), Texts{}) << "the clock may have been set since";
}

TEST_F(folderSearch, followsFoldersThatAreRenamed)
{
    EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"b/far.jpg"});
    std::filesystem::rename(tree_.file("b"), tree_.file("z"));
    EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"z/far.jpg"});
    // Another folder takes the place of the first one, with a picture of the same name and size.
    std::filesystem::create_directory(tree_.file("b"));
    write("b/far.jpg", kHere, 1);
    EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"z/far.jpg"});
    std::filesystem::rename(tree_.file("b"), tree_.file("c"));
    std::filesystem::rename(tree_.file("z"), tree_.file("b"));
    std::filesystem::rename(tree_.file("c"), tree_.file("z"));
    for (int i = 0; i < 2; i++) EXPECT_EQ(find({"--near", "40.5,10"}), Texts{"b/far.jpg"});
}

TEST_F(folderSearch, knowsPicturesInAnyOrder)
{
    Texts names;
    for (int i = 0; i < 40; i++) {
        names.push_back("many/" + std::to_string(i * 37 % 100 + 100) + ".jpg");
        std::filesystem::create_directories(tree_.file("many"));
        write(names.back(), i == 7 ? kThere : kHere);
    }
    const Texts far = {"b/far.jpg", names[7]};
    EXPECT_EQ(find({"--near", "40.5,10"}), far);
    // Other bytes with the same size and time are the proof that nobody looks at them.
    for (const std::string& name : names) write(name, kThere);

    const std::string folder = std::filesystem::canonical(tree_.file("many"));
    const std::string block = PictureIndex(index_).read(folder);
    std::vector<IndexedPicture> pictures;
    FolderBlockReader reader(block);
    while (const auto picture = reader.next()) pictures.push_back(*picture);
    ASSERT_EQ(pictures.size(), names.size());
    for (const int turn : {0, 1, 13}) {
        std::reverse(pictures.begin() + turn, pictures.end());
        FolderBlockWriter writer;
        for (const IndexedPicture& picture : pictures) writer.add(picture);
        const std::vector<PictureIndex::Change> changes = {{folder, writer.take()}};
        ASSERT_TRUE(PictureIndex::write(index_, changes));
        EXPECT_EQ(find({"--near", "40.5,10"}), far);
        EXPECT_EQ(PictureIndex(index_).read(folder), changes[0].second) << "it was written again";
    }
    ASSERT_EQ(unlink(tree_.file(names[20]).c_str()), 0);
    write("many/new.jpg", kHere);
    EXPECT_EQ(find({"--near", "40.5,10"}), far);
    EXPECT_NE(PictureIndex(index_).read(folder).find("new.jpg"), std::string::npos);
}

TEST_F(folderSearch, printsTheFilesOfAFolderByTheirNames)
{
    Texts names;
    std::filesystem::create_directories(tree_.file("many"));
    for (int i = 0; i < 200; i++) {
        names.push_back("many/" + std::to_string(i * 37 % 200 + 100) + ".jpg");
        write(names.back(), kThere);
    }
    std::sort(names.begin(), names.end());
    for (int i = 0; i < 2; i++) {
        Texts found = find({"--near", "40.5,10", "--as-found"});
        std::erase(found, "b/far.jpg");
        EXPECT_EQ(found, names);
    }
}

TEST_F(folderSearch, countsTheSameTheSecondTime)
{
    // With a position, although none on the Earth.
    write("b/nowhere.jpg", test::pictureWithGps({.lat = 95, .latRef = "N", .lon = 1}));
    for (int i = 0; i < 2; i++) {
        const test::ProgramResult result =
            test::runProgram({.command = {PINORAMA_INFO, "-r", "--index", index_, "--near",
                                          "0.5,10", "--csv", tree_.path()}});
        EXPECT_EQ(result.err.find("pinorama-info: 7 pictures, 6 with a position, 0 not read, "), 0u)
            << result.err;
    }
}

TEST_F(folderSearch, doesNotRememberWhatWasChangedJustNow)
{
    (void)tree_.write("b/far.jpg", kThere);
    EXPECT_EQ(find({"--near", "0.5,10"}), all_);
    PictureIndex index(index_);
    const std::string block = index.read(std::filesystem::canonical(tree_.file("b")));
    EXPECT_NE(block.find("1.jpg"), std::string::npos);
    EXPECT_EQ(block.find("far.jpg"), std::string::npos);
}

TEST_F(folderSearch, remembersNoPictureThatCouldNotBeRead)
{
    ASSERT_EQ(symlink("nowhere", tree_.file("b/link.jpg").c_str()), 0);
    for (int i = 0; i < 2; i++) {
        const test::ProgramResult result = run({"--near", "0.5,10"});
        EXPECT_EQ(result.status, 1);
        EXPECT_EQ(result.err,
                  "pinorama-info: " + tree_.file("b/link.jpg") + ": No such file or directory\n");
    }
}

TEST_F(folderSearch, usesTheCacheFolderUnlessItIsTold)
{
    const auto search = [this](Texts arguments) {
        Texts command = {PINORAMA_INFO, "-rq", "--near", "0.5,10", tree_.path()};
        command.insert(command.end(), arguments.begin(), arguments.end());
        return test::runProgram(
            {.command = command, .variables = {{"XDG_CACHE_HOME", cache_.path()}}});
    };
    EXPECT_EQ(search({"--no-index"}).status, 0);
    EXPECT_FALSE(std::filesystem::exists(cache_.file("pinorama")));
    EXPECT_EQ(search({}).status, 0);
    EXPECT_TRUE(std::filesystem::exists(cache_.file("pinorama/pictures.sqlite")));
}

TEST_F(folderSearch, needsNoIndexToWork)
{
    Texts command = {PINORAMA_INFO,         "-rq",       "--json", "--near", "0.5,10", "--index",
                     "/proc/nowhere/index", tree_.path()};
    const test::ProgramResult result = test::runProgram({.command = command});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 4);
}

TEST_F(folderSearch, takesFilesLinksAndMissingThings)
{
    ASSERT_EQ(symlink(tree_.file("b").c_str(), cache_.file("link").c_str()), 0);
    ASSERT_EQ(symlink("..", tree_.file("b/loop").c_str()), 0);
    const test::ProgramResult result = test::runProgram(
        {.command = {PINORAMA_INFO, "-r", "--json", "--index", index_, "--near", "0.5,10",
                     cache_.file("link"), tree_.file("a.jpg"), "/missing"}});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err.find("pinorama-info: /missing: No such file or directory\n"), 0u)
        << result.err;
    EXPECT_NE(result.err.find("pinorama-info: 5 pictures, 4 with a position, 1 not read, "),
              std::string::npos)
        << result.err;
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 3) << result.out;
}
