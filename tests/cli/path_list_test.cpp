#include "cli/path_list.h"

#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>

#include <string>
#include <vector>

using namespace pinorama;

namespace {
using Texts = std::vector<std::string>;
using namespace std::string_literals;

Texts pathsIn(const std::string& list, char end)
{
    const test::TemporaryFolder folder;
    PathList paths(folder.write("list", list), end, -1);
    Texts found;
    while (const auto path = paths.next()) found.push_back(*path);
    EXPECT_EQ(paths.error(), "");
    EXPECT_FALSE(paths.next());
    return found;
}

test::ProgramResult runWithInput(const std::string& input, const std::string& options)
{
    return test::runProgram(
        {.command = {"/bin/bash", "-c", "printf '%b' \"$1\" | \"$0\" " + options, PINORAMA_INFO,
                     input}});
}
}  // namespace

TEST(PathList, separatesPaths)
{
    EXPECT_EQ(pathsIn("", '\n'), Texts{});
    EXPECT_EQ(pathsIn("\n\n", '\n'), Texts{});
    EXPECT_EQ(pathsIn("a\nb c\n", '\n'), (Texts{"a", "b c"}));
    EXPECT_EQ(pathsIn("a\n\n\xff", '\n'), (Texts{"a", "\xff"}));
    EXPECT_EQ(pathsIn("a\nb\0c\0"s, '\0'), (Texts{"a\nb", "c"}));
    EXPECT_EQ(pathsIn("a\0b\nc\n"s, '\n'), (Texts{"a", "c"}));
    Texts many;
    std::string list;
    for (int i = 0; i < 50'000; i++) {
        many.push_back("folder/" + std::to_string(i));
        list += many.back() + '\n';
    }
    EXPECT_EQ(pathsIn(list, '\n'), many);
}

TEST(PathList, saysWhyItCannotBeRead)
{
    PathList missing("/missing", '\n', -1);
    EXPECT_FALSE(missing.next());
    EXPECT_EQ(missing.error(), "/missing: No such file or directory");
    PathList folder("/", '\n', -1);
    EXPECT_FALSE(folder.next());
    EXPECT_EQ(folder.error(), "/: Is a directory");
    const test::TemporaryFolder place;
    PathList endless(place.write("list", std::string(3 << 20, 'x')), '\n', -1);
    EXPECT_FALSE(endless.next());
    EXPECT_NE(endless.error().find("File name too long"), std::string::npos);
}

TEST(PathList, anAlarmEndsTheWaiting)
{
    const test::TemporaryFolder folder;
    int ends[2];
    int alarm[2];
    ASSERT_EQ(pipe(ends), 0);
    ASSERT_EQ(pipe(alarm), 0);
    ASSERT_EQ(write(ends[1], "a\nb", 3), 3);
    PathList paths("/dev/fd/" + std::to_string(ends[0]), '\n', alarm[0]);
    EXPECT_EQ(paths.next(), "a");
    ASSERT_EQ(write(alarm[1], "x", 1), 1);
    EXPECT_FALSE(paths.next());
    EXPECT_EQ(paths.error(), "");
    for (const int end : {ends[0], ends[1], alarm[0], alarm[1]}) close(end);
}

TEST(pinoramaInfoFilesFrom, readsTheFilesOfAList)
{
    const test::TemporaryFolder folder;
    const std::string picture = test::pictureWithGps({.lat = 1, .lon = 2});
    const std::string first = folder.write("a b.jpg", picture);
    const std::string second = folder.write("c\nd.jpg", picture);
    const std::string expected =
        test::runProgram({.command = {PINORAMA_INFO, "--csv", first, second}}).out;
    EXPECT_EQ(runWithInput(first + "\\0" + second + "\\0", "--csv -0 --files-from -").out,
              expected);
    EXPECT_EQ(runWithInput(second, "--csv --null --files-from - \"" + first + "\"").out, expected);
    EXPECT_EQ(runWithInput(folder.path() + "\\n", "-rq --csv --files-from=-").out, expected);
    EXPECT_EQ(runWithInput(first + "\\n", "--csv --files-from - --near 1,2").status, 0);

    const test::ProgramResult nothing = runWithInput("", "--csv --files-from -");
    EXPECT_EQ(nothing.status, 0);
    const test::ProgramResult missing =
        test::runProgram({.command = {PINORAMA_INFO, "--json", "--files-from", "/missing", first}});
    EXPECT_EQ(missing.status, 1);
    EXPECT_EQ(missing.err, "pinorama-info: /missing: No such file or directory\n");
    EXPECT_NE(missing.out.find("a b.jpg"), std::string::npos);
}

TEST(pinoramaInfoFilesFrom, endsOnAClosedPipeWithoutAWord)
{
    const test::TemporaryFolder folder;
    const std::string picture = folder.write("a.jpg", test::pictureWithGps({.lat = 1, .lon = 2}));
    const test::ProgramResult result = test::runProgram(
        {.command = {"/bin/bash", "-c",
                     "set -o pipefail; yes \"$1\" | \"$0\" --json --files-from - | head -n 3",
                     PINORAMA_INFO, picture}});
    EXPECT_EQ(result.status, 141);
    EXPECT_EQ(result.err.find("pinorama-info"), std::string::npos) << result.err;
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 3);
}
