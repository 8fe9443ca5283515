// pinorama-info where the machine has little left for it: its output is right, or it reports what
// is missing and exits with a status other than 0.

#include "tests/support/environment.h"
#include "tests/support/picture_builder.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
using Texts = std::vector<std::string>;

class pinoramaInfoWithFewResources : public testing::Test {
protected:
    // Runs the program after a command of the shell.
    test::ProgramResult runAfter(const std::string& command, const std::string& arguments) const
    {
        return test::runProgram(
            {.command = {"/bin/sh", "-c", command + " " PINORAMA_INFO " " + arguments},
             .variables = {{"TZ", "Asia/Tokyo"}, {"LANGUAGE", "de:en"}}});
    }

    // Compares each output under a limit with what is printed without one.
    void expectRightOrRefused(const Texts& limits) const
    {
        const std::string document = folder_.file("a.kml");
        const Texts outputs = {
            "", "--json", "--csv", "--web 1", "--search", "--print-script", "--kml " + document};
        for (const std::string& output : outputs) {
            for (const std::string& files : {picture_, picture_ + " " + picture_}) {
                const std::string arguments = output + " " + files;
                const test::ProgramResult right = runAfter("", arguments);
                ASSERT_EQ(right.status, 0) << right.err;
                const std::string rightDocument = test::readFile(document);
                for (const std::string& limit : limits) {
                    SCOPED_TRACE(limit + " " + arguments);
                    std::filesystem::remove(document);
                    const test::ProgramResult result = runAfter(limit, arguments);
                    if (result.status == 0) {
                        EXPECT_EQ(result.out, right.out);
                        EXPECT_EQ(test::readFile(document), rightDocument);
                        EXPECT_EQ(result.err, "");
                    } else {
                        EXPECT_FALSE(result.err.empty());
                        EXPECT_EQ(result.out.find("STR#"), std::string::npos) << result.out;
                        EXPECT_EQ(result.out.find("11   11"), std::string::npos) << result.out;
                        // A collection lacks what could not be read, but is complete otherwise.
                        const std::string places = test::readFile(document);
                        EXPECT_TRUE(places.empty() || places.ends_with("</Document></kml>"));
                    }
                }
                std::filesystem::remove(document);
            }
        }
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 1);
    }

    test::TemporaryFolder folder_;
    std::string picture_ = folder_.write(
        "a.jpg", test::pictureWithGps({.lat = 48.5, .latRef = "S", .lon = 11.25, .lonRef = "E"}));
};
}  // namespace

TEST_F(pinoramaInfoWithFewResources, printsTheRightOutputOrFailsWithFewDescriptors)
{
    Texts limits;
    for (int count = 3; count <= 12; count++) {
        limits.push_back("ulimit -n " + std::to_string(count) + ";");
    }
    expectRightOrRefused(limits);
}

TEST_F(pinoramaInfoWithFewResources, printsTheRightOutputOrFailsWithLittleMemory)
{
    Texts limits;
    for (int kibibytes = 4000; kibibytes <= 24000; kibibytes += 2500) {
        limits.push_back("ulimit -v " + std::to_string(kibibytes) + ";");
    }
    expectRightOrRefused(limits);
}

TEST_F(pinoramaInfoWithFewResources, reportsALimitOnTheSizeOfFiles)
{
    const std::string old = folder_.write("old", "old");
    for (const std::string& files : {picture_, picture_ + " " + picture_}) {
        const std::string program = std::string(PINORAMA_INFO) + " ";
        const std::string script = "{ ulimit -f 0; " + program + "--kml " + old + " " + files +
                                   "; echo $?; " + program + files + " >>" + old +
                                   "; echo $?; } 2>&1 | cat";
        const test::ProgramResult result = test::runProgram({.command = {"/bin/sh", "-c", script}});
        EXPECT_EQ(result.out, "pinorama-info: " + old + ": File too large\n1\n" +
                                  "pinorama-info: standard output: File too large\n1\n");
        EXPECT_EQ(test::readFile(old), "old");
        EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder_.path()), {}), 2);
    }
}

TEST_F(pinoramaInfoWithFewResources, printsTheRightOutputOrFailsForManyFiles)
{
    for (int i = 0; i < 40; i++) {
        std::filesystem::copy_file(picture_, folder_.file(std::to_string(i) + ".jpg"));
    }
    const test::ProgramResult right = runAfter("", "-r -q " + folder_.path());
    ASSERT_EQ(right.status, 0);
    for (int count = 3; count <= 16; count++) {
        SCOPED_TRACE(count);
        const test::ProgramResult result =
            runAfter("ulimit -n " + std::to_string(count) + ";", "-r -q " + folder_.path());
        EXPECT_EQ(result.out.find("11   11"), std::string::npos);
        EXPECT_EQ(result.out.find("STR#"), std::string::npos);
        if (result.status == 0) {
            EXPECT_TRUE(result.out == right.out) << result.out.substr(0, 500);
        } else {
            EXPECT_FALSE(result.err.empty());
        }
    }
}

TEST_F(pinoramaInfoWithFewResources, reportsMissingTexts)
{
    const test::TemporaryFolder damaged;
    std::filesystem::create_directories(damaged.file("strings/en"));
    (void)damaged.write("strings/en/Localizable.strings", "\"STR#1001:46\" = \" KB\";\n");
    const test::TemporaryFolder none;
    for (const std::string& folder : {none.path(), damaged.path()}) {
        const std::string setting = "PINORAMA_RESOURCES=" + folder;
        for (const char* output : {"", "--json", "--csv"}) {
            const test::ProgramResult result =
                runAfter(setting, std::string(output) + " " + picture_);
            EXPECT_EQ(result.status, 1);
            EXPECT_EQ(result.out, "");
            EXPECT_EQ(result.err,
                      "pinorama-info: " + folder + "/strings: the program's texts are missing\n");
        }
        EXPECT_EQ(runAfter(setting, "--web 1 " + picture_).status, 2);
        for (const char* output : {"--search", "--print-script", "--version"})
            EXPECT_EQ(runAfter(setting, std::string(output) + " " + picture_).err, "")
                << "these need no texts";
    }
}
