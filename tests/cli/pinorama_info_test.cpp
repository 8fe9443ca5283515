// Runs the whole program as a process.

#include "reader/sandbox_locks.h"
#include "tests/cli/info_fixture.h"
#include "tests/cli/info_run.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <filesystem>
#include <nlohmann/json.hpp>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using test::objectsOf;
using test::pinoramaInfo;
using test::run;
}  // namespace

TEST_F(pinoramaInfo, letsNoTextControlTheTerminal)
{
    const std::string caption = "\x1b[31m\u009b2J\u202e\x7f";
    const std::string picture =
        folder_.write("\x1b[1m\u202egpj.jpg",
                      test::pictureWithGps(
                          {.lat = 1, .latRef = "N", .lon = 1, .lonRef = "E", .caption = caption}));
    for (const char* option : {"-q", "--json", "--csv", "--web=1", "--search", "--\x1b[31m\x9b"}) {
        const test::ProgramResult result =
            run({option, picture, folder_.file("missing\x1b\x9b.jpg"), folder_.path() + "/\x1b"});
        for (const std::string& printed : {result.out, result.err}) {
            for (const char* control : {"\x1b", "\u009b", "\x7f", "\u202e", "\x1b\x9b", "m\x9b"})
                EXPECT_EQ(printed.find(control), std::string::npos) << option << ": " << printed;
        }
    }
    const auto objects = objectsOf(run({"--json", picture}).out);
    ASSERT_EQ(objects.size(), 1u);
    EXPECT_EQ(objects[0]["description"], caption);
}

TEST_F(pinoramaInfo, findsItsTextsThroughASymbolicLink)
{
    const std::string link = folder_.path() + "/info";
    ASSERT_EQ(symlink(PINORAMA_INFO, link.c_str()), 0);
    const std::vector<std::vector<std::string>> starts = {
        {link}, {"/usr/bin/env", "-C", folder_.path(), "./info"}};
    for (std::vector<std::string> command : starts) {
        SCOPED_TRACE(command.back());
        command.push_back(notes_);
        const test::ProgramResult result = test::runProgram({.command = command});
        EXPECT_EQ(result.status, 0) << result.err;
        EXPECT_NE(result.out.find("Size:         0.0 KB\n"), std::string::npos) << result.out;
    }
}

TEST_F(pinoramaInfo, suggestsTheOptionForAFolder)
{
    const test::ProgramResult result = run({folder_.path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_NE(result.out.find("Path:         " + folder_.path() + "\n"), std::string::npos);
    EXPECT_EQ(result.err,
              "pinorama-info: " + folder_.path() + ": is a folder; -r reads the pictures in it\n");
    // A program that reads the output knows what it asked for.
    EXPECT_EQ(run({"--json", folder_.path()}).err, "");
    EXPECT_EQ(run({located_}).err, "");
}

TEST_F(pinoramaInfo, doesWithoutThePlacesFile)
{
    const test::TemporaryFolder resources;
    std::filesystem::create_directory_symlink(PINORAMA_STRINGS, resources.file("strings"));
    const test::ScopedVariable variable("PINORAMA_RESOURCES", resources.path().c_str());
    const test::ProgramResult result = run({"--json", located_});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    const ordered_json object = objectsOf(result.out).at(0);
    EXPECT_EQ(object["result"], 0);
    EXPECT_TRUE(object["place"].is_null());
}

TEST_F(pinoramaInfo, reportsWhatCannotBeReadAndContinues)
{
    const std::string missing = folder_.file("missing.jpg");
    const std::string dangling = folder_.file("dangling.jpg");
    const std::string missingNotes = folder_.file("missing.txt");
    ASSERT_EQ(symlink("nowhere", dangling.c_str()), 0);
    const test::ProgramResult result = run({"--json", missing, dangling, missingNotes, located_});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "pinorama-info: " + missing + ": No such file or directory\n" +
                              "pinorama-info: " + dangling + ": No such file or directory\n" +
                              "pinorama-info: " + missingNotes + ": No such file or directory\n");
    const std::vector<ordered_json> objects = objectsOf(result.out);
    ASSERT_EQ(objects.size(), 4u);
    EXPECT_EQ(objects[0]["result"], -43);
    EXPECT_EQ(objects[0]["sizeText"], "n.a.");
    EXPECT_EQ(objects[1]["result"], -43);
    EXPECT_TRUE(objects[2]["result"].is_null());
    EXPECT_EQ(objects[3]["result"], 0);

    const test::ProgramResult readable = run({missing, located_});
    EXPECT_EQ(readable.status, 1);
    EXPECT_EQ(readable.out.rfind("Path:         " + located_, 0), 0u) << readable.out;
}

TEST_F(pinoramaInfo, reportsAPictureThatMayNotBeOpened)
{
    ASSERT_EQ(chmod(folder_.path().c_str(), 0755), 0);
    ASSERT_EQ(chmod(located_.c_str(), 0), 0);
    ASSERT_EQ(chmod(notes_.c_str(), 0), 0);
    const test::ProgramResult result =
        test::runProgram({.command = {PINORAMA_INFO, located_, notes_}, .asNobody = true});
    if (result.status == 127) GTEST_SKIP() << "the program lies where only the superuser may go";
    EXPECT_EQ(result.status, 1);
    // A file that is not a picture is not opened at all.
    EXPECT_EQ(result.err, "pinorama-info: " + located_ + ": Permission denied\n");
}

TEST_F(pinoramaInfo, separatesFilesByAnEmptyLine)
{
    const std::string out = run({located_, folder_.file("missing.jpg"), notes_}).out;
    EXPECT_NE(out.find("A street\n\nPath:"), std::string::npos) << out;
    EXPECT_EQ(out.find("\n\n\n"), std::string::npos);
    EXPECT_EQ(out.rfind("Path:", 0), 0u);
    EXPECT_TRUE(out.ends_with("Caption:\n"));
}

TEST_F(pinoramaInfo, printsNoControlCharactersOfAFile)
{
    const std::string path = folder_.write(
        "a\nb\x1b[31m.jpg", test::pictureWithGps({.caption = "\x1b]0;title\x07two\nlines"}));
    const test::ProgramResult result = run({path, folder_.file("\x1b[1m.jpg")});
    EXPECT_EQ(result.out.find('\x1b'), std::string::npos);
    EXPECT_EQ(result.out.find('\x07'), std::string::npos);
    EXPECT_EQ(result.err.find('\x1b'), std::string::npos);
    EXPECT_NE(result.out.find("Name:         a b\ufffd[31m.jpg\n"), std::string::npos);
    EXPECT_NE(result.out.find("Caption:      \ufffd]0;title\ufffdtwo lines\n"), std::string::npos);
}

TEST_F(pinoramaInfo, printsTheUsageAfterWrongOptions)
{
    for (const std::vector<std::string>& arguments :
         {std::vector<std::string>{}, {"--json"}, {"--bogus", located_}, {"-j", located_}}) {
        const test::ProgramResult result = run(arguments);
        EXPECT_EQ(result.status, 2);
        EXPECT_EQ(result.out, "");
        EXPECT_NE(result.err.find("usage: pinorama-info"), std::string::npos) << result.err;
    }
    EXPECT_EQ(run({"--bogus", located_}).err.rfind("pinorama-info: unknown option '--bogus'\n", 0),
              0u);
}

TEST_F(pinoramaInfo, printsHelpAndVersion)
{
    const test::ProgramResult help = run({"--help"});
    EXPECT_EQ(help.status, 0);
    EXPECT_EQ(help.err, "");
    EXPECT_EQ(help.out.rfind("usage: pinorama-info", 0), 0u);
    EXPECT_NE(help.out.find("--json"), std::string::npos);
    EXPECT_EQ(run({"-h"}).out, help.out);
    for (const char* option : {"--version", "-v"}) {
        const test::ProgramResult version = run({option});
        EXPECT_EQ(version.status, 0);
        EXPECT_EQ(version.out, "pinorama-info " PINORAMA_VERSION "\n");
    }
}

TEST_F(pinoramaInfo, saysWhichLocksTheSandboxHas)
{
    const test::ProgramResult version = run({"--version", "--verbose"});
    EXPECT_EQ(version.status, 0);
    const SandboxLocks locks = findSandboxLocks();
    const std::string landlock =
        locks.landlock > 0 ? "version " + std::to_string(locks.landlock) : "none";
    EXPECT_EQ(version.out,
              "pinorama-info " PINORAMA_VERSION "\nLandlock: " + landlock + "\nnamespaces: " +
                  (locks.namespaces ? "yes" : "none, users may not make them here") + "\n");
}

TEST_F(pinoramaInfo, takesFilesAfterTwoDashes)
{
    const std::string path = folder_.write("--json", "x");
    const test::ProgramResult result = run({"--", path});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out.rfind("Path:         " + path, 0), 0u);
}

TEST_F(pinoramaInfo, failsIfItsOutputCannotBeWritten)
{
    const test::ProgramResult result = test::runProgram(
        {.command = {PINORAMA_INFO, "--json", located_}, .outputPath = "/dev/full"});
    EXPECT_EQ(result.status, 1);
    EXPECT_EQ(result.err, "pinorama-info: standard output: No space left on device\n");
}
