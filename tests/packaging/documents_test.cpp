// What comes with the window's program for people and shells knows every option of it, and what
// file managers are told about pictures names every type of them.

#include "app/command_line.h"
#include "lib/files/path_text.h"
#include "lib/strings/string_holder.h"
#include "location/accepted_types.h"
#include "tests/support/environment.h"
#include "tests/support/program.h"

#include <gtest/gtest.h>

#include <QImage>

#include <algorithm>
#include <filesystem>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

using namespace pinorama;

namespace {
std::string documentOf(const std::string& path)
{
    return test::readFile(PINORAMA_SOURCE_FOLDER "/" + path);
}

// The long names of all options, with their dashes, as the program explains them.
std::vector<std::string> optionNames()
{
    std::vector<std::string> names;
    std::istringstream lines(usageText());
    const std::regex option("^  (?:-[a-z], )?(--[a-z-]+).*");
    for (std::string line; std::getline(lines, line);) {
        std::smatch match;
        if (std::regex_match(line, match, option)) names.push_back(match[1]);
    }
    return names;
}

std::string completionsOf(const std::string& words, int current)
{
    const std::string script = "source '" PINORAMA_SOURCE_FOLDER
                               "/packaging/completions/pinorama.bash'\n"
                               "COMP_WORDS=(" +
                               words + ")\nCOMP_CWORD=" + std::to_string(current) +
                               "\n_pinorama\necho \"${COMPREPLY[*]}\"";
    return test::runProgram({.command = {"/bin/bash", "--norc", "-c", script}}).out;
}

// The value of the first line "KEY=..." of a desktop file, cut at semicolons.
std::vector<std::string> listOf(const std::string& document, const std::string& key)
{
    std::vector<std::string> values;
    std::istringstream lines(document);
    for (std::string line; std::getline(lines, line);) {
        if (line.rfind(key + "=", 0) != 0) continue;
        std::istringstream parts(line.substr(key.size() + 1));
        for (std::string part; std::getline(parts, part, ';');) values.push_back(part);
        break;
    }
    return values;
}
// Width and height as the header of a PNG file tells them; zeros for anything else.
std::pair<int, int> sizeOfPng(const std::string& path)
{
    const std::string png = documentOf(path);
    if (png.size() < 24 || png.substr(1, 3) != "PNG") return {};
    // Both stand after the first chunk's length and name, big-endian.
    const auto number = [&](std::size_t at) {
        int value = 0;
        for (std::size_t i = at; i < at + 4; ++i)
            value = value * 256 + static_cast<unsigned char>(png[i]);
        return value;
    };
    return {number(16), number(20)};
}
}  // namespace

TEST(documentsOfTheWindow, nameEveryOption)
{
    const struct {
        const char *path, *before, *after;
    } documents[] = {
        {"packaging/man/pinorama.1", "Fl \\\\-", "(?=[ \n])"},
        {"packaging/completions/pinorama.bash", "--", "(?=['\\\\])"},
        {"packaging/completions/_pinorama", "--", "(?=[=\\[}])"},
        {"packaging/completions/pinorama.fish", "-l ", "(?= )"},
    };
    ASSERT_GE(optionNames().size(), 6u);
    for (const auto& [path, before, after] : documents) {
        const std::string document = documentOf(path);
        ASSERT_NE(document, "") << path;
        for (const std::string& option : optionNames()) {
            EXPECT_TRUE(std::regex_search(document, std::regex(before + option.substr(2) + after)))
                << path << " does not know " << option;
        }
    }
}

TEST(documentsOfTheWindow, manualPageIsWellFormed)
{
    const test::ProgramResult result =
        test::runProgram({.command = {"/usr/bin/groff", "-mandoc", "-ww", "-Tutf8",
                                      PINORAMA_SOURCE_FOLDER "/packaging/man/pinorama.1"}});
    if (result.status == 127) GTEST_SKIP() << "groff is not installed";
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.err, "");
    EXPECT_NE(result.out.find("pinorama"), std::string::npos);
}

TEST(documentsOfTheWindow, bashCompletesOptionsAndActions)
{
    std::string all;
    for (const std::string& option : optionNames()) all += (all.empty() ? "" : " ") + option;
    const struct {
        const char *name, *words;
        int current;
        std::string expected;
    } rows[] = {
        {"all options", "pinorama --", 1, all},
        {"one option", "pinorama a.jpg --he", 2, "--help"},
        {"common beginning", "pinorama --service", 1, "--service-text --service"},
        {"all actions", "pinorama --action ''", 2, "home donate quit"},
        {"one action", "pinorama --action ho", 2, "home"},
        {"after the equals sign", "pinorama --action =", 2, "home donate quit"},
        {"begun after the equals sign", "pinorama --action = d", 3, "donate"},
        {"an option's own text", "pinorama --service-text --he", 2, ""},
        {"after the two dashes", "pinorama -- --he", 2, ""},
        {"a file", "pinorama pho", 1, ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(completionsOf(row.words, row.current), row.expected + "\n");
    }
}

TEST(documentsOfTheWindow, otherShellsCanReadTheirCompletions)
{
    const std::vector<std::vector<std::string>> commands = {
        {"/usr/bin/zsh", "-n", PINORAMA_SOURCE_FOLDER "/packaging/completions/_pinorama"},
        {"/usr/bin/zsh", "-n", PINORAMA_SOURCE_FOLDER "/packaging/completions/_pinorama-info"},
        {"/usr/bin/fish", "-n", PINORAMA_SOURCE_FOLDER "/packaging/completions/pinorama.fish"},
        {"/usr/bin/fish", "-n", PINORAMA_SOURCE_FOLDER "/packaging/completions/pinorama-info.fish"},
    };
    std::size_t missing = 0;
    for (const auto& command : commands) {
        const test::ProgramResult result = test::runProgram({.command = command});
        if (result.status == 127) {
            ++missing;
            continue;
        }
        EXPECT_EQ(result.status, 0) << command.back();
        EXPECT_EQ(result.err, "") << command.back();
    }
    if (missing == commands.size()) GTEST_SKIP() << "neither zsh nor fish is installed";
}

TEST(menuEntries, nameTheTypesOfTheDesktopEntry)
{
    const auto types = listOf(documentOf("packaging/org.pinorama.Pinorama.desktop.in"), "MimeType");
    ASSERT_GE(types.size(), 19u);
    EXPECT_EQ(listOf(documentOf("packaging/menus/pinorama-dolphin.desktop.in"), "MimeType"), types);
    EXPECT_EQ(listOf(documentOf("packaging/menus/pinorama-thunar.desktop.in"), "MimeType"), types);
    EXPECT_EQ(listOf(documentOf("packaging/menus/pinorama-actions.desktop.in"), "MimeTypes"),
              types);
}

TEST(menuEntries, areForAcceptedExtensionsOnly)
{
    const auto extensions =
        listOf(documentOf("packaging/menus/pinorama.nemo_action.in"), "Extensions");
    EXPECT_EQ(extensions.size(), 20u);
    for (const std::string& extension : extensions) {
        const StringHolder path(createPathText("/a." + extension));
        EXPECT_TRUE(gpsIsAcceptedPath(path.get())) << extension;
    }
}

TEST(menuEntries, scriptOpensArgumentsOrTheFirstPathOfTheVariable)
{
    // A stand-in for the program prints what it is given.
    const test::TemporaryFolder folder;
    const std::string program = folder.write("pinorama", "#!/bin/sh\nprintf '<%s>' \"$@\"\n");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
    const std::string script = PINORAMA_SOURCE_FOLDER "/packaging/menus/pinorama-script";
    const std::string search = folder.path() + ":/usr/bin:/bin";
    const struct {
        const char* name;
        std::vector<std::string> arguments;
        const char *nautilus, *caja, *expected;
    } rows[] = {
        {"an argument", {"a b.jpg"}, "/x.jpg\n", "", "<--><a b.jpg>"},
        {"Nautilus' variable", {}, "/x y.jpg\n/z.jpg\n", "", "<--></x y.jpg>"},
        {"Caja's variable", {}, "", "/c.jpg\n", "<--></c.jpg>"},
        {"nothing", {}, "", "", ""},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        std::vector<std::string> command = {"/bin/sh", script};
        command.insert(command.end(), row.arguments.begin(), row.arguments.end());
        const test::ProgramResult result =
            test::runProgram({.command = command,
                              .variables = {{"PATH", search},
                                            {"NAUTILUS_SCRIPT_SELECTED_FILE_PATHS", row.nautilus},
                                            {"CAJA_SCRIPT_SELECTED_FILE_PATHS", row.caja}}});
        EXPECT_EQ(result.status, 0);
        EXPECT_EQ(result.out, row.expected);
    }
}

TEST(icons, haveTheSizeOfTheirFolder)
{
    for (const int size : {16, 22, 24, 32, 48, 64, 128, 256}) {
        SCOPED_TRACE(size);
        const std::string folder = std::to_string(size) + "x" + std::to_string(size);
        EXPECT_EQ(
            sizeOfPng("resources/icons/hicolor/" + folder + "/apps/org.pinorama.Pinorama.png"),
            std::pair(size, size));
    }
}

TEST(screenshots, haveTheSizeThatTheMetainfoDeclares)
{
    const std::string metainfo = documentOf("packaging/org.pinorama.Pinorama.metainfo.xml.in");
    for (const std::string name : {"window-light.png", "tour-raw.png", "window-dark.png"}) {
        std::smatch match;
        ASSERT_TRUE(std::regex_search(
            metainfo, match,
            std::regex("width=\"([0-9]+)\" height=\"([0-9]+)\">[^<]*/" + name + "<")));
        EXPECT_EQ(sizeOfPng("docs/pictures/" + name),
                  std::pair(std::stoi(match[1]), std::stoi(match[2])));
    }
}

TEST(screenshots, showTheWindowWithTheShadowOfItsFrame)
{
    int count = 0;
    for (const auto& file :
         std::filesystem::directory_iterator(PINORAMA_SOURCE_FOLDER "/docs/pictures")) {
        SCOPED_TRACE(file.path().filename());
        const QImage picture(QString::fromStdString(file.path().string()));
        ASSERT_FALSE(picture.isNull());
        EXPECT_EQ(qAlpha(picture.pixel(0, 0)), 0);
        const int middle = picture.height() / 2;
        int left = 0;
        while (left < picture.width() && qAlpha(picture.pixel(left, middle)) < 255) ++left;
        ASSERT_GT(left, 0) << "the window begins at the edge";
        ASSERT_LT(left, picture.width()) << "there is no window";
        EXPECT_GT(qAlpha(picture.pixel(left - 1, middle)), 0) << "it has no shadow";
        ++count;
    }
    EXPECT_GE(count, 3);
}

TEST(documents, stateTheRightNumbers)
{
    const std::string readme = documentOf("README.md");
    const auto said = [&readme](const char* pattern) {
        std::smatch match;
        return std::regex_search(readme, match, std::regex(pattern)) ? match[1].str() : "nothing";
    };
    const auto extensions =
        listOf(documentOf("packaging/menus/pinorama.nemo_action.in"), "Extensions");
    const auto raw = std::count_if(extensions.begin(), extensions.end(), [](const auto& ending) {
        return ending != "jpg" && ending != "jpeg";
    });
    EXPECT_EQ(said("([0-9]+) raw extensions"), std::to_string(raw));
    EXPECT_EQ(said("offers ([a-z]+) maps"), "nine");
    const std::string services = documentOf("resources/strings/en/GPS.strings");
    EXPECT_NE(services.find("\"a9\" = "), std::string::npos);
    EXPECT_EQ(services.find("\"a10\" = "), std::string::npos);
}

TEST(documents, nameAllFileManagers)
{
    std::set<std::string> names;
    for (const auto& file :
         std::filesystem::directory_iterator(PINORAMA_SOURCE_FOLDER "/selection/managers")) {
        const std::string source = test::readFile(file.path().string());
        std::smatch match;
        if (std::regex_search(source, match, std::regex("\n    \\.name = \"([^\"]+)\",\n")))
            names.insert(match[1]);
    }
    EXPECT_EQ(names.size(), 9);
    for (const std::string document :
         {"README.md", "docs/manual.md", "docs/file-managers.md", "packaging/man/pinorama.1",
          "packaging/org.pinorama.Pinorama.metainfo.xml.in"}) {
        const std::string text = documentOf(document);
        for (const std::string& name : names)  // one begins like another
            EXPECT_TRUE(std::regex_search(text, std::regex(name + "(?![-A-Za-z])")))
                << document << " does not name " << name;
    }
}

TEST(documents, nameThePackagesOfTheFileManagers)
{
    const std::string control = documentOf("debian/control");
    const std::regex package("\nPackage: ([a-z]+-pinorama)\n");
    int count = 0;
    for (std::sregex_iterator match(control.begin(), control.end(), package), end; match != end;
         ++match, ++count) {
        const std::string name = (*match)[1];
        for (const char* document : {"docs/file-managers.md", "packaging/man/pinorama.1"})
            EXPECT_NE(documentOf(document).find(name), std::string::npos) << document << name;
    }
    EXPECT_EQ(count, 4);
}

TEST(debianControl, asksForWhatTheScriptsInstall)
{
    const std::string control = documentOf("debian/control");
    const std::string installed = "\n" + documentOf("scripts/packages.txt");
    std::smatch list;
    ASSERT_TRUE(std::regex_search(control, list, std::regex("\nBuild-Depends:\n((?: .*\n)+)")));
    const std::string needed = list[1];
    const std::regex first("\n? ([a-z0-9.+-]+)[^\n]*,");
    int count = 0;
    for (std::sregex_iterator match(needed.begin(), needed.end(), first), end; match != end;
         ++match) {
        const std::string name = (*match)[1];
        if (name == "debhelper-compat") continue;  // packs, does not build
        ++count;
        EXPECT_NE(installed.find("\n" + name + "\n"), std::string::npos) << name;
    }
    EXPECT_GT(count, 10);
}

TEST(debianControl, asksForEveryLibraryButThoseOfTests)
{
    const std::string control = documentOf("debian/control");
    std::istringstream lines(documentOf("scripts/packages.txt"));
    int count = 0;
    for (std::string name; std::getline(lines, name);) {
        if (!name.ends_with("-dev")) continue;
        const bool isForTests = name == "libbenchmark-dev" || name == "libexiv2-dev" ||
                                name == "libgmock-dev" || name == "libgtest-dev";
        ++count;
        EXPECT_EQ(std::regex_search(control, std::regex("\n " + name + "[ ,]")), !isForTests)
            << name;
    }
    EXPECT_GT(count, 10);
}

namespace {
// The lines of a list that is named at the start of a line.
std::string listIn(const std::string& document, const std::string& name)
{
    std::smatch match;
    const std::regex list("(?:^|\n)" + name + ":\n((?:(?:  .*)?\n)+)");
    return std::regex_search(document, match, list) ? match[1].str() : "";
}
}  // namespace

TEST(flatpakManifest, requestsNoPermissionWithoutAReason)
{
    const std::string asked =
        listIn(documentOf("packaging/flatpak/org.pinorama.Pinorama.yml"), "finish-args");
    std::istringstream lines(asked);
    bool isExplained = false;
    int count = 0;
    for (std::string line; std::getline(lines, line);) {
        SCOPED_TRACE(line);
        if (line.empty()) isExplained = false;
        if (line.rfind("  #", 0) == 0) isExplained = true;
        if (line.rfind("  - ", 0) != 0) continue;
        ++count;
        EXPECT_TRUE(isExplained);
        // Pictures are read, never written; the accessibility bus is a socket; no foreign name is
        // owned.
        const std::regex allowed(
            "  - --(socket=(wayland|fallback-x11)|share=ipc|filesystem=[^:]+:ro|"
            "filesystem=xdg-run/at-spi|talk-name=[A-Za-z0-9.]+)");
        EXPECT_TRUE(std::regex_match(line, allowed));
    }
    EXPECT_EQ(count, 10);
}

TEST(flatpakManifest, namesTheCommitOfEverySource)
{
    const std::string manifest = documentOf("packaging/flatpak/org.pinorama.Pinorama.yml");
    const auto countOf = [&manifest](const char* pattern) {
        const std::regex regex(pattern);
        return std::distance(std::sregex_iterator(manifest.begin(), manifest.end(), regex), {});
    };
    EXPECT_EQ(countOf("type: git\n"), 4);
    EXPECT_EQ(countOf("type: git\n +url: https://.*\n +tag: .*\n +commit: [0-9a-f]{40}\n"), 4);
}
