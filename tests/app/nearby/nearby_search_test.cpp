// The search as a child process, with programs of the test's own in its place.

#include "app/nearby/nearby_search.h"

#include "tests/app/nearby/search_program.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/toolkit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <filesystem>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include <sys/types.h>

using namespace pinorama;

namespace {
bool isGone(qint64 process)
{
    return kill(static_cast<pid_t>(process), 0) != 0 && errno == ESRCH;
}

class nearbySearch : public testing::Test {
protected:
    nearbySearch()
    {
        QObject::connect(&search, &NearbySearch::found, &search,
                         [this](const std::vector<NearbyPicture>& pictures) {
                             for (const NearbyPicture& picture : pictures) {
                                 found += picture.path + " ";
                             }
                         });
        QObject::connect(&search, &NearbySearch::finished, &search,
                         [this](NearbySearch::Outcome how) {
                             endings++;
                             outcome = how;
                         });
    }

    // How a search by such a program ends.
    NearbySearch::Outcome outcomeOf(const std::string& lines)
    {
        const test::SearchProgram program(lines);
        found.clear();
        endings = 0;
        search.begin({1, 2}, {"/a"});
        EXPECT_TRUE(search.isRunning());
        EXPECT_TRUE(test::waitUntil([this] { return endings > 0; }));
        EXPECT_FALSE(search.isRunning());
        EXPECT_EQ(endings, 1);
        return outcome;
    }

    NearbySearch search;
    std::string found;
    int endings = 0;
    NearbySearch::Outcome outcome{};
};

using Outcome = NearbySearch::Outcome;
}  // namespace

TEST_F(nearbySearch, tellsTheProgramWhereToSearch)
{
    const test::SearchProgram program(
        "printf '<%s>' \"$@\" > \"$FOLDER/arguments\"\n"
        "cat > \"$FOLDER/input\"");
    search.begin({-48.8584, 0.25}, {"/a b", "/\xff"});
    ASSERT_TRUE(test::waitUntil([this] { return endings > 0; }));
    EXPECT_EQ(test::readFile(program.folder().file("arguments")),
              "<--recursive><--quiet><--as-found><--format=list><--files-from=-><--null>"
              "<--near=-48.8584,0.25,2000>");
    EXPECT_EQ(test::readFile(program.folder().file("input")), std::string("/a b\0/\xff\0", 8));
}

TEST_F(nearbySearch, passesOnWhatIsFound)
{
    EXPECT_EQ(outcomeOf(test::foundLine("/b", "2") + test::foundLine("/c", "1")),
              Outcome::complete);
    EXPECT_EQ(found, "/b /c ");
    EXPECT_EQ(outcomeOf(test::foundLine("/b", "2") + "exit 1"), Outcome::complete)
        << "a file could not be read";
    EXPECT_EQ(outcomeOf("exit 0"), Outcome::complete);
    EXPECT_EQ(found, "");
}

TEST_F(nearbySearch, passesOnPicturesWhileItGoesOn)
{
    const test::SearchProgram program(test::foundLine("/b", "2") +
                                      "while [ ! -e \"$FOLDER/go\" ]; do sleep 0.05; done\n" +
                                      test::foundLine("/c", "2"));
    search.begin({1, 2}, {"/a"});
    EXPECT_TRUE(test::waitUntil([this] { return found == "/b "; }));
    EXPECT_EQ(endings, 0);
    (void)program.folder().write("go", "");
    EXPECT_TRUE(test::waitUntil([this] { return endings > 0; }));
    EXPECT_EQ(found, "/b /c ");
}

TEST_F(nearbySearch, saysThatItWasCutShort)
{
    const std::string first = test::foundLine("/b", "2");
    const struct {
        const char* name;
        std::string lines;
    } rows[] = {
        {"wrong usage", first + "exit 2"},
        {"a signal", first + "kill -KILL $$"},
        {"half a picture", first + "printf '/c\\0001'"},
        {"no picture", first + "printf 'c\\0\\0\\0001\\0001\\0\\0'; exec sleep 1000"},
        {"no end of a field", first + "yes | tr -d '\\n'"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(outcomeOf(row.lines), Outcome::cutShort);
        EXPECT_EQ(found, "/b ");
    }
}

TEST_F(nearbySearch, saysThatThereIsNoProgram)
{
    const test::ScopedVariable set("PINORAMA_SEARCH", "/nowhere/pinorama-search");
    search.begin({1, 2}, {"/a"});
    ASSERT_TRUE(test::waitUntil([this] { return endings > 0; }));
    EXPECT_EQ(outcome, Outcome::missing);
    EXPECT_FALSE(search.isRunning());
    search.end();
}

TEST_F(nearbySearch, isCompleteAtOnceWithoutFolders)
{
    const test::ScopedVariable set("PINORAMA_SEARCH", "/nowhere/pinorama-search");
    search.begin({1, 2}, {});
    EXPECT_EQ(endings, 0);
    ASSERT_TRUE(test::waitUntil([this] { return endings > 0; }));
    EXPECT_EQ(outcome, Outcome::complete);
}

TEST_F(nearbySearch, endsTheProgram)
{
    const test::SearchProgram program(test::foundLine("/b", "2") + "exec sleep 1000");
    search.begin({1, 2}, {"/a"});
    ASSERT_TRUE(test::waitUntil([this] { return !found.empty(); }));
    const qint64 process = search.processID();
    ASSERT_GT(process, 0);
    search.end();
    EXPECT_FALSE(search.isRunning());
    EXPECT_TRUE(test::waitUntil([process] { return isGone(process); }));
    EXPECT_EQ(endings, 0);
}

TEST_F(nearbySearch, doesNotWaitForAProgramThatDoesNotEnd)
{
    const test::SearchProgram program("trap '' TERM\n" + test::foundLine("/b", "2") +
                                      "while :; do sleep 0.1; done");
    search.begin({1, 2}, {"/a"});
    ASSERT_TRUE(test::waitUntil([this] { return !found.empty(); }));
    const qint64 process = search.processID();
    search.end();
    EXPECT_FALSE(isGone(process)) << "it was waited for";
    EXPECT_TRUE(test::waitUntil([process] { return isGone(process); })) << "it is killed at last";
}

TEST_F(nearbySearch, endsTheOneBefore)
{
    std::optional<test::SearchProgram> first(test::foundLine("/b", "2") + "exec sleep 1000");
    search.begin({1, 2}, {"/a"});
    ASSERT_TRUE(test::waitUntil([this] { return !found.empty(); }));
    const qint64 process = search.processID();
    found.clear();
    first.reset();
    EXPECT_EQ(outcomeOf(test::foundLine("/c", "2")), Outcome::complete);
    EXPECT_EQ(found, "/c ");
    EXPECT_TRUE(test::waitUntil([process] { return isGone(process); }));
}

TEST_F(nearbySearch, mayBeginAnewInItsSignals)
{
    const test::SearchProgram program("printf 'c\\0\\0\\0001\\0001\\0\\0'");
    bool isAgain = false;
    QObject::connect(&search, &NearbySearch::finished, &search, [&] {
        if (!std::exchange(isAgain, true)) search.begin({1, 2}, {"/a"});
    });
    search.begin({1, 2}, {"/a"});
    EXPECT_TRUE(test::waitUntil([this] { return endings == 2; }));
}

TEST_F(nearbySearch, findsWhatThereIs)
{
    const test::TemporaryFolder folder;
    const test::PictureFields place = {.lat = 0.5, .latRef = "N", .lon = 10, .lonRef = "E"};
    (void)folder.write("far.jpg", test::pictureWithGps({.lat = 1, .lon = 10}));
    const std::string near = folder.write("n\xff.jpg", test::pictureWithGps(place));
    std::filesystem::create_directory(folder.file("b\xff"));
    const std::string below = folder.write("b\xff/a.jpg", test::pictureWithGps(place));
    search.begin({0.5, 10}, {folder.path()});
    ASSERT_TRUE(test::waitUntil([this] { return endings > 0; }));
    EXPECT_EQ(outcome, Outcome::complete);
    EXPECT_EQ(std::count(found.begin(), found.end(), ' '), 2);
    EXPECT_NE(found.find(near + " "), std::string::npos);
    EXPECT_NE(found.find(below + " "), std::string::npos);
}

TEST(nearbySearchProgram, isTheOneBesideTheRunningProgram)
{
    EXPECT_TRUE(nearbySearchProgram().ends_with("/pinorama-search"));
    EXPECT_TRUE(std::filesystem::exists(nearbySearchProgram()));
    const test::ScopedVariable set("PINORAMA_SEARCH", "/elsewhere/search");
    EXPECT_EQ(nearbySearchProgram(), "/elsewhere/search");
}
