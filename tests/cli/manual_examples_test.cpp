// Runs the examples of the manual page, word for word, in a folder with pictures.

#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

#include <filesystem>
#include <regex>
#include <sstream>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
// The commands under EXAMPLES, as a reader types them.
std::vector<std::string> examples()
{
    std::istringstream page(
        test::readFile(PINORAMA_SOURCE_FOLDER "/packaging/man/pinorama-info.1"));
    std::vector<std::string> commands;
    bool isExample = false;
    for (std::string line; std::getline(page, line);) {
        if (line.starts_with(".Sh ")) isExample = line == ".Sh EXAMPLES";
        if (!isExample || !line.starts_with(".Dl $ ")) continue;
        line = std::regex_replace(line.substr(6), std::regex(R"(\\\(dq)"), "\"");
        line = std::regex_replace(line, std::regex(R"(\\\(ti)"), "~");
        line = std::regex_replace(line, std::regex(R"(\\&)"), "");
        commands.push_back(std::regex_replace(line, std::regex(R"(\\-)"), "-"));
    }
    return commands;
}

// A home with pictures, and with programs of the desktop that only print what they would open.
class manualPage : public testing::Test {
protected:
    manualPage()
    {
        for (const char* folder : {"bin", "Pictures", "Pictures/Journey", "Import"}) {
            std::filesystem::create_directory(home_.file(folder));
        }
        std::filesystem::create_symlink(PINORAMA_INFO, home_.file("bin/pinorama-info"));
        (void)home_.write("bin/xdg-open", "#!/bin/sh\necho opened \"$1\"\n");
        EXPECT_EQ(chmod(home_.file("bin/xdg-open").c_str(), 0755), 0);
        const std::string picture = test::pictureWithGps({.lat = 48.125,
                                                          .latRef = "N",
                                                          .lon = 11.5,
                                                          .lonRef = "W",
                                                          .taken = "2026:05:03 14:03:22",
                                                          .takenOffset = "+02:00"});
        for (const char* name :
             {"DSC_0042.NEF", "a.jpg", "Pictures/b.jpg", "Pictures/Journey/c.jpg"}) {
            (void)home_.write(name, picture);
        }
        (void)home_.write("plain.jpg", test::jpegPicture({}));
        (void)home_.write("Pictures/plain.jpg", test::jpegPicture({}));
        (void)home_.write(
            "Pictures/tower.jpg",
            test::pictureWithGps({.lat = 48.8585, .latRef = "N", .lon = 2.2946, .lonRef = "E"}));
    }

    test::ProgramResult run(const std::string& command) const
    {
        return test::runProgram(
            {.command = {"/bin/bash", "-c",
                         "cd ~ && export PATH=~/bin:$PATH && set -o pipefail && " + command},
             .variables = {{"HOME", home_.path()}}});
    }

    const test::TemporaryFolder home_;
};
}  // namespace

TEST_F(manualPage, hasExamplesThatWork)
{
    const std::vector<std::string> commands = examples();
    ASSERT_GE(commands.size(), 5u);
    const bool hasJq = run("command -v jq").status == 0;
    for (const std::string& command : commands) {
        SCOPED_TRACE(command);
        if (!hasJq && command.find("jq ") != std::string::npos) continue;
        const test::ProgramResult result = run(command);
        EXPECT_EQ(result.status, 0) << result.err;
        const std::size_t to = command.find(" > ");
        const std::string printed = to == std::string::npos
                                        ? result.out
                                        : test::readFile(home_.file(command.substr(to + 3)));
        EXPECT_NE(printed, "");
        EXPECT_EQ(result.err.find("pinorama-info: /"), std::string::npos) << result.err;
    }
    if (!hasJq) GTEST_SKIP() << "jq is not installed, so the examples with jq were not run";
}

TEST_F(manualPage, tellsTheTruthAboutSigns)
{
    if (run("command -v jq").status != 0) GTEST_SKIP() << "jq is not installed";
    for (const std::string& command : examples()) {
        if (command.find("@tsv") == std::string::npos) continue;
        EXPECT_EQ(run(command).out, "a.jpg\t48.125\t-11.5\n");
        return;
    }
    FAIL() << "no example prints a table of coordinates";
}
