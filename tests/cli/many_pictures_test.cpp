// Runs pinorama-info over thousands of pictures.

#include "tests/cli/info_run.h"
#include "tests/cli/running_program.h"
#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <nlohmann/json.hpp>
#include <regex>
#include <string>
#include <thread>
#include <vector>

using namespace pinorama;

namespace {
using nlohmann::ordered_json;
using test::countOf;
using test::isXML;
using test::linesOf;
using test::run;
using Texts = std::vector<std::string>;

constexpr int kMany = 5000;
constexpr int kPerFolder = 100;

std::string number(int value, int digits)
{
    std::string text = std::to_string(value);
    return text.insert(0, static_cast<std::size_t>(digits) - text.size(), '0');
}

// A tree of 5,000 pictures, every other one with a position, made once for all tests.
class pinoramaInfoWithManyPictures : public testing::Test {
protected:
    static void SetUpTestSuite()
    {
        tree_ = new test::TemporaryFolder;
        const std::string plain = test::jpegPicture({});
        for (int i = 0; i < kMany; i++) {
            const std::string sub = number(i / kPerFolder, 2);
            if (i % kPerFolder == 0) std::filesystem::create_directory(tree_->file(sub));
            const std::string name = sub + "/" + number(i, 4) + ".jpg";
            names_.push_back(tree_->file(name));
            (void)tree_->write(name, i % 2 == 0 ? plain
                                                : test::pictureWithGps({.lat = 1 + i * 0.01,
                                                                        .latRef = "N",
                                                                        .lon = 2 + i * 0.01,
                                                                        .lonRef = "E",
                                                                        .city = "City"}));
        }
    }
    static void TearDownTestSuite()
    {
        delete tree_;
        names_.clear();
    }

    // The paths in JSON output; every line has to be complete.
    static Texts pathsIn(const std::string& out)
    {
        Texts paths;
        EXPECT_TRUE(out.empty() || out.back() == '\n');
        for (const std::string& line : linesOf(out)) {
            paths.push_back(ordered_json::parse(line)["path"]);
        }
        return paths;
    }

    static inline test::TemporaryFolder* tree_ = nullptr;
    static inline Texts names_;
};
}  // namespace

TEST_F(pinoramaInfoWithManyPictures, printsThemInTheOrderOfTheWalk)
{
    const test::ProgramResult result = run({"-r", "--json", tree_->path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(pathsIn(result.out), names_);
    EXPECT_EQ(
        result.err.rfind("pinorama-info: 5000 pictures, 2500 with a position, 0 not read, ", 0), 0u)
        << result.err;
    const ordered_json object = ordered_json::parse(linesOf(result.out)[4321]);
    EXPECT_DOUBLE_EQ(object["latti"].get<double>(), 1 + 4321 * 0.01);
    EXPECT_EQ(object["city"], "City");
}

TEST_F(pinoramaInfoWithManyPictures, printsEachLikeASinglePicture)
{
    const std::string folder = tree_->file("07");
    Texts few(names_.begin() + 700, names_.begin() + 720);
    for (const char* form : {"--json", "--csv", ""}) {
        SCOPED_TRACE(form);
        Texts alone = few;
        Texts all = {"-r", folder};
        if (*form != '\0') {
            alone.insert(alone.begin(), form);
            all.insert(all.begin(), form);
        }
        const std::string expected = run(alone).out;
        const std::string out = run(all).out;
        EXPECT_GT(expected.size(), 1000u);
        EXPECT_EQ(out.substr(0, expected.size()), expected);
    }
}

TEST_F(pinoramaInfoWithManyPictures, printsFilesLikeFoldersButWithoutASummary)
{
    Texts arguments = names_;
    arguments.insert(arguments.begin(), "--csv");
    const test::ProgramResult files = run(arguments);
    EXPECT_EQ(files.status, 0);
    EXPECT_EQ(files.err, "");
    EXPECT_EQ(files.out, run({"-r", "--csv", tree_->path()}).out);
    EXPECT_EQ(countOf(files.out, "\r\n"), kMany + 1u);
}

TEST_F(pinoramaInfoWithManyPictures, separatesTextBlocksByEmptyLines)
{
    const std::string out = run({"-r", tree_->path()}).out;
    EXPECT_EQ(countOf(out, "Path:  "), static_cast<std::size_t>(kMany));
    EXPECT_EQ(countOf(out, "\n\nPath:  "), kMany - 1u);
    EXPECT_EQ(out.rfind("Path:", 0), 0u);
    EXPECT_EQ(out.find("\n\n\n"), std::string::npos);
}

TEST_F(pinoramaInfoWithManyPictures, writesOneDocument)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.write("all.kml", "old content");
    const test::ProgramResult result = run({"-r", "--kml", path, tree_->path()});
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.out, "");
    EXPECT_TRUE(isXML(path));
    const std::string document = test::readFile(path);
    EXPECT_EQ(countOf(document, "<Placemark>"), 2500u);
    EXPECT_EQ(countOf(document, "<Document>"), 1u);
    EXPECT_EQ(countOf(document, "<StyleMap id=\"22370\">"), 1u);
    EXPECT_LT(document.find("<name>0001.jpg</name>"), document.find("<name>4999.jpg</name>"));
    EXPECT_TRUE(document.ends_with("</Document></kml>"));
}

TEST_F(pinoramaInfoWithManyPictures, needsNoMoreMemoryThanForAFew)
{
    const auto memoryOf = [](const std::string& path) {
        test::RunningProgram program({"-r", "--json", "--kml", "/dev/null", path});
        EXPECT_EQ(program.finish(), 0);
        return program.usage().ru_maxrss;  // KiB, of the largest of its processes
    };
    const long few = memoryOf(tree_->file("07"));
    const long many = memoryOf(tree_->path());
    EXPECT_GT(few, 0);
#if defined(__SANITIZE_ADDRESS__)
    GTEST_SKIP() << "the sanitizer keeps what is freed";
#endif
    EXPECT_LT(many, few + few / 10 + 512) << few;
}

TEST_F(pinoramaInfoWithManyPictures, leavesCompleteOutputsWhenInterrupted)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("part.kml");
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        SCOPED_TRACE(signal);
        test::RunningProgram program({"-r", "--json", "--kml", path, tree_->path()});
        // It cannot end, because nobody reads the rest of its output.
        (void)program.read(1);
        ASSERT_EQ(kill(program.process(), signal), 0);
        EXPECT_EQ(program.finish(), 128 + signal) << program.err();
        const Texts paths = pathsIn(program.out());
        ASSERT_GT(paths.size(), 0u);
        ASSERT_LT(paths.size(), static_cast<std::size_t>(kMany));
        EXPECT_TRUE(std::equal(paths.begin(), paths.end(), names_.begin()));
        EXPECT_EQ(program.err().rfind("pinorama-info: stopped: ", 0), 0u) << program.err();
        EXPECT_TRUE(isXML(path));
        EXPECT_EQ(countOf(test::readFile(path), "<Placemark>"), paths.size() / 2);
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
    }
}

TEST_F(pinoramaInfoWithManyPictures, leavesACompleteDocumentWhenItsOutputIsClosed)
{
    const test::TemporaryFolder folder;
    const std::string path = folder.file("part.kml");
    test::RunningProgram program({"-r", "--json", "--kml", path, tree_->path()});
    (void)program.read(1);
    program.stopReading();
    EXPECT_EQ(program.finish(), 128 + SIGPIPE) << program.err();
    EXPECT_TRUE(isXML(path));
    EXPECT_EQ(program.err().find("Broken pipe"), std::string::npos) << program.err();
}

TEST_F(pinoramaInfoWithManyPictures, showsProgressOnATerminal)
{
    test::RunningProgram program({"-r", "--json", tree_->path()},
                                 test::RunningProgram::Errors::terminal);
    // The full pipe holds the program up until the line is due.
    (void)program.read(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    EXPECT_EQ(program.finish(), 0);
    EXPECT_EQ(pathsIn(program.out()), names_);
    const std::regex line("\r\x1b\\[K[0-9]+ pictures, [0-9.]+ per second");
    EXPECT_TRUE(std::regex_search(program.err(), line)) << program.err();
    // The line is removed before the summary is printed.
    EXPECT_NE(program.err().find("\r\x1b[Kpinorama-info: 5000 pictures"), std::string::npos)
        << program.err();
}

TEST_F(pinoramaInfoWithManyPictures, showsProgressOfFilesOnRequest)
{
    test::RunningProgram program({"--json", "--progress", names_[0], names_[1]},
                                 test::RunningProgram::Errors::terminal);
    EXPECT_EQ(program.finish(), 0);
    EXPECT_NE(program.err().find("pinorama-info: 2 pictures, 1 with a position"), std::string::npos)
        << program.err();
    EXPECT_EQ(pathsIn(program.out()).size(), 2u);
}

TEST_F(pinoramaInfoWithManyPictures, showsNoProgressIfQuiet)
{
    test::RunningProgram program({"-r", "--json", "-q", tree_->path()},
                                 test::RunningProgram::Errors::terminal);
    (void)program.read(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    EXPECT_EQ(program.finish(), 0);
    EXPECT_EQ(program.err(), "");
    EXPECT_EQ(pathsIn(program.out()).size(), static_cast<std::size_t>(kMany));
}

TEST_F(pinoramaInfoWithManyPictures, showsNoProgressInAPipe)
{
    test::RunningProgram program({"-r", "--json", tree_->path()});
    (void)program.read(1);
    std::this_thread::sleep_for(std::chrono::milliseconds(700));
    EXPECT_EQ(program.finish(), 0);
    EXPECT_EQ(linesOf(program.err()).size(), 1u) << program.err();
    EXPECT_EQ(program.err().find('\r'), std::string::npos);
}

TEST_F(pinoramaInfoWithManyPictures, needsFewDescriptors)
{
    const test::ProgramResult result =
        test::runProgram({.command = {"/bin/sh", "-c", "ulimit -n 40 && exec \"$0\" \"$@\"",
                                      PINORAMA_INFO, "-r", "--json", tree_->path()}});
    EXPECT_EQ(result.status, 0) << result.err.substr(0, 1000);
    EXPECT_EQ(pathsIn(result.out), names_);
}

TEST_F(pinoramaInfoWithManyPictures, waitsForOtherProgramsOfTheSameUser)
{
    // An ordinary user's descriptors count while they are on their way to a reader, those of all
    // the user's programs together.
    ASSERT_EQ(chmod(tree_->path().c_str(), 0755), 0);
    const test::ProgramResult result =
        test::runProgram({.command = {"/bin/sh", "-c",
                                      "ulimit -n 40\n"
                                      "for other in 1 2 3; do\n"
                                      "    \"$0\" \"$@\" >/dev/null & others=\"$others $!\"\n"
                                      "done\n"
                                      "\"$0\" \"$@\" || exit 1\n"
                                      "for other in $others; do wait $other || exit 1; done",
                                      PINORAMA_INFO, "-r", "--json", tree_->path()},
                          .asNobody = true});
    EXPECT_EQ(result.status, 0) << result.err.substr(0, 1000);
    EXPECT_EQ(pathsIn(result.out), names_);
}

TEST_F(pinoramaInfoWithManyPictures, leavesNoProcessBehind)
{
    test::RunningProgram program({"-r", "--json", tree_->path()});
    (void)program.read(1);
    const pid_t process = program.process();
    ASSERT_EQ(kill(process, SIGKILL), 0);
    // The ends of its pipes would stay open as long as one of its processes has them.
    EXPECT_EQ(program.finish(), 128 + SIGKILL);
}
