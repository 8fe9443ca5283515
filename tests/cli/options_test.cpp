#include "cli/options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {
struct Outcome {
    bool isRight = false;
    Options options{};
    std::string error{};
};

Outcome read(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "pinorama-info");
    std::vector<char*> pointers;
    for (std::string& argument : arguments) pointers.push_back(argument.data());
    pointers.push_back(nullptr);
    Outcome outcome;
    outcome.isRight = readOptions(static_cast<int>(arguments.size()), pointers.data(),
                                  &outcome.options, &outcome.error);
    return outcome;
}

using Files = std::vector<std::string>;
}  // namespace

TEST(readOptions, takesFilesInTheirOrder)
{
    const Outcome outcome = read({"b.jpg", "a.jpg", "b.jpg"});
    EXPECT_TRUE(outcome.isRight);
    EXPECT_FALSE(outcome.options.json);
    EXPECT_EQ(outcome.options.files, (Files{"b.jpg", "a.jpg", "b.jpg"}));
}

TEST(readOptions, findsOptionsBetweenFiles)
{
    for (const Files& arguments :
         {Files{"--json", "a", "b"}, Files{"a", "--json", "b"}, Files{"a", "b", "--json"}}) {
        const Outcome outcome = read(arguments);
        EXPECT_TRUE(outcome.isRight);
        EXPECT_TRUE(outcome.options.json);
        EXPECT_EQ(outcome.options.files, (Files{"a", "b"}));
    }
}

TEST(readOptions, endsOptionsAtTwoDashes)
{
    const Outcome outcome = read({"--json", "--", "--json", "-x.jpg"});
    EXPECT_TRUE(outcome.isRight);
    EXPECT_EQ(outcome.options.files, (Files{"--json", "-x.jpg"}));
}

TEST(readOptions, takesOneDashForAFile)
{
    EXPECT_EQ(read({"-"}).options.files, Files{"-"});
}

TEST(readOptions, needsNoFileForHelpAndVersion)
{
    EXPECT_TRUE(read({"--help"}).isRight);
    EXPECT_TRUE(read({"--help"}).options.help);
    EXPECT_TRUE(read({"--version"}).isRight);
    EXPECT_TRUE(read({"--version"}).options.version);
}

TEST(readOptions, tellsWhatIsWrong)
{
    const struct {
        const char* name;
        Files arguments;
        const char* expected;
    } rows[] = {
        {"nothing", {}, "no file given"},
        {"no file", {"--json"}, "no file given"},
        {"no file behind the dashes", {"--"}, "no file given"},
        {"unknown word", {"--bogus", "a.jpg"}, "unknown option: --bogus"},
        {"unknown word behind a file", {"a.jpg", "--bogus"}, "unknown option: --bogus"},
        {"unknown letter", {"-j", "a.jpg"}, "unknown option: -j"},
        {"unknown letters", {"-jx", "a.jpg"}, "unknown option: -j"},
        {"a value that is not wanted", {"--json=1", "a.jpg"}, "unknown option: --json=1"},
        {"another", {"--version=1"}, "unknown option: --version=1"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Outcome outcome = read(row.arguments);
        EXPECT_FALSE(outcome.isRight);
        EXPECT_EQ(outcome.error, row.expected);
    }
}

TEST(readOptions, startsAnewOnEveryCall)
{
    EXPECT_FALSE(read({"--bogus"}).isRight);
    EXPECT_EQ(read({"a"}).options.files, Files{"a"});
    EXPECT_EQ(read({"b", "--json"}).options.files, Files{"b"});
}

TEST(fullUsage, namesEveryOption)
{
    for (const char* option : {"--json", "--help", "--version", "FILE..."}) {
        EXPECT_NE(fullUsage().find(option), std::string::npos) << option;
        EXPECT_NE(shortUsage().find(option), std::string::npos) << option;
    }
    EXPECT_EQ(fullUsage().rfind(shortUsage(), 0), 0u);
}
