// Runs pinorama-info over folders with trouble in them: files that cannot be read, odd names, no
// pictures at all.

#include "tests/cli/info_run.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using test::countOf;
using test::isXML;
using test::linesOf;
using test::run;
using Texts = std::vector<std::string>;
}  // namespace

TEST(pinoramaInfoRecursive, reportsErrorsAndContinues)
{
    const test::TemporaryFolder folder;
    ASSERT_EQ(chmod(folder.path().c_str(), 0755), 0);
    for (const char* name : {"a", "locked", "z"}) {
        std::filesystem::create_directory(folder.file(name));
        ASSERT_EQ(chmod(folder.file(name).c_str(), 0755), 0);
        (void)folder.write(std::string(name) + "/1.jpg",
                           test::pictureWithGps({.lat = 1, .lon = 2}));
    }
    (void)folder.write("a/2.jpg", "x");
    ASSERT_EQ(symlink("nowhere", folder.file("a/3.jpg").c_str()), 0);
    ASSERT_EQ(symlink("..", folder.file("a/loop").c_str()), 0);
    ASSERT_EQ(chmod(folder.file("a/2.jpg").c_str(), 0), 0);
    ASSERT_EQ(chmod(folder.file("locked").c_str(), 0), 0);
    const test::ProgramResult result = test::runProgram(
        {.command = {PINORAMA_INFO, "--json", "-r", folder.path(), "/missing"}, .asNobody = true});
    ASSERT_EQ(chmod(folder.file("locked").c_str(), 0755), 0);
    if (result.status == 127) GTEST_SKIP() << "the program lies where only the superuser may go";
    EXPECT_EQ(result.status, 1);
    Texts errors = linesOf(result.err);
    ASSERT_EQ(errors.size(), 5u) << result.err;
    EXPECT_EQ(errors.back().rfind("pinorama-info: 5 pictures, 2 with a position, 4 not read, ", 0),
              0u)
        << result.err;
    errors.pop_back();
    std::sort(errors.begin(), errors.end());
    EXPECT_EQ(errors,
              (Texts{"pinorama-info: /missing: No such file or directory",
                     "pinorama-info: " + folder.file("a/2.jpg") + ": Permission denied",
                     "pinorama-info: " + folder.file("a/3.jpg") + ": No such file or directory",
                     "pinorama-info: " + folder.file("locked") + ": Permission denied"}));
    Texts paths;
    for (const std::string& line : linesOf(result.out)) {
        paths.push_back(ordered_json::parse(line)["path"]);
    }
    EXPECT_EQ(paths, (Texts{folder.file("a/1.jpg"), folder.file("a/2.jpg"), folder.file("a/3.jpg"),
                            folder.file("z/1.jpg"), "/missing"}));
}

TEST(pinoramaInfoRecursive, prints0PicturesForAnEmptyFolder)
{
    const test::TemporaryFolder folder;
    (void)folder.write("notes.txt", "");
    const test::ProgramResult text = run({"-r", folder.path()});
    EXPECT_EQ(text.status, 0);
    EXPECT_EQ(text.out, "");
    EXPECT_EQ(text.err.rfind("pinorama-info: 0 pictures, ", 0), 0u);
    EXPECT_EQ(run({"-r", "--json", folder.path()}).out, "");
    EXPECT_EQ(countOf(run({"-r", "--csv", folder.path()}).out, "\r\n"), 1u);

    const test::TemporaryFolder other;
    EXPECT_EQ(run({"-r", "-q", "--kml", other.file("a.kml"), folder.path()}).status, 0);
    EXPECT_TRUE(isXML(other.file("a.kml")));
    EXPECT_EQ(run({"-r"}).status, 2);
}

TEST(pinoramaInfoRecursive, escapesNames)
{
    const test::TemporaryFolder folder;
    const std::string picture = test::pictureWithGps({.lat = 1, .lon = 2});
    for (const char* name :
         {"<a> & \"b\", c.jpg", "d\ne.jpg", "\x01.jpg", "\xff.jpg", "\xc3\xa4.jpg"}) {
        (void)folder.write(name, picture);
    }
    const std::string path = folder.file("all.kml");
    const test::ProgramResult result = run({"-r", "--csv", "--kml", path, folder.path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_TRUE(isXML(path));
    const std::string document = test::readFile(path);
    EXPECT_NE(document.find("<name>&lt;a&gt; &amp; &quot;b&quot;, c.jpg</name>"),
              std::string::npos);
    EXPECT_NE(document.find("<name>d&#10;e.jpg</name>"), std::string::npos);
    EXPECT_EQ(countOf(document, "<name>\ufffd.jpg</name>"), 2u);
    EXPECT_NE(result.out.find(",\"<a> & \"\"b\"\", c.jpg\",,,,,"), std::string::npos);
    EXPECT_NE(result.out.find(",\"d\ne.jpg\",,,,,"), std::string::npos);
}

TEST(pinoramaInfoRecursive, worksWithoutStandardStreams)
{
    const test::TemporaryFolder folder;
    (void)folder.write("a.jpg", test::pictureWithGps({.lat = 1, .lon = 2}));
    const auto runWithout = [&](const std::string& closed, const std::string& options) {
        return test::runProgram(
            {.command = {"/bin/sh", "-c", "exec \"$0\" " + options + " \"$1\" " + closed,
                         PINORAMA_INFO, folder.path()}});
    };
    const test::ProgramResult noOutput = runWithout("<&- >&-", "-rq --json");
    EXPECT_EQ(noOutput.status, 1);
    EXPECT_EQ(noOutput.err, "pinorama-info: standard output: Bad file descriptor\n");
    const test::ProgramResult noErrors = runWithout("<&- 2>&-", "-r --json");
    EXPECT_EQ(noErrors.status, 0);
    EXPECT_EQ(linesOf(noErrors.out).size(), 1u);
}

TEST(pinoramaInfoRecursive, survivesHostileFiles)
{
    const std::optional<std::string> collection = test::pictureCollection();
    if (!collection) GTEST_SKIP() << "PINORAMA_PICTURE_COLLECTION is not set";
    const auto start = std::chrono::steady_clock::now();
    const test::ProgramResult result = run({"-r", "--json", *collection + "/hostile"});
    EXPECT_TRUE(result.status == 0 || result.status == 1);
    EXPECT_GT(linesOf(result.out).size(), 20u);
    EXPECT_EQ(result.err.find("reading the picture"), std::string::npos) << result.err;
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(20));
}
