// The manual page and the completions explain every option of the program.

#include "cli/options.h"
#include "tests/support/environment.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <sstream>
#include <string>
#include <vector>

using namespace pinorama;

namespace {
std::string documentOf(const std::string& path)
{
    return test::readFile(PINORAMA_SOURCE_FOLDER "/packaging/" + path);
}

// The long names of all options, without dashes, from the usage of the program.
std::vector<std::string> optionNames()
{
    std::vector<std::string> names;
    std::istringstream lines(fullUsage());
    for (std::string line; std::getline(lines, line);) {
        const std::size_t start = line.find("--") + 2;
        if (start != 8 || line[1] != ' ') continue;  // after the column of the letters
        names.push_back(line.substr(start, line.find_first_of(" =", start) - start));
    }
    return names;
}

// The lines of the manual page that begin the explanation of an option.
std::string itemsOfManual()
{
    std::string items;
    std::istringstream lines(documentOf("man/pinorama-info.1"));
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(".It Fl ", 0) == 0) items += line + " \n";
    }
    return items;
}

std::string completionsOf(const std::string& words, int current)
{
    const std::string script = "source '" PINORAMA_SOURCE_FOLDER
                               "/packaging/completions/pinorama-info.bash'\n"
                               "COMP_WORDS=(" +
                               words + ")\nCOMP_CWORD=" + std::to_string(current) +
                               "\n_pinorama_info\necho \"${COMPREPLY[*]}\"";
    return test::runProgram({.command = {"/bin/bash", "--norc", "-c", script}}).out;
}
}  // namespace

TEST(pinoramaInfoDocuments, explainEveryOption)
{
    const struct {
        const char *path, *before, *after;
    } documents[] = {
        {"completions/pinorama-info.bash", "--", ""},
        {"completions/_pinorama-info", "--", "["},
        {"completions/pinorama-info.fish", "-c pinorama-info -l ", " "},
    };
    ASSERT_GE(optionNames().size(), 10u);
    const std::string manual = itemsOfManual();
    for (const std::string& option : optionNames()) {
        EXPECT_NE(manual.find("Fl \\-" + option + " "), std::string::npos)
            << "the manual page does not explain --" << option;
    }
    for (const auto& [path, before, after] : documents) {
        const std::string document = documentOf(path);
        ASSERT_NE(document, "") << path;
        for (const std::string& option : optionNames()) {
            EXPECT_NE(document.find(before + option + after), std::string::npos)
                << path << " does not know --" << option;
        }
    }
}

TEST(pinoramaInfoDocuments, manualPageIsWellFormed)
{
    const test::ProgramResult result =
        test::runProgram({.command = {"/usr/bin/groff", "-mandoc", "-ww", "-Tutf8",
                                      PINORAMA_SOURCE_FOLDER "/packaging/man/pinorama-info.1"}});
    if (result.status == 127) GTEST_SKIP() << "groff is not installed";
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("pinorama-info"), std::string::npos);
}

TEST(pinoramaInfoDocuments, bashCompletesOptionsBeforeTwoDashes)
{
    std::string all;
    for (const std::string& option : optionNames()) all += (all.empty() ? "--" : " --") + option;
    EXPECT_EQ(completionsOf("pinorama-info --", 1), all + "\n");
    EXPECT_EQ(completionsOf("pinorama-info a.jpg --js", 2), "--json\n");
    EXPECT_EQ(completionsOf("pinorama-info -- --js", 2), "\n");
    EXPECT_EQ(completionsOf("pinorama-info pho", 1), "\n");
}
