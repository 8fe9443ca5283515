#include "cli/options.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

using namespace pinorama;

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
    EXPECT_EQ(outcome.options.output, Output::text);
    EXPECT_EQ(outcome.options.files, (Files{"b.jpg", "a.jpg", "b.jpg"}));
}

TEST(readOptions, findsOptionsBetweenFiles)
{
    for (const Files& arguments :
         {Files{"--json", "a", "b"}, Files{"a", "--json", "b"}, Files{"a", "b", "--json"}}) {
        const Outcome outcome = read(arguments);
        EXPECT_TRUE(outcome.isRight);
        EXPECT_EQ(outcome.options.output, Output::json);
        EXPECT_EQ(outcome.options.files, (Files{"a", "b"}));
    }
}

TEST(readOptions, readsMoreOnlyOnRequest)
{
    EXPECT_FALSE(read({"a"}).options.readsMore);
    EXPECT_TRUE(read({"--more", "a"}).options.readsMore);
}

TEST(readOptions, takesEverythingAfterTwoDashesAsFiles)
{
    const Outcome outcome = read({"--json", "--", "--json", "-x.jpg"});
    EXPECT_TRUE(outcome.isRight);
    EXPECT_EQ(outcome.options.files, (Files{"--json", "-x.jpg"}));
}

TEST(readOptions, takesASingleDashAsAFile)
{
    EXPECT_EQ(read({"-"}).options.files, Files{"-"});
}

TEST(readOptions, takesTheOutput)
{
    const struct {
        Files arguments;
        Output expected;
    } rows[] = {
        {{"a"}, Output::text},
        {{"--csv", "a"}, Output::csv},
        {{"--json", "--json", "a"}, Output::json},
        {{"--format", "json", "a"}, Output::json},
        {{"--format=csv", "--csv", "a"}, Output::csv},
        {{"--format", "kml", "a"}, Output::kml},
        {{"--format", "kmz", "a"}, Output::kmz},
        {{"--format", "geojson", "a"}, Output::geojson},
        {{"--format", "gpx", "--track", "a"}, Output::gpx},
        {{"--format", "list", "a"}, Output::list},
        {{"--web", "3", "a"}, Output::webAddress},
        {{"--search", "a"}, Output::catalogueAddress},
        {{"--print-script", "a"}, Output::script},
        {{"--kml", "d", "a"}, Output::nothing},
        {{"--csv", "--kml", "d", "a"}, Output::csv},
        {{"--kml", "d", "--csv", "a"}, Output::csv},
    };
    for (const auto& row : rows) EXPECT_EQ(read(row.arguments).options.output, row.expected);
    EXPECT_EQ(read({"--web", "3", "a"}).options.webService, 3);
    EXPECT_EQ(read({"--kml=d", "a"}).options.kmlPath, "d");
}

TEST(readOptions, takesShortAndLongOptions)
{
    for (const Files& arguments : {Files{"-r", "-q", "a"}, Files{"-rq", "a"},
                                   Files{"--recursive", "--quiet", "a"}, Files{"a", "-qr"}}) {
        const Outcome outcome = read(arguments);
        EXPECT_TRUE(outcome.isRight);
        EXPECT_TRUE(outcome.options.recursive);
        EXPECT_TRUE(outcome.options.quiet);
        EXPECT_EQ(outcome.options.files, Files{"a"});
    }
}

TEST(readOptions, oneFileAndADocumentAreASingleExport)
{
    const struct {
        Files arguments;
        bool isSingle;
    } rows[] = {
        {{"--kml", "d", "a"}, true},
        {{"--kml", "d", "--json", "a"}, true},
        {{"--kml", "d", "a", "b"}, false},
        {{"--kml", "d", "-r", "a"}, false},
        {{"a"}, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(read(row.arguments).options.isSingleExport(), row.isSingle);
    }
}

TEST(readOptions, needsNoFileForHelpAndVersion)
{
    for (const char* option : {"--help", "-h"}) {
        EXPECT_TRUE(read({option}).isRight);
        EXPECT_TRUE(read({option}).options.help);
    }
    for (const char* option : {"--version", "-v"}) {
        EXPECT_TRUE(read({option}).isRight);
        EXPECT_TRUE(read({option}).options.version);
        EXPECT_FALSE(read({option}).options.verbose);
        EXPECT_TRUE(read({option, "--verbose"}).options.verbose);
    }
}

TEST(readOptions, explainsWhatIsWrong)
{
    const struct {
        const char* name;
        Files arguments;
        const char* expected;
    } rows[] = {
        {"nothing", {}, "no file given"},
        {"no file", {"--json"}, "no file given"},
        {"no file after the dashes", {"--"}, "no file given"},
        {"unknown word", {"--bogus", "a.jpg"}, "unknown option '--bogus'"},
        {"unknown word after a file", {"a.jpg", "--bogus"}, "unknown option '--bogus'"},
        {"unknown letter", {"-j", "a.jpg"}, "unknown option '-j'"},
        {"unknown letters", {"-jx", "a.jpg"}, "unknown option '-j'"},
        {"an unexpected value", {"--json=1", "a.jpg"}, "unknown option '--json=1'"},
        {"another", {"--version=1"}, "unknown option '--version=1'"},
        {"no folder", {"-r"}, "no folder given"},
        {"no value", {"a.jpg", "--kml"}, "option '--kml' needs a value"},
        {"an empty name", {"--kml", "", "a.jpg"}, "--kml needs a file name"},
        {"no number", {"--web", "a.jpg"}, "--web needs the number of a web service, not 'a.jpg'"},
        {"zero", {"--web=0", "a"}, "--web needs the number of a web service, not '0'"},
        {"a negative number",
         {"--web=-1", "a"},
         "--web needs the number of a web service, not '-1'"},
        {"a number and a letter",
         {"--web=1x", "a"},
         "--web needs the number of a web service, not '1x'"},
        {"a number that is too large",
         {"--web=99999999999", "a"},
         "--web needs the number of a web service, not '99999999999'"},
        {"an unknown format",
         {"--format=shp", "a"},
         "--format needs json, csv, kml, kmz, geojson, gpx or list, not 'shp'"},
        {"two formats",
         {"--format=kml", "--json", "a"},
         "only one of --format, --json, --csv, --web, --search and --print-script can be given"},
        {"no place", {"--near", "", "a"}, "--near needs a place"},
        {"no area", {"--within=", "a"}, "--within needs a file name"},
        {"nothing to watch", {"--watch"}, "no folder given"},
        {"no list", {"--files-from=", "a"}, "--files-from needs a file name"},
        {"a place and none",
         {"--no-position", "--near=1,2", "a"},
         "--no-position can be given neither with --near nor with --within"},
        {"two outputs",
         {"--json", "--csv", "a.jpg"},
         "only one of --format, --json, --csv, --web, --search and --print-script can be given"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        const Outcome outcome = read(row.arguments);
        EXPECT_FALSE(outcome.isRight);
        EXPECT_EQ(outcome.error, row.expected);
    }
}

TEST(readOptions, canBeCalledAgain)
{
    EXPECT_FALSE(read({"--bogus"}).isRight);
    EXPECT_EQ(read({"a"}).options.files, Files{"a"});
    EXPECT_EQ(read({"b", "--json"}).options.files, Files{"b"});
}

TEST(fullUsage, explainsEveryOption)
{
    for (const char* option :
         {"-r, --recursive", "--format NAME", "--json",        "--csv",       "--raw",
          "--track",         "--kml DEST",    "--web N",       "--search",    "--print-script",
          "--near PLACE",    "--within FILE", "--no-position", "--as-found",  "--files-from FILE",
          "-0, --null",      "--watch",       "--progress",    "-q, --quiet", "-h, --help",
          "-v, --version",   "FILE..."}) {
        EXPECT_NE(fullUsage().find(option), std::string::npos) << option;
    }
    EXPECT_EQ(fullUsage().rfind(shortUsage(), 0), 0u);
}
