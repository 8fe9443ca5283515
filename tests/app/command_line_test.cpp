#include "app/command_line.h"
#include "tests/support/environment.h"

#include <gtest/gtest.h>

#include <filesystem>

using namespace pinorama;

namespace {
std::optional<CommandLine> parse(const std::vector<std::string>& arguments)
{
    std::string error;
    return parseCommandLine(arguments, &error);
}

std::string errorOf(const std::vector<std::string>& arguments)
{
    std::string error;
    return parseCommandLine(arguments, &error) ? "no error" : error;
}

std::vector<std::string> pathsOf(const std::vector<std::string>& arguments)
{
    const auto line = parse(arguments);
    return line ? line->paths : std::vector<std::string>{"error"};
}

// The working folder of a test, until the end of the scope.
class WorkingFolder {
public:
    explicit WorkingFolder(const std::string& path) : earlier_(std::filesystem::current_path())
    {
        std::filesystem::current_path(path);
    }
    ~WorkingFolder() { std::filesystem::current_path(earlier_); }
    WorkingFolder(const WorkingFolder&) = delete;
    WorkingFolder& operator=(const WorkingFolder&) = delete;

private:
    std::filesystem::path earlier_;
};
}  // namespace

TEST(parseCommandLine, relativePathsBecomeAbsolute)
{
    const test::TemporaryFolder folder;
    const WorkingFolder inside(folder.path());
    using Paths = std::vector<std::string>;
    EXPECT_EQ(
        pathsOf({"a.jpg", "/b.jpg", "./c d.jpg", "../e.jpg", ""}),
        (Paths{folder.file("a.jpg"), "/b.jpg", folder.file("c d.jpg"), folder.file("../e.jpg")}));
    EXPECT_EQ(pathsOf({"\xff.jpg"}), Paths{folder.file("\xff.jpg")}) << "raw bytes";
}

TEST(parseCommandLine, relativePathsFromTheRoot)
{
    const WorkingFolder inside("/");
    EXPECT_EQ(pathsOf({"a.jpg"}), std::vector<std::string>{"/a.jpg"});
}

TEST(parseCommandLine, fileURIsArePathsToo)
{
    EXPECT_EQ(pathsOf({"file:///a%20b.jpg", "file://localhost/c"}),
              (std::vector<std::string>{"/a b.jpg", "/c"}));
}

TEST(parseCommandLine, theFileToShowBecomesAbsolute)
{
    const WorkingFolder inside("/");
    EXPECT_EQ(parse({"--show", "a b.jpg"})->show, "/a b.jpg");
    EXPECT_EQ(parse({"--show=/\xff.jpg"})->show, "/\xff.jpg");
    EXPECT_EQ(parse({"--show", "file:///a%20b.jpg"})->show, "/a b.jpg");
    EXPECT_EQ(parse({"--show", "-x"})->show, "/-x");
    EXPECT_EQ(parse({"/a.jpg"})->show, std::nullopt);
    EXPECT_EQ(errorOf({"--show"}), "option '--show' needs a value");
    EXPECT_EQ(errorOf({"--show", ""}), "option '--show' needs the name of a file");
}

TEST(parseCommandLine, optionsEndAtTwoDashes)
{
    EXPECT_EQ(pathsOf({"--", "/-x", "/--help"}), (std::vector<std::string>{"/-x", "/--help"}));
    EXPECT_FALSE(parse({"--", "/--help"})->help);
}

TEST(parseCommandLine, readsOptionsInBothForms)
{
    EXPECT_TRUE(parse({"--help"})->help);
    EXPECT_TRUE(parse({"-h"})->help);
    EXPECT_TRUE(parse({"--version"})->version);
    EXPECT_TRUE(parse({"-v"})->version);
    EXPECT_TRUE(parse({"--service"})->service);
    EXPECT_EQ(parse({"--service-text", " /a b "})->serviceText, " /a b ");
    EXPECT_EQ(parse({"--service-text=--help"})->serviceText, "--help");
    EXPECT_EQ(parse({"--service-text", "--help"})->serviceText, "--help");
    EXPECT_EQ(parse({"--service-text="})->serviceText, "");
    EXPECT_EQ(parse({"--print-and-save", "x.png"})->printAndSave, "x.png");
    EXPECT_EQ(parse({"--action", "donate"})->action, "donate");
    EXPECT_EQ(parse({})->action, std::nullopt);
}

TEST(parseCommandLine, saysWhatIsWrong)
{
    EXPECT_EQ(errorOf({"--bogus"}), "unknown option '--bogus'");
    EXPECT_EQ(errorOf({"-x"}), "unknown option '-x'");
    EXPECT_EQ(errorOf({"--service-text"}), "option '--service-text' needs a value");
    EXPECT_EQ(errorOf({"--action", "dance"}), "unknown action 'dance'");
}
